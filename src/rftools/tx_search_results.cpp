// SPDX-License-Identifier: MIT
// What a search has found: how far it is, its points and carriers, and where they go.
#include "link/file_dialog.h"
#include "panels/common/chip_panel.h"
#include "rftools/tx_search.h"
#include "rftools/tx_search_scale.h"
#include "support/wording.h"

#include <string>
#include <utility>
#include <vector>

namespace zor {

namespace {

using namespace search_scale;

constexpr const char* filePattern = "*.csv";

std::string carriers(std::size_t count) {
    return count == 0 ? "no carrier" : counted(count, "carrier");
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

} // namespace

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
    text += ": " + carriers(run->plan().carriers().size());
    if (!run->chipPutBack()) {
        text += "; the chip needs an Update";
    }
    SearchState.setCaption(text);
}

void TxSearch::addPoints() {
    const std::vector<SearchedPoint>& points = run->plan().points();
    for (; pointsShown < points.size(); ++pointsShown) {
        const SearchedPoint& point = points[pointsShown];
        double level = point.threshold ? decibels(*point.threshold) : silence;
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
    row.emplace_back(std::to_string(decibels(carrier.threshold)));
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
    saveByDialog(
        bench,
        {.mode = FileRequest::Mode::Save,
         .title = "Save Carriers",
         .folder = {},
         .startName = filePattern,
         .filter = "Values (*.csv)|*.csv|All files (*.*)|*.*",
         .defaultExtension = "csv"},
        "carriers.csv", [this](const std::string&) { return csv(); }, "Please try again");
}

} // namespace zor
