// SPDX-License-Identifier: MIT
#pragma once

#include "eeprom/event_tab.h"
#include "eeprom/frm_cmd_sequence.h"
#include "elements/button.h"
#include "elements/coloured_log.h"
#include "elements/form.h"
#include "elements/history.h"
#include "elements/tab_strip.h"
#include "elements/text_field.h"
#include "link/bench.h"
#include "platform/event_loop.h"

#include <array>
#include <memory>
#include <string>

namespace zor {

/// Composes what a stand-alone transmitter does at each of seven events, and joins the seven routines into
/// the image of its EEPROM. The image goes to the board and to files through the EEPROM programmer.
class ECET final : public Form, public Undoable, private CommandTarget {
  public:
    explicit ECET(Bench& ownBench);

    TabStrip TabStrip1;
    /// The joined image in hexadecimal digits.
    TextField TB_EEPROMContent;
    ColouredLog TB_ErrorLog;
    Button PB_GenerateRom;
    Button PB_Call;
    Button PB_Load;
    Button PB_Save;
    Button PB_ClearLog;
    /// How large the image is.
    Label ImageSize;

    // What can be undone: the texts of the events and the image, what is locked of them, and how a payload is
    // shown. The log tells what happened, and stays.
    [[nodiscard]] Aspects keptAspects(const Element& element) const override;
    [[nodiscard]] bool isSetting(const Element& element) const override;
    [[nodiscard]] KeptParts keptParts() override;
    [[nodiscard]] std::string settingCaption(const Element& element) const override;
    [[nodiscard]] bool buttonsNameSteps() const override { return true; }

    /// @param event  from 0
    [[nodiscard]] EventTab& tab(int event) const { return *tabs[static_cast<std::size_t>(event)]; }
    [[nodiscard]] Frm_CmdSequence& commands();

    /// The words that the event's commands stand for, as the open transmitter panel shows them; empty, with a
    /// box, if no panel is open. The column of the chooser is an event too.
    [[nodiscard]] std::string GetDataFromControlPanel(int event);
    /// An image that no longer stands for the routines goes, and with it what the log said of it.
    void dropImage();
    /// Turns an event's tab up, as a user does who reaches for something on it.
    void turnUp(int event) { TabStrip1.turn(event + 1); }
    /// The gesture that shows and hides the buttons of the PN9 sequence.
    void frameClicked();

  protected:
    void unload() override;

  private:
    [[nodiscard]] int currentEvent() const override { return TabStrip1.page() - 1; }
    [[nodiscard]] std::string currentCaption() const override { return tab(currentEvent()).caption(); }
    [[nodiscard]] std::string toolCaption() const override { return title(); }
    void SetbFrmCmdSequenceOpened(int event) override { opened(event) = true; }
    void ClearbFrmCmdSequenceOpened(int event) override { opened(event) = false; }
    void insertCommands() override;

    [[nodiscard]] bool& opened(int event) { return FrmCmdSequenceLoaded[static_cast<std::size_t>(event)]; }
    void TabStrip1_Click();
    void readAll();
    /// Puts the command editor at the right of this window.
    void placeBeside(Form& window);
    void showFrames();
    void PB_GenerateRom_Click();
    /// @return true if the event's routine may be incorrect
    bool generateEvent(EventTab& eventTab);
    void logWithoutFunction();
    /// Puts the image into the programmer's window at once if there is one.
    void showImageInProgrammer();
    void PB_Call_Click();
    void PB_Save_Click();
    void PB_Load_Click();
    void PN9_Timer_Timer();
    void showPN9(bool shown);

    Bench& bench;
    std::array<std::unique_ptr<EventTab>, eventCount> tabs;
    std::array<bool, eventCount> NoFunction{};
    /// The command editor is open on the event.
    std::array<bool, eventCount> FrmCmdSequenceLoaded{};
    /// Where the command editor was put last.
    Place besidePlace;
    Timer PN9_Timer;
    Subscription imageChanged;
    Subscription broughtToFront;
};

} // namespace zor
