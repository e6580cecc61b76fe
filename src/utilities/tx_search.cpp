// SPDX-License-Identifier: MIT
#include "utilities/tx_search.h"

#include "host/files.h"
#include "link/connect.h"
#include "link/plot_file.h"
#include "panels/common/chip_panel.h"
#include "support/error.h"
#include "support/numbers.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zor {

namespace {

constexpr Extent foldedExtent = {3600, 4800};
constexpr Extent unfoldedExtent = {9900, 9600};
constexpr int lowestParameter = 96;
constexpr int highestParameter = 3903;
/// F goes to the band's base and a whole unit of it in so many steps.
constexpr int parametersOfUnit = 4000;
/// dBm of the lowest threshold; each further one is 6 dB more, the same on every chip that receives.
constexpr int lowestThreshold = -103;
constexpr int thresholdStep = 6;
constexpr int lastThreshold = 7;
/// What a plot shows where nothing reached the limit, in dBm.
constexpr double silence = lowestThreshold - thresholdStep;
/// In ms.
constexpr IntegerRange dwellRange = {5, 1000};
constexpr int startDwell = 10;
/// In kHz.
constexpr IntegerRange stepRange = {1, 10000};
constexpr const char* noSearch = "This version has no search";
constexpr const char* filePattern = "*.csv";

Plot::Traits spectrumTraits() {
    return {.title = "DRSSI over the span",
            .x = {.caption = "Frequency", .unit = "MHz"},
            .y = {.caption = "DRSSI", .unit = "dBm", .from = silence, .to = -60.0},
            .style = Plot::Style::Line,
            .capacity = highestParameter + 1,
            .gapCaption = {}};
}

std::vector<GridColumn> columns() {
    return {{.caption = "Frequency MHz", .characters = 13}, {.caption = "DRSSI dBm", .characters = 10},
            {.caption = "Seen", .characters = 8},           {.caption = "Offset kHz", .characters = 10},
            {.caption = "Spread kHz", .characters = 10},    {.caption = "Data rate kbps", .characters = 14}};
}

std::string counted(std::size_t count) {
    return count == 0 ? "no carrier" : std::to_string(count) + (count == 1 ? " carrier" : " carriers");
}

/// How the search ended, as the line under the plot begins.
const char* endText(SearchRun::End how) {
    switch (how) {
    case SearchRun::End::Complete:
        return "Done";
    case SearchRun::End::Stopped:
        return "Stopped";
    case SearchRun::End::PanelGone:
        return "The panel has gone";
    case SearchRun::End::Unanswered:
        return "No answer";
    case SearchRun::End::Refused:
        return "A line was refused";
    case SearchRun::End::Unreadable:
        return "No status in the answers";
    case SearchRun::End::PortGone:
        return "The port was closed";
    }
    return "";
}

std::string fourDecimals(double number) {
    return shownNumber(number, 4).text;
}

double bandwidthOf(const ChipPanel& panel) {
    const Element* list = panel.find("BasebandBW");
    return list == nullptr ? 0 : numericPrefix(list->text());
}

} // namespace

int TxSearch::BandScale::parameter(double frequency) const {
    return roundToInt((frequency - lowest) / step);
}

TxSearch::TxSearch(Bench& ownBench)
    : Form(ownBench.desk, "frm_TxSearch", "Transmitter Auto Search")
    , PB_START(*this, "PB_START", "Start")
    , DataRate(*this, "DataRate")
    , DRSSI(*this, "DRSSI")
    , FreqBand(*this, "FreqBand", "", TextField::Access::ReadOnly)
    , FR_Searching(*this, "FR_Searching", "Searching")
    , AFC_Value(*this, "AFC_Value", "", TextField::Access::ReadOnly)
    , Freq_Value(*this, "Freq_Value", "", TextField::Access::ReadOnly)
    , CHK_Search(*this, "CHK_Search", "Search with the open panel's receiver")
    , SearchArea(*this, "SearchArea")
    , SpanFrom(*this, "SpanFrom")
    , SpanTo(*this, "SpanTo")
    , SpanStep(*this, "SpanStep")
    , SpanDwell(*this, "SpanDwell", std::to_string(startDwell))
    , PB_STOP(*this, "PB_STOP", "Stop")
    , SearchProgress(*this, "SearchProgress", 0, 100, 0)
    , SearchState(*this, "SearchState")
    , SearchPlot(*this, "SearchPlot", spectrumTraits())
    , SaveSpectrum(*this, "SaveSpectrum", "Save plot...")
    , Carriers(*this, "Carriers", columns())
    , TakeCarrier(*this, "TakeCarrier", "To the panel")
    , SaveCarriers(*this, "SaveCarriers", "Save list...")
    , bench(ownBench) {
    setSizing(Sizing::ByContent);
    DataRate.setCaption("Data Rate:");
    DRSSI.setCaption("DRSSI limit:");
    FreqBand.setCaption("Frequency Band:");
    AFC_Value.setContainer(&FR_Searching);
    Freq_Value.setContainer(&FR_Searching);
    for (Element* element : std::initializer_list<Element*>{
             &SpanFrom, &SpanTo, &SpanStep, &SpanDwell, &PB_STOP, &SearchProgress, &SearchState, &SearchPlot,
             &SaveSpectrum, &Carriers, &TakeCarrier, &SaveCarriers}) {
        element->setContainer(&SearchArea);
    }
    SearchArea.setBordered(false);
    setTips();
    wire();
    unfold();
}

