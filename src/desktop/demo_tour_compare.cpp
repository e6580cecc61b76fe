// SPDX-License-Identifier: MIT
// The tour's stops at what works on the panel's words: a header that one field refuses, and the panel beside
// what its chip was sent.
#include "compare/frm_compare.h"
#include "compare/frm_set_from.h"
#include "desktop/demo_tour.h"
#include "panels/common/chip_panel.h"
#include "shell/main_window.h"

namespace zor {

using namespace std::chrono_literals;

void DemoTour::visitCompare() {
    main.menu.mnuViewTx0.click();
    ChipPanel& panel = *main.bench().openPanel();
    panel.setFromWord(0).click();
    auto& setter = static_cast<frm_SetFrom&>(*main.bench().tools.find(Tool::frm_SetFrom));
    setter.TB_Word.edit("9073");
    setter.TB_HeaderText.edit("#define KT1100\n"
                              "#define UPCLKFREQUENCY\t\t\t10000000\n\n"
                              "#define KT1100_CONFIGSET_CMD\t\t0x9073\n"
                              "#define KT1100_FREQSET_CMD\t\t0xA67C\n"
                              "#define KT1100_POWERMAN_CMD\t\t0xC0A0\n"
                              "#define KT1100_WTC_CMD\t\t\t0xF80A\n");
    setter.PB_SetHeader.click();
    visitForm(setter);

    panel.Update.click();
    settle(600ms);
    panel.band(Band::Band868)->click();
    panel.FreqCenter.type("868.3");
    panel.find("pm2")->click();
    panel.find("OutputPower")->chooseText("-3 dB");
    main.menu.mnutoolsCompare.click();
    auto& comparison = static_cast<frm_Compare&>(*main.bench().tools.find(Tool::frm_Compare));
    comparison.GR_Differences.pickRow(1);
    visitForm(comparison);
    main.menu.mnuViewTx0.click();
}

} // namespace zor
