// SPDX-License-Identifier: MIT
#pragma once

#include "elements/monitor.h"
#include "elements/signal.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <string_view>

namespace zor {

/// Received text of hours: it keeps the newest 16 MiB, which is over two hours of a full line, and lets the
/// oldest go, whole lines of it. Clearing gives the memory back.
///
/// The program may put remarks of its own between what came. They are no part of the text: they are shown
/// in another tone, and a saved log has them.
class KeptText : public Monitor {
  public:
    /// In bytes.
    static constexpr std::size_t mostKept = std::size_t{16} << 20;

    KeptText(Form& owner, std::string name);

    /// How much of the front is gone since the text was last cleared, in bytes.
    [[nodiscard]] std::size_t dropped() const { return droppedCount; }
    /// What a user should know of it; empty as long as all is there.
    [[nodiscard]] std::string droppedNote() const;

    struct Remark {
        /// In bytes of the text as it is now: in front of which one it stands.
        std::size_t position = 0;
        /// Its line ends included.
        std::string text;
    };
    /// By position.
    [[nodiscard]] const std::deque<Remark>& remarks() const { return ownRemarks; }
    /// Puts a remark behind what has come so far.
    void remark(std::string text);
    /// The text with its remarks.
    [[nodiscard]] std::string withRemarks() const;

    /// The whole text is marked and typed over, key by key; `type` presses Enter behind it.
    bool edit(std::string_view text) override;
    bool type(std::string_view text) override;

    /// Asks for an earlier (-1) or later (1) line of what was typed.
    bool recall(int step);
    std::function<void(int)> onRecall;

    /// A remark was put behind the others.
    Signal<> remarked;
    /// The oldest text went.
    Signal<> shortened;

  private:
    void dropOldest();
    void followShorterText();

    std::deque<Remark> ownRemarks;
    std::size_t droppedCount = 0;
    Subscription growing;
    Subscription shrinking;
};

} // namespace zor
