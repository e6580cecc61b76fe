// SPDX-License-Identifier: MIT
#include "eeprom/image.h"

#include "support/error.h"
#include "support/letters.h"
#include "support/lines.h"
#include "support/numbers.h"

#include <algorithm>
#include <iterator>

namespace zor {

namespace {

constexpr std::size_t digitsOfAPage = 2 * eepromPageBytes;
constexpr std::size_t bytesOfALine = 32;
/// The last data line's end, the end-of-text character and the end of its own line.
constexpr std::size_t fileTail = 5;

} // namespace

std::string hexDigits(std::string_view text) {
    std::string digits;
    digits.reserve(text.size());
    std::ranges::copy_if(text, std::back_inserter(digits), isHexDigit);
    return digits;
}

std::size_t countHexDigits(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(text, isHexDigit));
}

std::string foldedHexDigits(std::string_view text) {
    std::string digits = hexDigits(text);
    for (char& digit : digits) {
        if (digit >= 'A' && digit <= 'F') {
            digit = static_cast<char>(digit - 'A' + 'a');
        }
    }
    return digits;
}

std::vector<std::size_t> bytePlaces(std::string_view text, std::size_t most) {
    std::vector<std::size_t> places;
    std::size_t digits = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (!isHexDigit(text[at])) {
            continue;
        }
        if (digits++ % 2 == 0) {
            if (places.size() == most) {
                break;
            }
            places.push_back(at);
        }
    }
    return places;
}

std::string byteCountText(std::size_t digits) {
    return std::to_string(digits / 2) + (digits % 2 == 0 ? "" : ".5");
}

std::string dataSizeText(std::size_t digits) {
    return byteCountText(digits) + " byte";
}

PageSplit splitIntoPages(std::size_t digits) {
    return {.pages = roundToInt(static_cast<double>(digits) / digitsOfAPage),
            .tailDigits = static_cast<int>(digits % digitsOfAPage)};
}

std::string pageWriteCommand(std::string_view digits, std::int32_t address, std::int32_t fields) {
    auto place = static_cast<std::uint32_t>(address);
    std::string command = "SX02," + hexText(place >> 8, 2) + "," + hexText(place & 0xFF, 2);
    for (std::int32_t field = 0; field < fields; ++field) {
        std::size_t at = 2 * (static_cast<std::size_t>(address) + static_cast<std::size_t>(field));
        command += ',';
        command += at < digits.size() ? digits.substr(at, 2) : std::string_view();
    }
    return command;
}

std::string shownImage(std::string_view digits) {
    std::string text;
    text.reserve(2 * digits.size());
    for (std::size_t at = 0; at < digits.size(); at += 2) {
        text += digits.substr(at, 2);
        text += (at / 2 + 1) % bytesOfALine == 0 ? "\r\n" : " ";
    }
    if (text.ends_with("\r\n")) {
        text.resize(text.size() - 2);
    }
    return text;
}

std::string differenceReport(std::string_view buffer, std::string_view device) {
    std::string report;
    for (std::size_t at = 0; at < buffer.size(); at += 2) {
        std::string_view ours = buffer.substr(at, 2);
        std::string_view theirs = at < device.size() ? device.substr(at, 2) : std::string_view();
        if (ours == theirs) {
            continue;
        }
        report += "difference in pos.: " + std::to_string(at / 2 + 1) + "\r\nbuffer: 0x";
        report += ours;
        report += "\r\ndevice: 0x";
        report += theirs;
        report += "\r\n";
    }
    return report;
}

ImageFile readImageFile(std::string_view bytes) {
    std::string loaded = withLineEnds(bytes);
    if (loaded.empty()) {
        throw ToolError(emptyFile, "This is an empty file!");
    }
    std::size_t last = loaded.size() - 1;
    std::size_t stop = std::min(loaded.find(','), last);
    if (stop < last) {
        // Over the carriage return and onto the line feed.
        stop = std::min(stop + 2, last);
    }
    ImageFile file{.preamble = loaded.substr(0, stop + 1), .text = loaded.substr(stop + 1)};
    if (file.text.size() < fileTail) {
        throw ToolError(invalidCall);
    }
    file.text.resize(file.text.size() - fileTail);
    return file;
}

std::string imageFileBytes(std::string_view preamble, std::string_view text) {
    std::string bytes(preamble);
    bytes += text;
    bytes += "\r\n\x03";
    return bytes;
}

} // namespace zor
