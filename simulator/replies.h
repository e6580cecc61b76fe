// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace zor::sim {

enum class BoardKind { LoadBoard1, LoadBoard2, Loader, Monitor, Silent };

/// The two ends of a reply. Line feed comes before carriage return in both.
inline constexpr std::string_view successPrompt = "\n\rOK\n\r>";
inline constexpr std::string_view errorPrompt = "ERROR\n\r>";

// The texts that stand in front of the success prompt. The PC reads them by position, counted from the prompt
// backwards, so their ends are fixed to the character.

/// The identification: 87 characters, 94 with the prompt, which is the window the PC looks at. Empty for a
/// silent board.
[[nodiscard]] std::string bannerText(BoardKind kind);

/// "5F ": a byte and its separator.
[[nodiscard]] std::string byteText(std::uint8_t value);
/// "5FA0 ": the 16 bits clocked back and one separator.
[[nodiscard]] std::string wordText(std::uint16_t value);
/// "5f a0 ": bytes of a counted read, lower case, each with its separator.
[[nodiscard]] std::string bytesText(std::span<const std::uint8_t> values);
/// The level of the interrupt line, at both places where the PC's tools look: 13 and 9 characters before the
/// end of the reply.
[[nodiscard]] std::string interruptText(bool high);
/// The level of the data line, 11 characters before the end of the reply.
[[nodiscard]] std::string dataLineText(bool high);
/// The converter's two bytes in their long-winded sentence: the high byte starts 33 characters before the end
/// of the reply, the low byte 17.
/// @param counts  0 to 1023
[[nodiscard]] std::string converterText(int counts);

/// A received packet as the board reports it of its own accord: the length in two decimal digits, then the
/// bytes as they are. The success prompt follows it.
/// @param packet  at most 99 bytes
[[nodiscard]] std::string packetReport(std::string_view packet);

} // namespace zor::sim
