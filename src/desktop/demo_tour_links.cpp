// SPDX-License-Identifier: MIT
// The tour's stop at the carrier, packet and test mode windows, each beside the panel that it works with. A
// far end on the air gives the receivers something to hear.
#include "desktop/demo_tour.h"
#include "elements/button.h"
#include "elements/range.h"
#include "elements/tick_box.h"
#include "panels/common/chip_panel.h"
#include "rftools/frm_link.h"
#include "rftools/frm_link_rx.h"
#include "shell/main_window.h"

namespace zor {

using namespace std::chrono_literals;

Form* DemoTour::openTool(Tool tool) {
    main.perform([this, tool] { main.bench().tools.open(tool); });
    settle(200ms);
    return main.bench().tools.find(tool);
}

void DemoTour::visitLinks() {
    tellBoard(QStringLiteral("far silent"));
    main.menu.mnuViewTx0.click();
    main.bench().openPanel()->Update.click();
    if (auto* carrier = dynamic_cast<frm_Link*>(openTool(Tool::frm_Link))) {
        carrier->cb_astabil.tick(true);
        carrier->Slider.slide(10);
        settle(450ms);
        visitForm(*carrier);
    }
    visitReceiver();
    visitTransceiver();
    visitSniffer();
    visitTestModes();
}

/// What a board with the packet monitor firmware could print.
void DemoTour::visitSniffer() {
    if (Form* sniffer = openTool(Tool::frm_VireoMacSniffer)) {
        tellBoard(QStringLiteral("emit \\r\\n0C 01 02 48 45 4C 4C 4F 20 31 A7 D0\\r\\n"));
        tellBoard(QStringLiteral("emit 0C 01 02 48 45 4C 4C 4F 20 32 A7 D1\\r\\n"));
        settle(300ms);
        visitForm(*sniffer);
    }
}

void DemoTour::visitReceiver() {
    main.menu.mnuViewRx.click();
    main.bench().openPanel()->Update.click();
    settle(200ms);
    // Each level stays longer than a picture takes.
    tellBoard(QStringLiteral("far carrier 1000"));
    if (auto* output = dynamic_cast<frm_Link_RX*>(openTool(Tool::frm_Link_RX))) {
        output->cb_MoniEn.tick(true);
        main.loop().runUntil([output] { return output->LED_H.lit() || output->isClosed(); });
        visitForm(*output);
    }
    if (Form* link = openTool(Tool::AmberV1rflink_LB2)) {
        hearTenPackets(*link, "EnRx");
        visitForm(*link);
    }
    main.menu.mnuViewRx.click();
}

void DemoTour::visitTransceiver() {
    main.menu.mnuViewTRx.click();
    ChipPanel& panel = *main.bench().openPanel();
    for (const char* setting : {"chb_er", "EnRxFIFO"}) {
        panel.find(setting)->tick(true);
    }
    panel.Update.click();
    if (Form* link = openTool(Tool::Frm_BerylRfLinkTest)) {
        link->find("TB_Payload")->edit("HELLO");
        link->find("PB_SynchPatt")->click();
        link->find("PB_Preable")->click();
        settle(150ms);
        takePicture(QStringLiteral("packet"));
        link->find("TabStrip1")->choosePosition(2);
        hearTenPackets(*link, "PB_Enable");
        visitForm(*link);
    }
    // The data line goes back: out of sight the panel would hold it in every picture to come.
    panel.find("EnRxFIFO")->tick(false);
    panel.Update.click();
    main.menu.mnuViewTRx.click();
}

void DemoTour::hearTenPackets(Form& link, const char* button) {
    // Silence lets the far end count from the beginning.
    tellBoard(QStringLiteral("far silent"));
    link.find(button)->click();
    settle(200ms);
    tellBoard(QStringLiteral("lose 7"));
    tellBoard(QStringLiteral("far numbered 300"));
    settle(3150ms);
    tellBoard(QStringLiteral("far silent"));
}

void DemoTour::visitTestModes() {
    struct Row {
        MenuEntry& panel;
        Tool tool;
    };
    const Row rows[] = {{main.menu.mnuViewTx0, Tool::OpalV2test},
                        {main.menu.mnuViewRx, Tool::Frm_AmberTestFunctions},
                        {main.menu.mnuViewTRx, Tool::Frm_BerylTestFunctions}};
    for (const Row& row : rows) {
        row.panel.click();
        if (Form* modes = openTool(row.tool)) {
            visitForm(*modes);
        }
        row.panel.click();
    }
}

} // namespace zor
