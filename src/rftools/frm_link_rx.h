// SPDX-License-Identifier: MIT
#pragma once

#include "elements/form.h"
#include "elements/label.h"
#include "elements/tick_box.h"
#include "link/bench.h"
#include "platform/event_loop.h"

#include <vector>

namespace zor {

/// Shows the level of the receiver's data output, asked for 20 times a second. Takes the data line for itself
/// while it is open.
class frm_Link_RX : public Form {
  public:
    explicit frm_Link_RX(Bench& ownBench);
    ~frm_Link_RX() override;

    TickBox cb_MoniEn;
    Label Label1;
    Lamp LED_H;
    Lamp LED_L;

  protected:
    void unload() override;

  private:
    void Form_Activate();
    void place();
    void cb_MoniEn_Click();
    void Timer1_Timer();
    void show(char level);
    void send(std::string_view line);

    Bench& bench;
    Timer Timer1;
    /// Begins when it comes to the front for the first time, behind the window that it opened over.
    bool loaded = false;
    std::vector<Subscription> subscriptions;
};

} // namespace zor
