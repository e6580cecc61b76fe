// SPDX-License-Identifier: MIT
#include "eeprom/event_tab.h"

#include "eeprom/ecet.h"
#include "eeprom/event_limits.h"
#include "eeprom/transmitter_words.h"
#include "support/numbers.h"
#include "support/wording.h"

#include <optional>
#include <utility>

namespace zor {

namespace {

constexpr const char* startPattern = "2DD4";
constexpr const char* startFill = "00";

std::vector<GridColumn> readingColumns() {
    using Access = GridColumn::Access;
    return {{"", Access::ReadOnly, 1, false},
            {"At", Access::ReadOnly, 3, true},
            {"Bytes", Access::ReadOnly, 7, true},
            {"Command", Access::ReadOnly, 19, false},
            {"Meaning", Access::ReadOnly, 24, false}};
}

/// A command's bytes as its row shows them, shortened.
std::string shownDigits(std::string_view digits) {
    constexpr std::size_t shown = 6;
    return digits.size() <= shown ? std::string(digits) : std::string(digits.substr(0, 4)) + "...";
}

GridRow readingRow(const RoutineCommand& command, std::string_view routine) {
    bool wrong = command.kind == RoutineCommand::Kind::Unreadable;
    bool soft = command.kind == RoutineCommand::Kind::Padding;
    CellLook look = wrong ? CellLook::Wrong : soft ? CellLook::Soft : CellLook::Plain;
    std::string at = hexText(static_cast<std::uint32_t>(command.begin / 2), 2);
    return {GridCell(wrong ? "!" : "", wrong ? CellLook::Wrong : CellLook::Mark),
            GridCell(at, wrong ? look : CellLook::Soft),
            GridCell(shownDigits(routine.substr(command.begin, command.count)), look),
            GridCell(command.name, look), GridCell(command.meaning, look)};
}

} // namespace

EventTab::EventTab(ECET& contentEditor, Bench& ownBench, int eventIndex)
    : Frm_ECETEvents(contentEditor, indexed("Frm_ECETEvents", eventIndex),
                     eventRows[static_cast<std::size_t>(eventIndex)].frame)
    , TB_EventContent(contentEditor, indexed("TB_EventContent", eventIndex))
    , TB_Payload(contentEditor, indexed("TB_Payload", eventIndex))
    , OB_HexView(contentEditor, viewGroup, indexed("OB_HexView", eventIndex), "Hex View")
    , OB_Ascii_View(contentEditor, viewGroup, indexed("OB_Ascii_View", eventIndex), "ASCII view")
    , TB_FillData(contentEditor, indexed("TB_FillData", eventIndex), startFill)
    , TB_Pattern(contentEditor, indexed("TB_Pattern", eventIndex), startPattern)
    , CB_FillEmptieswithC4(contentEditor, indexed("CB_FillEmptieswithC4", eventIndex),
                           "Append Sleep Command if empty")
    , PB_GetData(contentEditor, indexed("PB_GetData", eventIndex), "&Get settings from Control Panel")
    , PB_InsertCommand(contentEditor, indexed("PB_InsertCommand", eventIndex), "Insert &Commands")
    , PB_InsertTx(contentEditor, indexed("PB_InsertTx", eventIndex), "Insert Data &Transmit Command")
    , PB_InsertSleep(contentEditor, indexed("PB_InsertSleep", eventIndex), "Insert &Sleep Command")
    , PB_Fill(contentEditor, indexed("PB_Fill", eventIndex), "&Fill EEPROM with")
    , PB_Preamble(contentEditor, indexed("PB_Preamble", eventIndex), "Insert P&reamble")
    , PB_SynchPattern(contentEditor, indexed("PB_SynchPattern", eventIndex), "Insert &Pattern")
    , PB_PN9(contentEditor, indexed("PB_PN9", eventIndex), "Insert &PN9 Sequence")
    , PB_ClearEventRoutine(contentEditor, indexed("PB_ClearEventRoutine", eventIndex), "C&lear Event")
    , PB_CmdSequence(contentEditor, indexed("PB_CmdSequence", eventIndex), "&Open Command Editor")
    , Label3(contentEditor, indexed("Label3", eventIndex), "Payload")
    , Reading(contentEditor, indexed("Reading", eventIndex), readingColumns())
    , ReadingFault(contentEditor, indexed("ReadingFault", eventIndex))
    , RoutineSize(contentEditor, indexed("RoutineSize", eventIndex))
    , LockHint(contentEditor, indexed("LockHint", eventIndex), "Locked: double click the payload to edit it")
    , editor(contentEditor)
    , bench(ownBench)
    , index(eventIndex) {
    TB_EventContent.setLimit(routineDigits);
    TB_Payload.setLimit(routineDigits - commandRoom);
    TB_FillData.setLimit(fillDigits);
    TB_FillData.setEmptied(startFill);
    TB_Pattern.setLimit(patternDigits);
    TB_Pattern.setEmptied("0000");
    OB_HexView.putChosen();
    PB_PN9.setVisible(false);
    LockHint.setVisible(false);
    lockRoutine();
    wire();
    setButtons();
    routineChanged = TB_EventContent.changed.subscribe([this] { read(); });
    read();
}

void EventTab::wire() {
    for (auto [field, edit] : {std::pair(&TB_EventContent, &EventTab::editRoutine),
                               std::pair(&TB_Payload, &EventTab::editPayload)}) {
        auto ask = [this, ownField = field, ownEdit = edit] {
            bool locked = ownField->readOnly();
            if (locked) {
                (this->*ownEdit)();
            }
            return locked;
        };
        field->onKey = [ask](char) { return ask(); };
        field->onDoubleClick = [ask] { (void)ask(); };
    }
    OB_HexView.onChoose = [this] { showAs(View::Hex); };
    OB_Ascii_View.onChoose = [this] { showAs(View::Ascii); };
    TB_FillData.onCommit = [this] { TB_FillData_LostFocus(); };
    TB_Pattern.onCommit = [this] { TB_Pattern_LostFocus(); };
    TB_Pattern.onDigits = [this] { patternFaultTold = false; };
    // Enter and the leaving behind it are one mistake, the next leaving is another.
    TB_Pattern.onLeave = [this, commit = TB_Pattern.onLeave] {
        commit();
        patternFaultTold = false;
    };
    Frm_ECETEvents.onClick = [this] { editor.frameClicked(); };
    TB_EventContent.setTip("Event routine in hexadecimal digits; double click or type to edit it");
    TB_Payload.setTip("Data to transmit");
    TB_FillData.setTip("Fill byte, two hexadecimal digits");
    TB_Pattern.setTip("Synchronisation pattern, four hexadecimal digits");
}

void EventTab::setButtons() {
    onTab(PB_GetData, &EventTab::PB_GetData_Click);
    onTab(PB_InsertCommand, &EventTab::PB_InsertCommand_Click);
    onTab(PB_InsertTx, &EventTab::PB_InsertTx_Click);
    onTab(PB_InsertSleep, &EventTab::PB_InsertSleep_Click);
    onTab(PB_Fill, &EventTab::PB_Fill_Click);
    onTab(PB_Preamble, &EventTab::PB_Preamble_Click);
    onTab(PB_SynchPattern, &EventTab::PB_SynchPattern_Click);
    onTab(PB_PN9, &EventTab::PB_PN9_Click);
    onTab(PB_ClearEventRoutine, &EventTab::PB_ClearEventRoutine_Click);
    onTab(PB_CmdSequence, &EventTab::PB_CmdSequence_Click);
}

void EventTab::onTab(Button& button, void (EventTab::*action)()) {
    button.onClick = [this, action] {
        // The command editor works for the tab that is up.
        editor.turnUp(index);
        (this->*action)();
    };
}

void EventTab::read() {
    std::string digits = routine();
    std::string size = std::to_string((digits.size() + 1) / 2) + " of " + std::to_string(routineDigits / 2);
    RoutineSize.setCaption(size + " bytes");
    readCommands = readRoutine(digits, {transmitterPanel(bench), transmitterCrystal(bench)});
    std::vector<GridRow> rows;
    std::size_t faults = 0;
    for (const RoutineCommand& command : readCommands) {
        faults += command.kind == RoutineCommand::Kind::Unreadable ? 1 : 0;
        rows.push_back(readingRow(command, digits));
    }
    Reading.setRows(std::move(rows));
    ReadingFault.setCaption(faults == 0   ? std::string()
                            : faults == 1 ? "1 place cannot be read"
                                          : std::to_string(faults) + " places cannot be read");
}

const RoutineCommand* EventTab::picked() const {
    std::optional<std::size_t> row = Reading.picked();
    return row && *row < readCommands.size() ? &readCommands[*row] : nullptr;
}

void EventTab::log(LogColour colour, const std::string& text) const {
    editor.TB_ErrorLog.append(colour, text);
}

void EventTab::logWithCaption(LogColour colour, const std::string& text) const {
    log(colour, text + " ( " + caption() + " )");
}

void EventTab::showAs(View wanted) {
    if (std::exchange(view, wanted) == wanted) {
        return;
    }
    bool hex = view == View::Hex;
    (hex ? OB_HexView : OB_Ascii_View).putChosen();
    std::size_t limit = TB_Payload.limit().value_or(0);
    TB_Payload.setLimit(hex ? limit * 2 : roundedHalf(limit));
    std::string text = TB_Payload.text();
    Hex2Ascii2Hex(text, hex);
    TB_Payload.setFiltered(hex);
    TB_Payload.put(std::move(text));
}

KeptPart EventTab::keptView() {
    return {[this] { return KeptValue(static_cast<std::int32_t>(view)); },
            [this](const KeptValue& kept) {
                view = static_cast<View>(std::get<std::int32_t>(kept));
                TB_Payload.setFiltered(view == View::Hex);
            }};
}

void EventTab::inHexView(const std::function<void()>& action) {
    View kept = view;
    showAs(View::Hex);
    action();
    showAs(kept);
}

void EventTab::lockRoutine() {
    TB_EventContent.setReadOnly(true);
    TB_EventContent.setBackground(TB_LockedColor);
}

void EventTab::unlockRoutine() {
    TB_EventContent.setReadOnly(false);
    TB_EventContent.setBackground(std::nullopt);
}

std::array<Button*, 7> EventTab::payloadButtons() {
    return {&PB_Fill,     &PB_InsertTx,     &PB_InsertSleep, &PB_InsertCommand,
            &PB_Preamble, &PB_SynchPattern, &PB_PN9};
}

void EventTab::lockPayload() {
    TB_Payload.setReadOnly(true);
    TB_Payload.setBackground(TB_LockedColor);
    LockHint.setVisible(true);
    for (Button* button : payloadButtons()) {
        button->setEnabled(false);
    }
}

void EventTab::freePayload() {
    TB_Payload.setReadOnly(false);
    TB_Payload.setBackground(std::nullopt);
    LockHint.setVisible(false);
    for (Button* button : payloadButtons()) {
        button->setEnabled(true);
    }
}

bool EventTab::mayEdit(const char* question) const {
    return bench.platform.dialogs.show(
               {.text = question, .icon = BoxIcon::Question, .buttons = BoxButtons::YesNo}) == Answer::Yes;
}

void EventTab::editRoutine() {
    if (!mayEdit("Do you want to edit Event Data?\r\nEdit mode will erase the Event Data from the end of the "
                 "last Data Transmit Command.")) {
        return;
    }
    unlockRoutine();
    putRoutine(withoutTail(routine()));
    editor.dropImage();
}

void EventTab::editPayload() {
    if (!mayEdit("Do you want to edit Transmit Data?\r\nEdit mode will erase the Event Data from the end of "
                 "the first Data Transmit Command.")) {
        return;
    }
    freePayload();
    putRoutine(withoutTransmits(routine()));
    editor.dropImage();
}

} // namespace zor
