// SPDX-License-Identifier: MIT
#include "elements/timeline.h"

#include "support/numbers.h"

#include <cmath>
#include <utility>

namespace zor {

namespace {

struct TimeUnit {
    double seconds;
    const char* name;
};

constexpr TimeUnit units[] = {{365.25 * 86'400, "years"},
                              {86'400, "days"},
                              {3600, "h"},
                              {60, "min"},
                              {1, "s"},
                              {1e-3, "ms"},
                              {1e-6, "us"}};

/// A year is said from two on, an hour from two on: "36 h" reads better than "1.5 days".
constexpr double unitsFrom = 2;

std::string threeDigits(double value) {
    int before = value >= 1 ? static_cast<int>(std::floor(std::log10(value))) + 1 : 1;
    std::string shown = decimalsText(value, before >= 3 ? 0 : 3 - before);
    if (shown.find('.') != std::string::npos) {
        shown.erase(shown.find_last_not_of('0') + 1);
        if (shown.back() == '.') {
            shown.pop_back();
        }
    }
    return shown;
}

} // namespace

std::string durationText(double seconds) {
    if (!(seconds > 0)) {
        return "0 s";
    }
    if (std::isinf(seconds)) {
        return "without end";
    }
    const TimeUnit* chosen = &units[std::size(units) - 1];
    for (const TimeUnit& unit : units) {
        double from = unit.seconds > 1 ? unitsFrom : 1;
        if (seconds >= from * unit.seconds) {
            chosen = &unit;
            break;
        }
    }
    return threeDigits(seconds / chosen->seconds) + " " + chosen->name;
}

Timeline::Timeline(Form& owner, std::string name)
    : Element(owner, std::move(name)) {}

void Timeline::setPhases(std::vector<TimelinePhase> phases) {
    if (phases != ownPhases) {
        ownPhases = std::move(phases);
        changed.emit();
    }
}

double Timeline::period() const {
    double sum = 0;
    for (const TimelinePhase& phase : ownPhases) {
        sum += phase.seconds;
    }
    return ownPhases.size() > 1 ? sum : 0;
}

std::string Timeline::text() const {
    if (ownPhases.size() == 1) {
        return "always: " + ownPhases.front().caption;
    }
    std::string all;
    for (const TimelinePhase& phase : ownPhases) {
        all += phase.caption + " " + durationText(phase.seconds) + ", ";
    }
    return all.empty() ? all : all + "again each " + durationText(period());
}

} // namespace zor
