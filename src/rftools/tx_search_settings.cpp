// SPDX-License-Identifier: MIT
// The fields of a search: what is typed put right, and what they come to on the open panel's chip.
#include "panels/common/chip_panel.h"
#include "rftools/tx_search.h"
#include "rftools/tx_search_scale.h"
#include "support/numbers.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <string>

namespace zor {

namespace {

using namespace search_scale;

double bandwidthOf(const ChipPanel& panel) {
    const Element* list = panel.find("BasebandBW");
    return list == nullptr ? 0 : numericPrefix(list->text());
}

} // namespace

int TxSearch::BandScale::parameter(double frequency) const {
    return roundToInt((frequency - lowest) / step);
}

void TxSearch::DRSSI_LostFocus() {
    std::optional<double> typed = readNumericPrefix(DRSSI.text());
    if (!typed) {
        DRSSI.setText("");
        return;
    }
    int code = roundToInt((*typed - lowestThreshold) / thresholdStep);
    DRSSI.setText(thresholdText(std::clamp(code, 0, lastThreshold)));
}

std::string TxSearch::thresholdText(int code) const {
    return std::to_string(decibels(code)) + " dBm";
}

void TxSearch::DataRate_LostFocus() {
    std::optional<double> typed = readNumericPrefix(DataRate.text());
    if (!typed || *typed <= 0) {
        DataRate.setText("");
        return;
    }
    const ChipPanel* panel = bench.openPanel();
    if (panel != nullptr && searchChip(*panel) != nullptr) {
        RateSetting rate = nearestRate(*typed, rateRange(*panel));
        DataRate.setText(shownNumber(rate.kilobits, 3).text + " kbps");
    }
}

void TxSearch::FreqBand_LostFocus() {
    const ChipPanel* panel = bench.openPanel();
    auto which = panel == nullptr ? std::nullopt : typedBand(*panel);
    FreqBand.setText(which ? panel->band(*which)->caption() : "");
    showPlaceholders();
}

void TxSearch::span_LostFocus(TextField& field) {
    std::optional<double> typed = readNumericPrefix(field.text());
    const ChipPanel* panel = bench.openPanel();
    if (!typed) {
        field.setText("");
    } else if (panel != nullptr && searchChip(*panel) != nullptr) {
        BandScale band = bandScale(*panel);
        int parameter = std::clamp(band.parameter(*typed), lowestParameter, highestParameter);
        field.setText(fourDecimals(band.megahertz(parameter)));
    }
}

void TxSearch::number_LostFocus(TextField& field, IntegerRange range) {
    if (!readNumericPrefix(field.text())) {
        field.setText(&field == &SpanDwell ? std::to_string(startDwell) : "");
        return;
    }
    field.setText(std::to_string(committedInteger(field.text(), range)));
}

std::optional<Band> TxSearch::typedBand(const ChipPanel& panel) const {
    std::optional<double> typed = readNumericPrefix(FreqBand.text());
    for (Band which : panel.traits().offeredBands) {
        const Option* option = panel.band(which);
        if (typed && option->visible() && numericPrefix(option->caption()) == *typed) {
            return which;
        }
    }
    return std::nullopt;
}

TxSearch::BandScale TxSearch::bandScale(const ChipPanel& panel) const {
    BandScale band;
    band.field = panel.bandField();
    if (auto typed = typedBand(panel)) {
        band.field = bandConstants(*panel.traits().bands, *typed).code;
    }
    band.lowest = numericPrefix(panel.frequencyText(0, band.field));
    double top = numericPrefix(panel.frequencyText(parametersOfUnit, band.field));
    band.step = (top - band.lowest) / parametersOfUnit;
    return band;
}

int TxSearch::thresholdCode(const ChipPanel& panel) const {
    if (std::optional<double> typed = readNumericPrefix(DRSSI.text())) {
        return std::clamp(roundToInt((*typed - lowestThreshold) / thresholdStep), 0, lastThreshold);
    }
    const auto* list = dynamic_cast<const CodeList*>(panel.find("DRSSI"));
    return list == nullptr ? 0 : list->code();
}

RateRange TxSearch::rateRange(const ChipPanel& panel) const {
    RateRange range;
    range.crystalRatio = static_cast<float>(panel.GetXtalFrequency() / 1e7);
    range.hasPrescaler = false;
    if (const auto* word = dynamic_cast<const ControlWord*>(panel.find("Dataratew"))) {
        for (const BitField& field : word->fields()) {
            range.hasPrescaler = range.hasPrescaler || field.name == "prescaler";
            if (field.name == "R") {
                range.greatestDivider = (1 << (field.highBit - field.lowBit + 1)) - 1;
            }
        }
    }
    return range;
}

SearchPlan::Span TxSearch::span(const ChipPanel& panel, const BandScale& band) const {
    auto end = [&band](const TextField& field, int whole) {
        std::optional<double> typed = readNumericPrefix(field.text());
        return typed ? std::clamp(band.parameter(*typed), lowestParameter, highestParameter) : whole;
    };
    int from = end(SpanFrom, lowestParameter);
    int to = end(SpanTo, highestParameter);
    SearchPlan::Span chosen;
    chosen.from = std::min(from, to);
    chosen.to = std::max(from, to);
    double stepKilohertz = readNumericPrefix(SpanStep.text()).value_or(bandwidthOf(panel) / 2);
    chosen.step = std::max(1, static_cast<int>(stepKilohertz / (band.step * 1000)));
    chosen.threshold = thresholdCode(panel);
    chosen.resolution = std::max(1, static_cast<int>(bandwidthOf(panel) / 4 / (band.step * 1000)));
    chosen.lowest = lowestParameter;
    chosen.highest = highestParameter;
    return chosen;
}

SearchRun::Settings TxSearch::settings(const ChipPanel& panel) const {
    SearchRun::Settings chosen;
    BandScale band = bandScale(panel);
    chosen.band = band.field;
    chosen.dwell = std::chrono::milliseconds(committedInteger(SpanDwell.text(), dwellRange));
    chosen.span = span(panel, band);
    RateRange range = rateRange(panel);
    if (std::optional<double> typed = readNumericPrefix(DataRate.text())) {
        chosen.rates = {nearestRate(*typed, range)};
    } else {
        const Element* own = panel.find("DATARATE");
        chosen.rates = rateTrials(own == nullptr ? 0 : numericPrefix(own->text()), range);
    }
    return chosen;
}

} // namespace zor
