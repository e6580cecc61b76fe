// SPDX-License-Identifier: MIT
#pragma once

#include "elements/menu.h"
#include "link/bench.h"

namespace zor {

/// The first bar's EEPROM button and the menu entry of the same programmer. The button is pressed while there
/// is a programmer, also one that works out of sight; a press brings that one up.
class ProgrammerButton {
  public:
    ProgrammerButton(Bench& ownBench, BarButton& ownButton, MenuEntry& ownEntry);

    void EEPROM_show();
    void EEPROM_hide();

  private:
    Bench& bench;
    BarButton& button;
    Subscription making;
    Subscription ending;
};

} // namespace zor
