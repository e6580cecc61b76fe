// SPDX-License-Identifier: MIT
#include "eeprom/foreign_image.h"

#include "eeprom/image.h"
#include "support/error.h"
#include "support/letters.h"
#include "support/lines.h"
#include "support/numbers.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>
#include <vector>

namespace zor {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::uint8_t erased = 0xFF;

enum RecordType : std::uint8_t {
    dataRecord = 0,
    endRecord = 1,
    segmentRecord = 2,
    startSegmentRecord = 3,
    upperAddressRecord = 4,
    startAddressRecord = 5,
};

[[noreturn]] void complain(std::size_t line, const std::string& what) {
    throw ToolError(typeMismatch, "Line " + std::to_string(line) + ": " + what);
}

void demandRoom(std::uint64_t byteCount) {
    if (byteCount > eepromBytes) {
        throw ToolError(overflow, "The image has " + std::to_string(byteCount) + " bytes, the EEPROM " +
                                      std::to_string(eepromBytes));
    }
}

std::string digitsOf(const Bytes& bytes) {
    constexpr char digits[] = "0123456789abcdef";
    std::string text;
    text.reserve(2 * bytes.size());
    for (std::uint8_t byte : bytes) {
        text += digits[byte >> 4];
        text += digits[byte & 0xF];
    }
    return text;
}

/// A record's bytes, its colon left out: count, address, type, data, checksum.
Bytes recordBytes(std::string_view record, std::size_t line) {
    if (!record.starts_with(':')) {
        complain(line, "a record begins with a colon");
    }
    record.remove_prefix(1);
    if (!std::ranges::all_of(record, isHexDigit)) {
        complain(line, "a record has hexadecimal digits only");
    }
    Bytes bytes;
    for (std::size_t at = 0; at + 1 < record.size(); at += 2) {
        bytes.push_back(static_cast<std::uint8_t>(readHex(record.substr(at, 2)).value_or(0)));
    }
    constexpr std::size_t frame = 5;
    if (record.size() % 2 != 0 || bytes.size() < frame || bytes.size() != frame + bytes[0]) {
        complain(line, "the record is not as long as it says");
    }
    auto sum = static_cast<std::uint8_t>(std::accumulate(bytes.begin(), bytes.end() - 1, 0U));
    auto expected = static_cast<std::uint8_t>(0x100U - sum);
    if (bytes.back() != expected) {
        complain(line,
                 "the checksum is " + hexText(bytes.back(), 2) + ", it should be " + hexText(expected, 2));
    }
    return bytes;
}

/// Takes records one by one.
class HexReader {
  public:
    void take(std::string_view record, std::size_t line) {
        if (ended) {
            complain(line, "there is a record behind the last one");
        }
        Bytes bytes = recordBytes(record, line);
        std::uint32_t address = static_cast<std::uint32_t>(bytes[1]) << 8 | bytes[2];
        switch (bytes[3]) {
        case dataRecord:
            takeData(bytes, base + address);
            break;
        case endRecord:
            ended = true;
            break;
        case segmentRecord:
            base = baseOf(bytes, line) << 4;
            break;
        case upperAddressRecord:
            base = baseOf(bytes, line) << 16;
            break;
        case startSegmentRecord:
        case startAddressRecord:
            // Where a program would begin; an EEPROM has none.
            break;
        default:
            complain(line, "there is no record type " + hexText(bytes[3], 2));
        }
    }

    [[nodiscard]] Bytes image(std::size_t line) const {
        if (!ended) {
            complain(line, "the record that ends the file is missing");
        }
        demandRoom(extent);
        return {memory.begin(), memory.begin() + static_cast<std::ptrdiff_t>(extent)};
    }

  private:
    static std::uint32_t baseOf(const Bytes& bytes, std::size_t line) {
        if (bytes[0] != 2) {
            complain(line, "an address record has two bytes");
        }
        return static_cast<std::uint32_t>(bytes[4]) << 8 | bytes[5];
    }

