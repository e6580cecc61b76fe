// SPDX-License-Identifier: MIT
#pragma once

#include "elements/element.h"

#include <cstddef>
#include <vector>

namespace zor {

/// What a line of a log is about. The names are those under which its users know the colours; a view shows
/// each in a tone that reads on light and on dark ground.
enum class LogColour {
    Blue,  ///< a run begins or ends
    Red,   ///< something is wrong
    Green, ///< something was found right
    Black, ///< what is said beside
};

/// Lines with a colour each, which only grow until the log is cleared. They come of a user's clicks, a
/// handful each, so that they need no bound.
class ColouredLog : public Element {
  public:
    struct Line {
        LogColour colour = LogColour::Black;
        std::string text;

        friend bool operator==(const Line&, const Line&) = default;
    };

    ColouredLog(Form& owner, std::string name)
        : Element(owner, std::move(name)) {}

    [[nodiscard]] const std::vector<Line>& lines() const { return all; }
    /// How many lines have gone with the clearings until now: the number of the first line that is left.
    [[nodiscard]] std::size_t clearedLines() const { return cleared; }
    /// The lines' texts, each ended by CR LF.
    [[nodiscard]] std::string text() const override;

    void append(LogColour colour, std::string text);
    /// Empties it; tells `changed`.
    void clear();
    /// Brings the last line into sight.
    void moveToEnd() { movedToEnd.emit(); }

    /// A line has come.
    Signal<const Line&> appended;
    Signal<> movedToEnd;

  private:
    std::vector<Line> all;
    std::size_t cleared = 0;
};

} // namespace zor
