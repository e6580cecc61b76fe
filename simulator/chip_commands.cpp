// SPDX-License-Identifier: MIT
#include "simulator/chip_commands.h"

#include <algorithm>
#include <array>

namespace zor::sim {

namespace {

using enum WordRole;

// clang-format off
constexpr ChipCommand kt1100[] = {
    {configuration,       "Configuration Setting",  16, 0x8000, 0xE000},
    {frequency,           "Frequency Setting",      16, 0xA000, 0xF000},
    {outputPower,         "Power Setting",           8, 0x00B0, 0x00F0},
    {powerManagement,     "Power Management",       16, 0xC000, 0xFF00},
    {lowBattery,          "Low Battery Detector",   16, 0xC200, 0xFF00},
    {wakeUpTimer,         "Wake-Up Timer",          16, 0xE000, 0xE000},
    {statusRead,          "Status Read",             8, 0x00CC, 0x00FF},
};

constexpr ChipCommand kt1101[] = {
    {configuration,       "Configuration Setting",  16, 0x8000, 0xE000},
    {frequency,           "Frequency Setting",      16, 0xA000, 0xF000},
    {outputPower,         "Power Setting",           8, 0x00B0, 0x00F0},
    {powerManagement,     "Power Management",       16, 0xC000, 0xFF00},
    {lowBattery,          "Low Battery Detector",   16, 0xC200, 0xFF00},
    {wakeUpTimer,         "Wake-Up Timer",          16, 0xE000, 0xE000},
    {dataRate,            "Data Rate",              16, 0xC800, 0xFF00},
    {pll,                 "PLL Setting",            16, 0xD200, 0xFF00},
    {statusRead,          "Status Read",             8, 0x00CC, 0x00FF},
};

constexpr ChipCommand kt1102[] = {
    {configuration,       "Configuration Setting",  16, 0x8000, 0xE000},
    {frequency,           "Frequency Setting",      16, 0xA000, 0xF000},
    {extendedFeatures,    "Extended Features",      16, 0xB000, 0xFF00},
    {powerManagement,     "Power Management",       16, 0xC000, 0xFF00},
    {lowBattery,          "Low Battery Detector",   16, 0xC200, 0xFF00},
    {extendedWakeUpTimer, "Extended Wake-Up Timer", 16, 0xC300, 0xFF00},
    {dataRate,            "Data Rate",              16, 0xC800, 0xFF00},
    {fifo,                "FIFO Setting",           16, 0xCE00, 0xFF00},
    {wakeUpTimer,         "Wake-Up Timer",          16, 0xE000, 0xE000},
};

constexpr ChipCommand kt2100[] = {
    {configuration,       "Configuration Setting",  16, 0x8000, 0xE000},
    {frequency,           "Frequency Setting",      16, 0xA000, 0xF000},
    {receiver,            "Receiver Setting",       16, 0xC000, 0xFF00},
    {lowBattery,          "Low Battery Detector",   16, 0xC200, 0xFF00},
    {dataFilter,          "Data Filter",            16, 0xC400, 0xFF00},
    {frequencyControl,    "AFC",                    16, 0xC600, 0xFF00},
    {dataRate,            "Data Rate",              16, 0xC800, 0xFF00},
    {lowDutyCycle,        "Low Duty-Cycle",         16, 0xCC00, 0xFF00},
    {fifo,                "FIFO Setting",           16, 0xCE00, 0xFF00},
    {wakeUpTimer,         "Wake-Up Timer",          16, 0xE000, 0xE000},
    {statusRead,          "Status Read",            16, 0x0000, 0xFFFF},
};

constexpr ChipCommand kt2102[] = {
    {configuration,       "Configuration Setting",  16, 0x8000, 0xE000},
    {frequency,           "Frequency Setting",      16, 0xA000, 0xF000},
    {extendedFeatures,    "Extended Features",      16, 0xB000, 0xFF00},
    {receiver,            "Receiver Setting",       16, 0xC000, 0xFF00},
    {synchronPattern,     "Synchron Pattern",       16, 0xC100, 0xFF00},
    {lowBattery,          "Low Battery Detector",   16, 0xC200, 0xFF00},
    {extendedWakeUpTimer, "Extended Wake-Up Timer", 16, 0xC300, 0xFF00},
    {dataFilter,          "Data Filter",            16, 0xC400, 0xFF00},
    {frequencyControl,    "AFC",                    16, 0xC600, 0xFF00},
    {dataRate,            "Data Rate",              16, 0xC800, 0xFF00},
    {lowDutyCycle,        "Low Duty-Cycle",         16, 0xCC00, 0xFF00},
    {fifo,                "FIFO Setting",           16, 0xCE00, 0xFF00},
    {wakeUpTimer,         "Wake-Up Timer",          16, 0xE000, 0xE000},
    {statusRead,          "Status Read",            16, 0x0000, 0xFFFF},
};

// The transceivers share a map; only the last rows of the KT3101 are its own.
constexpr ChipCommand kt3101[] = {
    {configuration,       "Configuration Setting",  16, 0x8000, 0xFF00},
    {powerManagement,     "Power Management",       16, 0x8200, 0xFF00},
    {receiver,            "Receiver Control",       16, 0x9000, 0xF800},
    {transmitter,         "Transmitter Setting",    16, 0x9800, 0xFE00},
    {frequency,           "Frequency Setting",      16, 0xA000, 0xF000},
    {lowBattery,          "Low Battery Detector",   16, 0xC000, 0xFF00},
    {dataFilter,          "Data Filter",            16, 0xC200, 0xFF00},
    {frequencyControl,    "AFC",                    16, 0xC400, 0xFF00},
    {dataRate,            "Data Rate",              16, 0xC600, 0xFF00},
    {lowDutyCycle,        "Low Duty-Cycle",         16, 0xC800, 0xFF00},
    {fifo,                "FIFO Setting",           16, 0xCA00, 0xFF00},
    {wakeUpTimer,         "Wake-Up Timer",          16, 0xE000, 0xE000},
    {statusRead,          "Status Read",            16, 0x0000, 0xFFFF},
    {pll,                 "PLL Setting",            16, 0xCC00, 0xFF00},
    {synchronPattern,     "Synchron Pattern",       16, 0xCE00, 0xFF00},
};
constexpr std::size_t commandsOfKt3100 = 13;

struct ChipRow {
    Chip chip;
    std::string_view name;
    std::span<const ChipCommand> commands;
};

const std::array<ChipRow, 7> chips{{
    {Chip::KT1100, "KT1100", kt1100},
    {Chip::KT1101, "KT1101", kt1101},
    {Chip::KT1102, "KT1102", kt1102},
    {Chip::KT2100, "KT2100", kt2100},
    {Chip::KT2102, "KT2102", kt2102},
    {Chip::KT3100, "KT3100", std::span(kt3101).first(commandsOfKt3100)},
    {Chip::KT3101, "KT3101", kt3101},
}};
// clang-format on

const ChipRow& row(Chip chip) {
    return *std::ranges::find(chips, chip, &ChipRow::chip);
}

} // namespace

std::span<const ChipCommand> commandsOf(Chip chip) {
    return row(chip).commands;
}

const ChipCommand* decode(Chip chip, std::uint16_t word, int bits) {
    for (const ChipCommand& command : commandsOf(chip)) {
        if (command.bits == bits && (word & command.mask) == command.base) {
            return &command;
        }
    }
    return nullptr;
}

std::string commandName(std::optional<Chip> chip, std::uint16_t word, int bits) {
    std::string names;
    for (const ChipRow& candidate : chips) {
        if (chip && *chip != candidate.chip) {
            continue;
        }
        const ChipCommand* command = decode(candidate.chip, word, bits);
        if (command != nullptr && names.find(command->name) == std::string::npos) {
            names += (names.empty() ? "" : " or ") + std::string(command->name);
        }
    }
    return names;
}

std::string_view chipName(Chip chip) {
    return row(chip).name;
}

std::string chipNames() {
    std::string names;
    for (const ChipRow& chip : chips) {
        names += (names.empty() ? "" : " ") + std::string(chip.name);
    }
    return names;
}

std::optional<Chip> chipOfName(std::string_view name) {
    auto upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
    for (const ChipRow& candidate : chips) {
        if (std::ranges::equal(candidate.name, name, {}, {}, upper)) {
            return candidate.chip;
        }
    }
    return std::nullopt;
}

} // namespace zor::sim
