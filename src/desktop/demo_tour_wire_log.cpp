// SPDX-License-Identifier: MIT
// The tour's stops at the wire log, below a panel in a main window that has the room for it, and at the form
// of the transmitter search.
#include "desktop/demo_tour.h"

#include "panels/common/chip_panel.h"
#include "shell/main_window.h"
#include "utilities/wire_log.h"

namespace zor {

using namespace std::chrono_literals;

void DemoTour::visitWireLog() {
    QSize usual = window.size();
    window.resize(1600, 1000);
    main.menu.mnuViewTx0.click();
    ChipPanel& panel = *main.bench().openPanel();
    panel.Update.click();
    panel.ReadStatus.click();
    settle(900ms);
    main.perform([this] { main.bench().tools.open(Tool::frm_WireLog); });
    auto& log = static_cast<WireLog&>(*main.bench().tools.find(Tool::frm_WireLog));
    log.Dock.chooseText("Bottom");
    settle(200ms);
    takePicture(QStringLiteral("wire-log-docked"));
    log.Dock.chooseText("Window");
    main.menu.mnuViewTx0.click();
    window.resize(usual);
    settle(200ms);
    visitForm(log);
    // Its entry stands in the menu that a gesture brings out.
    main.perform([this] { main.bench().tools.open(Tool::frm_TxSearch); });
    visitForm(*main.bench().tools.find(Tool::frm_TxSearch));
}

} // namespace zor
