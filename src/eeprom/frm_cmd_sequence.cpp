// SPDX-License-Identifier: MIT
#include "eeprom/frm_cmd_sequence.h"

#include "eeprom/event_tab.h"
#include "eeprom/transmitter_words.h"
#include "link/number_reading.h"
#include "panels/common/chip_panel.h"

#include <utility>

namespace zor {

namespace {

constexpr std::chrono::milliseconds warningInterval(100);
constexpr const char* startRate = "9600";

/// Until the content editor has called.
class NoTarget : public CommandTarget {
  public:
    [[nodiscard]] int currentEvent() const override { return 0; }
    [[nodiscard]] std::string currentCaption() const override { return {}; }
    [[nodiscard]] std::string toolCaption() const override { return {}; }
    void SetbFrmCmdSequenceOpened(int) override {}
    void ClearbFrmCmdSequenceOpened(int) override {}
    void insertCommands() override {}
};

CommandTarget& nobody() {
    static NoTarget target;
    return target;
}

struct CommandCaption {
    Command command;
    const char* caption;
};

constexpr std::array<CommandCaption, everyCommand.size()> captions = {{
    {configurationSetting, "Configuration Setting Command"},
    {frequencySetting, "Frequency Setting Command"},
    {powerSetting, "Power Setting Command"},
    {powerManagement, "Power Management Command"},
    {lowBatteryDetector, "Low Battery Detector Command"},
    {dataRateCommand, "Data Rate Command"},
    {pushButtonCommand, "Push-Button Command"},
    {wakeUpTimer, "Wake-up Timer Command"},
    {pllSetting, "PLL Setting Command"},
}};

} // namespace

Frm_CmdSequence::Frm_CmdSequence(Bench& ownBench)
    : Form(ownBench.desk, "Frm_CmdSequence", "Command Editor")
    , L_ControlName(*this, "L_ControlName")
    , TB_DataRate(*this, "TB_DataRate", startRate)
    , LabelBps(*this, "LabelBps", "bps")
    , TB_DataRateCmd(*this, "TB_DataRateCmd", "", TextField::Access::ReadOnly)
    , TB_PBCmdValue(*this, "TB_PBCmdValue", "", TextField::Access::ReadOnly)
    , Frm_ContExec(*this, "Frm_ContExec", "Continuous Event Execution for")
    , CB_ContinousExecution{{TickBox(*this, "CB_ContinousExecution(0)", "Button 1"),
                             TickBox(*this, "CB_ContinousExecution(1)", "Button 2"),
                             TickBox(*this, "CB_ContinousExecution(2)", "Button 3"),
                             TickBox(*this, "CB_ContinousExecution(3)", "Button 4")}}
    , CB_FourthButton(*this, "CB_FourthButton", "Fourth Button Emulation")
    , CB_Pullup(*this, "CB_Pullup", "Switch off weak-pullup")
    , Frm_DebouncingTime(*this, "Frm_DebouncingTime", "De-Bouncing Time [ms]")
    , OB_Bypass(*this, debouncingGroup, "OB_Bypass", "Bypass")
    , OB_10(*this, debouncingGroup, "OB_10", "10")
    , OB_40(*this, debouncingGroup, "OB_40", "40")
    , OB_160(*this, debouncingGroup, "OB_160", "160")
    , PB_Save(*this, "PB_Save", "Sa&ve and Close")
    , PB_SetDefaults(*this, "PB_SetDefaults", "Set &Recommended")
    , PB_ClearAll(*this, "PB_ClearAll", "&Clear All")
    , PB_SelectAll(*this, "PB_SelectAll", "&Select All")
    , PB_Insert(*this, "PB_Insert", "&Insert")
    , Label4(*this, "Label4",
             "Data Changed.\r\nPlease save it.\r\nUnsaved changes will be lost if this window is closed.")
    , bench(ownBench)
    , target(&nobody())
    , Tmr_Datachanged(ownBench.platform.loop, [this] { Tmr_Datachanged_Timer(); }) {
    setSizing(Sizing::ByContent);
    Tmr_Datachanged.setInterval(warningInterval);
    makeCommandBoxes();
    for (TickBox& box : CB_ContinousExecution) {
        box.setContainer(&Frm_ContExec);
    }
    for (Option* option : {&OB_Bypass, &OB_10, &OB_40, &OB_160}) {
        option->setContainer(&Frm_DebouncingTime);
    }
    TB_DataRate.setTip("Data rate in bit/s, from 1348 on; leaving the field shows the rate really obtained");
    TB_DataRateCmd.setBackground(TB_LockedColor);
    TB_PBCmdValue.setBackground(TB_LockedColor);
    PB_Insert.setVisible(false);
    Label4.setVisible(false);
    wire();
    fillPushButton(pushButtonSettings(PBCmd));
    SelectDefaultEvents();
}

void Frm_CmdSequence::makeCommandBoxes() {
    for (const CommandCaption& row : captions) {
        auto& box = commandBoxes[static_cast<std::size_t>(row.command)];
        box = std::make_unique<TickBox>(*this, "CB_AddCmd(" + std::to_string(row.command) + ")", row.caption);
        box->onChange = [this, command = row.command] { CB_AddCmd_Click(command); };
    }
}

void Frm_CmdSequence::wire() {
    TB_DataRate.onEdit = [this] { TB_DataRate_Change(); };
    TB_DataRate.onCommit = [this] { TB_DataRate_LostFocus(); };
    tellReadingsOf(bench, {&TB_DataRate});
    for (std::size_t button = 0; button < CB_ContinousExecution.size(); ++button) {
        TickBox& box = CB_ContinousExecution[button];
        unsigned bit = 1U << (static_cast<unsigned>(pushbutton::firstContinuousBit) + button);
        box.onChange = [this, &box, bit] { pushButtonChanged(bit, box.ticked() ? bit : 0); };
    }
    for (auto [box, position] : {std::pair(&CB_FourthButton, pushbutton::fourthButtonBit),
                                 std::pair(&CB_Pullup, pushbutton::pullUpBit)}) {
        unsigned bit = 1U << static_cast<unsigned>(position);
        box->onChange = [this, ownBox = box, bit] { pushButtonChanged(bit, ownBox->ticked() ? bit : 0); };
    }
    constexpr unsigned debouncingMask = 3U << pushbutton::debouncingBit;
    for (auto [option, time] :
         {std::pair(&OB_Bypass, Debouncing::Bypass), std::pair(&OB_10, Debouncing::Ms10),
          std::pair(&OB_40, Debouncing::Ms40), std::pair(&OB_160, Debouncing::Ms160)}) {
        unsigned bits = static_cast<unsigned>(time) << pushbutton::debouncingBit;
        option->onChoose = [this, bits] { pushButtonChanged(debouncingMask, bits); };
    }
    PB_Save.onClick = [this] { PB_Save_Click(); };
    PB_SetDefaults.onClick = [this] { PB_SetDefaults_Click(); };
    PB_ClearAll.onClick = [this] { PB_ClearAll_Click(); };
    PB_SelectAll.onClick = [this] { tickAll(true); };
    PB_Insert.onClick = [this] { PB_Insert_Click(); };
}

void Frm_CmdSequence::serve(CommandTarget& editor) {
    target = &editor;
    if (!bench.selections.ForOpal) {
        bench.selections.ForOpal = !bench.windows.TX1on;
    }
    // The KT1101's own panel has its data rate; the KT1100's has none.
    CB_AddCmd(pllSetting)->setVisible(!ForOpal());
    for (Element* element : {static_cast<Element*>(&TB_DataRate), static_cast<Element*>(&LabelBps),
                             static_cast<Element*>(&TB_DataRateCmd)}) {
        element->setVisible(ForOpal());
    }
    SelectDefaultEvents();
}

void Frm_CmdSequence::unload() {
    Tmr_Datachanged.stop();
}

void Frm_CmdSequence::closeButton() {
    target->ClearbFrmCmdSequenceOpened(target->currentEvent());
    hideWindow();
}

void Frm_CmdSequence::showWindow() {
    // What the last showing left may be over.
    Tmr_Datachanged_Timer();
    Tmr_Datachanged.start();
    show();
}

void Frm_CmdSequence::hideWindow() {
    Tmr_Datachanged.stop();
    hide();
}

void Frm_CmdSequence::ShowCommandEditor() {
    role = Role::Editor;
    SelectDefaultEvents();
    PB_Insert.setVisible(false);
    PB_Save.setVisible(true);
    PB_SetDefaults.setVisible(true);
    target->SetbFrmCmdSequenceOpened(target->currentEvent());
    showWindow();
}

void Frm_CmdSequence::ShowInsertCommandWindow() {
    role = Role::Chooser;
    L_ControlName.setCaption(target->currentCaption());
    PB_Save.setVisible(false);
    PB_SetDefaults.setVisible(false);
    PB_ClearAll_Click();
    showPushButton(true);
    PB_Insert.setVisible(true);
    CmdData.ClearSequenceData(CommandData::insertColumn);
    CmdData.clearColumn(CommandData::insertColumn);
    showWindow();
    putDataRate(startRate);
}

void Frm_CmdSequence::followTab(bool openedOnEvent) {
    if (openedOnEvent) {
        ShowCommandEditor();
    } else {
        hideWindow();
    }
}

void Frm_CmdSequence::SelectDefaultEvents() {
    L_ControlName.setCaption(target->currentCaption());
    PB_ClearAll_Click();
    int event = target->currentEvent();
    for (Command command : everyCommand) {
        bool ticked = CmdData.contains(event, command);
        CB_AddCmd(command)->setTicked(ticked);
        CmdData.put(event, command, ticked);
    }
    fillPushButton(pushButtonSettings(PBCmd));
    showPushButton(CB_AddCmd(pushButtonCommand)->ticked());
    CB_AddCmd_Click(dataRateCommand);
    putDataRate(startRate);
    TB_DataRate_LostFocus();
    bChanged = false;
}

void Frm_CmdSequence::PB_SetDefaults_Click() {
    CmdData.ClearSequenceData(target->currentEvent());
    SelectDefaultEvents();
}

void Frm_CmdSequence::tickAll(bool ticked) {
    for (Command command : everyCommand) {
        CB_AddCmd(command)->setTicked(ticked);
    }
}

void Frm_CmdSequence::CB_AddCmd_Click(Command command) {
    bChanged = true;
    bool ticked = CB_AddCmd(command)->ticked();
    if (command == dataRateCommand) {
        TB_DataRate.setEnabled(ticked);
        TB_DataRateCmd.setEnabled(ticked);
    }
    if (command == pushButtonCommand) {
        showPushButton(ticked);
        PBCmd = pushButtonByte(pushButtonFields());
        showPushButtonByte();
    }
    if (role == Role::Chooser) {
        CmdData.put(CommandData::insertColumn, command, ticked);
    }
}

void Frm_CmdSequence::PB_Save_Click() {
    int event = target->currentEvent();
    for (Command command : everyCommand) {
        CmdData.put(event, command, CB_AddCmd(command)->ticked());
    }
    CmdData.markSaved(event);
    bChanged = false;
    target->ClearbFrmCmdSequenceOpened(event);
    hideWindow();
}

void Frm_CmdSequence::PB_Insert_Click() {
    target->insertCommands();
    hideWindow();
}

void Frm_CmdSequence::Tmr_Datachanged_Timer() {
    Label4.setVisible(PB_Save.visible() && bChanged);
}

void Frm_CmdSequence::CheckControlWindow() {
    bool otherOpen = ForOpal() ? bench.windows.TX1on : bench.windows.TX0on;
    if (!otherOpen) {
        return;
    }
    const ChipPanel* first = panelNamed(bench, ForOpal() ? "OpalV2" : "JadeV1");
    std::string firstCaption = first != nullptr ? first->title()
                               : ForOpal()      ? "KT1100 transmitter control panel"
                                                : "KT1101 transmitter control panel";
    std::string tool = target->toolCaption();
    bench.warn("Warning!\r\nData integrity can not be granted in " + tool +
               ".\r\nThe first opened control panel was " + firstCaption +
               ".\r\n\r\nPlease reopen THIS control panel before generating EEPROM content or restart " +
               tool + ".");
}

} // namespace zor
