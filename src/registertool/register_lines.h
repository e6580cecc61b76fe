// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace zor {

// What goes over the wire to a chip of registers, and what is shown of its values. A register exchange is one
// 16-bit word behind "S2 ": the address, its top bit set for a write, and the data.

/// The four binary digits of each of the first two characters, most significant first; "...." for one that is
/// missing or no hexadecimal digit. Always eight characters.
[[nodiscard]] std::string HexToBinary(std::string_view hex);
/// HexToBinary as the worktable holds it: two groups of four with a blank between.
[[nodiscard]] std::string binaryValue(std::string_view hex);

/// The last two characters behind as many zeros as are missing.
[[nodiscard]] std::string twoDigits(std::string_view text);

/// Asks for one register: the first four characters of the address and zeros. A one-digit address so gives
/// four zeros behind it and loses its second digit.
[[nodiscard]] std::string readLine(std::string_view address);
/// The same as the walk over the whole table asks.
[[nodiscard]] std::string tableReadLine(std::string_view address);
/// The address with the write bit: 8 added to its first digit. A first digit above 9 counts as 0.
[[nodiscard]] std::string writeAddress(std::string_view address);
[[nodiscard]] std::string writeLine(std::string_view address, std::string_view value);

/// The low byte of a register's answer in the last 15 characters received, whatever stands there.
[[nodiscard]] std::string answeredByte(std::string_view last15);
/// The high byte of a status register's answer.
[[nodiscard]] std::string answeredHighByte(std::string_view last15);

/// A register in a configuration file: what stands before and behind the first comma, without blanks. A line
/// without a comma is all address.
struct RegisterLine {
    std::string address;
    std::string value;
};
[[nodiscard]] RegisterLine readRegisterLine(std::string_view line);

} // namespace zor
