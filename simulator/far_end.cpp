// SPDX-License-Identifier: MIT
#include "simulator/far_end.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace zor::sim {

namespace {

/// Its swing as a part of the near receiver's bandwidth, so that it fits with room for an offset.
constexpr double swingOfBandwidth = 0.2;
/// dB; nothing is left of a packet that lost so much more.
constexpr double fade = 200;
/// Hz to either side of a beacon, so that it fits the narrower bandwidths too.
constexpr double beaconSwing = 30'000;
constexpr std::size_t preambleBytes = 3;
constexpr std::uint8_t preamble = 0xAA;

} // namespace

std::optional<FarEnd::Mode> farEndMode(std::string_view name) {
    constexpr std::pair<std::string_view, FarEnd::Mode> modes[] = {{"silent", FarEnd::Mode::silent},
                                                                   {"numbered", FarEnd::Mode::numbered},
                                                                   {"echo", FarEnd::Mode::echo},
                                                                   {"carrier", FarEnd::Mode::carrier},
                                                                   {"lively", FarEnd::Mode::lively}};
    const auto* found = std::ranges::find(modes, name, [](const auto& mode) { return mode.first; });
    return found == std::end(modes) ? std::nullopt : std::optional(found->second);
}

FarEnd::FarEnd(const Board& nearBoard, Ether& space)
    : near(nearBoard)
    , ether(space) {
    ether.join(*this);
}

FarEnd::~FarEnd() {
    ether.leave(*this);
}

void FarEnd::setMode(Mode newMode, std::chrono::milliseconds newInterval) {
    ownMode = newMode;
    ownInterval = newInterval;
    bool counts = newMode == Mode::numbered || newMode == Mode::lively;
    number = counts ? number : 0;
}

void FarEnd::setBeacon(double frequency, std::optional<double> dataRate) {
    setMode(Mode::beacon);
    beacon.frequency = frequency;
    beacon.deviation = dataRate ? beaconSwing : 0;
    beacon.dataRate = dataRate;
    beacon.data = dataRate.has_value();
}

std::optional<std::chrono::milliseconds> FarEnd::interval() const {
    bool acts = ownMode != Mode::silent && ownMode != Mode::beacon;
    return acts ? std::optional(ownInterval) : std::nullopt;
}

void FarEnd::act() {
    switch (ownMode) {
    case Mode::silent:
    case Mode::beacon:
        break;
    case Mode::numbered:
        sendNumbered();
        break;
    case Mode::echo:
        sendHeard();
        break;
    case Mode::carrier:
        high = !high;
        break;
    case Mode::lively:
        high = !high;
        if (std::exchange(answerDue, false)) {
            sendHeard();
        } else {
            sendNumbered();
        }
        break;
    }
}

void FarEnd::sendHeard() {
    if (auto settings = emission(); settings && !last.empty()) {
        ether.send(*this, {*settings, last});
    }
}

std::optional<Emission> FarEnd::emission() const {
    auto settings = receptionOf(near.radio(), 0);
    if (!settings) {
        return std::nullopt;
    }
    Emission emission;
    emission.frequency = settings->frequency * (1 + crystalError * 1e-6);
    emission.deviation = settings->bandwidth * swingOfBandwidth;
    emission.dataRate = settings->dataRate;
    return emission;
}

void FarEnd::sendNumbered() {
    ++number;
    auto settings = receptionOf(near.radio(), 0);
    auto own = emission();
    if (!settings || !own) {
        return;
    }
    std::vector<std::uint8_t> bytes(preambleBytes, preamble);
    bytes.insert(bytes.end(), settings->synchron.begin(), settings->synchron.end());
    char text[16];
    int length = std::snprintf(text, sizeof text, "PKT %05d\r", number % 100000);
    bytes.insert(bytes.end(), text, text + length);
    if (fading.contains(number)) {
        own->power -= fade;
    }
    ether.send(*this, {*own, bytes});
}

std::optional<Emission> FarEnd::carrier() const {
    if (ownMode == Mode::beacon) {
        return beacon;
    }
    return ownMode == Mode::carrier || ownMode == Mode::lively ? emission() : std::nullopt;
}

void FarEnd::hear(const AirPacket& packet) {
    if (!packet.emission.dataRate) {
        return;
    }
    // A receiver that is set up for just this sender.
    Reception alike;
    alike.frequency = packet.emission.frequency;
    alike.bandwidth = 4 * packet.emission.deviation;
    alike.dataRate = packet.emission.dataRate;
    if (auto arrived = ether.received(packet, alike)) {
        ++heard;
        last = *arrived;
        answerDue = true;
    }
}

} // namespace zor::sim
