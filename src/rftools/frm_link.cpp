// SPDX-License-Identifier: MIT
#include "rftools/frm_link.h"

#include "link/connect.h"
#include "link/data_selector.h"
#include "panels/common/chip_panel.h"
#include "panels/receivers/transceiver_panel.h"
#include "panels/transmitters/jade_v1.h"
#include "rftools/line_lamp.h"
#include "rftools/window_place.h"
#include "support/numbers.h"

#include <algorithm>
#include <utility>

namespace zor {

namespace {

/// Toggles a second.
constexpr int highestRate = 20;
constexpr std::chrono::milliseconds slowestToggle(1000);

constexpr std::string_view driveLine = "H3";
constexpr std::string_view releaseLine = "Z3";

} // namespace

/// Words that the board hands to the chip as they stand, lower case included.
struct frm_Link::Kind {
    std::string_view carrierOn;
    std::string_view carrierOff;
};

const frm_Link::Kind& frm_Link::kind() const {
    static constexpr Kind transmitter{"S2c039", "S2c000"};
    static constexpr Kind transceiver{"S28221", "S28200"};
    return PanelKind == "1" ? transceiver : transmitter;
}

frm_Link::frm_Link(Bench& ownBench)
    : Form(ownBench.desk, "frm_Link", "CW Link Setup")
    , Frame1(*this, "Frame1", "Modulation")
    , cb_manual(*this, "cb_manual", "Manual")
    , cb_pn15(*this, "cb_pn15", "PN 15 sequence")
    , cb_astabil(*this, "cb_astabil", "astabil")
    , pb_L(*this, "pb_L", "\"L\"")
    , pb_H(*this, "pb_H", "\"H\"")
    , Slider(*this, "Slider", 0, highestRate, 0)
    , LabelRate(*this, "LabelRate")
    , tx_LED_H(*this, "tx_LED_H", "High")
    , tx_LED_L(*this, "tx_LED_L", "Low")
    , bench(ownBench)
    , Timer2(ownBench.platform.loop, [this] { Timer2_Timer(); }) {
    setExtent({3600, 4800});
    for (TickBox* mode : {&cb_manual, &cb_pn15, &cb_astabil}) {
        mode->setContainer(&Frame1);
    }
    cb_manual.setTip("Switches the carrier on and lets you drive the data line by hand");
    cb_pn15.setTip("The board sends its pseudo random sequence on the data line");
    cb_astabil.setTip("Switches the carrier on and toggles the data line at the rate of the slider");
    pb_L.setTip("Drives the data line low");
    pb_H.setTip("Drives the data line high");
    Slider.setTip("Toggles of the data line a second");
    cb_manual.onChange = [this] { cb_manual_Click(); };
    cb_pn15.onChange = [this] { cb_pn15_Click(); };
    cb_astabil.onChange = [this] { cb_astabil_Click(); };
    pb_H.onClick = [this] { drive(true); };
    pb_L.onClick = [this] { drive(false); };
    Slider.onChange = [this] { Slider_Change(); };

    bench.windows.CWLinkTXOn = true;
    Timer2.setInterval(slowestToggle);
    for (Element* element : {static_cast<Element*>(&pb_H), static_cast<Element*>(&pb_L),
                             static_cast<Element*>(&cb_manual), static_cast<Element*>(&cb_pn15),
                             static_cast<Element*>(&cb_astabil), static_cast<Element*>(&Slider)}) {
        element->setEnabled(false);
    }
    showLine(false, false);
    Slider_Change();
    placeBelow(*this, bench.openPanel());
    subscriptions.push_back(activated.subscribe([this] { Form_Activate(); }));
    subscriptions.push_back(deactivated.subscribe([this] { Form_Deactivate(); }));
}

frm_Link::~frm_Link() {
    // The next one may be open already when this one is discarded.
    if (!isClosed()) {
        bench.windows.CWLinkTXOn = false;
    }
}

void frm_Link::Form_Activate() {
    if (!std::exchange(loaded, true)) {
        bench.dataSelector->DisableDataSelector(title());
    }
    if (!isClosed()) {
        chooseModes();
    }
}

void frm_Link::chooseModes() {
    const WindowSwitches& windows = bench.windows;
    if (windows.TRXon || windows.TRX1on) {
        PanelKind = "1";
        watchLatch();
        allowModes(latchOn);
    }
    if (windows.TX0on || windows.TX1on) {
        PanelKind = "0";
        const auto* jade = dynamic_cast<const JadeV1*>(bench.desk.find("JadeV1"));
        allowModes(!windows.TX0on && jade != nullptr && jade->TXBitSinchOn() == 1);
    }
    if (windows.TRXon || windows.TRX1on || windows.TX0on || windows.TX1on) {
        forTransceiver = windows.TRXon || windows.TRX1on;
        forTransmitter = windows.TX0on || windows.TX1on;
    }
}

void frm_Link::watchLatch() {
    auto* panel =
        dynamic_cast<TransceiverPanel*>(bench.desk.find(bench.windows.TRXon ? "BerylV3" : "FRM_Topaz"));
    if (panel == nullptr) {
        return;
    }
    latchOn = panel->TXlatchOn() == 1;
    latch = panel->EnTXLatch.changed.subscribe([this, panel] { latchOn = panel->TXlatchOn() == 1; });
}

void frm_Link::allowModes(bool chipClocksData) {
    for (TickBox* mode : {&cb_manual, &cb_astabil}) {
        mode->setEnabled(!chipClocksData);
        if (!chipClocksData) {
            mode->setTicked(false);
        }
    }
    cb_pn15.setEnabled(chipClocksData);
    if (chipClocksData) {
        cb_pn15.setTicked(false);
    }
}

void frm_Link::cb_manual_Click() {
    if (cb_astabil.ticked() && cb_manual.ticked()) {
        cb_astabil.setTicked(false);
    }
    unsigned mine = begin();
    if (!cb_manual.ticked()) {
        pb_H.setEnabled(false);
        pb_L.setEnabled(false);
        showLine(false, false);
        sendIfOpen(releaseLine);
        sendIfOpen(kind().carrierOff);
        return;
    }
    send(kind().carrierOn);
    if (mine != action) {
        return;
    }
    pb_H.setEnabled(true);
    pb_L.setEnabled(true);
    send(driveLine);
    if (mine == action) {
        showLine(false, false);
    }
}

void frm_Link::drive(bool high) {
    unsigned mine = action;
    send((high ? "y1" : "y0") + PanelKind);
    if (mine == action) {
        showLine(high, !high);
    }
}

void frm_Link::cb_astabil_Click() {
    if (!cb_astabil.ticked()) {
        begin();
        stopToggling();
        // The line stays driven on this road; only the manual mode releases it.
        sendIfOpen(kind().carrierOff);
        return;
    }
    Slider.setEnabled(true);
    cb_manual.setTicked(false);
    unsigned mine = begin();
    showLine(false, false);
    Timer2.stop();
    for (std::string_view line : {driveLine, kind().carrierOn}) {
        send(line);
        if (mine != action) {
            return;
        }
    }
    Timer2.start(toggleInterval());
}

void frm_Link::stopToggling() {
    Timer2.stop();
    Slider.setEnabled(false);
}

std::chrono::milliseconds frm_Link::toggleInterval() const {
    return Slider.value() > 0 ? std::chrono::milliseconds(
                                    roundToInt(static_cast<double>(slowestToggle.count()) / Slider.value()))
                              : slowestToggle;
}

void frm_Link::Slider_Change() {
    Timer2.setInterval(toggleInterval());
    LabelRate.setCaption(std::to_string(std::max(1, Slider.value())) + " Hz");
}

void frm_Link::Timer2_Timer() {
    // The port may close while the toggle waits; that is the next one's to tell.
    bool closed = !bench.connect->isOpen();
    bool high = std::exchange(NextLevelHigh, !NextLevelHigh);
    drive(high);
    if (closed) {
        cb_astabil.setTicked(false);
    }
}

void frm_Link::cb_pn15_Click() {
    unsigned mine = begin();
    if (cb_pn15.ticked()) {
        send(driveLine);
        if (mine == action) {
            send("y2" + PanelKind);
        }
        if (mine == action) {
            Slider.setEnabled(false);
            showLine(true, true);
        }
        return;
    }
    std::string stop = "y3" + PanelKind;
    sendIfOpen(stop);
    if (bench.connect->ComFlag == 1) {
        sendIfOpen(stop);
    }
    if (mine == action) {
        showLine(false, false);
    }
}

void frm_Link::showLine(bool high, bool low) {
    light(tx_LED_H, high);
    light(tx_LED_L, low);
}

void frm_Link::unsetModes() {
    for (TickBox* mode : {&cb_manual, &cb_pn15, &cb_astabil}) {
        mode->setTicked(false);
    }
}

void frm_Link::leaveLine() {
    if (forTransceiver) {
        // A chip that clocks its data itself has it from the line.
        sendIfOpen(latchOn ? driveLine : releaseLine);
    }
}

void frm_Link::Form_Deactivate() {
    unsetModes();
    if (!isClosed()) {
        leaveLine();
    }
}

void frm_Link::unload() {
    bench.windows.CWLinkTXOn = false;
    subscriptions.clear();
    begin();
    unsetModes();
    Timer2.stop();
    leaveLine();
    if (forTransmitter) {
        sendIfOpen(releaseLine);
    }
    bench.dataSelector->EnableDataSelector();
}

void frm_Link::send(std::string_view line) {
    bench.connect->Send_To_LoadBoard(std::string(line) + '\r');
}

void frm_Link::sendIfOpen(std::string_view line) {
    if (bench.connect->isOpen()) {
        send(line);
    }
}

} // namespace zor
