// SPDX-License-Identifier: MIT
#include "desktop/views/receiving_parts.h"
#include "desktop/views/views.h"
#include "panels/receivers/beryl_v3.h"
#include "panels/receivers/frm_topaz.h"

#include <utility>

namespace zor {

namespace {

QWidget* powerGroup(TransceiverPanel& p) {
    return group("Power management",
                 {grid(2, {tick(p.chb_er), tick(p.chb_ex), tick(p.chb_ebb), tick(p.chb_eb), tick(p.chb_et),
                           tick(p.chb_ew), tick(p.chb_es), tick(p.chb_dc)})});
}

QWidget* pinGroup(TransceiverPanel& p) {
    return plain(p.PinFunction,
                 {line(caption("Pin16 function"), option(p.Pin8IsInt), option(p.Pin8IsVDI), stretch())});
}

QWidget* transmitterGroup(TransceiverPanel& p) {
    return group(
        "Transmitter",
        {
            line(labelled("Polarity", list(p.ModPol, 8)), labelled("Deviation", list(p.ModFreq, 6), "kHz")),
            line(labelled("Output power", list(p.OutputPower, 8)), stretch(),
                 plain(p.Frame1_11, {line(labelled("Select revision:", list(p.Revision, 12)))})),
        });
}

QWidget* dataPathGroup(TransceiverPanel& p) {
    return group(
        "Data path and supply",
        {
            line(tick(p.EnTXLatch), tick(p.EnRxFIFO), tick(p.SensResEn), stretch()),
            line(labelled("Supply", field(p.PowerSupply, 6), "V"), stretch(), button(p.PB_PowerSupply)),
        });
}

QWidget* transceiverWindow(TransceiverPanel& p, PageAdditions additions) {
    QWidget* settings = column({
        across({column({crystalGroup(p), powerGroup(p), transmitterGroup(p)}),
                column({frequencyGroup(p), receiverGroup(p, {pinGroup(p)}), dataPathGroup(p)})}),
        receivingPages(p, std::move(additions)),
    });
    return panelWindow(p, settings, offsetAnswer(p));
}

} // namespace

QWidget* topazView(Form& form) {
    auto& p = static_cast<FRM_Topaz&>(form);
    PageAdditions more;
    more.fifo = {labelled("Synchron Pattern", list(p.SynchPattern, 6))};
    more.further = {
        plain(p.page(8),
              {
                  labelled("uP Clock rise and fall time control", list(p.CB_RFT, 20)),
                  labelled("PLL Bandwidth", list(p.CB_PLLBW, 18)),
                  line(tick(p.CB_LPX), tick(p.CB_DDY), tick(p.CB_DDIT), stretch()),
              }),
        synchronPage(p.page(9), p),
    };
    return transceiverWindow(p, std::move(more));
}

QWidget* berylView(Form& form) {
    return transceiverWindow(static_cast<BerylV3&>(form), {});
}

} // namespace zor
