// SPDX-License-Identifier: MIT
#include "eeprom/command_data.h"

#include "support/numbers.h"

#include <algorithm>
#include <cmath>

namespace zor {

namespace {

/// The crystal clocks the data through a fixed divider and R + 1.
constexpr double fixedDivider = 29;
constexpr double slowestRate = 1347;
constexpr int greatestCode = 255;
constexpr std::uint32_t rateBase = 0xC800;

bool inTable(int event, int row) {
    return event >= 0 && event < CommandData::columns && row >= 0 && row < CommandData::rows;
}

} // namespace

std::int16_t CommandData::GetCmdSequenceData(int event, int command) const {
    if (!inTable(event, command)) {
        return 0;
    }
    return cells[static_cast<std::size_t>(event)][static_cast<std::size_t>(command)];
}

void CommandData::set(int event, int row, std::int16_t value) {
    if (inTable(event, row)) {
        cells[static_cast<std::size_t>(event)][static_cast<std::size_t>(row)] = value;
    }
}

bool CommandData::contains(int event, Command command) const {
    if (event != insertColumn && !saved(event)) {
        return isRecommended(event, command);
    }
    return GetCmdSequenceData(event, command) == 1;
}

void CommandData::put(int event, Command command, bool ticked) {
    set(event, command, ticked ? 1 : 0);
}

void CommandData::clearColumn(int event) {
    for (Command command : everyCommand) {
        put(event, command, false);
    }
}

void CommandData::markSaved(int event) {
    set(event, savedRow, 1);
}

void CommandData::ClearSequenceData(int event) {
    set(event, savedRow, 0);
}

std::uint8_t pushButtonByte(const PushButtonSettings& settings) {
    unsigned byte = settings.fourthButton ? 1U << pushbutton::fourthButtonBit : 0U;
    byte |= static_cast<unsigned>(settings.debouncing) << pushbutton::debouncingBit;
    for (std::size_t button = 0; button < settings.continuous.size(); ++button) {
        if (settings.continuous[button]) {
            byte |= 1U << (static_cast<unsigned>(pushbutton::firstContinuousBit) + button);
        }
    }
    byte |= settings.pullUpOff ? 1U << pushbutton::pullUpBit : 0U;
    return static_cast<std::uint8_t>(byte);
}

PushButtonSettings pushButtonSettings(std::uint8_t byte) {
    auto bit = [byte](std::size_t position) { return ((byte >> position) & 1U) != 0; };
    PushButtonSettings settings;
    settings.fourthButton = bit(pushbutton::fourthButtonBit);
    settings.debouncing = static_cast<Debouncing>((byte >> pushbutton::debouncingBit) & 3U);
    for (std::size_t button = 0; button < settings.continuous.size(); ++button) {
        settings.continuous[button] = bit(pushbutton::firstContinuousBit + button);
    }
    settings.pullUpOff = bit(pushbutton::pullUpBit);
    return settings;
}

std::string pushButtonWord(std::uint8_t byte) {
    return "CA" + hexText(byte, 2);
}

std::string rateWord(std::string_view rate, std::int32_t crystalHertz) {
    double whole = std::floor(numericPrefix(rate));
    if (whole <= slowestRate) {
        return std::string(slowestRateWord);
    }
    int code = std::clamp(roundToInt(crystalHertz / fixedDivider / whole - 1), 0, greatestCode);
    return hexText(rateBase + static_cast<std::uint32_t>(code));
}

std::string obtainedRate(std::string_view word, std::int32_t crystalHertz) {
    std::string_view digits = word.substr(word.size() - std::min<std::size_t>(word.size(), 2));
    double code = readHex(digits).value_or(0);
    return std::to_string(roundToInt(crystalHertz / fixedDivider / (code + 1)));
}

} // namespace zor
