// SPDX-License-Identifier: MIT
// The texts that the content editor works on: event routines, payloads and the image, all as hexadecimal
// digits, two a byte. Nothing here knows of a window.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zor {

/// What the board's controller runs a routine for, in the order of the blocks in the EEPROM.
inline constexpr int eventCount = 7;
/// A routine's block in the EEPROM is 128 bytes long.
inline constexpr std::size_t routineDigits = 256;
inline constexpr std::size_t imageDigits = routineDigits * eventCount;

/// Appended to a routine to end it: the controller sleeps until the next event.
inline constexpr std::string_view sleepCommand = "C400";
/// Begins the command that transmits the bytes behind its length.
inline constexpr std::string_view transmitCode = "C6";
/// Digits of the transmit command in front of its data.
inline constexpr std::size_t transmitHead = 4;
/// The 64 bytes of the PN9 sequence with which receivers are measured.
inline constexpr std::string_view pn9Sequence =
    "FF83DF1732094ED1E7CD8A91C6D5C4C44021184E5586F4DC8A15A7EC92DF9353"
    "3018CA34BFA2C759678FBA0D6DD82D7D540A57977039D27AEA243385ED9A1DE0";

/// Replaces a text by its other view: each character by the two upper-case digits of its code, or each pair
/// of digits by the character of that code. Digits that are none count as 0; a lone last one is dropped.
void Hex2Ascii2Hex(std::string& sData2Convert, bool Ascii2Hex);

/// A text and where the caret stands in it.
struct CaretText {
    std::string text;
    std::size_t caret = 0;

    friend bool operator==(const CaretText&, const CaretText&) = default;
};

/// What a field of digits makes of a change: of what came in front of the caret (one character, if it was
/// typed), whatever is no digit is taken out, and the whole text goes to upper case.
/// @param before  the text as it was before the change
[[nodiscard]] CaretText filteredDigits(std::string_view before, const CaretText& after);

/// The transmit command of a payload with whole bytes.
/// @param payload  up to 255 bytes in digits
[[nodiscard]] std::string transmitCommand(std::string_view payload);
/// The routine up to the end of its last transmit command's data; the whole of it if there is none.
[[nodiscard]] std::string withoutTail(std::string_view routine);
/// The routine in front of its first transmit command; the whole of it if there is none.
[[nodiscard]] std::string withoutTransmits(std::string_view routine);

/// How many fill bytes a routine takes.
/// @param reserved  digits to be left free behind them
[[nodiscard]] int fillCount(std::size_t length, std::size_t reserved);

/// The sleep command's digits stand somewhere in it, also as data or across two bytes.
[[nodiscard]] bool mentionsSleep(std::string_view routine);
/// The routine is empty or sleeps at once.
[[nodiscard]] bool hasNoFunction(std::string_view routine);

/// A routine's block of the image: the routine with zero bytes behind it.
[[nodiscard]] std::string routineBlock(std::string_view routine);
/// The digits of an image's text: all of it but line ends and blanks.
[[nodiscard]] std::string imageDigitsOf(std::string_view text);
/// The routines that an image holds, from the first on: its length in blocks, rounded to the nearest whole
/// number, a half to the even one.
[[nodiscard]] std::vector<std::string> routinesOf(std::string_view image);
/// The text with a blank between two bytes, and a line end where a line is full, also behind the last byte.
[[nodiscard]] std::string FormatEEPROMText(std::string_view text, int bytesPerLine);

} // namespace zor
