// SPDX-License-Identifier: MIT
// What the chip does over time as it is set, and what it draws by what was measured.
#include "panels/common/chip_panel.h"
#include "panels/common/forecast.h"
#include "support/csv.h"
#include "support/error.h"
#include "support/numbers.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace zor {

namespace {

using Kind = ChipState::Kind;
constexpr double kilo = 1e3;

/// How high a state stands in the drawing.
double levelOf(Kind kind) {
    switch (kind) {
    case Kind::Sleep:
        return 0.04;
    case Kind::WakeUpTimer:
        return 0.1;
    case Kind::Crystal:
        return 0.3;
    case Kind::Synthesizer:
        return 0.5;
    case Kind::Receive:
        return 0.8;
    case Kind::Transmit:
        return 1;
    }
    return 0;
}

} // namespace

const ChipState& Forecast::standingState() const {
    const ChipState* found = &chip.states.front();
    for (const ChipState& state : chip.states) {
        if ((wordOf(state.word).value() & state.bits) != 0) {
            found = &state;
        }
    }
    return *found;
}

double Forecast::wakeUpSeconds() const {
    auto* divisor = chip.wakeUpDivisor == nullptr ? nullptr : panel.find(chip.wakeUpDivisor);
    WakeUpSetting setting = commitWakeUp(panel.traits().wakeUp, panel.WKUPM.text(), panel.WKUPR.text(),
                                         divisor == nullptr ? std::string() : divisor->text());
    double ratio = static_cast<double>(panel.GetXtalFrequency()) / 10e6;
    return std::ldexp(setting.mantissa, setting.exponent - setting.divisor) / kilo / ratio;
}

TimelinePhase Forecast::phaseOf(Kind kind, double seconds) const {
    Element* power = chip.power == nullptr ? nullptr : panel.find(chip.power);
    return {stateName(kind, power == nullptr ? std::string() : power->text()), seconds, levelOf(kind)};
}

std::vector<TimelinePhase> Forecast::cycle() const {
    auto ticked = [this](const char* name) {
        auto* tick = name == nullptr ? nullptr : dynamic_cast<TickBox*>(panel.find(name));
        return tick != nullptr && tick->ticked();
    };
    const ChipState& standing = standingState();
    double period = ticked(chip.wakeUpTick) ? wakeUpSeconds() : 0;
    double on = 0;
    Kind work = standing.kind;
    if (period > 0 && ticked(chip.dutyTick)) {
        work = Kind::Receive;
        on = period * numberOf(chip.dutyPercent).value_or(0) / 100;
    } else if (std::optional<Keying> keyed = keying();
               period > 0 && chip.power != nullptr && standing.kind != Kind::Receive && keyed) {
        // The timer wakes the controller, which sends its bytes.
        work = Kind::Transmit;
        on = timeOnAir(bytes(), keyed->rate);
    }
    if (on <= 0 || on >= period) {
        return {phaseOf(work, 0)};
    }
    return {phaseOf(work, on), phaseOf(Kind::WakeUpTimer, period - on)};
}

void Forecast::showCycle() {
    std::vector<TimelinePhase> phases = cycle();
    showCurrents(phases);
    CycleLine.setPhases(std::move(phases));
}

std::optional<Forecast::Spread> Forecast::mean(const std::vector<TimelinePhase>& phases,
                                               const std::string& volts) const {
    Spread sum;
    double period = 0;
    for (const TimelinePhase& phase : phases) {
        const MeasuredCurrent* current = currents.find(panel.chip(), volts, phase.caption);
        if (current == nullptr) {
            return std::nullopt;
        }
        double weight = phases.size() == 1 ? 1 : phase.seconds;
        period += weight;
        sum.low += weight * std::max(0.0, current->microamps - current->step) / kilo;
        sum.value += weight * current->microamps / kilo;
        sum.high += weight * (current->microamps + current->step) / kilo;
    }
    return Spread{sum.low / period, sum.value / period, sum.high / period};
}

void Forecast::showCurrents(const std::vector<TimelinePhase>& phases) {
    std::string volts = currents.nearestVolts(panel.chip(), numericPrefix(bench.preferences.Pref_Voltage));
    std::optional<Spread> spread = mean(phases, volts);
    if (!walk.running()) {
        CurrentSource.setCaption(sourceText(volts));
    }
    if (!spread) {
        AverageCurrent.setText("");
        BatteryLife.setText("");
        CurrentSpread.setCaption(volts.empty() ? "" : "This state was not measured.");
        return;
    }
    auto milliamps = [](double value) { return numberText(roundToDecimals(value, 3)); };
    double capacity = entered(BatteryCapacity, capacityEntry).value_or(capacityEntry.least);
    auto life = [capacity](double current) {
        std::optional<double> hours = batteryHours(capacity, current);
        return hours ? durationText(*hours * 3600) : std::string("without end");
    };
    // What the converter reads as nothing may be as much as one of its steps.
    std::string least = "over " + life(spread->high);
    AverageCurrent.setText(milliamps(spread->value));
    BatteryLife.setText(spread->value > 0 ? life(spread->value) : least);
    CurrentSpread.setCaption(
        "The converter's step leaves " + milliamps(spread->low) + " to " + milliamps(spread->high) +
        " mA: " + (spread->low > 0 ? life(spread->high) + " to " + life(spread->low) : least) + ".");
}

std::string Forecast::sourceText(const std::string& volts) const {
    if (!outcome.empty() || !currentsTrouble.empty()) {
        return outcome.empty() ? currentsTrouble : outcome;
    }
    for (const MeasuredCurrent& one : currents.all()) {
        if (one.chip == panel.chip() && one.volts == volts) {
            bool other = numericPrefix(volts) != numericPrefix(bench.preferences.Pref_Voltage);
            return (other ? "Not measured at " + bench.preferences.Pref_Voltage + " V; these are of " +
                                volts + " V, "
                          : "Measured at " + volts + " V, ") +
                   one.time + ", " + one.board + ".";
        }
    }
    return "No current of the " + panel.chip() + " was measured yet.";
}

void Forecast::readCurrents() {
    currentsTrouble.clear();
    try {
        currents.read(bench.platform);
    } catch (const CsvError& error) {
        currentsTrouble = "ZOR-currents.csv cannot be used: " + std::string(error.what()) + " in line " +
                          std::to_string(error.line) + ".";
    } catch (const ToolError& error) {
        currentsTrouble = "ZOR-currents.csv cannot be read: " + std::string(error.what()) + ".";
    }
}

} // namespace zor
