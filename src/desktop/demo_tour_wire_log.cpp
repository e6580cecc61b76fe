// SPDX-License-Identifier: MIT
// The tour's stops at the wire log, below a panel in a main window that has the room for it, and at the
// search for transmitters, which finds a beacon.
#include "desktop/demo_tour.h"

#include "panels/common/chip_panel.h"
#include "rftools/tx_search.h"
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
    visitSearch();
}

/// Its entry stands in the menu that a gesture brings out.
void DemoTour::visitSearch() {
    auto open = [this] { main.bench().tools.open(Tool::frm_TxSearch); };
    main.perform(open);
    settle(150ms);
    takePicture(QStringLiteral("search-folded"));
    main.bench().tools.find(Tool::frm_TxSearch)->userClose();
    main.menu.mnuViewTRx.click();
    ChipPanel& panel = *main.bench().openPanel();
    panel.find("chb_er")->tick(true);
    panel.Update.click();
    tellBoard(QStringLiteral("beacon 314120000 9579"));
    main.perform(open);
    auto& search = static_cast<TxSearch&>(*main.bench().tools.find(Tool::frm_TxSearch));
    search.CHK_Search.tick(true);
    search.SpanFrom.type("312");
    search.SpanTo.type("317");
    search.PB_START.click();
    main.loop().runUntil([&search] { return search.PB_START.enabled() || search.isClosed(); });
    search.Carriers.pickRow(0);
    visitForm(search);
    tellBoard(QStringLiteral("far silent"));
    main.menu.mnuViewTRx.click();
}

} // namespace zor
