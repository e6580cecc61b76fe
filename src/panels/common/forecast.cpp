// SPDX-License-Identifier: MIT
#include "panels/common/forecast.h"

#include "panels/common/chip_panel.h"
#include "support/csv.h"
#include "support/error.h"
#include "support/numbers.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zor {

namespace {

using Kind = ChipState::Kind;
constexpr double kilo = 1e3;

/// What a field that is typed in takes, and what it begins with.
struct Entry {
    double least;
    double most;
    int decimals;
    const char* start;
};
constexpr Entry deviationEntry{0.1, 1000, 3, "60"};
constexpr Entry rateEntry{0.01, 1000, 3, "9.6"};
constexpr Entry bytesEntry{1, 1'000'000, 0, "16"};
constexpr Entry bandwidthEntry{1, 10'000, 3, "135"};
constexpr Entry toleranceEntry{0, 1000, 2, "20"};
constexpr Entry capacityEntry{0.1, 10'000'000, 1, "1000"};

/// A number of kHz, to a tenth.
std::string tenths(double value) {
    return numberText(roundToDecimals(value, 1));
}

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

Forecast::Forecast(ChipPanel& owner, Bench& ownBench, std::function<bool()> mayUsePort)
    : ShowForecast(owner, "ShowForecast", "Show Forecast")
    , ForecastArea(owner, "ForecastArea")
    , ForecastDeviation(owner, "ForecastDeviation", deviationEntry.start)
    , ForecastRate(owner, "ForecastRate", rateEntry.start)
    , ForecastBytes(owner, "ForecastBytes", bytesEntry.start)
    , ForecastBandwidth(owner, "ForecastBandwidth", bandwidthEntry.start)
    , OwnTolerance(owner, "OwnTolerance", toleranceEntry.start)
    , FarTolerance(owner, "FarTolerance", toleranceEntry.start)
    , BatteryCapacity(owner, "BatteryCapacity", capacityEntry.start)
    , CarsonBandwidth(owner, "CarsonBandwidth", "", TextField::Access::ReadOnly)
    , OccupiedBandwidth(owner, "OccupiedBandwidth", "", TextField::Access::ReadOnly)
    , TimeOnAir(owner, "TimeOnAir", "", TextField::Access::ReadOnly)
    , NeededBandwidth(owner, "NeededBandwidth", "", TextField::Access::ReadOnly)
    , BandwidthMargin(owner, "BandwidthMargin", "", TextField::Access::ReadOnly)
    , FitVerdict(owner, "FitVerdict")
    , AverageCurrent(owner, "AverageCurrent", "", TextField::Access::ReadOnly)
    , BatteryLife(owner, "BatteryLife", "", TextField::Access::ReadOnly)
    , CurrentSpread(owner, "CurrentSpread")
    , CurrentSource(owner, "CurrentSource")
    , MeasureCurrents(owner, "MeasureCurrents", "Measure")
    , CycleLine(owner, "CycleLine")
    , panel(owner)
    , bench(ownBench)
    , chip(*findForecastChip(owner.name()))
    , mayMeasure(std::move(mayUsePort))
    , walk(ownBench) {
    arrange();
    wire();
    setTips();
}

void Forecast::arrange() {
    for (Element* element : {static_cast<Element*>(&ForecastDeviation), static_cast<Element*>(&ForecastRate),
                             static_cast<Element*>(&ForecastBytes), static_cast<Element*>(&ForecastBandwidth),
                             static_cast<Element*>(&OwnTolerance), static_cast<Element*>(&FarTolerance),
                             static_cast<Element*>(&BatteryCapacity), static_cast<Element*>(&CarsonBandwidth),
                             static_cast<Element*>(&OccupiedBandwidth), static_cast<Element*>(&TimeOnAir),
                             static_cast<Element*>(&NeededBandwidth), static_cast<Element*>(&BandwidthMargin),
                             static_cast<Element*>(&FitVerdict), static_cast<Element*>(&AverageCurrent),
                             static_cast<Element*>(&BatteryLife), static_cast<Element*>(&CurrentSpread),
                             static_cast<Element*>(&CurrentSource), static_cast<Element*>(&MeasureCurrents),
                             static_cast<Element*>(&CycleLine)}) {
        element->setContainer(&ForecastArea);
    }
    ForecastArea.setVisible(false);
    ForecastDeviation.setReadOnly(chip.deviation != nullptr);
    ForecastRate.setReadOnly(chip.rate != nullptr);
    ForecastBandwidth.setReadOnly(chip.bandwidth != nullptr);
}

void Forecast::wire() {
    auto taking = [this](TextField& field, const Entry& entry) {
        field.onCommit = [this, &field, entry] {
            double value = std::clamp(numericPrefix(field.text()), entry.least, entry.most);
            field.setText(numberText(roundToDecimals(value, entry.decimals)));
            look();
        };
    };
    taking(ForecastDeviation, deviationEntry);
    taking(ForecastRate, rateEntry);
    taking(ForecastBytes, bytesEntry);
    taking(ForecastBandwidth, bandwidthEntry);
    taking(OwnTolerance, toleranceEntry);
    taking(FarTolerance, toleranceEntry);
    taking(BatteryCapacity, capacityEntry);
    ShowForecast.onClick = [this] { fold(!ForecastArea.visible()); };
    MeasureCurrents.onClick = [this] { MeasureCurrents_Click(); };
    if (panel.PowerSupply.onCommit) {
        // The voltage is in force behind the field's own changes.
        panel.PowerSupply.onCommit = [this, commit = std::move(panel.PowerSupply.onCommit)] {
            commit();
            look();
        };
    }
    walk.moved = [this] { walkMoved(); };
    walk.ended = [this](CurrentWalk::End how) { walkEnded(how); };
}

void Forecast::setTips() {
    ShowForecast.setTip("What the settings come to: bandwidth, time on the air, fit of both ends, current");
    ForecastDeviation.setTip(ForecastDeviation.readOnly() ? "The deviation that is set above, in kHz"
                                                          : "Deviation of the far transmitter, in kHz");
    ForecastRate.setTip(ForecastRate.readOnly()
                            ? "The data rate that is set above, in kbit/s"
                            : "Data rate of the controller that keys the chip, in kbit/s");
    ForecastBandwidth.setTip(ForecastBandwidth.readOnly() ? "The receiver bandwidth that is set above, in kHz"
                                                          : "Bandwidth of the far receiver, in kHz");
    ForecastBytes.setTip("Bytes of a transmission, preamble and synchron pattern included");
    OwnTolerance.setTip("By how much this board's crystal may be off, in ppm");
    FarTolerance.setTip("By how much the far end's crystal may be off, in ppm");
    CarsonBandwidth.setTip(
        "Carson's rule: twice the deviation and the data rate; of OOK twice the data rate");
    OccupiedBandwidth.setTip("Holds 99 % of the power of random data");
    TimeOnAir.setTip("Of all bytes at the data rate, without the chip's start");
    NeededBandwidth.setTip("Carson's bandwidth wherever the two crystals put it, without AFC");
    BandwidthMargin.setTip("The receiver's bandwidth less what is needed");
    AverageCurrent.setTip("Mean over the cycle that is drawn, from measured currents");
    BatteryCapacity.setTip("What the battery gives, in mAh");
    BatteryLife.setTip("Of a battery that loses nothing by itself");
    MeasureCurrents.setTip(
        "Measures the chip's current in each of its states at the present supply, in a few "
        "seconds, and gives it its words back. A transmitter sends meanwhile, at each power.");
    CycleLine.setTip("What the chip does over time as it is set");
}

void Forecast::fold(bool shown) {
    if (shown) {
        outcome.clear();
        readCurrents();
        watch();
    } else {
        settings.clear();
    }
    ForecastArea.setVisible(shown);
    ShowForecast.setCaption(shown ? "Hide Forecast" : "Show Forecast");
    if (shown) {
        look();
    }
}

void Forecast::watch() {
    auto due = [this] {
        if (std::exchange(*lookDue, true)) {
            return;
        }
        // One action changes many elements. The panel may be discarded in the same turn.
        panel.loop().discardLater([this, due = std::weak_ptr<bool>(lookDue)] {
            if (auto alive = due.lock()) {
                *alive = false;
                look();
            }
        });
    };
    for (Element* element : panel.elements()) {
        if (element->container() != &ForecastArea && element != &ForecastArea && element != &ShowForecast) {
            settings.push_back(element->changed.subscribe(due));
        }
    }
    settings.push_back(bench.sharedValueChanged.subscribe(due));
}

std::optional<double> Forecast::numberOf(const char* name) const {
    Element* element = name == nullptr ? nullptr : panel.find(name);
    return element == nullptr ? std::nullopt : readNumericPrefix(element->text());
}

void Forecast::look() {
    if (!ForecastArea.visible()) {
        return;
    }
    for (auto [field, name] :
         {std::pair(&ForecastDeviation, chip.deviation), std::pair(&ForecastRate, chip.rate),
          std::pair(&ForecastBandwidth, chip.bandwidth)}) {
        if (name != nullptr) {
            std::optional<double> number = numberOf(name);
            field->setText(number ? numberText(*number) : std::string());
        }
    }
    showAir();
    showFit();
    showCycle();
}

std::optional<Keying> Forecast::keying() const {
    std::optional<double> rate = readNumericPrefix(ForecastRate.text());
    std::optional<double> deviation = readNumericPrefix(ForecastDeviation.text());
    Element* list = chip.keying == nullptr ? nullptr : panel.find(chip.keying);
    bool onOff = list != nullptr && list->text() == "OOK";
    if (!rate || *rate <= 0 || (!onOff && (!deviation || *deviation <= 0))) {
        return std::nullopt;
    }
    return Keying{onOff ? Keying::Kind::OnOff : Keying::Kind::Frequency, *rate * kilo,
                  deviation.value_or(0) * kilo};
}

void Forecast::showAir() {
    std::optional<Keying> keyed = keying();
    CarsonBandwidth.setText(keyed ? tenths(carsonBandwidth(*keyed) / kilo) : std::string());
    OccupiedBandwidth.setText(keyed ? tenths(occupiedBandwidth(*keyed) / kilo) : std::string());
    TimeOnAir.setText(keyed ? durationText(timeOnAir(numericPrefix(ForecastBytes.text()), keyed->rate))
                            : std::string());
}

void Forecast::showFit() {
    std::optional<Keying> keyed = keying();
    std::optional<double> bandwidth = readNumericPrefix(ForecastBandwidth.text());
    std::optional<double> megahertz = readNumericPrefix(panel.FreqCenter.text());
    if (!keyed || !bandwidth || !megahertz) {
        NeededBandwidth.setText("");
        BandwidthMargin.setText("");
        FitVerdict.setCaption("");
        return;
    }
    double offset =
        worstOffset(*megahertz * 1e6, numericPrefix(OwnTolerance.text()), numericPrefix(FarTolerance.text()));
    double needed = neededBandwidth(*keyed, offset) / kilo;
    double margin = *bandwidth - needed;
    NeededBandwidth.setText(tenths(needed));
    BandwidthMargin.setText(tenths(margin));
    FitVerdict.setCaption(margin >= 0 ? "The receiver takes the signal in, whatever the crystals do."
                                      : "The receiver is too narrow by " + tenths(-margin) + " kHz.");
}

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
        on = timeOnAir(numericPrefix(ForecastBytes.text()), keyed->rate);
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
    double capacity = numericPrefix(BatteryCapacity.text());
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

ControlWord& Forecast::wordOf(const char* name) const {
    return dynamic_cast<ControlWord&>(*panel.find(name));
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
