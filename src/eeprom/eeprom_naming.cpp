// SPDX-License-Identifier: MIT
#include "eeprom/eeprom_naming.h"

#include "eeprom/eeprom.h"
#include "support/numbers.h"

#include <algorithm>

namespace zor {

namespace {

struct Instruction {
    std::string_view line;
    std::string_view meaning;
};

constexpr Instruction instructions[] = {
    {"S106", "EEPROM: allow the next write"},
    {"S104", "EEPROM: forbid writes"},
    {"S20500", "EEPROM: read the status"},
    {"L2", "drive line 2 low: select the EEPROM"},
    {"H2", "drive line 2 high: deselect the EEPROM"},
};

constexpr std::string_view readFrom = "WS03,";
constexpr std::string_view writeTo = "SX02,";
constexpr std::string_view readBytes = "RS";
/// "00,10": an address of two bytes.
constexpr std::size_t addressLength = 5;

std::optional<std::uint32_t> addressOf(std::string_view bytes) {
    if (bytes.size() < addressLength || bytes[2] != ',') {
        return std::nullopt;
    }
    auto high = readHex(bytes.substr(0, 2));
    auto low = readHex(bytes.substr(3, 2));
    return high && low ? std::optional(*high << 8 | *low) : std::nullopt;
}

std::string countText(std::uint32_t bytes) {
    return std::to_string(bytes) + (bytes == 1 ? " byte" : " bytes");
}

} // namespace

std::string EepromNaming::operator()(std::string_view line, std::string_view) {
    const auto* programmer = dynamic_cast<const Eeprom*>(bench->tools.find(Tool::eeprom));
    return programmer != nullptr && programmer->running() ? meaningOf(line) : std::string();
}

std::string EepromNaming::meaningOf(std::string_view line) {
    if (line.starts_with(readBytes)) {
        return meaningOfRead(line.substr(readBytes.size()));
    }
    readAddress.reset();
    const auto* known = std::ranges::find(instructions, line, &Instruction::line);
    if (known != std::end(instructions)) {
        return std::string(known->meaning);
    }
    if (line.starts_with(readFrom)) {
        readAddress = addressOf(line.substr(readFrom.size()));
        return readAddress ? "EEPROM: read from " + hexText(*readAddress, 4) + " on" : std::string();
    }
    if (line.starts_with(writeTo)) {
        std::string_view bytes = line.substr(writeTo.size());
        auto address = addressOf(bytes);
        auto count = static_cast<std::uint32_t>(std::ranges::count(bytes, ',')) - 1;
        return address ? "EEPROM: write " + countText(count) + " from " + hexText(*address, 4) + " on"
                       : std::string();
    }
    return {};
}

std::string EepromNaming::meaningOfRead(std::string_view digits) {
    if (!readAddress || digits.empty()) {
        return {};
    }
    auto count = static_cast<std::uint32_t>(numericPrefix(std::string(digits)));
    std::string meaning = "EEPROM: " + countText(count) + " from " + hexText(*readAddress, 4) + " on";
    *readAddress += count;
    return meaning;
}

} // namespace zor
