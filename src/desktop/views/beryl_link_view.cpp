// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_text.h"
#include "desktop/views/panel_parts.h"
#include "desktop/views/views.h"
#include "rftools/beryl_rf_link_test.h"

namespace zor {

namespace {

QString captionOf(const Element& element) {
    return toQt(element.caption());
}

QWidget* transmitPage(Frm_BerylRfLinkTest& p) {
    return plain(p.Frm_LinkControl[0],
                 {
                     line(label(p.Label1), stretch(), option(p.OB_AsciiView), option(p.OB_HexView)),
                     codeField(p.TB_Payload, 66),
                     line(button(p.PB_Preable), button(p.PB_SynchPatt), codeField(p.TB_SynchPatt, 10),
                          stretch(), button(p.PB_Clear_Payload)),
                     label(p.TransmitLine, Tone::Soft),
                     line(tick(p.CB_Continous), stretch(),
                          labelled(p.Label2, spin(p.TB_RepetitionTime, p.UD_RepetitionTime, 5), "s")),
                     line(tick(p.CB_EOP), stretch(), labelled(p.Label3, field(p.TB_EOP[0], 5))),
                     line(strongButton(p.PB_Send), keepRoom(label(p.Lbl_Sent, Tone::Reminder)), stretch(),
                          keepRoom(label(p.SendReason, Tone::Soft))),
                 });
}

/// The switch stands at the left with what it depends on; what comes, and how good it is, at the right.
QWidget* receiveSettings(Frm_BerylRfLinkTest& p) {
    return column({
        group(p.EndCondition, {option(p.OB_EOPorPL), option(p.OB_EOP), option(p.OB_PL),
                               line(labelled(captionOf(p.TB_EOP[1]), field(p.TB_EOP[1], 4)),
                                    labelled(captionOf(p.TB_PL), spin(p.TB_PL, p.UD_PL, 4), "bytes"))}),
        plain({tick(p.CB_ContReceive), tick(p.CB_AutoClear), tick(p.CB_AddCR),
               labelled(captionOf(p.TB_EOP[2]), field(p.TB_EOP[2], 5), "ms"),
               line(keepRoom(label(p.ReceiveReason, Tone::Soft)), stretch()),
               line(strongButton(p.PB_Enable), stretch()),
               line(labelled(captionOf(p.TB_PacketCount), field(p.TB_PacketCount, 7)), button(p.PB_Reset)),
               labelled("Report", monitor(p.TB_ReceiveData, 20, 2))}),
    });
}

QWidget* received(Frm_BerylRfLinkTest& p) {
    return plain({
        receivedTable(p.packets, 10),
        line(caption("Monitor"), stretch(), option(p.OB_RxAsciiView), option(p.OB_RxHexView),
             button(p.PB_Clear)),
        monitor(p.TB_MonitoredData, 56, 2),
        receivedLengths(p.packets),
    });
}

QWidget* receivePage(Frm_BerylRfLinkTest& p) {
    return plain(p.Frm_LinkControl[1], {across({receiveSettings(p), received(p)}, 1)});
}

} // namespace

QWidget* berylLinkView(Form& form) {
    auto& p = static_cast<Frm_BerylRfLinkTest&>(form);
    return window({tabs(p.TabStrip1, {transmitPage(p), receivePage(p)})}, 0);
}

} // namespace zor
