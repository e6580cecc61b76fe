// SPDX-License-Identifier: MIT
#include "rftools/tx_search_plan.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace zor {

namespace {

constexpr int highestThreshold = 7;
/// Tunings towards a carrier; each one brings it from the edge of the offset's range towards its middle.
constexpr int mostCentrings = 6;
/// A level that falls so many thresholds and rises again parts two carriers.
constexpr int dip = 2;

} // namespace

SearchPlan::SearchPlan(const Span& ownSpan, std::vector<RateSetting> ownTrials)
    : span(ownSpan)
    , trials(std::move(ownTrials))
    , at(ownSpan.from) {
    begin(Phase::Sweep, at);
}

int SearchPlan::pointCount() const {
    int length = std::max(0, span.to - span.from);
    return 1 + (length + span.step - 1) / span.step;
}

void SearchPlan::begin(Phase phase, int frequency) {
    ownPhase = phase;
    bool measures = phase == Phase::Centre || phase == Phase::Measure;
    setting = {frequency, span.threshold, std::nullopt, measures};
}

void SearchPlan::take(const SearchReading& reading) {
    switch (ownPhase) {
    case Phase::Sweep:
        takeSweep(reading.signal);
        break;
    case Phase::Level:
        takeLevel(reading.signal);
        break;
    case Phase::Centre:
        takeCentre(reading);
        break;
    case Phase::Measure:
        takeMeasure(reading);
        break;
    case Phase::Rate:
        takeRate(reading.clockLocked);
        break;
    case Phase::Done:
        break;
    }
}

void SearchPlan::takeSweep(bool signal) {
    if (!signal) {
        swept.push_back({at, std::nullopt});
        closeStretch();
        return;
    }
    if (span.threshold >= highestThreshold) {
        record(span.threshold);
        return;
    }
    ownPhase = Phase::Level;
    ++setting.threshold;
}

void SearchPlan::takeLevel(bool signal) {
    if (!signal) {
        record(setting.threshold - 1);
    } else if (setting.threshold == highestThreshold) {
        record(highestThreshold);
    } else {
        ++setting.threshold;
    }
}

void SearchPlan::record(int threshold) {
    swept.push_back({at, threshold});
    stretch.push_back({at, threshold});
    if (at >= span.to) {
        closeStretch();
    } else {
        goOn();
    }
}

/// To the sweep's next point, or to the end.
void SearchPlan::goOn() {
    if (at >= span.to) {
        ownPhase = Phase::Done;
        return;
    }
    at = std::min(at + span.step, span.to);
    begin(Phase::Sweep, at);
}

/// Makes candidates of the signals in a row: each where the level is highest, its middle if it is flat there.
void SearchPlan::closeStretch() {
    std::vector<Candidate> tops;
    auto first = stretch.begin();
    while (first != stretch.end()) {
        int highest = first->threshold;
        int lowest = highest;
        auto end = first;
        auto valley = first;
        for (; end != stretch.end(); ++end) {
            if (end->threshold < lowest) {
                lowest = end->threshold;
                valley = end;
            }
            if (highest - lowest >= dip && end->threshold - lowest >= dip) {
                end = valley;
                break;
            }
            if (end->threshold > highest) {
                highest = end->threshold;
                lowest = highest;
            }
        }
        auto isTop = [highest](const Candidate& point) { return point.threshold == highest; };
        auto left = std::find_if(first, end, isTop);
        auto right = std::find_if(std::make_reverse_iterator(end), std::make_reverse_iterator(first), isTop);
        tops.push_back({std::midpoint(left->frequency, right->frequency), highest});
        first = end;
    }
    unexplained = std::exchange(stretch, {});
    waiting.assign(tops.rbegin(), tops.rend());
    nextCandidate();
}

/// Signals further away from each carrier than the receiver is wide belong to another one, that the strong
/// one hid. Without an offset that leads there such a one could not be told from the strong one's skirt.
void SearchPlan::lookBeside() {
    std::vector<Candidate> rest = std::exchange(unexplained, {});
    if (found.empty() || !found.back().offset) {
        return;
    }
    std::erase_if(rest, [this](const Candidate& point) {
        return std::any_of(found.begin(), found.end(), [&](const FoundCarrier& carrier) {
            return std::abs(carrier.frequency - point.frequency) <= 2 * span.resolution;
        });
    });
    for (auto first = rest.begin(); first != rest.end();) {
        auto last = first;
        int threshold = first->threshold;
        while (last + 1 != rest.end() && (last + 1)->frequency - last->frequency <= span.step) {
            ++last;
            threshold = std::max(threshold, last->threshold);
        }
        waiting.insert(waiting.begin(), {std::midpoint(first->frequency, last->frequency), threshold});
        first = last + 1;
    }
}

void SearchPlan::nextCandidate() {
    if (waiting.empty()) {
        lookBeside();
    }
    if (waiting.empty()) {
        goOn();
        return;
    }
    candidate = waiting.back();
    waiting.pop_back();
    centred = 0;
    begin(Phase::Centre, candidate.frequency);
}

void SearchPlan::takeCentre(const SearchReading& reading) {
    int away = reading.signal ? reading.offset.value_or(0) : 0;
    int better = std::clamp(candidate.frequency + away, span.lowest, span.highest);
    if (better != candidate.frequency && ++centred < mostCentrings) {
        candidate.frequency = better;
        begin(Phase::Centre, better);
        return;
    }
    measured = {};
    offsets.clear();
    begin(Phase::Measure, candidate.frequency);
}

void SearchPlan::takeMeasure(const SearchReading& reading) {
    ++measured.readings;
    if (reading.signal) {
        ++measured.seen;
        if (reading.offset) {
            offsets.push_back(*reading.offset);
        }
    }
    if (measured.readings == readingsOfCarrier) {
        finishMeasuring();
    }
}

void SearchPlan::finishMeasuring() {
    measured.tuned = candidate.frequency;
    measured.threshold = candidate.threshold;
    measured.frequency = candidate.frequency;
    if (!offsets.empty()) {
        auto [least, most] = std::minmax_element(offsets.begin(), offsets.end());
        measured.spread = *most - *least;
        measured.offset =
            std::accumulate(offsets.begin(), offsets.end(), 0.0) / static_cast<double>(offsets.size());
        measured.frequency += *measured.offset;
    }
    if (known(measured.frequency)) {
        nextCandidate();
        return;
    }
    found.push_back(measured);
    bool steady = 2 * measured.seen >= measured.readings;
    if (!steady || trials.empty()) {
        nextCandidate();
        return;
    }
    locks = 0;
    begin(Phase::Rate, candidate.frequency);
    setting.rate = 0;
}

bool SearchPlan::known(double frequency) const {
    return std::any_of(found.begin(), found.end(), [&](const FoundCarrier& other) {
        return std::abs(other.frequency - frequency) <= span.resolution;
    });
}

void SearchPlan::takeRate(bool locked) {
    std::size_t place = *setting.rate;
    locks = locked ? locks + 1 : 0;
    if (locks == locksOfRate) {
        found.back().rateState = FoundCarrier::Rate::Locked;
        found.back().rate = trials[place];
        nextCandidate();
    } else if (!locked) {
        if (place + 1 == trials.size()) {
            found.back().rateState = FoundCarrier::Rate::None;
            nextCandidate();
        } else {
            setting.rate = place + 1;
        }
    }
}

} // namespace zor
