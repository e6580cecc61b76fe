// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zor {

/// The words of the board's command line; a command is a word, its arguments and a carriage return.
namespace command {

inline constexpr std::string_view identify = "i\r";
inline constexpr std::string_view selectExternal = "X0\r";
inline constexpr std::string_view selectInternal = "X1\r";
inline constexpr std::string_view enterDataMode = "X2\r";
inline constexpr std::string_view releaseLine3 = "Z3\r";
inline constexpr std::string_view highCurrentRange = "A1\r";
inline constexpr std::string_view lowCurrentRange = "A0\r";
/// Asks for the 10-bit value of the current measurement.
inline constexpr std::string_view readConverter = "AD\r";

} // namespace command

/// What the supply code's divisor is for a board generation (1: 311, else 309).
[[nodiscard]] double supplyConstant(int loadBoardRev);

/// The "V" line that sets the radio board's supply: 255 less the constant over the voltage, nearest, ties to
/// even.
/// @param volts  read from a field or a file; throws ToolError 11 "Division by zero" for 0, 6 "Overflow" for
///               a voltage that no code of one byte stands for
[[nodiscard]] std::string supplyCommand(double volts, double constant);

} // namespace zor
