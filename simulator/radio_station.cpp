// SPDX-License-Identifier: MIT
#include "simulator/radio_station.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace zor::sim {

namespace {

/// What is left of the bytes behind the first synchron pattern, found at any bit; nothing without it.
std::optional<std::vector<std::uint8_t>> behindPattern(const std::vector<std::uint8_t>& bytes,
                                                       const std::vector<std::uint8_t>& pattern) {
    if (pattern.empty()) {
        return bytes;
    }
    std::size_t bits = bytes.size() * 8;
    auto bitAt = [&bytes](std::size_t at) { return bytes[at / 8] >> (7 - at % 8) & 1; };
    auto byteAt = [&](std::size_t at) {
        unsigned value = 0;
        for (std::size_t bit = 0; bit < 8; ++bit) {
            value = value << 1 | static_cast<unsigned>(bitAt(at + bit));
        }
        return static_cast<std::uint8_t>(value);
    };
    for (std::size_t start = 0; start + pattern.size() * 8 <= bits; ++start) {
        std::size_t same = 0;
        while (same < pattern.size() && byteAt(start + same * 8) == pattern[same]) {
            ++same;
        }
        if (same < pattern.size()) {
            continue;
        }
        std::vector<std::uint8_t> rest;
        for (std::size_t at = start + pattern.size() * 8; at + 8 <= bits; at += 8) {
            rest.push_back(byteAt(at));
        }
        return rest;
    }
    return std::nullopt;
}

} // namespace

RadioStation::RadioStation(Board& ownBoard, Ether& space)
    : board(ownBoard)
    , ether(space) {
    Hardware& circuits = board.circuits();
    circuits.radiate = [this](const std::vector<std::uint8_t>& bytes) { send(bytes); };
    circuits.receivedLevel = [this] { return dataLine(); };
    circuits.radio().listen = [this] { return sense(); };
    ether.join(*this);
}

RadioStation::~RadioStation() {
    ether.leave(*this);
    Hardware& circuits = board.circuits();
    circuits.radiate = nullptr;
    circuits.receivedLevel = nullptr;
    circuits.radio().listen = nullptr;
}

std::optional<Emission> RadioStation::carrier() const {
    auto emission = carrierOn(board.radio()) ? emissionOf(board.radio(), crystalError) : std::nullopt;
    if (emission) {
        emission->data = board.modulation() == Modulation::pseudoRandom && emission->dataRate;
    }
    return emission;
}

bool RadioStation::level() {
    switch (board.modulation()) {
    case Modulation::high:
        return true;
    case Modulation::pseudoRandom: {
        // x^15 + x^14 + 1; who samples it sees one bit of it each time.
        unsigned bit = (sequence >> 14 ^ sequence >> 13) & 1U;
        sequence = static_cast<std::uint16_t>((sequence << 1 | bit) & 0x7FFF);
        return bit != 0;
    }
    case Modulation::low:
    case Modulation::stopped:
        break;
    }
    return false;
}

std::optional<Reception> RadioStation::reception() const {
    return receptionOf(board.radio(), crystalError);
}

std::optional<bool> RadioStation::dataLine() const {
    auto settings = reception();
    auto heard = settings ? ether.carrierAt(*this, *settings) : std::nullopt;
    return heard ? std::optional(heard->station->level() != heard->emission.inverted) : std::nullopt;
}

AirSense RadioStation::sense() const {
    auto settings = reception();
    auto heard = settings ? ether.carrierAt(*this, *settings) : std::nullopt;
    if (!heard) {
        return {.signal = false, .offsetSteps = settings ? packetOffset : std::nullopt};
    }
    const Emission& sender = heard->emission;
    return {.signal = heard->power >= settings->threshold + settings->attenuation,
            .offsetSteps = static_cast<int>(std::lround(heard->offset / settings->offsetStep)),
            .data = sender.data,
            .clockLocked = sender.data && settings->recoversClock && sender.dataRate && settings->dataRate &&
                           ratesAgree(*sender.dataRate, *settings->dataRate)};
}

void RadioStation::send(const std::vector<std::uint8_t>& bytes) {
    auto emission = emissionOf(board.radio(), crystalError);
    // A chip that has not been told its data rate sends bytes that nobody can tell apart.
    if (emission && emission->dataRate) {
        ether.send(*this, {*emission, bytes});
    }
}

void RadioStation::hear(const AirPacket& packet) {
    auto settings = reception();
    if (!settings || !settings->fills) {
        return;
    }
    auto arrived = ether.received(packet, *settings);
    if (!arrived) {
        return;
    }
    packetOffset = static_cast<int>(
        std::lround((packet.emission.frequency - settings->frequency) / settings->offsetStep));
    // A fill that has begun goes on until the FIFO is stopped.
    auto bytes = board.gathersPacket() ? arrived : behindPattern(*arrived, settings->synchron);
    if (bytes) {
        board.hearBytes(std::string(bytes->begin(), bytes->end()), packet.airTime());
    }
}

} // namespace zor::sim