TxSearch::~TxSearch() = default;

void TxSearch::setTips() {
    CHK_Search.setTip("Steps the receiver of the open panel over a span and shows where it hears a carrier");
    SpanFrom.setTip("Where the search begins; empty for the band's lowest frequency");
    SpanTo.setTip("Where the search ends; empty for the band's highest frequency");
    SpanStep.setTip("From one point to the next; empty for half of the receiver's bandwidth. A carrier is "
                    "heard while it lies in the bandwidth with its deviation");
    SpanDwell.setTip("How long the chip settles at a point before its status is read, 5 to 1000 ms");
    PB_STOP.setTip("Ends the search and puts the chip back as the panel has it");
    SearchPlot.setTip(
        "The highest DRSSI threshold that the signal reached at each frequency; the foot of the "
        "plot is below the limit");
    SaveSpectrum.setTip("Saves the plot as a picture, or its values (CSV)");
    Carriers.setTip("Each carrier found: its frequency with the offset that the chip told, how many of eight "
                    "readings had it, and the data rate at which the clock recovery locked");
    TakeCarrier.setTip(
        "Sets the panel to the picked carrier's band, frequency and data rate; nothing is sent");
    SaveCarriers.setTip("Saves the list of carriers as comma separated values");
}

void TxSearch::wire() {
    CHK_Search.onChange = [this] { unfold(); };
    PB_START.onClick = [this] { PB_START_Click(); };
    PB_STOP.onClick = [this] {
        if (running()) {
            run->stop();
        }
    };
    DataRate.onCommit = [this] { DataRate_LostFocus(); };
    DRSSI.onCommit = [this] { DRSSI_LostFocus(); };
    FreqBand.onCommit = [this] { FreqBand_LostFocus(); };
    SpanFrom.onCommit = [this] { span_LostFocus(SpanFrom); };
    SpanTo.onCommit = [this] { span_LostFocus(SpanTo); };
    SpanStep.onCommit = [this] { number_LostFocus(SpanStep, stepRange); };
    SpanDwell.onCommit = [this] { number_LostFocus(SpanDwell, dwellRange); };
    SaveSpectrum.onClick = [this] { savePlot(bench, SearchPlot, "Save Search"); };
    TakeCarrier.onClick = [this] { TakeCarrier_Click(); };
    SaveCarriers.onClick = [this] { save(); };
    Carriers.onPick = [this] { showReadiness(); };
    subscriptions.push_back(bench.desk.opened.subscribe([this](Form&) { followPanel(); }));
}

/// Folded, the window is the form of settings that nothing reads.
void TxSearch::unfold() {
    bool unfolded = CHK_Search.ticked();
    if (!unfolded && running()) {
        run->stop();
    }
    SearchArea.setVisible(unfolded);
    setExtent(unfolded ? unfoldedExtent : foldedExtent);
    FreqBand.setReadOnly(!unfolded);
    followPanel();
}

void TxSearch::followPanel() {
    panelSubscriptions.clear();
    if (ChipPanel* panel = bench.openPanel(); panel != nullptr && CHK_Search.ticked()) {
        panelSubscriptions.push_back(panel->changed.subscribe([this] { followPanel(); }));
        panelSubscriptions.push_back(panel->closed.subscribe([this] { followPanel(); }));
        for (const char* name : {"Ctrlw", "Recw", "Revision"}) {
            if (Element* element = panel->find(name)) {
                panelSubscriptions.push_back(element->changed.subscribe([this] { showPlaceholders(); }));
            }
        }
    }
    showPlaceholders();
    showReadiness();
}

void TxSearch::showReadiness() {
    ChipPanel* panel = bench.openPanel();
    bool unfolded = CHK_Search.ticked();
    bool receives = panel != nullptr && searchChip(*panel) != nullptr;
    PB_START.setTip(!unfolded ? noSearch
                    : !receives
                        ? "Open the panel of a receiver or transceiver first"
                        : "Searches with the receiver of the open panel; its settings stay as they are");
    PB_START.setEnabled(unfolded && receives && !running());
    PB_STOP.setEnabled(running() && !run->puttingBack());
    for (TextField* field : {&DataRate, &DRSSI, &FreqBand, &SpanFrom, &SpanTo, &SpanStep, &SpanDwell}) {
        field->setEnabled(!running());
    }
    SaveSpectrum.setEnabled(!SearchPlot.points().empty());
    SaveCarriers.setEnabled(Carriers.rowCount() > 0);
    TakeCarrier.setEnabled(!running() && panel != nullptr && panel->chip() == searchedChip &&
                           Carriers.picked().has_value());
}

