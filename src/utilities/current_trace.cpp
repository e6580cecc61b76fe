// SPDX-License-Identifier: MIT
#include "utilities/current_trace.h"

#include <algorithm>
#include <utility>

namespace zor {

namespace {

/// Two neighbours as one. A gap between readings goes: its time counted for nothing anyway.
CurrentStretch merged(const CurrentStretch& first, const CurrentStretch& second) {
    CurrentStretch both = first.measured ? first : second;
    if (first.measured && second.measured) {
        both.covered = first.covered + second.covered;
        both.mean = both.covered > 0
                        ? (first.mean * first.covered + second.mean * second.covered) / both.covered
                        : (first.mean + second.mean) / 2;
        both.lowest = std::min(first.lowest, second.lowest);
        both.highest = std::max(first.highest, second.highest);
    }
    both.begin = first.begin;
    both.end = std::max(first.end, second.end);
    return both;
}

/// Which part of a stretch lies between two moments, from 0 to 1.
double shareOf(const CurrentStretch& stretch, double from, double to) {
    double length = stretch.end - stretch.begin;
    double within = std::min(stretch.end, to) - std::max(stretch.begin, from);
    return length > 0 ? std::clamp(within / length, 0.0, 1.0) : 0;
}

} // namespace

void CurrentTrace::endLast(double second) {
    if (!held.empty() && held.back().measured) {
        CurrentStretch& last = held.back();
        last.end = std::clamp(second, last.begin, last.begin + longestHold);
        last.covered = last.end - last.begin;
    }
}

void CurrentTrace::add(double second, double microamps) {
    endLast(second);
    makeRoom();
    held.push_back({second, second, 0, microamps, microamps, microamps, true});
}

void CurrentTrace::addGap(double second) {
    endLast(second);
    if (!held.empty() && held.back().measured) {
        makeRoom();
        held.push_back({.begin = second, .end = second, .measured = false});
    }
}

void CurrentTrace::makeRoom() {
    if (held.size() < capacity) {
        return;
    }
    constexpr std::size_t half = capacity / 2;
    for (std::size_t pair = 0; pair < half / 2; ++pair) {
        held[pair] = merged(held[2 * pair], held[2 * pair + 1]);
    }
    held.erase(held.begin() + half / 2, held.begin() + half);
}

const CurrentStretch* CurrentTrace::at(double second) const {
    auto next = std::upper_bound(held.begin(), held.end(), second,
                                 [](double moment, const CurrentStretch& one) { return moment < one.begin; });
    return next == held.begin() ? nullptr : &*std::prev(next);
}

std::optional<CurrentFigures> CurrentTrace::between(double from, double to) const {
    if (from > to) {
        std::swap(from, to);
    }
    std::optional<CurrentFigures> figures;
    double plainSum = 0;
    double count = 0;
    for (const CurrentStretch& stretch : held) {
        if (!stretch.measured || stretch.end < from || stretch.begin > to) {
            continue;
        }
        if (!figures) {
            figures = CurrentFigures{0, 0, stretch.lowest, stretch.highest, 0};
        }
        double seconds = stretch.covered * shareOf(stretch, from, to);
        figures->seconds += seconds;
        figures->charge += stretch.mean * seconds;
        figures->lowest = std::min(figures->lowest, stretch.lowest);
        figures->highest = std::max(figures->highest, stretch.highest);
        plainSum += stretch.mean;
        count += 1;
    }
    if (figures) {
        // Without a time that it stood for, a reading is still a reading.
        figures->mean = figures->seconds > 0 ? figures->charge / figures->seconds : plainSum / count;
    }
    return figures;
}

} // namespace zor
