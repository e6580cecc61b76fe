// SPDX-License-Identifier: MIT
#pragma once

#include "eeprom/command_data.h"
#include "elements/button.h"
#include "elements/form.h"
#include "elements/label.h"
#include "elements/options.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "link/bench.h"
#include "platform/event_loop.h"

#include <array>
#include <memory>
#include <string>

namespace zor {

/// For whom the command editor works: the content editor, with the event whose tab is turned up. Outlives the
/// command editor's work.
class CommandTarget {
  public:
    CommandTarget() = default;
    CommandTarget(const CommandTarget&) = delete;
    CommandTarget& operator=(const CommandTarget&) = delete;
    virtual ~CommandTarget() = default;

    /// From 0.
    [[nodiscard]] virtual int currentEvent() const = 0;
    [[nodiscard]] virtual std::string currentCaption() const = 0;
    [[nodiscard]] virtual std::string toolCaption() const = 0;
    /// The command editor is, or is no longer, open on that event.
    virtual void SetbFrmCmdSequenceOpened(int event) = 0;
    virtual void ClearbFrmCmdSequenceOpened(int event) = 0;
    /// Appends the chosen commands to the current event's routine.
    virtual void insertCommands() = 0;
};

/// Tells the content editor which commands an event's routine shall contain, with the push-button byte and
/// the data rate; or chooses commands to be appended once.
///
/// Made with the content editor and kept out of sight until it is asked for; its close button only hides it.
class Frm_CmdSequence : public Form {
    // Older than the options that join it.
    OptionGroup debouncingGroup;

  public:
    explicit Frm_CmdSequence(Bench& ownBench);

    /// Begins to work for the content editor. Called once, before anything else.
    void serve(CommandTarget& editor);
    [[nodiscard]] bool serves(const CommandTarget& editor) const { return target == &editor; }

    /// Shows the current event's commands.
    void ShowCommandEditor();
    /// Shows the chooser of commands to be appended.
    void ShowInsertCommandWindow();
    /// Another tab came up: the event's editor if it was open on it, else nothing.
    void followTab(bool openedOnEvent);
    /// Warns if another transmitter panel is open than the one that was there first.
    void CheckControlWindow();
    /// Whether an event's list has a command; one that was never saved has what is recommended.
    [[nodiscard]] bool contains(int event, Command command) const { return CmdData.contains(event, command); }

    /// The push-button byte of the events, and that of the chooser.
    std::uint8_t PBCmd = pushbutton::start;
    std::uint8_t PBCmd2 = pushbutton::start;

    Label L_ControlName;
    /// nullptr for 8, which is no command.
    [[nodiscard]] TickBox* CB_AddCmd(int command) const {
        return commandBoxes[static_cast<std::size_t>(command)].get();
    }
    TextField TB_DataRate;
    Label LabelBps;
    TextField TB_DataRateCmd;
    TextField TB_PBCmdValue;
    Frame Frm_ContExec;
    std::array<TickBox, 4> CB_ContinousExecution;
    TickBox CB_FourthButton;
    TickBox CB_Pullup;
    Frame Frm_DebouncingTime;
    Option OB_Bypass;
    Option OB_10;
    Option OB_40;
    Option OB_160;
    Button PB_Save;
    Button PB_SetDefaults;
    Button PB_ClearAll;
    Button PB_SelectAll;
    Button PB_Insert;
    /// The warning of unsaved changes.
    Label Label4;

  protected:
    void unload() override;
    void closeButton() override;

  private:
    void makeCommandBoxes();
    void wire();
    void SelectDefaultEvents();
    void CB_AddCmd_Click(Command command);
    void PB_ClearAll_Click() { tickAll(false); }
    void PB_SetDefaults_Click();
    void PB_Save_Click();
    void PB_Insert_Click();
    void TB_DataRate_Change();
    void TB_DataRate_LostFocus();
    void Tmr_Datachanged_Timer();
    void tickAll(bool ticked);
    void putDataRate(const char* rate);
    void showPushButton(bool visible);
    void showPushButtonByte();
    void fillPushButton(const PushButtonSettings& settings);
    void pushButtonChanged(unsigned mask, unsigned bits);
    [[nodiscard]] PushButtonSettings pushButtonFields() const;
    [[nodiscard]] bool ForOpal() const { return bench.selections.ForOpal.value_or(true); }
    void showWindow();
    void hideWindow();

    enum class Role { Editor, Chooser };

    Bench& bench;
    CommandTarget* target;
    Role role = Role::Editor;
    bool bChanged = false;
    CommandData CmdData;
    std::array<std::unique_ptr<TickBox>, CommandData::rows> commandBoxes;
    Timer Tmr_Datachanged;
};

} // namespace zor
