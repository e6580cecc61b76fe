// SPDX-License-Identifier: MIT
#include "desktop/views/compose.h"
#include "desktop/views/views.h"
#include "rftools/amber_v1_rflink.h"
#include "rftools/frm_link.h"
#include "rftools/frm_link_rx.h"

namespace zor {

QWidget* carrierView(Form& form) {
    auto& l = static_cast<frm_Link&>(form);
    return window({
        group(l.Frame1,
              {
                  line(tick(l.cb_manual), stretch(), button(l.pb_L), button(l.pb_H)),
                  line(tick(l.cb_astabil), stretch(), slider(l.Slider), label(l.LabelRate, Tone::Soft)),
                  line(tick(l.cb_pn15), stretch()),
              }),
        line(caption("Data line"), lamp(l.tx_LED_H), lamp(l.tx_LED_L), stretch()),
    });
}

QWidget* dataOutputView(Form& form) {
    auto& l = static_cast<frm_Link_RX&>(form);
    return window({
        line(tick(l.cb_MoniEn), stretch()),
        line(label(l.Label1), lamp(l.LED_H), lamp(l.LED_L), stretch()),
    });
}

QWidget* receiverLinkView(Form& form) {
    auto& l = static_cast<AmberV1rflink&>(form);
    QWidget* settings = column({
        group(l.EndOfPacket, {line(option(l.ENeoppl), stretch()), line(option(l.ENeop), stretch()),
                              line(option(l.ENpl), stretch()),
                              line(labelled("EOP:", field(l.EOP, 4)),
                                   labelled("PL:", field(l.PL, 4), "(1-255)"), stretch())}),
        plain({
            line(tick(l.ContRx), stretch()),
            line(tick(l.AutoClear), stretch()),
            line(tick(l.AddCR), stretch()),
        }),
        plain({
            line(labelled("Read timeout:", field(l.RxLinkTimeout, 5), "ms"), stretch()),
            line(remark("For PCs slower than 1GHz, set it to 100ms or more"), stretch()),
            line(remark("This parameter is automatically saved with the Receiver configuration"), stretch()),
        }),
        plain({line(strongButton(l.EnRx), lamp(l.RXActive), stretch())}),
        plain({line(labelled("Packet counter:", field(l.PCnt, 8)), button(l.ResetPC), stretch())}),
    });
    QWidget* packets = plain({
        receivedTable(l.received, 12),
        line(caption("Monitor"), stretch(), optionRow({&l.OB_AsciiView, &l.OB_HexView}), button(l.Clear)),
        monitor(l.Monitor, 60, 3),
        line(caption("Report"), stretch()),
        monitor(l.Text1, 60, 2),
    });
    return window({across({settings, packets}, 1), receivedLengths(l.received)}, 0);
}

QWidget* receivedTable(ReceivedPackets& r, int rows) {
    return plain({
        line(caption("Packets"), label(r.PacketNote, Tone::Soft), stretch(), button(r.CopyPackets),
             button(r.SavePackets), button(r.ClearPackets)),
        gridView(r.Packets, rows),
    });
}

QWidget* receivedLengths(ReceivedPackets& r) {
    return plain({
        plot(r.PacketLengths, 100, 10),
        line(label(r.PacketFigures), stretch(), button(r.SaveLengths)),
    });
}

} // namespace zor