    void takeData(const Bytes& bytes, std::uint64_t address) {
        for (std::size_t at = 4; at + 1 < bytes.size(); ++at, ++address) {
            extent = std::max(extent, address + 1);
            if (address < memory.size()) {
                memory[address] = bytes[at];
            }
        }
    }

    std::vector<std::uint8_t> memory = std::vector<std::uint8_t>(eepromBytes, erased);
    std::uint64_t extent = 0;
    std::uint32_t base = 0;
    bool ended = false;
};

Bytes readIntelHex(std::string_view file) {
    HexReader reader;
    std::string lines = withLineEnds(file);
    std::string_view left = lines;
    std::size_t line = 0;
    while (!left.empty()) {
        std::size_t end = left.find('\r');
        std::string_view record = left.substr(0, end);
        left.remove_prefix(end + 2);
        ++line;
        while (record.ends_with(' ') || record.ends_with('\t')) {
            record.remove_suffix(1);
        }
        if (!record.empty()) {
            reader.take(record, line);
        }
    }
    return reader.image(line);
}

bool isIntelHex(std::string_view bytes, std::string_view extension) {
    constexpr std::array<std::string_view, 3> hexNames{".hex", ".ihx", ".ihex"};
    if (std::ranges::find(hexNames, extension) != hexNames.end()) {
        return true;
    }
    // A raw image may begin with a colon by chance, but not with one and a whole row of digits.
    constexpr std::size_t shortestRecord = 11;
    return extension != ".bin" && bytes.size() >= shortestRecord && bytes.front() == ':' &&
           std::ranges::all_of(bytes.substr(1, shortestRecord - 1), isHexDigit);
}

std::string hexRecord(std::uint32_t address, const Bytes& data) {
    Bytes record{static_cast<std::uint8_t>(data.size()), static_cast<std::uint8_t>(address >> 8),
                 static_cast<std::uint8_t>(address), dataRecord};
    record.insert(record.end(), data.begin(), data.end());
    record.push_back(static_cast<std::uint8_t>(0x100U - std::accumulate(record.begin(), record.end(), 0U)));
    std::string text = ":";
    for (std::uint8_t byte : record) {
        text += hexText(byte, 2);
    }
    return text + "\r\n";
}

} // namespace

std::string foreignImageDigits(std::string_view bytes, std::string_view extension) {
    if (bytes.empty()) {
        throw ToolError(emptyFile, "This is an empty file!");
    }
    if (isIntelHex(bytes, extension)) {
        return digitsOf(readIntelHex(bytes));
    }
    if (bytes.starts_with("\x02 $")) {
        throw ToolError(typeMismatch, "This is an ASCII-hex image, which is loaded and not imported");
    }
    demandRoom(bytes.size());
    return digitsOf(Bytes(bytes.begin(), bytes.end()));
}

std::string foreignImageBytes(std::string_view digits, std::string_view extension) {
    if (digits.empty()) {
        throw ToolError(emptyFile, "There is nothing to export");
    }
    if (digits.size() % 2 != 0) {
        throw ToolError(typeMismatch, "The last byte has one digit only");
    }
    demandRoom(digits.size() / 2);
    Bytes image;
    for (std::size_t at = 0; at < digits.size(); at += 2) {
        image.push_back(static_cast<std::uint8_t>(readHex(digits.substr(at, 2)).value_or(0)));
    }
    if (extension == ".bin") {
        return {image.begin(), image.end()};
    }
    std::string text;
    for (std::size_t at = 0; at < image.size(); at += eepromPageBytes) {
        auto begin = image.begin() + static_cast<std::ptrdiff_t>(at);
        auto end = begin + static_cast<std::ptrdiff_t>(std::min(eepromPageBytes, image.size() - at));
        text += hexRecord(static_cast<std::uint32_t>(at), Bytes(begin, end));
    }
    return text + ":00000001FF\r\n";
}

} // namespace zor
