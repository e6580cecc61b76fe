// SPDX-License-Identifier: MIT
#include "rftools/frm_link_rx.h"

#include "link/connect.h"
#include "link/data_selector.h"
#include "panels/common/chip_panel.h"
#include "rftools/line_lamp.h"
#include "rftools/window_place.h"

#include <utility>

namespace zor {

namespace {

constexpr std::chrono::milliseconds pollInterval(50);
/// Where the level stands in the answer's last characters, which a prompt ends.
constexpr std::size_t answerLength = 15;
constexpr std::size_t levelAt = 4;

} // namespace

frm_Link_RX::frm_Link_RX(Bench& ownBench)
    : Form(ownBench.desk, "frm_Link_RX", "CW Link Setup")
    , cb_MoniEn(*this, "cb_MoniEn", "Enable")
    , Label1(*this, "Label1", "Data output state")
    , LED_H(*this, "LED_H", "High")
    , LED_L(*this, "LED_L", "Low")
    , bench(ownBench)
    , Timer1(ownBench.platform.loop, [this] { Timer1_Timer(); }) {
    setExtent({1800, 4200});
    cb_MoniEn.setTip("Asks the board for the level of the data line 20 times a second");
    cb_MoniEn.onChange = [this] { cb_MoniEn_Click(); };

    bench.windows.CWLinkRXOn = true;
    Timer1.setInterval(pollInterval);
    show(0);
    for (Element* element :
         {static_cast<Element*>(&LED_H), static_cast<Element*>(&LED_L), static_cast<Element*>(&cb_MoniEn)}) {
        element->setEnabled(false);
    }
    place();
    subscriptions.push_back(activated.subscribe([this] { Form_Activate(); }));
    subscriptions.push_back(deactivated.subscribe([this] { cb_MoniEn.setTicked(false); }));
}

frm_Link_RX::~frm_Link_RX() {
    // The next one may be open already when this one is discarded.
    if (!isClosed()) {
        bench.windows.CWLinkRXOn = false;
    }
}

void frm_Link_RX::place() {
    const Form* above = bench.openPanel();
    if (const Form* transmitting = bench.tools.find(Tool::frm_Link);
        bench.windows.CWLinkTXOn && transmitting) {
        above = transmitting;
    }
    placeBelow(*this, above);
}

void frm_Link_RX::Form_Activate() {
    if (std::exchange(loaded, true)) {
        return;
    }
    bench.dataSelector->DisableDataSelector(title());
    if (isClosed()) {
        return;
    }
    send("Z3");
    if (isClosed()) {
        return;
    }
    const WindowSwitches& windows = bench.windows;
    if (windows.RXon || windows.RX1on || windows.TRXon || windows.TRX1on) {
        for (Element* element : {static_cast<Element*>(&LED_H), static_cast<Element*>(&LED_L),
                                 static_cast<Element*>(&cb_MoniEn)}) {
            element->setEnabled(true);
        }
        cb_MoniEn.setTicked(false);
    }
}

void frm_Link_RX::cb_MoniEn_Click() {
    if (!cb_MoniEn.ticked()) {
        Timer1.stop();
        if (bench.connect->isOpen()) {
            send("d0");
        }
        return;
    }
    send("Z3");
    if (!cb_MoniEn.ticked()) {
        return;
    }
    Timer1.start();
    send("d2");
}

void frm_Link_RX::Timer1_Timer() {
    // The port may close while the poll waits; that is the next one's to tell.
    bool closed = !bench.connect->isOpen();
    bench.link.Last7.clear();
    send("RO");
    if (closed) {
        cb_MoniEn.setTicked(false);
        return;
    }
    const std::string& last100 = bench.link.Last100;
    if (bench.link.Last7 != LinkVariables::Last7OK || last100.size() < answerLength || !cb_MoniEn.ticked()) {
        return;
    }
    show(last100[last100.size() - answerLength + levelAt]);
}

void frm_Link_RX::show(char level) {
    light(LED_H, level == '1');
    light(LED_L, level == '0');
}

void frm_Link_RX::send(std::string_view line) {
    bench.connect->Send_To_LoadBoard(std::string(line) + '\r');
}

void frm_Link_RX::unload() {
    bench.windows.CWLinkRXOn = false;
    subscriptions.clear();
    cb_MoniEn.setTicked(false);
    Timer1.stop();
    bench.dataSelector->EnableDataSelector();
}

} // namespace zor
