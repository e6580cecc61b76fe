// SPDX-License-Identifier: MIT
// What settings of a radio link come to. Each formula names where it comes from; all are checked against
// worked examples.
#pragma once

#include <optional>

namespace zor {

/// How data moves the carrier.
struct Keying {
    enum class Kind {
        Frequency, ///< two frequencies, a deviation above and below the centre, without a jump in the phase
        OnOff      ///< carrier on and off
    };

    Kind kind = Kind::Frequency;
    double rate = 0;      // bit/s
    double deviation = 0; // Hz to either side; of no meaning for OnOff
};

/// Twice the deviation over the data rate.
[[nodiscard]] double modulationIndex(const Keying& keying);

/// Carson's rule, in Hz: B = 2 (deviation + highest modulating frequency), which is half the rate of data
/// without return to zero. J. R. Carson, "Notes on the Theory of Modulation", Proc. IRE 10 (1922), 57-64.
/// For on-off keying the main lobe, 2 x rate, stands in its place.
[[nodiscard]] double carsonBandwidth(const Keying& keying);

/// The bandwidth in Hz that holds 99 % of the power of random data (ITU-R SM.328: half a percent may lie
/// beyond either edge). From the spectrum of continuous-phase keying without any shaping (J. G. Proakis,
/// "Digital Communications", the section on the spectra of CPFSK); of on-off keying half the power is the
/// carrier.
[[nodiscard]] double occupiedBandwidth(const Keying& keying);

/// How much of the power lies further than so many data rates from the centre, 0 to 1.
/// @param distance  in data rates, not below 0
/// @param index  modulation index, above 0
[[nodiscard]] double powerBeyond(double distance, double index);

/// In s, of so many bytes sent without a break.
[[nodiscard]] double timeOnAir(double bytes, double rate);

/// By how much the two ends can lie apart at the worst, in Hz: each crystal off by its tolerance, in opposite
/// directions.
[[nodiscard]] double worstOffset(double frequency, double ownPpm, double farPpm);

/// The receiver's bandwidth, in Hz, that takes the signal in wherever the crystals put it: its own width and
/// the worst offset to either side. Without automatic frequency control.
[[nodiscard]] double neededBandwidth(const Keying& keying, double offset);

/// In hours, of a battery that gives all of its capacity and loses none by itself. Nothing without a current.
[[nodiscard]] std::optional<double> batteryHours(double milliampHours, double milliamps);

} // namespace zor
