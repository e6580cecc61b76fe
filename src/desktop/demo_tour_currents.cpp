// SPDX-License-Identifier: MIT
// The tour's stop at what a setting will do, and at the current over time: a transceiver measured in each of
// its states, then watched while it sends and sleeps.
#include "desktop/demo_tour.h"

#include "elements/button.h"
#include "panels/common/chip_panel.h"
#include "panels/common/forecast.h"
#include "shell/main_window.h"

namespace zor {

using namespace std::chrono_literals;

namespace {

/// A user sets a tick and sends the words.
void setAndUpdate(ChipPanel& panel, const char* tick, bool on) {
    panel.find(tick)->tick(on);
    panel.Update.click();
}

} // namespace

void DemoTour::visitCurrents() {
    main.menu.mnuViewTRx.click();
    ChipPanel& panel = *main.bench().openPanel();
    settle(300ms);
    panel.find("ModFreq")->chooseText("60");
    setAndUpdate(panel, "chb_ew", true);
    Forecast& forecast = panel.forecast();
    forecast.ShowForecast.click();
    forecast.MeasureCurrents.click();
    main.loop().runUntil([&forecast] { return !forecast.measuring(); });
    settle(300ms);
    takePicture(QStringLiteral("forecast"));
    forecast.ShowForecast.click();

    Form& supply = *openTool(Tool::frm_PowerSupply);
    supply.find("PB_Current")->click();
    settle(100ms);
    takePicture(QStringLiteral("frm_PowerSupply"));
    supply.find("ShowPlot")->click();
    supply.find("ContRead")->click();
    settle(1500ms);
    for (const char* tick : {"chb_er", "chb_et"}) {
        setAndUpdate(panel, tick, true);
        settle(1200ms);
        setAndUpdate(panel, tick, false);
        settle(900ms);
    }
    supply.find("CursorAt")->type("2");
    supply.find("SetMarkA")->click();
    supply.find("CursorAt")->type("5");
    supply.find("SetMarkB")->click();
    supply.find("CursorAt")->type("4.2");
    takePicture(QStringLiteral("supply-plot"));
    supply.find("ContRead")->click();
    supply.userClose();
    panel.userClose();
    settle(100ms);
}

} // namespace zor
