// SPDX-License-Identifier: MIT
#pragma once

#include "elements/signal.h"
#include "transcript/transcript.h"

#include <functional>
#include <string>

namespace zor {
class MainWindow;
} // namespace zor

namespace zor::transcript {

/// The board that a transcript is played on, as far as the play depends on it: it begins once the search for
/// boards is over, and ends with a board that goes unless the transcript let it go itself.
class PlayedBoard {
  public:
    explicit PlayedBoard(MainWindow& program);

    /// The port was closed, by whomever.
    std::function<void()> portClosed;

    /// The program looks for boards, or takes the only one that it found; of several the transcript chooses.
    [[nodiscard]] bool searching() const;
    /// The first statement comes.
    void begin() { wasThere = connected(); }
    /// A statement has been carried out.
    void carriedOut(const Statement& statement);
    /// Why the play cannot go on; empty if it can.
    [[nodiscard]] std::string hindrance() const;

  private:
    [[nodiscard]] bool connected() const;

    MainWindow& main;
    /// A board was there when the last statement ended, and the transcript did not let it go.
    bool wasThere = false;
    Subscription closing;
};

} // namespace zor::transcript
