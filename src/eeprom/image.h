// SPDX-License-Identifier: MIT
// An EEPROM's image as the user edits it: text whose hexadecimal digits count, two a byte, and nothing else.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zor {

/// The serial EEPROM of the demonstration boards, in bytes.
inline constexpr std::size_t eepromBytes = 1024;
/// What one write instruction fills; it never crosses into the next page.
inline constexpr std::size_t eepromPageBytes = 16;
/// The first line of an image file before a file brought another: a start of text, and an address that nobody
/// interprets.
inline constexpr std::string_view customaryPreamble = "\x02 $A00000000,\r\n";

/// The hexadecimal digits of a text, in their order and case.
[[nodiscard]] std::string hexDigits(std::string_view text);
[[nodiscard]] std::size_t countHexDigits(std::string_view text);
/// The same with A to F in lower case, as the device's bytes come.
[[nodiscard]] std::string foldedHexDigits(std::string_view text);

/// Where in a text the first digit of each byte stands, of so many bytes at most.
[[nodiscard]] std::vector<std::size_t> bytePlaces(std::string_view text, std::size_t most);

/// How many bytes so many digits are; an odd digit is half a byte: "5.5", "0.5".
[[nodiscard]] std::string byteCountText(std::size_t digits);
/// "1024 byte".
[[nodiscard]] std::string dataSizeText(std::size_t digits);

/// How digits are split over page writes. The two do not fit one another, and boards in the field were filled
/// this way: 48 digits give two pages and a tail of 16 behind them.
struct PageSplit {
    /// Digits by 32, rounded to the nearest, a half to the even neighbour.
    std::int32_t pages = 0;
    /// Digits modulo 32; also the number of fields of the last write, twice what the digits fill.
    int tailDigits = 0;
};
[[nodiscard]] PageSplit splitIntoPages(std::size_t digits);

/// The write instruction for a page: "SX02,", the address, and as many fields as told. A field is the two
/// digits as they stand; behind the last digit it is empty.
[[nodiscard]] std::string pageWriteCommand(std::string_view digits, std::int32_t address,
                                           std::int32_t fields);

/// Digits as they are shown: two a byte, a blank behind each byte and a line end behind each 32nd; a line end
/// at the very end is left out.
[[nodiscard]] std::string shownImage(std::string_view digits);

/// What tells buffer and device apart, byte for byte over the buffer's length, three lines a difference;
/// empty if nothing does.
[[nodiscard]] std::string differenceReport(std::string_view buffer, std::string_view device);

struct ImageFile {
    /// The first line with its line end, kept as it was found.
    std::string preamble;
    std::string text;
};
/// Takes a file apart: the preamble ends at the first comma and its line end; of the rest the last five
/// characters (line end, end of text, line end) are cut off without being looked at.
/// Throws ToolError: emptyFile, or invalidCall if there are no five.
[[nodiscard]] ImageFile readImageFile(std::string_view bytes);
/// The bytes of an image file.
[[nodiscard]] std::string imageFileBytes(std::string_view preamble, std::string_view text);

} // namespace zor
