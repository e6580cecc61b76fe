// SPDX-License-Identifier: MIT
#pragma once

#include "eeprom/digit_field.h"
#include "eeprom/routine_reader.h"
#include "elements/button.h"
#include "elements/colour.h"
#include "elements/coloured_log.h"
#include "elements/grid.h"
#include "elements/history.h"
#include "elements/label.h"
#include "elements/options.h"
#include "elements/tick_box.h"

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zor {

struct Bench;
class ECET;

/// The ground of a field that takes no typing.
inline constexpr Colour TB_LockedColor{224, 224, 224};

/// What differs between the tabs of the content editor.
struct EventRow {
    /// On its tab.
    const char* tab;
    /// Of its frame; also names the event in the log.
    const char* frame;
};

/// In the order of the blocks in the EEPROM.
inline constexpr std::array<EventRow, eventCount> eventRows = {{
    {"Power On &Reset", "Power On Reset Event Control"},
    {"Push button &1", "Push Button 1 Event Control"},
    {"Push button &2", "Push Button 2 Event Control"},
    {"Push button &3", "Push Button 3 Event Control"},
    {"Push button &4", "Push Button 4 Event Control"},
    {"Low &battery level", "Low Battery Level Event Control"},
    {"&Wake-up timer timeout", "Wake-up Timer Timeout Event Control"},
}};

/// One event's routine and the payload that is being made for it.
///
///     routine:  locked --double click or key, Yes--> unlocked --generation--> locked
///     payload:  free --sleep inserted, generation of a routine--> locked
///               locked --double click or key, Yes; routine cleared or fetched--> free
///
/// What inserts into the payload or routine is disabled while the payload is locked.
class EventTab {
    // Older than the options that join it.
    OptionGroup viewGroup;

  public:
    /// @param eventIndex  from 0
    EventTab(ECET& contentEditor, Bench& ownBench, int eventIndex);

    Frame Frm_ECETEvents;
    DigitField TB_EventContent;
    DigitField TB_Payload;
    Option OB_HexView;
    Option OB_Ascii_View;
    DigitField TB_FillData;
    DigitField TB_Pattern;
    TickBox CB_FillEmptieswithC4;
    Button PB_GetData;
    Button PB_InsertCommand;
    Button PB_InsertTx;
    Button PB_InsertSleep;
    Button PB_Fill;
    Button PB_Preamble;
    Button PB_SynchPattern;
    Button PB_PN9;
    Button PB_ClearEventRoutine;
    Button PB_CmdSequence;
    /// The payload's room.
    Label Label3;

    // Beside what is edited: what it says and how far it goes.

    /// The routine command by command; a row is a RoutineCommand.
    Grid Reading;
    /// How many places of the routine cannot be read; empty while all can.
    Label ReadingFault;
    Label RoutineSize;
    /// How a locked payload is unlocked.
    Label LockHint;

    /// The name of a member of an array.
    [[nodiscard]] const std::string& caption() const { return Frm_ECETEvents.caption(); }
    [[nodiscard]] std::string routine() const { return TB_EventContent.text(); }
    void putRoutine(std::string digits) { TB_EventContent.put(std::move(digits)); }
    /// Appends to the routine; refused with a line in the log if that would not go into its block.
    bool growRoutine(const std::string& digits);
    void lockRoutine();
    void lockPayload();
    /// Reads the routine anew, as the open transmitter panel explains it now.
    void read();
    /// The digits of the command that is picked in the reading; nullptr if none is.
    [[nodiscard]] const RoutineCommand* picked() const;
    /// How the payload is shown, for the steps back.
    [[nodiscard]] KeptPart keptView();
    /// Writes a line to the log with the event's name behind it.
    void logWithCaption(LogColour colour, const std::string& text) const;

  private:
    enum class View { Hex, Ascii };

    void wire();
    void setButtons();
    void onTab(Button& button, void (EventTab::*action)());
    void log(LogColour colour, const std::string& text) const;
    void showAs(View wanted);
    void inHexView(const std::function<void()>& action);
    void showRoom(const char* before, std::size_t digits);
    /// In the hexadecimal view.
    void appendToPayload(std::string_view digits);
    void unlockRoutine();
    void freePayload();
    [[nodiscard]] std::array<Button*, 7> payloadButtons();
    [[nodiscard]] bool mayEdit(const char* question) const;
    void editRoutine();
    void editPayload();
    void PB_GetData_Click();
    void PB_InsertCommand_Click();
    void PB_InsertTx_Click();
    void PB_InsertSleep_Click();
    void PB_Fill_Click();
    void PB_Preamble_Click();
    void PB_SynchPattern_Click();
    void PB_PN9_Click();
    void PB_ClearEventRoutine_Click();
    void PB_CmdSequence_Click();
    void insertTransmit();
    void TB_FillData_LostFocus();
    void TB_Pattern_LostFocus();

    std::vector<RoutineCommand> readCommands;
    Subscription routineChanged;
    ECET& editor;
    Bench& bench;
    int index;
    View view = View::Hex;
    /// The pattern's fault was told since it was last edited: Enter and leaving the field are one mistake.
    bool patternFaultTold = false;
};

} // namespace zor
