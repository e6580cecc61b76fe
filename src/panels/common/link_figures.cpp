// SPDX-License-Identifier: MIT
#include "panels/common/link_figures.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zor {

namespace {

using std::numbers::pi;

/// Of the power that may lie outside of the occupied bandwidth.
constexpr double outside = 0.01;
/// The spectrum is summed in steps of this many data rates. The places summed at lie half a step beside the
/// whole and half ones, where an index close to a whole number has needles too thin to be met fairly.
constexpr double gridStep = 1.0 / 64;
/// Beyond the outer tone by so many data rates the spectrum is summed by its mean, in closed form.
constexpr double meanBeyond = 20;
/// A whole-numbered index has lines, which a sum cannot see; so close to it they are needles at the same
/// places with the same power.
constexpr double leastFraction = 0.01;

double sinc(double x) {
    return x == 0 ? 1 : std::sin(pi * x) / (pi * x);
}

/// The mean of the last bits' correlation with the next ones, of phase alpha.
double correlation(double x, double alpha, double beta) {
    double numerator = std::cos(2 * pi * x - alpha) - beta * std::cos(alpha);
    return numerator / (1 + beta * beta - 2 * beta * std::cos(2 * pi * x));
}

/// Power density of two-level continuous-phase keying, of a whole power of 1.
/// @param x  distance from the centre in data rates
double density(double x, double index) {
    double beta = std::cos(pi * index);
    double lower = sinc(x + index / 2);
    double upper = sinc(x - index / 2);
    double lone = (lower * lower + upper * upper) / 2;
    double paired = correlation(x, -pi * index, beta) * lower * lower +
                    correlation(x, pi * index, beta) * upper * upper +
                    2 * correlation(x, 0, beta) * lower * upper;
    return lone + paired / 2;
}

/// Its sum on both sides from `distance` beyond the upper tone on, of the mean over the ripples:
/// (1/d - 1/(d + h))^2 / (8 pi^2) to each side.
double meanTail(double distance, double index) {
    double further = distance + index;
    return (1 / distance + 1 / further - 2 / index * std::log(further / distance)) / (4 * pi * pi);
}

/// The next whole number of steps.
double onGrid(double place) {
    return std::ceil(place / gridStep) * gridStep;
}

double clearOfWhole(double index) {
    double whole = std::round(index);
    double apart = index - whole;
    return std::abs(apart) < leastFraction ? whole + (apart < 0 ? -leastFraction : leastFraction) : index;
}

/// Walks a spectrum inwards from its mean tail until so much lies outside.
/// @return the distance from the centre, in data rates
template <class Density>
double distanceHolding(double start, double tail, Density densityAt) {
    auto cell = std::lround(start / gridStep);
    while (cell > 0) {
        double share = 2 * densityAt((static_cast<double>(cell) - 0.5) * gridStep) * gridStep;
        if (tail + share >= outside) {
            double part = share > 0 ? (outside - tail) / share : 0;
            return (static_cast<double>(cell) - part) * gridStep;
        }
        tail += share;
        --cell;
    }
    return 0;
}

} // namespace

double modulationIndex(const Keying& keying) {
    return 2 * keying.deviation / keying.rate;
}

double carsonBandwidth(const Keying& keying) {
    return keying.kind == Keying::Kind::OnOff ? 2 * keying.rate : 2 * (keying.deviation + keying.rate / 2);
}

double powerBeyond(double distance, double index) {
    double clear = clearOfWhole(index);
    double start = onGrid(std::max(distance, clear / 2 + meanBeyond));
    double sum = meanTail(start - clear / 2, clear);
    double from = std::floor(distance / gridStep) * gridStep;
    for (auto left = std::lround(start / gridStep); left > std::lround(from / gridStep); --left) {
        double end = static_cast<double>(left) * gridStep;
        // Of the cell that the distance lies in, the outer part.
        double width = std::min(gridStep, end - distance);
        sum += 2 * density(end - gridStep / 2, clear) * width;
    }
    return std::clamp(sum, 0.0, 1.0);
}

double occupiedBandwidth(const Keying& keying) {
    if (keying.kind == Keying::Kind::OnOff) {
        // Half of the power is the carrier, the other half the square of a sinc.
        auto half = [](double x) { return sinc(x) * sinc(x) / 2; };
        return 2 * keying.rate * distanceHolding(meanBeyond, 1 / (2 * pi * pi * meanBeyond), half);
    }
    double index = clearOfWhole(modulationIndex(keying));
    double start = onGrid(index / 2 + meanBeyond);
    double tail = meanTail(start - index / 2, index);
    auto densityAt = [index](double x) { return density(x, index); };
    return 2 * keying.rate * distanceHolding(start, tail, densityAt);
}

double timeOnAir(double bytes, double rate) {
    return 8 * bytes / rate;
}

double worstOffset(double frequency, double ownPpm, double farPpm) {
    return frequency * (ownPpm + farPpm) * 1e-6;
}

double neededBandwidth(const Keying& keying, double offset) {
    return carsonBandwidth(keying) + 2 * offset;
}

std::optional<double> batteryHours(double milliampHours, double milliamps) {
    return milliamps > 0 ? std::optional(milliampHours / milliamps) : std::nullopt;
}

} // namespace zor
