// SPDX-License-Identifier: MIT
#include "rftools/search_rates.h"

#include "panels/common/timing.h"

#include <algorithm>
#include <cmath>

namespace zor {

namespace {

/// In kbit/s.
constexpr double customaryRates[] = {9.6, 4.8, 19.2, 2.4, 38.4, 1.2, 57.6, 115.2};
/// A clock that locks at a rate locks at its neighbours no further away than this too.
constexpr double neighbour = 0.015;

RateSetting rateSetting(int divider, bool prescaler, const RateRange& range) {
    Prescaler how = prescaler ? Prescaler::On : Prescaler::Off;
    return {divider, prescaler, dataRate(divider, how, range.crystalRatio).value};
}

/// Every rate of the chip, the fastest first; of two ways to the same rate the one without the prescaler.
std::vector<RateSetting> everyRate(const RateRange& range) {
    std::vector<RateSetting> all;
    for (bool prescaler : {false, true}) {
        for (int divider = 0; divider <= range.greatestDivider && (!prescaler || range.hasPrescaler);
             ++divider) {
            all.push_back(rateSetting(divider, prescaler, range));
        }
    }
    std::stable_sort(all.begin(), all.end(),
                     [](const auto& one, const auto& other) { return one.kilobits > other.kilobits; });
    return all;
}

RateSetting nearestOf(const std::vector<RateSetting>& all, double kilobits) {
    auto distance = [kilobits](const RateSetting& rate) {
        return std::abs(std::log(rate.kilobits / std::max(kilobits, 1e-6)));
    };
    return *std::min_element(all.begin(), all.end(), [&](const auto& one, const auto& other) {
        return distance(one) < distance(other);
    });
}

} // namespace

RateSetting nearestRate(double kilobits, const RateRange& range) {
    return nearestOf(everyRate(range), kilobits);
}

std::vector<RateSetting> rateTrials(double first, const RateRange& range) {
    const std::vector<RateSetting> all = everyRate(range);
    std::vector<RateSetting> trials;
    auto add = [&trials](const RateSetting& rate) {
        bool near = std::any_of(trials.begin(), trials.end(), [&rate](const RateSetting& other) {
            return std::abs(rate.kilobits / other.kilobits - 1) < neighbour;
        });
        if (!near) {
            trials.push_back(rate);
        }
    };
    add(nearestOf(all, first));
    for (double customary : customaryRates) {
        add(nearestOf(all, customary));
    }
    for (const RateSetting& rate : all) {
        add(rate);
    }
    return trials;
}

} // namespace zor
