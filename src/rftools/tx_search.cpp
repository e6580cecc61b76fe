// SPDX-License-Identifier: MIT
#include "rftools/tx_search.h"

#include "link/connect.h"
#include "link/number_reading.h"
#include "link/plot_file.h"
#include "panels/common/chip_panel.h"
#include "rftools/tx_search_scale.h"

#include <utility>

namespace zor {

namespace {

using namespace search_scale;

constexpr Extent foldedExtent = {3600, 4800};
constexpr Extent unfoldedExtent = {9900, 9600};
constexpr const char* noSearch = "This version has no search";

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

} // namespace

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
    tellReadingsOf(bench, {&SpanFrom, &SpanTo, &SpanStep, &SpanDwell});
    SaveSpectrum.onClick = [this] { savePlot(bench, SearchPlot, "Save Search", "search.png"); };
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

void TxSearch::unload() {
    subscriptions.clear();
    panelSubscriptions.clear();
    runSubscription.end();
    if (running()) {
        run->stop();
    }
}

} // namespace zor
