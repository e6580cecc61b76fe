// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/radio_words.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <random>
#include <vector>

namespace zor::sim {

/// Bytes in a row on the air.
struct AirPacket {
    Emission emission;
    std::vector<std::uint8_t> bytes;

    /// How long they take; 0 without a data rate.
    [[nodiscard]] std::chrono::milliseconds airTime() const;
};

/// Somebody with an aerial.
class Station {
  public:
    Station() = default;
    Station(const Station&) = delete;
    Station& operator=(const Station&) = delete;
    virtual ~Station() = default;

    /// What it sends with while its carrier is on.
    [[nodiscard]] virtual std::optional<Emission> carrier() const = 0;
    /// The level that modulates its carrier now.
    [[nodiscard]] virtual bool level() = 0;
    /// A packet as it left the sender; what of it can be heard is the listener's own business.
    virtual void hear(const AirPacket& packet) = 0;
};

/// The space between stations: everybody hears everybody else, weaker by the path loss. It has no clock: a
/// packet is heard in the moment in which it is sent, and says how long it takes.
class Ether {
  public:
    /// The same seed and the same packets give the same bit errors.
    explicit Ether(std::uint32_t seed = 1)
        : random(seed) {}
    Ether(const Ether&) = delete;
    Ether& operator=(const Ether&) = delete;

    void join(Station& station) { stations.push_back(&station); }
    void leave(Station& station) { std::erase(stations, &station); }

    /// In dB between any two stations; 60 at first.
    void setPathLoss(double decibels) { loss = decibels; }
    [[nodiscard]] double pathLoss() const { return loss; }

    /// Hands a packet to everybody but its sender.
    void send(const Station& sender, const AirPacket& packet);

    /// The strongest carrier that a listener has in its bandwidth.
    struct Heard {
        Station* station = nullptr;
        Emission emission;
        double power = 0;  // dBm at the listener
        double offset = 0; // Hz above the frequency it listens at
    };
    [[nodiscard]] std::optional<Heard> carrierAt(const Station& listener, const Reception& reception) const;

    /// What arrives of a packet's bytes, with the bit errors that its weakness gives; nothing if the
    /// listener's settings and the sender's do not agree.
    [[nodiscard]] std::optional<std::vector<std::uint8_t>> received(const AirPacket& packet,
                                                                    const Reception& reception);

  private:
    std::vector<Station*> stations;
    std::mt19937 random;
    double loss = 60;
};

/// The carrier and its swing lie in the listener's bandwidth.
[[nodiscard]] bool inBandwidth(const Emission& emission, const Reception& reception);
/// Two data rates lie so near one another that a receiver locks to the sender's, in bit/s.
[[nodiscard]] bool ratesAgree(double sent, double expected);
/// Chance of a wrong bit for a power at the listener, of non-coherent detection over thermal noise.
/// @param power  dBm
/// @param dataRate  bit/s
[[nodiscard]] double bitErrorRate(double power, double dataRate, double attenuation);

} // namespace zor::sim
