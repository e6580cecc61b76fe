// SPDX-License-Identifier: MIT
#include "simulator/radio_words.h"

#include "simulator/load_model.h"

#include <span>

namespace zor::sim {

namespace {

constexpr double megahertz = 1e6;
constexpr double kilohertz = 1e3;
/// dBm of a transmitter at its highest step; each further step is 3 dB less.
constexpr double fullPower = 0;
constexpr double powerStep = 3;
/// dBm of the lowest received-signal threshold; each further step is 6 dB more.
constexpr double lowestThreshold = -103;
constexpr double thresholdStep = 6;

/// f = 10 MHz x multiplier x (base + F / 4000), by the band's two bits.
struct BandRow {
    int multiplier = 1;
    int base = 31;
    double step = 2500; // Hz of one F, which is the offset's step too
};
constexpr BandRow narrowBands[] = {{1, 31, 2500}, {1, 43, 2500}, {2, 43, 5000}, {3, 30, 7500}};
constexpr BandRow kt1102Bands[] = {{1, 31, 2500}, {1, 43, 2500}, {8, 10, 20000}, {8, 11, 20000}};
constexpr BandRow kt2102Bands[] = {{8, 9, 20000}, {8, 9, 20000}, {8, 10, 20000}, {8, 11, 20000}};

/// kHz by the bandwidth's code; 0 for a code that is none.
constexpr double bandwidths[] = {0, 400, 340, 270, 200, 135, 67, 0};
constexpr double kt2102Bandwidths[] = {0, 400, 340, 270, 200, 134, 0, 0};

/// dB by the low noise amplifier's code.
constexpr double kt2100Attenuation[] = {0, 14, 6, 20};
constexpr double kt2102Attenuation[] = {0, 6, 12, 18};
constexpr double kt3100Attenuation[] = {0, 6, 14, 20};

bool isTransceiver(Chip chip) {
    return chip == Chip::KT3100 || chip == Chip::KT3101;
}

bool isReceiver(Chip chip) {
    return chip == Chip::KT2100 || chip == Chip::KT2102;
}

unsigned word(const RadioChip& chip, WordRole role) {
    unsigned value = 0;
    if (auto latched = chip.latched(role)) {
        value = *latched;
    }
    return value;
}

const BandRow& bandOf(const RadioChip& chip) {
    Chip kind = *chip.chip();
    unsigned code = word(chip, WordRole::configuration) >> (isTransceiver(kind) ? 4 : 11) & 3;
    return kind == Chip::KT1102   ? kt1102Bands[code]
           : kind == Chip::KT2102 ? kt2102Bands[code]
                                  : narrowBands[code];
}

std::optional<double> frequencyOf(const RadioChip& chip, double ppm) {
    auto latched = chip.latched(WordRole::frequency);
    if (!latched || !chip.latched(WordRole::configuration)) {
        return std::nullopt;
    }
    const BandRow& band = bandOf(chip);
    double nominal = 10 * megahertz * band.multiplier * (band.base + (*latched & 0xFFF) / 4000.0);
    return nominal * (1 + ppm * 1e-6);
}

/// Bits a second of a data rate word; the prescaler of 8 is its bit 7, but for the KT1101, which has none.
std::optional<double> dataRateOf(const RadioChip& chip) {
    auto latched = chip.latched(WordRole::dataRate);
    if (!latched) {
        return std::nullopt;
    }
    bool prescaler = *chip.chip() != Chip::KT1101;
    unsigned divider = *latched & (prescaler ? 0x7F : 0xFF);
    double rate = 10 * megahertz / 29 / (divider + 1);
    return prescaler && (*latched & 0x80) != 0 ? rate / 8 : rate;
}

/// The digital filter is 1 of two bits, and on the KT2102 the 0 of one. A chip wakes up with it.
bool recoversClock(const RadioChip& chip) {
    auto latched = chip.latched(WordRole::dataFilter);
    if (!latched) {
        return true;
    }
    return *chip.chip() == Chip::KT2102 ? (*latched & 0x10) == 0 : (*latched >> 3 & 3) == 1;
}

Emission transmitterEmission(const RadioChip& chip) {
    unsigned configuration = word(chip, WordRole::configuration);
    Emission emission;
    bool extended = *chip.chip() == Chip::KT1102;
    emission.deviation = ((configuration & 7) + 1) * (extended ? 20 : 30) * kilohertz;
    emission.inverted = (configuration & 8) != 0;
    unsigned power = extended ? configuration >> 8 & 7 : word(chip, WordRole::outputPower) & 7;
    emission.power = fullPower - powerStep * power;
    emission.onOff = !extended && (word(chip, WordRole::outputPower) & 8) != 0;
    return emission;
}

Emission transceiverEmission(const RadioChip& chip) {
    unsigned transmitter = word(chip, WordRole::transmitter);
    Emission emission;
    emission.deviation = ((transmitter >> 4 & 0xF) + 1) * 15 * kilohertz;
    emission.inverted = (transmitter & 0x100) != 0;
    emission.power = fullPower - powerStep * (transmitter & 7);
    return emission;
}

Reception receiverSettings(const RadioChip& chip) {
    unsigned receiver = word(chip, WordRole::receiver);
    unsigned fifo = word(chip, WordRole::fifo);
    bool extended = *chip.chip() == Chip::KT2102;
    Reception reception;
    unsigned width = word(chip, WordRole::configuration) >> 1 & 7;
    reception.bandwidth = (extended ? kt2102Bandwidths : bandwidths)[width] * kilohertz;
    reception.attenuation = (extended ? kt2102Attenuation : kt2100Attenuation)[receiver >> 4 & 3];
    reception.threshold = lowestThreshold + thresholdStep * (receiver >> 1 & 7);
    reception.fills = (fifo & 3) == 3;
    unsigned start = fifo >> 2 & 3;
    if (start == 1 || start == 2) {
        reception.synchron = {0x2D, 0xD4};
    }
    return reception;
}

Reception transceiverSettings(const RadioChip& chip) {
    unsigned receiver = word(chip, WordRole::receiver);
    unsigned fifo = word(chip, WordRole::fifo);
    Reception reception;
    reception.bandwidth = bandwidths[receiver >> 5 & 7] * kilohertz;
    reception.attenuation = kt3100Attenuation[receiver >> 3 & 3];
    reception.threshold = lowestThreshold + thresholdStep * (receiver & 7);
    reception.fills = (fifo & 2) != 0 && (word(chip, WordRole::configuration) & 0x40) != 0;
    if ((fifo & 4) == 0) {
        bool settable = *chip.chip() == Chip::KT3101;
        auto latched = chip.latched(WordRole::synchronPattern);
        auto last = static_cast<std::uint8_t>(settable && latched ? *latched & 0xFF : 0xD4);
        bool lastAlone = settable && (fifo & 8) != 0;
        reception.synchron = lastAlone ? std::vector{last} : std::vector<std::uint8_t>{0x2D, last};
    }
    return reception;
}

} // namespace

std::optional<Emission> emissionOf(const RadioChip& chip, double ppm) {
    if (!chip.chip() || isReceiver(*chip.chip())) {
        return std::nullopt;
    }
    auto frequency = frequencyOf(chip, ppm);
    if (!frequency) {
        return std::nullopt;
    }
    Emission emission = isTransceiver(*chip.chip()) ? transceiverEmission(chip) : transmitterEmission(chip);
    emission.frequency = *frequency;
    emission.dataRate = dataRateOf(chip);
    return emission;
}

bool carrierOn(const RadioChip& chip) {
    return activityOf(chip).amplifier;
}

std::optional<Reception> receptionOf(const RadioChip& chip, double ppm) {
    if (!chip.chip() || !(isReceiver(*chip.chip()) || isTransceiver(*chip.chip()))) {
        return std::nullopt;
    }
    bool transceiver = isTransceiver(*chip.chip());
    bool on = transceiver ? (word(chip, WordRole::powerManagement) & 0x80) != 0
                          : (word(chip, WordRole::receiver) & 0x01) != 0;
    auto frequency = frequencyOf(chip, ppm);
    if (!on || !frequency) {
        return std::nullopt;
    }
    Reception reception = transceiver ? transceiverSettings(chip) : receiverSettings(chip);
    reception.frequency = *frequency;
    reception.offsetStep = bandOf(chip).step;
    reception.dataRate = dataRateOf(chip);
    reception.recoversClock = recoversClock(chip);
    return reception;
}

} // namespace zor::sim
