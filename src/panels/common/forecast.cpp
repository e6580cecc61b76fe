// SPDX-License-Identifier: MIT
#include "panels/common/forecast.h"

#include "panels/common/chip_panel.h"
#include "support/numbers.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zor {

namespace {

constexpr double kilo = 1e3;

/// A field of the panel may hold more digits than any number has while somebody types.
std::optional<double> finiteNumber(const std::string& text) {
    std::optional<double> number = readNumericPrefix(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

/// A number of kHz, to a tenth.
std::string tenths(double value) {
    return numberText(roundToDecimals(value, 1));
}

} // namespace

// clang-format off
constexpr Forecast::Entry Forecast::deviationEntry { 0.1,  1000,       3, "60"   };
constexpr Forecast::Entry Forecast::rateEntry      { 0.01, 1000,       3, "9.6"  };
constexpr Forecast::Entry Forecast::bytesEntry     { 1,    1'000'000,  0, "16"   };
constexpr Forecast::Entry Forecast::bandwidthEntry { 1,    10'000,     3, "135"  };
constexpr Forecast::Entry Forecast::toleranceEntry { 0,    1000,       2, "20"   };
constexpr Forecast::Entry Forecast::capacityEntry  { 0.1,  10'000'000, 1, "1000" };
// clang-format on

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
            double value = entered(field, entry).value_or(entry.least);
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

std::optional<double> Forecast::entered(const TextField& field, const Entry& entry) {
    std::optional<double> number = readNumericPrefix(field.text());
    return number ? std::optional(std::clamp(*number, entry.least, entry.most)) : std::nullopt;
}

std::optional<double> Forecast::numberOf(const char* name) const {
    Element* element = name == nullptr ? nullptr : panel.find(name);
    return element == nullptr ? std::nullopt : finiteNumber(element->text());
}

double Forecast::bytes() const {
    return entered(ForecastBytes, bytesEntry).value_or(bytesEntry.least);
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
    // What a chip has of its own is as it is.
    std::optional<double> rate =
        chip.rate != nullptr ? readNumericPrefix(ForecastRate.text()) : entered(ForecastRate, rateEntry);
    std::optional<double> deviation = chip.deviation != nullptr ? readNumericPrefix(ForecastDeviation.text())
                                                                : entered(ForecastDeviation, deviationEntry);
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
    TimeOnAir.setText(keyed ? durationText(timeOnAir(bytes(), keyed->rate)) : std::string());
}

void Forecast::showFit() {
    std::optional<Keying> keyed = keying();
    std::optional<double> bandwidth = chip.bandwidth != nullptr ? readNumericPrefix(ForecastBandwidth.text())
                                                                : entered(ForecastBandwidth, bandwidthEntry);
    std::optional<double> megahertz = finiteNumber(panel.FreqCenter.text());
    if (!keyed || !bandwidth || !megahertz) {
        NeededBandwidth.setText("");
        BandwidthMargin.setText("");
        FitVerdict.setCaption("");
        return;
    }
    double offset =
        worstOffset(*megahertz * 1e6, entered(OwnTolerance, toleranceEntry).value_or(toleranceEntry.least),
                    entered(FarTolerance, toleranceEntry).value_or(toleranceEntry.least));
    double needed = neededBandwidth(*keyed, offset) / kilo;
    double margin = *bandwidth - needed;
    NeededBandwidth.setText(tenths(needed));
    BandwidthMargin.setText(tenths(margin));
    FitVerdict.setCaption(margin >= 0 ? "The receiver takes the signal in, whatever the crystals do."
                                      : "The receiver is too narrow by " + tenths(-margin) + " kHz.");
}

ControlWord& Forecast::wordOf(const char* name) const {
    return dynamic_cast<ControlWord&>(*panel.find(name));
}

} // namespace zor
