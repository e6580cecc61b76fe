// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/form.h"
#include "elements/label.h"
#include "elements/plot.h"
#include "elements/text_field.h"
#include "link/bench.h"
#include "panels/common/chip_current.h"
#include "utilities/current_trace.h"

#include <optional>

namespace zor {

/// The supply tool's continuous reading as a plot over time, folded away at first: part of that window,
/// beside its own fields. It records whether or not it is folded out, sends nothing, and measures by what the
/// tool has read.
class CurrentOverTime {
  public:
    /// Height and width of the window with the plot at least, in twips.
    static constexpr Extent openExtent{7500, 9900};

    CurrentOverTime(Form& owner, Bench& ownBench);

    /// A reading of the continuous ones; nothing if it failed.
    void take(const std::optional<CurrentReading>& reading);
    /// The continuous reading has ended.
    void pause();

    Button ShowPlot;
    Frame PlotArea;
    Plot CurrentPlot;
    /// In s from the first reading; empty for none.
    TextField CursorAt;
    TextField CursorCurrent;
    Button SetMarkA;
    Button SetMarkB;
    TextField MarkA;
    TextField MarkB;
    // Between the marks, or all of it where one is missing.
    TextField MeanCurrent;
    TextField LowestCurrent;
    TextField HighestCurrent;
    TextField Charge;
    Button SavePlot;
    Button ClearPlot;
    Label PlotNote;

    [[nodiscard]] const CurrentTrace& trace() const { return recorded; }

  private:
    void wire();
    void fold(bool shown);
    void cursorMoved();
    void commitCursor();
    void setMark(TextField& mark);
    void commitMark(TextField& mark);
    void showPoints();
    void showFigures();
    void clear();
    [[nodiscard]] double secondsNow();

    Form& form;
    Bench& bench;
    CurrentTrace recorded;
    std::optional<EventLoop::Duration> start;
    Extent foldedExtent;
};

/// A current in uA as it is written: "48.8 uA", from 1000 uA on "3.05 mA".
[[nodiscard]] std::string currentText(double microamps);
/// A charge in uAs as it is written: in uAs, mAs, or from 1 mAh on in mAh.
[[nodiscard]] std::string chargeText(double microampSeconds);

} // namespace zor
