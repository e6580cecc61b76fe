// SPDX-License-Identifier: MIT
#pragma once

#include "elements/label.h"
#include "platform/event_loop.h"

#include <chrono>
#include <functional>
#include <string>
#include <utility>

namespace zor {

/// The quiet line at the foot of the main window: what was said last, and what holds of the bench as it
/// stands. What begins to hold is shown at once; what is said while it holds is shown for a while, and then
/// gives way to it. While nothing holds, what was said last stays. Owned by the main window.
class FootLine {
  public:
    /// So long what was said stands before what holds.
    static constexpr std::chrono::milliseconds readingTime = std::chrono::seconds(8);

    /// @param standing  what holds now; empty if there is nothing to tell
    FootLine(EventLoop& loop, Label& ownLabel, std::function<std::string()> standing)
        : label(ownLabel)
        , standingText(std::move(standing))
        , reading(loop, [this] { hasBeenRead(); }) {
        reading.setInterval(readingTime);
    }

    void say(const std::string& text) {
        said = text;
        reading.stop();
        if (!said.empty() && !standingText().empty()) {
            reading.start();
        }
        show();
    }
    /// It has become untrue; another text stays.
    void withdraw(const std::string& text) {
        if (said == text) {
            say({});
        }
    }
    /// What holds may have changed.
    void refresh() {
        std::string now = standingText();
        if (now != stands && !now.empty()) {
            said.clear();
            reading.stop();
        }
        stands = std::move(now);
        show();
    }

  private:
    void hasBeenRead() {
        reading.stop();
        if (!standingText().empty()) {
            said.clear();
        }
        show();
    }
    void show() { label.setCaption(said.empty() ? standingText() : said); }

    Label& label;
    std::function<std::string()> standingText;
    std::string said;
    /// What held when it was looked at last.
    std::string stands;
    Timer reading;
};

} // namespace zor
