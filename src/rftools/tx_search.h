// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/form.h"
#include "elements/grid.h"
#include "elements/label.h"
#include "elements/plot.h"
#include "elements/range.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "link/bench.h"
#include "panels/common/frequency.h"
#include "rftools/tx_search_run.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zor {

/// The search for transmitters. As it opens it is a form of settings whose button does nothing. Unfolded it
/// searches with the receiver whose panel is open: steps its chip over a span, shows where signals are, and
/// at each finds out how far off it lies, how steady it is and its data rate. The panel's settings stay.
class TxSearch : public Form {
  public:
    explicit TxSearch(Bench& ownBench);
    ~TxSearch() override;

    Button PB_START;
    /// kbit/s; every rate is tried while it is empty.
    TextField DataRate;
    /// dBm; the panel's threshold while it is empty.
    TextField DRSSI;
    /// The panel's band while it is empty.
    TextField FreqBand;
    /// The present values.
    Frame FR_Searching;
    /// kHz.
    TextField AFC_Value;
    /// MHz.
    TextField Freq_Value;

    /// Unfolds the search itself.
    TickBox CHK_Search;
    /// What unfolds.
    Frame SearchArea;
    /// MHz; the band's ends while they are empty.
    TextField SpanFrom;
    TextField SpanTo;
    /// kHz; half of the receiver's bandwidth while it is empty.
    TextField SpanStep;
    /// ms from a setting to its reading.
    TextField SpanDwell;
    Button PB_STOP;
    Progress SearchProgress;
    Label SearchState;
    Plot SearchPlot;
    Button SaveSpectrum;
    Grid Carriers;
    Button TakeCarrier;
    Button SaveCarriers;

    /// The carriers as CSV, lines ended by CR LF.
    [[nodiscard]] std::string csv() const;

  protected:
    void unload() override;

  private:
    /// The frequencies of a band at the open panel's crystal; its step is the same everywhere.
    struct BandScale {
        int field = 0;
        double lowest = 0; // MHz of parameter 0
        double step = 1;   // MHz
        [[nodiscard]] double megahertz(double parameter) const { return lowest + parameter * step; }
        [[nodiscard]] int parameter(double megahertz) const;
    };

    void wire();
    void setTips();
    void unfold();
    /// The panel on the screen is another one, or its settings are.
    void followPanel();
    void showReadiness();
    void showPlaceholders();
    void DRSSI_LostFocus();
    void DataRate_LostFocus();
    void FreqBand_LostFocus();
    void span_LostFocus(TextField& field);
    void number_LostFocus(TextField& field, IntegerRange range);
    void PB_START_Click();
    [[nodiscard]] SearchRun::Settings settings(const ChipPanel& panel) const;
    [[nodiscard]] SearchPlan::Span span(const ChipPanel& panel, const BandScale& band) const;
    [[nodiscard]] RateRange rateRange(const ChipPanel& panel) const;
    [[nodiscard]] std::optional<Band> typedBand(const ChipPanel& panel) const;
    [[nodiscard]] BandScale bandScale(const ChipPanel& panel) const;
    [[nodiscard]] int thresholdCode(const ChipPanel& panel) const;
    [[nodiscard]] std::string thresholdText(int code) const;
    void showProgress();
    void showEnd();
    void addPoints();
    void showCarriers();
    [[nodiscard]] GridRow rowOf(const FoundCarrier& carrier) const;
    void TakeCarrier_Click();
    void save();
    [[nodiscard]] bool running() const { return run && !run->over(); }

    Bench& bench;
    std::shared_ptr<SearchRun> run;
    /// Those of the last search.
    BandScale scale;
    Band searchedBand = Band::Band315;
    std::vector<double> thresholds;
    std::size_t pointsShown = 0;
    std::string searchedChip;
    Subscription runSubscription;
    std::vector<Subscription> panelSubscriptions;
    std::vector<Subscription> subscriptions;
};

} // namespace zor
