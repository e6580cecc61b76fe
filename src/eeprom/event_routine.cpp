// SPDX-License-Identifier: MIT
#include "eeprom/event_routine.h"

#include "eeprom/image.h"
#include "support/letters.h"
#include "support/numbers.h"

#include <algorithm>
#include <iterator>

namespace zor {

namespace {

/// 0 for what is no digit.
unsigned digitValue(char character) {
    return readHex(std::string_view(&character, 1)).value_or(0);
}

} // namespace

void Hex2Ascii2Hex(std::string& sData2Convert, bool Ascii2Hex) {
    std::string result;
    if (Ascii2Hex) {
        for (char c : sData2Convert) {
            result += hexText(static_cast<unsigned char>(c), 2);
        }
    } else {
        for (std::size_t at = 0; at + 1 < sData2Convert.size(); at += 2) {
            result +=
                static_cast<char>(digitValue(sData2Convert[at]) * 16 + digitValue(sData2Convert[at + 1]));
        }
    }
    sData2Convert = std::move(result);
}

CaretText filteredDigits(std::string_view before, const CaretText& after) {
    std::size_t caret = std::min(after.caret, after.text.size());
    auto limit = static_cast<std::ptrdiff_t>(std::min(caret, before.size()));
    auto differing = std::mismatch(before.begin(), before.begin() + limit, after.text.begin()).first;
    auto begin = static_cast<std::size_t>(differing - before.begin());
    // A key that repeats the character before it leaves no difference; the character at the caret counts.
    begin = caret > 0 ? std::min(begin, caret - 1) : 0;

    CaretText filtered;
    filtered.text = after.text.substr(0, begin);
    std::copy_if(after.text.begin() + static_cast<std::ptrdiff_t>(begin),
                 after.text.begin() + static_cast<std::ptrdiff_t>(caret), std::back_inserter(filtered.text),
                 isHexDigit);
    filtered.caret = filtered.text.size();
    filtered.text += after.text.substr(caret);
    std::transform(filtered.text.begin(), filtered.text.end(), filtered.text.begin(), upper);
    return filtered;
}

std::string transmitCommand(std::string_view payload) {
    auto bytes = static_cast<std::uint32_t>(payload.size() / 2);
    return std::string(transmitCode) + hexText(bytes, 2) + std::string(payload);
}

std::string withoutTail(std::string_view routine) {
    auto code =
        std::find_end(routine.begin(), routine.end(), transmitCode.begin(), transmitCode.end(), sameLetter);
    if (code == routine.end()) {
        return std::string(routine);
    }
    auto position = static_cast<std::size_t>(code - routine.begin());
    std::string_view length = routine.substr(position + transmitCode.size(), 2);
    std::size_t bytes = readHex(length).value_or(0);
    return std::string(routine.substr(0, position + transmitHead + 2 * bytes));
}

std::string withoutTransmits(std::string_view routine) {
    auto code =
        std::search(routine.begin(), routine.end(), transmitCode.begin(), transmitCode.end(), sameLetter);
    return {routine.begin(), code};
}

int fillCount(std::size_t length, std::size_t reserved) {
    double room = static_cast<double>(routineDigits) - static_cast<double>(length + reserved);
    return std::max(0, roundToInt(room / 2));
}

bool mentionsSleep(std::string_view routine) {
    return std::search(routine.begin(), routine.end(), sleepCommand.begin(), sleepCommand.end(),
                       sameLetter) != routine.end();
}

bool hasNoFunction(std::string_view routine) {
    std::string_view sleepCode = sleepCommand.substr(0, 2);
    return routine.empty() || (routine.size() >= sleepCode.size() &&
                               std::equal(sleepCode.begin(), sleepCode.end(), routine.begin(), sameLetter));
}

std::string routineBlock(std::string_view routine) {
    std::string block(routine.substr(0, routineDigits));
    block.resize(routineDigits, '0');
    return block;
}

std::string imageDigitsOf(std::string_view text) {
    std::string digits;
    std::copy_if(text.begin(), text.end(), std::back_inserter(digits),
                 [](char c) { return c != '\r' && c != '\n' && c != ' '; });
    return digits;
}

std::vector<std::string> routinesOf(std::string_view image) {
    double blocks = static_cast<double>(image.size()) / static_cast<double>(routineDigits);
    int count = std::min(roundToInt(blocks), eventCount);
    std::vector<std::string> routines;
    routines.reserve(static_cast<std::size_t>(count));
    for (int event = 0; event < count; ++event) {
        routines.emplace_back(image.substr(static_cast<std::size_t>(event) * routineDigits, routineDigits));
    }
    return routines;
}

std::string FormatEEPROMText(std::string_view text, int bytesPerLine) {
    auto lineDigits = static_cast<std::size_t>(bytesPerLine) * 2;
    std::string formatted;
    formatted.reserve(text.size() * 3 / 2 + 2);
    for (std::size_t at = 0; at < text.size(); at += 2) {
        formatted += text.substr(at, 2);
        formatted += (at + 2) % lineDigits == 0 ? "\r\n" : " ";
    }
    return formatted;
}

} // namespace zor
