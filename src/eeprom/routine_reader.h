// SPDX-License-Identifier: MIT
// What an event routine says, command by command, as the board's controller and the transmitter will take it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zor {

class ChipPanel;

/// One command of a routine, or a stretch of it that is none. The commands of a routine follow each other
/// without a gap and cover all its digits.
struct RoutineCommand {
    enum class Kind {
        Word,       ///< goes to the transmitter chip as it stands
        Controller, ///< is for the board's controller: data, sleep, push buttons
        Padding,    ///< zero bytes behind the routine's end
        Unreadable,
    };

    /// Digits of the routine in front of it, and its own.
    std::size_t begin = 0;
    std::size_t count = 0;
    Kind kind = Kind::Word;
    std::string name;
    std::string meaning;
};

/// How words are read: by the tables of an open transmitter panel, with its crystal, or by their codes alone.
struct ReadingBasis {
    /// nullptr without a panel.
    const ChipPanel* panel = nullptr;
    /// The transmitter's crystal, of which the data rate comes.
    std::int32_t crystalHertz = 10'000'000;
};

/// @param routine  digits; whatever is none cannot be read, and nothing is refused
[[nodiscard]] std::vector<RoutineCommand> readRoutine(std::string_view routine, const ReadingBasis& basis);

} // namespace zor
