// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>

namespace zor {

/// The lines that were typed, to be fetched again one after the other. Below the newest stands what was being
/// typed when the walk began.
class TypedLines {
  public:
    /// An empty line, or the newest one again, adds nothing. Ends a walk.
    void add(const std::string& line);
    /// The line was changed by hand: the next step begins at the newest again.
    void endWalk();
    /// @param step     -1 to the line before, 1 to the one behind
    /// @param current  what stands in the line now
    /// @return what is to stand there; nothing where no line is left that way
    std::optional<std::string> walk(int step, const std::string& current);

  private:
    static constexpr std::size_t most = 200;

    std::deque<std::string> lines;
    /// Counts from the newest, which is 1; 0 is the line being typed.
    std::size_t back = 0;
    std::string draft;
};

} // namespace zor
