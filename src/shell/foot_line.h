// SPDX-License-Identifier: MIT
#pragma once

#include "elements/label.h"

#include <functional>
#include <string>
#include <utility>

namespace zor {

/// The quiet line at the foot of the main window: what was said last, and while nothing is to be said, what
/// holds of the bench as it stands. Owned by the main window.
class FootLine {
  public:
    /// @param standing  what holds now; empty if there is nothing to tell
    FootLine(Label& ownLabel, std::function<std::string()> standing)
        : label(ownLabel)
        , standingText(std::move(standing)) {}

    void say(const std::string& text) {
        said = text;
        refresh();
    }
    /// It has become untrue; another text stays.
    void withdraw(const std::string& text) {
        if (said == text) {
            say({});
        }
    }
    /// What holds may have changed.
    void refresh() { label.setCaption(said.empty() ? standingText() : said); }

  private:
    Label& label;
    std::function<std::string()> standingText;
    std::string said;
};

} // namespace zor
