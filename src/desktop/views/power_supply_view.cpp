// SPDX-License-Identifier: MIT
#include "desktop/views/compose.h"
#include "desktop/views/views.h"
#include "utilities/power_supply.h"

namespace zor {

namespace {

QWidget* overTimeArea(CurrentOverTime& o) {
    return plain(
        o.PlotArea,
        {
            plot(o.CurrentPlot, 84, 13),
            line(labelled("Cursor", field(o.CursorAt, 8), "s"), field(o.CursorCurrent, 11), stretch(),
                 button(o.SetMarkA), field(o.MarkA, 8), button(o.SetMarkB), field(o.MarkB, 8)),
            line(labelled("Mean", field(o.MeanCurrent, 11)), labelled("Lowest", field(o.LowestCurrent, 11)),
                 labelled("Highest", field(o.HighestCurrent, 11)), labelled("Charge", field(o.Charge, 11)),
                 stretch()),
            line(label(o.PlotNote, Tone::Soft), stretch(), button(o.ClearPlot), button(o.SavePlot)),
        },
        0);
}

} // namespace

QWidget* powerSupplyView(Form& form) {
    auto& p = static_cast<PowerSupply&>(form);
    constexpr int plotLine = 2;
    return window(
        {
            group("Supply",
                  {line(labelled(p.LabelVoltage, field(p.Voltage), "V"), stretch(), button(p.PB_Voltage))}),
            group(p.CurrentFrame,
                  {line(labelled(p.LabelCurrent, field(p.Current)), label(p.CurUnit, Tone::Soft), stretch(),
                        button(p.PB_Current), button(p.ContRead))}),
            overTimeArea(p.overTime),
            line(statusLine(p.Statusline), button(p.overTime.ShowPlot)),
        },
        plotLine);
}

} // namespace zor
