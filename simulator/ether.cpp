// SPDX-License-Identifier: MIT
#include "simulator/ether.h"

#include <algorithm>
#include <cmath>

namespace zor::sim {

namespace {

/// dBm of thermal noise in one hertz, and what a receiver adds to it, in dB.
constexpr double noiseDensity = -174;
constexpr double noiseFigure = 8;
/// How far two data rates may lie apart for one to lock to the other.
constexpr double rateTolerance = 0.02;
/// A receiver tells nothing of a carrier from noise below this ratio of powers in its bandwidth, in dB.
constexpr double detectable = 6;
constexpr int bitsInByte = 8;

} // namespace

std::chrono::milliseconds AirPacket::airTime() const {
    if (!emission.dataRate) {
        return std::chrono::milliseconds{0};
    }
    double seconds = static_cast<double>(bytes.size()) * bitsInByte / *emission.dataRate;
    return std::chrono::milliseconds(std::lround(seconds * 1000));
}

bool inBandwidth(const Emission& emission, const Reception& reception) {
    double swing = emission.onOff ? 0 : emission.deviation;
    return std::abs(emission.frequency - reception.frequency) + swing <= reception.bandwidth / 2;
}

bool ratesAgree(double sent, double expected) {
    return std::abs(sent / expected - 1) <= rateTolerance;
}

double bitErrorRate(double power, double dataRate, double attenuation) {
    double noise = noiseDensity + noiseFigure + attenuation + 10 * std::log10(dataRate);
    double ratio = std::pow(10, (power - noise) / 10);
    return 0.5 * std::exp(-ratio / 2);
}

void Ether::send(const Station& sender, const AirPacket& packet) {
    // A station that hears may answer at once.
    std::vector<Station*> now = stations;
    for (Station* station : now) {
        if (station != &sender) {
            station->hear(packet);
        }
    }
}

std::optional<Ether::Heard> Ether::carrierAt(const Station& listener, const Reception& reception) const {
    double noise = noiseDensity + noiseFigure + reception.attenuation + 10 * std::log10(reception.bandwidth);
    std::optional<Heard> strongest;
    for (Station* station : stations) {
        std::optional<Emission> emission = station == &listener ? std::nullopt : station->carrier();
        if (!emission || !inBandwidth(*emission, reception)) {
            continue;
        }
        double power = emission->power - loss;
        if (power >= noise + detectable && (!strongest || power > strongest->power)) {
            strongest = Heard{station, *emission, power, emission->frequency - reception.frequency};
        }
    }
    return strongest;
}

std::optional<std::vector<std::uint8_t>> Ether::received(const AirPacket& packet,
                                                         const Reception& reception) {
    if (!packet.emission.dataRate || !reception.dataRate || !inBandwidth(packet.emission, reception)) {
        return std::nullopt;
    }
    if (!ratesAgree(*packet.emission.dataRate, *reception.dataRate)) {
        return std::nullopt;
    }
    double rate = bitErrorRate(packet.emission.power - loss, *reception.dataRate, reception.attenuation);
    auto limit = static_cast<std::uint64_t>(std::llround(rate * 4294967296.0));
    std::vector<std::uint8_t> bytes = packet.bytes;
    for (std::uint8_t& byte : bytes) {
        for (int bit = 0; bit < bitsInByte; ++bit) {
            if (random() < limit) {
                byte ^= static_cast<std::uint8_t>(1 << bit);
            }
        }
    }
    return bytes;
}

} // namespace zor::sim
