// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/form.h"
#include "elements/label.h"
#include "elements/menu.h"
#include "elements/range.h"
#include "elements/tab_strip.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "link/bench.h"

#include <array>

namespace zor {

/// The dialog that edits what ZOR.ini holds. Save writes the file before the run takes the values, so a file
/// that cannot be written changes nothing and leaves the dialog open.
class Preferences : public Form {
  public:
    /// @param firmwareLoader  the menu entry that the last page shows and hides
    Preferences(Bench& ownBench, MenuEntry& firmwareLoader);

    TabStrip TabStrip1;
    /// One page each, of which the turned up one is visible. What stands on a page is not held by its frame:
    /// a user turns the page to reach it.
    std::array<Frame, 3> Frame_pref_tabs;

    Frame PortRange;
    Label LabelFrom;
    TextField ComNr_min;
    UpDown UpDown1;
    Label LabelTo;
    TextField ComNr_max;
    UpDown UpDown2;

    TickBox LoadWS;
    TickBox CCautoLoad;
    Label CCautoLoadRemark;

    TickBox EnLB_FWload;
    /// Of this program's own: kept in a file beside ZOR.ini.
    TickBox ReconnectByItself;

    Button Save;
    Button Exit;

  private:
    void TabStrip1_Click();
    void showDevices();
    void stepFirst(int step);
    void stepLast(int step);
    void Save_Click();

    Bench& bench;
    MenuEntry& mnuload;
};

} // namespace zor
