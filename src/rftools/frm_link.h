// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/form.h"
#include "elements/label.h"
#include "elements/range.h"
#include "elements/tick_box.h"
#include "link/bench.h"
#include "platform/event_loop.h"

#include <string>

namespace zor {

/// Keys the open panel's transmitter with a bare carrier: by hand, toggled at a rate, or by the board's
/// pseudo random sequence. Takes the data line for itself while it is open.
class frm_Link : public Form {
  public:
    explicit frm_Link(Bench& ownBench);
    ~frm_Link() override;

    /// "Modulation", around the three modes.
    Frame Frame1;
    TickBox cb_manual;
    TickBox cb_pn15;
    TickBox cb_astabil;
    Button pb_L;
    Button pb_H;
    /// Toggles a second; 0 toggles once a second as 1 does.
    zor::Slider Slider;
    /// What the slider's place means.
    Label LabelRate;
    Lamp tx_LED_H;
    Lamp tx_LED_L;

  protected:
    void unload() override;

  private:
    /// The carrier's words and the argument of the line's commands.
    struct Kind;

    void Form_Activate();
    void chooseModes();
    void allowModes(bool chipClocksData);
    void watchLatch();
    void cb_manual_Click();
    void cb_astabil_Click();
    void cb_pn15_Click();
    void Timer2_Timer();
    void Slider_Change();
    void Form_Deactivate();
    void drive(bool high);
    void showLine(bool high, bool low);
    void unsetModes();
    void leaveLine();
    void stopToggling();
    [[nodiscard]] std::chrono::milliseconds toggleInterval() const;
    [[nodiscard]] const Kind& kind() const;
    /// Sends what begins something; a closed port is told.
    void send(std::string_view line);
    /// Sends what ends something; without a port there is nothing left to end.
    void sendIfOpen(std::string_view line);
    /// A mode's action begins. @return its number: it goes on only while no other one has begun
    unsigned begin() { return ++action; }

    Bench& bench;
    Timer Timer2;
    /// "1" while a transceiver panel is open, "0" while a transmitter panel is.
    std::string PanelKind = "0";
    bool NextLevelHigh = false;
    /// Begins when it comes to the front for the first time, behind the window that it opened over.
    bool loaded = false;
    unsigned action = 0;
    /// Which panels the modes were chosen for; they hold after the panel has been hidden.
    bool forTransceiver = false;
    bool forTransmitter = false;
    /// The transceiver clocks its data itself, and what tells when that changes.
    bool latchOn = false;
    Subscription latch;
    std::vector<Subscription> subscriptions;
};

} // namespace zor
