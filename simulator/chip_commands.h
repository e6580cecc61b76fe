// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace zor::sim {

enum class Chip { KT1100, KT1101, KT1102, KT2100, KT2102, KT3100, KT3101 };

/// What a word of a chip sets. The same role has different bases on different chips.
enum class WordRole {
    configuration,
    frequency,
    outputPower,
    powerManagement,
    receiver,
    transmitter,
    wakeUpTimer,
    extendedWakeUpTimer,
    lowDutyCycle,
    lowBattery,
    frequencyControl,
    dataRate,
    dataFilter,
    fifo,
    pll,
    synchronPattern,
    extendedFeatures,
    statusRead,
};

/// One command of a chip: the fixed high bits that select it, the rest being its fields.
struct ChipCommand {
    WordRole role;
    std::string_view name;
    int bits;           // 8 or 16
    std::uint16_t base; // the fixed bits
    std::uint16_t mask; // which bits are fixed
};

[[nodiscard]] std::span<const ChipCommand> commandsOf(Chip chip);

/// The command that a word of so many bits addresses.
/// @return nullptr if the chip knows none
[[nodiscard]] const ChipCommand* decode(Chip chip, std::uint16_t word, int bits);

/// Name of the command for a reader of a trace. Without a chip it is the name that the chips which know the
/// word agree on, or their different names joined by " or ". Empty if no chip knows the word.
[[nodiscard]] std::string commandName(std::optional<Chip> chip, std::uint16_t word, int bits);

/// "KT1100" to "KT3101".
[[nodiscard]] std::string_view chipName(Chip chip);
/// All of them, blanks between.
[[nodiscard]] std::string chipNames();
/// The chip of a name, in either case.
[[nodiscard]] std::optional<Chip> chipOfName(std::string_view name);

} // namespace zor::sim