void TxSearch::showPlaceholders() {
    const ChipPanel* panel = bench.openPanel();
    if (running()) {
        return;
    }
    if (!CHK_Search.ticked() || panel == nullptr || searchChip(*panel) == nullptr) {
        for (TextField* field : {&DataRate, &DRSSI, &FreqBand, &SpanFrom, &SpanTo, &SpanStep}) {
            field->setPlaceholder({});
        }
        return;
    }
    BandScale band = bandScale(*panel);
    for (Band which : panel->traits().offeredBands) {
        if (bandConstants(*panel->traits().bands, which).code == panel->bandField()) {
            FreqBand.setPlaceholder(panel->band(which)->caption());
        }
    }
    DataRate.setPlaceholder("all");
    DRSSI.setPlaceholder(panel->find("DRSSI")->text());
    SpanFrom.setPlaceholder(fourDecimals(band.megahertz(lowestParameter)));
    SpanTo.setPlaceholder(fourDecimals(band.megahertz(highestParameter)));
    SpanStep.setPlaceholder(fourDecimals(span(*panel, band).step * band.step * 1000));
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
    return std::to_string(lowestThreshold + thresholdStep * code) + " dBm";
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

void TxSearch::PB_START_Click() {
    ChipPanel* panel = bench.openPanel();
    const SearchChip* chip = panel == nullptr ? nullptr : searchChip(*panel);
    if (chip == nullptr || running()) {
        return;
    }
    if (!bench.connect->isOpen()) {
        bench.warn("Commport not available, Loadboard not connected!");
        return;
    }
    SearchRun::Settings chosen = settings(*panel);
    auto fresh = std::make_shared<SearchRun>(bench, *panel, *chip, chosen);
    if (!fresh->start()) {
        bench.warn("Commport is busy. Please retry later!");
        return;
    }
    run = std::move(fresh);
    scale = bandScale(*panel);
    for (Band which : panel->traits().offeredBands) {
        if (bandConstants(*panel->traits().bands, which).code == scale.field) {
            searchedBand = which;
        }
    }
    searchedChip = panel->chip();
    pointsShown = 0;
    SearchPlot.clear();
    PlotAxis across = spectrumTraits().x;
    across.from = scale.megahertz(chosen.span.from);
    across.to = scale.megahertz(chosen.span.to);
    SearchPlot.setAxes(across, spectrumTraits().y);
    Carriers.setRows({});
    AFC_Value.setText("");
    Freq_Value.setText("");
    SearchState.setCaption("Preparing the chip");
    bench.CommStatus->setText("reading...");
    runSubscription = run->progressed.subscribe([this] { showProgress(); });
    showReadiness();
}

void TxSearch::showProgress() {
    addPoints();
    showCarriers();
    const SearchPlan& plan = run->plan();
    if (run->over()) {
        showEnd();
    } else if (run->puttingBack()) {
        SearchState.setCaption("Putting the chip back");
    } else {
        SearchProgress.putValue(static_cast<int>(plan.points().size()) * 100 / plan.pointCount());
        std::string here = fourDecimals(scale.megahertz(plan.next().frequency)) + " MHz";
        switch (plan.phase()) {
        case SearchPlan::Phase::Centre:
        case SearchPlan::Phase::Measure:
            SearchState.setCaption("A signal at " + here + ": how far off, how steady");
            break;
        case SearchPlan::Phase::Rate: {
            const RateSetting& rate = plan.rates()[plan.next().rate.value_or(0)];
            SearchState.setCaption("A signal at " + here + ": " + shownNumber(rate.kilobits, 3).text +
                                   " kbps, " + std::to_string(plan.next().rate.value_or(0) + 1) + " of " +
                                   std::to_string(plan.rates().size()));
            break;
        }
        case SearchPlan::Phase::Sweep:
        case SearchPlan::Phase::Level:
        case SearchPlan::Phase::Done:
            SearchState.setCaption("Point " + std::to_string(plan.points().size()) + " of " +
                                   std::to_string(plan.pointCount()) + ", " + here);
            break;
        }
        if (const auto& heard = run->heard()) {
            Freq_Value.setText(fourDecimals(scale.megahertz(heard->setting.frequency)));
            if (heard->setting.offset && heard->reading.signal && heard->reading.offset) {
                AFC_Value.setText(fourDecimals(*heard->reading.offset * scale.step * 1000));
            }
        }
    }
    showReadiness();
}

void TxSearch::showEnd() {
    if (run->how() == SearchRun::End::Complete) {
        SearchProgress.putValue(100);
    }
    std::string text = endText(run->how().value_or(SearchRun::End::Stopped));
    text += ": " + counted(run->plan().carriers().size());
    if (!run->chipPutBack()) {
        text += "; the chip needs an Update";
    }
    SearchState.setCaption(text);
}

void TxSearch::addPoints() {
    const std::vector<SearchedPoint>& points = run->plan().points();
    for (; pointsShown < points.size(); ++pointsShown) {
        const SearchedPoint& point = points[pointsShown];
        double level = point.threshold ? lowestThreshold + thresholdStep * *point.threshold : silence;
        SearchPlot.add({scale.megahertz(point.frequency), level});
    }
}

void TxSearch::showCarriers() {
    const std::vector<FoundCarrier>& found = run->plan().carriers();
    for (std::size_t place = 0; place < found.size(); ++place) {
        GridRow row = rowOf(found[place]);
        if (place == Carriers.rowCount()) {
            Carriers.insertRows(place, {std::move(row)});
        } else if (Carriers.row(place) != row) {
            Carriers.setRow(place, std::move(row));
        }
    }
}

GridRow TxSearch::rowOf(const FoundCarrier& carrier) const {
    auto kilohertz = [this](double steps) { return shownNumber(steps * scale.step * 1000, 2).text; };
    GridRow row;
    row.emplace_back(fourDecimals(scale.megahertz(carrier.frequency)), CellLook::Strong);
    row.emplace_back(std::to_string(lowestThreshold + thresholdStep * carrier.threshold));
    row.emplace_back(std::to_string(carrier.seen) + " of " + std::to_string(carrier.readings),
                     carrier.seen < carrier.readings ? CellLook::Pending : CellLook::Plain);
    row.emplace_back(carrier.offset ? kilohertz(*carrier.offset) : "");
    row.emplace_back(carrier.offset ? kilohertz(carrier.spread) : "");
    switch (carrier.rateState) {
    case FoundCarrier::Rate::NotTried:
        row.emplace_back("");
        break;
    case FoundCarrier::Rate::None:
        row.emplace_back("none locked", CellLook::Soft);
        break;
    case FoundCarrier::Rate::Locked:
        row.emplace_back(shownNumber(carrier.rate.kilobits, 3).text);
        break;
    }
    return row;
}

void TxSearch::TakeCarrier_Click() {
    ChipPanel* panel = bench.openPanel();
    if (panel == nullptr || panel->chip() != searchedChip || !Carriers.picked() || !run) {
        return;
    }
    const FoundCarrier carrier = run->plan().carriers().at(*Carriers.picked());
    if (Option* option = panel->band(searchedBand); option != nullptr && !option->chosen()) {
        option->choose();
    }
    panel->FreqCenter.setText(fourDecimals(scale.megahertz(carrier.frequency)));
    panel->FreqCenter_LostFocus();
    if (carrier.rateState != FoundCarrier::Rate::Locked) {
        return;
    }
    if (auto* prescaler = dynamic_cast<TickBox*>(panel->find("dataratepresc"))) {
        prescaler->setTicked(carrier.rate.prescaler);
    }
    if (auto* divider = dynamic_cast<TextField*>(panel->find("DATARATEDIV"))) {
        divider->setText(std::to_string(carrier.rate.divider));
        divider->onCommit();
    }
}

std::string TxSearch::csv() const {
    std::string lines = "Frequency (MHz),DRSSI (dBm),Seen,Offset (kHz),Spread (kHz),Data rate (kbps)\r\n";
    for (std::size_t row = 0; row < Carriers.rowCount(); ++row) {
        for (std::size_t column = 0; column < Carriers.columns().size(); ++column) {
            lines += (column == 0 ? "" : ",") + Carriers.cell(row, column).text;
        }
        lines += "\r\n";
    }
    return lines;
}

void TxSearch::save() {
    try {
        FileChoice choice =
            bench.platform.dialogs.chooseFile({.mode = FileRequest::Mode::Save,
                                               .title = "Save Carriers",
                                               .folder = {},
                                               .startName = filePattern,
                                               .filter = "Values (*.csv)|*.csv|All files (*.*)|*.*",
                                               .defaultExtension = "csv"});
        if (choice.name != filePattern) {
            writeFileWhole(choice.name, csv());
        }
    } catch (const ToolError& error) {
        bench.tellFileError(error, "File save error", "Please try again");
    }
}

void TxSearch::unload() {
    subscriptions.clear();
    panelSubscriptions.clear();
    runSubscription.end();
    if (running()) {
        run->stop();
    }
}

} // namespace zor
