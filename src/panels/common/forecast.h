// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/label.h"
#include "elements/text_field.h"
#include "elements/timeline.h"
#include "link/bench.h"
#include "panels/common/current_walk.h"
#include "panels/common/forecast_chips.h"
#include "panels/common/link_figures.h"
#include "panels/common/measured_currents.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zor {

/// What the settings of a chip panel come to on the air, in the receiver and at the battery: part of the
/// panel, folded away at its foot at first, in elements beside the panel's own. It follows the settings while
/// it is folded out, and sends nothing but what `Measure` does.
class Forecast {
  public:
    /// @param mayMeasure  tells in a box why nobody may use the port now; true if one may
    Forecast(ChipPanel& owner, Bench& ownBench, std::function<bool()> mayMeasure);
    Forecast(const Forecast&) = delete;
    Forecast& operator=(const Forecast&) = delete;

    Button ShowForecast;
    Frame ForecastArea;

    // What goes into it: the panel's own settings, locked, or the far end's, typed.
    TextField ForecastDeviation; ///< kHz
    TextField ForecastRate;      ///< kbit/s
    TextField ForecastBytes;
    TextField ForecastBandwidth; ///< kHz, of the receiver
    TextField OwnTolerance;      ///< ppm
    TextField FarTolerance;      ///< ppm
    TextField BatteryCapacity;   ///< mAh

    // What comes out.
    TextField CarsonBandwidth;   ///< kHz
    TextField OccupiedBandwidth; ///< kHz
    TextField TimeOnAir;
    TextField NeededBandwidth; ///< kHz
    TextField BandwidthMargin; ///< kHz; below 0 where it does not fit
    Label FitVerdict;
    TextField AverageCurrent;
    TextField BatteryLife;
    Label CurrentSpread;
    Label CurrentSource;
    Button MeasureCurrents;
    Timeline CycleLine;

    [[nodiscard]] bool measuring() const { return walk.running(); }
    /// The panel goes: the chip gets its words back at once.
    void panelCloses();

  private:
    /// What a field that is typed in takes.
    struct Entry {
        double least;
        double most;
        int decimals;
        const char* start;
    };
    static const Entry deviationEntry;
    static const Entry rateEntry;
    static const Entry bytesEntry;
    static const Entry bandwidthEntry;
    static const Entry toleranceEntry;
    static const Entry capacityEntry;

    /// In mA.
    struct Spread {
        double low = 0;
        double value = 0;
        double high = 0;
    };

    void arrange();
    void wire();
    void setTips();
    void fold(bool shown);
    void watch();
    void look();
    [[nodiscard]] std::optional<Keying> keying() const;
    void showAir();
    void showFit();
    void showCycle();
    void showCurrents(const std::vector<TimelinePhase>& cycle);
    [[nodiscard]] std::vector<TimelinePhase> cycle() const;
    [[nodiscard]] const ChipState& standingState() const;
    [[nodiscard]] TimelinePhase phaseOf(ChipState::Kind kind, double seconds) const;
    [[nodiscard]] double wakeUpSeconds() const;
    /// The mean of a cycle; nothing if a state of it was not measured.
    [[nodiscard]] std::optional<Spread> mean(const std::vector<TimelinePhase>& cycle,
                                             const std::string& volts) const;
    [[nodiscard]] std::string sourceText(const std::string& volts) const;

    void MeasureCurrents_Click();
    [[nodiscard]] std::vector<CurrentWalk::Step> steps() const;
    [[nodiscard]] std::string stepLine(const WordBits& bits) const;
    [[nodiscard]] std::vector<ControlWord*> touched() const;
    [[nodiscard]] ControlWord& wordOf(const char* name) const;
    void tellOutcome(std::string text);
    void walkMoved();
    void walkEnded(CurrentWalk::End how);
    void keepReadings();
    void readCurrents();

    /// The number in a field, within what it takes also while it is being typed; nothing without one.
    [[nodiscard]] static std::optional<double> entered(const TextField& field, const Entry& entry);
    [[nodiscard]] double bytes() const;
    /// The number that an element shows; nothing without an element, or a number that one can count with.
    [[nodiscard]] std::optional<double> numberOf(const char* name) const;

    ChipPanel& panel;
    Bench& bench;
    const ForecastChip& chip;
    std::function<bool()> mayMeasure;
    MeasuredCurrents currents;
    std::string currentsTrouble;
    CurrentWalk walk;
    std::string measuredVolts;
    /// Why the last click on `Measure` brought nothing; empty if it did, or was long ago.
    std::string outcome;
    std::vector<Subscription> settings;
    /// A look at the settings is due; lets it notice that the panel has gone.
    std::shared_ptr<bool> lookDue = std::make_shared<bool>(false);
};

} // namespace zor
