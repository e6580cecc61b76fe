// SPDX-License-Identifier: MIT
#pragma once

#include "panels/common/code_list.h"

#include <cstdint>
#include <vector>

namespace zor {

/// A list's entries with their codes, and the entry that it starts with.
struct Choices {
    std::vector<CodeList::Entry> entries;
    const char* start;
};

/// What differs between the chips that receive, besides the tables that every panel has.
struct ReceivingTraits {
    const char* receiverCaption;
    const char* fifoCaption;

    // Fixed high bits of the words.
    std::uint32_t dutyBase;
    std::uint32_t frequencyControlBase;
    std::uint32_t dataRateBase;

    /// Receiver bandwidths in kHz at the standard crystal, and the row that a new crystal selects.
    std::vector<double> bandwidths;
    int bandwidthRow;

    Choices validData;
    Choices gain;
    Choices frequencyControl;
    Choices frequencyRange;
    Choices clockRecovery;
    Choices filter;
    Choices fifoStart;

    const char* dataRateDivider;
    /// Caption of the data filter word's bit 5.
    const char* filterBit;
    /// Highest FIFO level that raises an interrupt.
    int highestFifoLevel;
    /// Width of the signed frequency offset in the second status byte.
    int offsetBits;
    /// How often the word that stops the frequency control is sent before a status read.
    int frequencyControlStops;

    /// Why the battery detector's and the wake-up timer's settings are disabled.
    const char* lowBatteryReason;
    const char* wakeUpReason;
    const char* thresholdFormula;
    /// Said in the box when the FIFO reset finds no port.
    const char* fifoResetWithoutPort;
    /// Titles of the pages behind the seven that every such chip has.
    std::vector<const char*> furtherPages;
};

/// How the frequency control decides, the same on all four chips.
inline const std::vector<CodeList::Entry> frequencyControlModes = {
    {"Manual", 0}, {"Auto, 1x at power-on", 1}, {"Auto, drop Foffset", 2}, {"Auto, keep Foffset", 3}};
/// Two bits of the data filter word: automatic, fast.
inline const std::vector<CodeList::Entry> clockRecoveryModes = {{"Fast", 1}, {"Slow", 0}, {"Auto", 2}};

} // namespace zor
