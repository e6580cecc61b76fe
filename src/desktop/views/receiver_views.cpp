// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_text.h"
#include "desktop/views/receiving_parts.h"
#include "desktop/views/views.h"
#include "panels/receivers/amber_v1.h"
#include "panels/receivers/coral.h"

#include <utility>

namespace zor {

namespace {

/// The power bits; the clock output's caption is two labels that toggle it too.
QWidget* powerGroup(ReceiverPanel& p) {
    return group("Power management",
                 {
                     grid(2, {tick(p.enx), tick(p.enrec), tick(p.enb), tick(p.ent)}),
                     line(tick(p.disclk, QString()), label(p.Label47), label(p.Label48), stretch()),
                 });
}

QWidget* receiverWindow(ReceiverPanel& p, QWidget* revision, PageAdditions additions) {
    additions.fifo.insert(additions.fifo.begin(), tick(p.fmodeen));
    QWidget* settings = column({
        across({column({crystalGroup(p), powerGroup(p), supplyGroup(p)}),
                column({frequencyGroup(p), receiverGroup(p), revision})}),
        receivingPages(p, std::move(additions)),
    });
    return panelWindow(p, settings, offsetAnswer(p));
}

} // namespace

QWidget* amberView(Form& form) {
    auto& p = static_cast<AmberV1&>(form);
    QWidget* revision =
        group(p.Frame1, {line(list(p.Revision, 14), swatch(p.Yellow), swatch(p.Green), stretch())});
    return receiverWindow(p, revision, {});
}

QWidget* coralView(Form& form) {
    auto& p = static_cast<Coral&>(form);
    PageAdditions more;
    more.wakeUp = {line(labelled("D", field(p.WKUPD, 5)))};
    more.battery = {tick(p.CB32kHz)};
    more.filter = {tick(p.cb_ewi)};
    more.fifo = {line(labelled(toQt(p.TB_F5F4.caption()), field(p.TB_F5F4, 4)))};
    more.further = {
        synchronPage(p.page(8), p),
        plain(p.page(9),
              {
                  grid(2, {tick(p.CB_exlp), tick(p.CB_exr), tick(p.CB_dcal)}),
                  line(labelled("PLL bandwidth", list(p.CB_PllBW, 8)), caption("Clock tail length"),
                       plain(p.ClockTail, {line(option(p.OB_512bit), option(p.OB_128bit))}), stretch()),
              }),
    };
    return receiverWindow(p, group("Select revision:", {line(list(p.Revision, 14), stretch())}),
                          std::move(more));
}

} // namespace zor
