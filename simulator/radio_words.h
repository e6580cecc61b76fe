// SPDX-License-Identifier: MIT
// What a chip's latched words mean on the air.
#pragma once

#include "simulator/radio_chip.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace zor::sim {

/// What a chip would send with, or sends while its carrier is on.
struct Emission {
    double frequency = 0; // Hz
    double deviation = 0; // Hz to either side
    /// A high level lowers the frequency.
    bool inverted = false;
    /// The level switches the carrier instead of moving it.
    bool onOff = false;
    double power = 0;               // dBm
    std::optional<double> dataRate; // bit/s; nothing on a chip that has no clock for its data
    /// Bits follow one another at that rate all the time, for a clock to be recovered from.
    bool data = false;
};

/// What a chip listens with.
struct Reception {
    double frequency = 0;           // Hz
    double bandwidth = 0;           // Hz, from edge to edge
    double attenuation = 0;         // dB less than the amplifier's full gain
    double threshold = 0;           // dBm at full gain, where DRSSI answers
    double offsetStep = 0;          // Hz of one step of the frequency offset
    std::optional<double> dataRate; // bit/s
    /// Its data filter is the digital one, which alone recovers a clock.
    bool recoversClock = true;
    /// Its FIFO takes bytes: it is on and its fill is enabled.
    bool fills = false;
    /// What has to come before the fill begins; empty for a fill that begins with the carrier.
    std::vector<std::uint8_t> synchron;
};

/// The settings of a chip that can send; nothing while it has not been told its frequency.
/// @param ppm  how far its crystal is off
[[nodiscard]] std::optional<Emission> emissionOf(const RadioChip& chip, double ppm = 0);
/// The power amplifier is on, so that there is a carrier.
[[nodiscard]] bool carrierOn(const RadioChip& chip);
/// The settings of a chip whose receiver is on; nothing for another.
[[nodiscard]] std::optional<Reception> receptionOf(const RadioChip& chip, double ppm = 0);

} // namespace zor::sim
