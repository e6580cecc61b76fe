// SPDX-License-Identifier: MIT
#include "simulator/load_model.h"

#include "support/numbers.h"

#include <algorithm>

namespace zor::sim {

namespace {

// Typical figures in milliamperes.
constexpr double sleepCurrent = 0.0003;
constexpr double oscillatorCurrent = 0.5;
constexpr double synthesizerCurrent = 3.0;
constexpr double receiverCurrent = 8.0;
constexpr double lowBatteryCurrent = 0.0005;
constexpr double wakeUpTimerCurrent = 0.0015;
/// The amplifier from full power down in steps of 3 dB.
constexpr double amplifierCurrent[] = {12.0, 9.0, 7.0, 5.5, 4.5, 3.8, 3.3, 3.0};

bool has(std::uint16_t word, unsigned bits) {
    return (word & bits) != 0;
}

ChipActivity transmitter(const RadioChip& chip) {
    auto power = chip.latched(WordRole::powerManagement).value_or(0);
    bool extended =
        chip.chip() == Chip::KT1102; // no automatic power control, power step in the configuration
    unsigned automaticOscillator = extended ? 0 : 0x80;
    unsigned automaticAmplifier = extended ? 0 : 0x40;
    int step = extended ? chip.latched(WordRole::configuration).value_or(0) >> 8 & 7
                        : chip.latched(WordRole::outputPower).value_or(0) & 7;
    return {.oscillator = has(power, 0x20 | automaticOscillator),
            .synthesizer = has(power, 0x10 | automaticOscillator),
            .amplifier = has(power, 0x08 | automaticAmplifier),
            .powerStep = step,
            .lowBatteryDetector = has(power, 0x04),
            .wakeUpTimer = has(power, 0x02)};
}

ChipActivity receiver(const RadioChip& chip) {
    auto configuration = chip.latched(WordRole::configuration).value_or(0);
    bool receiving = has(chip.latched(WordRole::receiver).value_or(0), 0x01);
    return {.oscillator = receiving || has(configuration, 0x100),
            .synthesizer = receiving,
            .receiver = receiving,
            .lowBatteryDetector = has(configuration, 0x400),
            .wakeUpTimer = has(configuration, 0x200)};
}

ChipActivity transceiver(const RadioChip& chip) {
    auto power = chip.latched(WordRole::powerManagement).value_or(0);
    // Receiver and transmitter bring the synthesizer and the oscillator with them.
    return {.oscillator = has(power, 0xB8),
            .synthesizer = has(power, 0xB0),
            .amplifier = has(power, 0x20),
            .powerStep = chip.latched(WordRole::transmitter).value_or(0) & 7,
            .receiver = has(power, 0xC0),
            .lowBatteryDetector = has(power, 0x04),
            .wakeUpTimer = has(power, 0x02)};
}

} // namespace

ChipActivity activityOf(const RadioChip& chip) {
    if (!chip.chip()) {
        return {};
    }
    switch (*chip.chip()) {
    case Chip::KT1100:
    case Chip::KT1101:
    case Chip::KT1102:
        return transmitter(chip);
    case Chip::KT2100:
    case Chip::KT2102:
        return receiver(chip);
    case Chip::KT3100:
    case Chip::KT3101:
        return transceiver(chip);
    }
    return {};
}

double supplyCurrent(const ChipActivity& activity) {
    double current = sleepCurrent;
    current += activity.oscillator ? oscillatorCurrent : 0;
    current += activity.synthesizer ? synthesizerCurrent : 0;
    current += activity.amplifier ? amplifierCurrent[activity.powerStep & 7] : 0;
    current += activity.receiver ? receiverCurrent : 0;
    current += activity.lowBatteryDetector ? lowBatteryCurrent : 0;
    current += activity.wakeUpTimer ? wakeUpTimerCurrent : 0;
    return current;
}

int converterCounts(double milliamps, CurrentRange range) {
    double milliampsPerCount = range == CurrentRange::high ? 0.0244 : 0.0488;
    return std::clamp(1023 - roundToInt(milliamps / milliampsPerCount), 0, 1023);
}

} // namespace zor::sim
