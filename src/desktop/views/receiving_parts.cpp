// SPDX-License-Identifier: MIT
#include "desktop/views/receiving_parts.h"

#include <utility>

namespace zor {

namespace {

/// Lines that all chips have, with a chip's own behind them and what explains the page last.
QWidget* page(Frame& frame, Lines common, const Lines& own, Lines remarks = {}) {
    common.insert(common.end(), own.begin(), own.end());
    common.insert(common.end(), remarks.begin(), remarks.end());
    return plain(frame, std::move(common));
}

} // namespace

QWidget* receivingPages(ReceivingPanel& p, PageAdditions additions) {
    std::vector<QWidget*> pages = {
        page(p.page(1),
             {line(labelled("M", field(p.WKUPM, 7)), labelled("R", field(p.WKUPR, 5)),
                   labelled("Time", field(p.WKUPTIME, 9)), label(p.Label8, Tone::Soft))},
             additions.wakeUp, {formula(p.WakeUpFormula, p.WakeUpFormulaPower), reason(p.Label39)}),
        page(p.page(2),
             {tick(p.enlowdc),
              line(labelled("D", field(p.DUTY, 5)), labelled("M", field(p.DUTY_USEM, 7)),
                   labelled("Duty cycle", field(p.DUTY_CALC, 9)), label(p.DutyUnit, Tone::Soft))},
             {}, {label(p.DutyFormula, Tone::Soft)}),
        page(p.page(3),
             {line(labelled("T", field(p.LBD, 5)), labelled("Threshold", field(p.LBDV, 6), "V"),
                   labelled("Clock output", list(p.CLKout, 6), "MHz"))},
             additions.battery, {label(p.ThresholdFormula, Tone::Soft), reason(p.Label38)}),
        page(p.page(4),
             {line(labelled("Mode", list(p.AFCauto, 22)), labelled("Range limit", list(p.AFCres, 12))),
              grid(2, {tick(p.afcen), tick(p.afcfi), tick(p.afcoen), tick(p.afcst)})},
             {}),
        page(p.page(5),
             {line(labelled("R", field(p.DATARATEDIV, 6)), tick(p.dataratepresc)),
              line(labelled("Rate", field(p.DATARATE, 10)), label(p.DataRateUnit, Tone::Soft))},
             {}, {formula(p.DataRateFormula, p.DataRateFormulaPower)}),
        page(p.page(6),
             {line(labelled("Filter", list(p.FILTTYPE, 18)),
                   labelled("Clock recovery", list(p.ClkRecMode, 8)), stretch(), button(p.PB_FilterHelp)),
              line(labelled("DQD parameter:", field(p.StatefiltNr, 4)), slider(p.STATEFILT)),
              tick(p.DFILTbit5)},
             additions.filter),
        page(p.page(7),
             {line(labelled("FIFO IT level:", field(p.ITlevelNr, 4)), slider(p.ITLEVEL)),
              line(labelled("Start", list(p.FIFOstrt, 22)), tick(p.ffillen), button(p.FFreset))},
             additions.fifo),
    };
    pages.insert(pages.end(), additions.further.begin(), additions.further.end());
    return tabs(p.TabStrip1, pages);
}

QWidget* synchronPage(Frame& frame, SynchronPattern& pattern, Lines more) {
    more.insert(more.begin(),
                line(labelled("Byte 0 of Synchron Pattern", field(pattern.TB_SP, 4)), remark("hexadecimal")));
    return plain(frame, std::move(more));
}

QWidget* receiverGroup(ReceivingPanel& p, Lines more) {
    more.insert(more.end(),
                {
                    line(labelled("VDI", list(p.VDI, 20))),
                    line(labelled("LNA gain", list(p.LNAgain, 8)), labelled("DRSSI", list(p.DRSSI, 9))),
                    line(labelled("Bandwidth", list(p.BasebandBW, 8), "kHz")),
                });
    return group("Receiver", std::move(more));
}

std::vector<Cell> offsetAnswer(ReceivingPanel& p) {
    return {Cell(label(p.Labe35)), Cell(field(p.Foffset, 8)), Cell(label(p.Labe36, Tone::Soft))};
}

} // namespace zor
