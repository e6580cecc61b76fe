// SPDX-License-Identifier: MIT
// The tour's stop at the content editor: a beacon that a stand-alone transmitter sends at power on and at
// each press of its first two buttons, handed over to the programmer.
#include "desktop/demo_tour.h"

#include "eeprom/ecet.h"
#include "panels/common/chip_panel.h"
#include "shell/main_window.h"

namespace zor {

using namespace std::chrono_literals;

namespace {

void transmit(EventTab& tab, const std::string& text) {
    tab.PB_Preamble.click();
    tab.PB_Preamble.click();
    tab.PB_SynchPattern.click();
    tab.OB_Ascii_View.click();
    tab.TB_Payload.edit(tab.TB_Payload.text() + text);
    tab.OB_HexView.click();
    tab.PB_InsertTx.click();
}

} // namespace

void DemoTour::visitContentEditor() {
    main.menu.mnuViewTx0.click();
    auto& transmitter = dynamic_cast<ChipPanel&>(*main.desk().find("OpalV2"));
    transmitter.band(Band::Band868)->click();
    transmitter.FreqCenter.type("868.3");
    transmitter.find("OutputPower")->chooseText("-3 dB");

    main.menu.mnutoolsECET.click();
    auto& editor = dynamic_cast<ECET&>(*main.bench().tools.find(Tool::ECET));
    Frm_CmdSequence& commands = editor.commands();
    EventTab& powerOn = editor.tab(0);
    powerOn.PB_CmdSequence.click();
    commands.PB_SelectAll.click();
    commands.PB_Save.click();
    powerOn.PB_GetData.click();
    transmit(powerOn, "Ortolan beacon 0001");
    powerOn.PB_InsertSleep.click();
    for (int button : {1, 2}) {
        EventTab& pressed = editor.tab(button);
        pressed.PB_GetData.click();
        transmit(pressed, "button " + std::to_string(button));
        pressed.PB_InsertSleep.click();
    }
    editor.tab(3).CB_FillEmptieswithC4.tick(true);
    editor.tab(5).PB_GetData.click();
    transmit(editor.tab(5), "low");
    editor.PB_GenerateRom.click();
    editor.TabStrip1.choosePosition(1);
    powerOn.PB_CmdSequence.click();
    commands.CB_Pullup.tick(true);
    powerOn.Reading.pickRow(1);
    settle(300ms);
    takePicture(QStringLiteral("ECET"));
    editor.PB_Call.click();
    editor.userClose();
    transmitter.userClose();
    settle(50ms);
}

} // namespace zor
