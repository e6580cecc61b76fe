// SPDX-License-Identifier: MIT
// The tour's stop at the carrier and packet windows, each beside the panel that it works with.
#include "desktop/demo_tour.h"
#include "elements/button.h"
#include "elements/range.h"
#include "elements/tick_box.h"
#include "panels/common/chip_panel.h"
#include "rftools/amber_v1_rflink.h"
#include "rftools/frm_link.h"
#include "rftools/frm_link_rx.h"
#include "shell/main_window.h"

namespace zor {

using namespace std::chrono_literals;

void DemoTour::visitLinks() {
    auto open = [this](Tool tool) -> Form* {
        main.perform([this, tool] { main.bench().tools.open(tool); });
        settle(200ms);
        return main.bench().tools.find(tool);
    };
    main.menu.mnuViewTx0.click();
    main.bench().openPanel()->Update.click();
    if (auto* carrier = dynamic_cast<frm_Link*>(open(Tool::frm_Link))) {
        carrier->cb_astabil.tick(true);
        carrier->Slider.slide(10);
        settle(450ms);
        visitForm(*carrier);
    }
    main.menu.mnuViewRx.click();
    main.bench().openPanel()->Update.click();
    settle(200ms);
    if (auto* output = dynamic_cast<frm_Link_RX*>(open(Tool::frm_Link_RX))) {
        output->cb_MoniEn.tick(true);
        settle(300ms);
        visitForm(*output);
    }
    if (auto* link = dynamic_cast<AmberV1rflink*>(open(Tool::AmberV1rflink_LB2))) {
        link->EnRx.click();
        settle(8s);
        visitForm(*link);
    }
    main.menu.mnuViewRx.click();
}

} // namespace zor
