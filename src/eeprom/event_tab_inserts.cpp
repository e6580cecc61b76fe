// SPDX-License-Identifier: MIT
// What an event's buttons put into its routine and its payload.
#include "eeprom/ecet.h"
#include "eeprom/event_limits.h"
#include "eeprom/event_tab.h"
#include "eeprom/frm_cmd_sequence.h"
#include "eeprom/image.h"
#include "eeprom/transmitter_words.h"
#include "support/numbers.h"

#include <utility>

namespace zor {

namespace {

constexpr std::string_view preamble = "AA";
/// Less than this and not even a sleep command and one byte go in.
constexpr std::size_t leastFillRoom = 5;
constexpr const char* oddDigits = "ERROR: Hexadecimal data must be entered in two character format.";

} // namespace

bool EventTab::growRoutine(const std::string& digits) {
    if (routine().size() + digits.size() > routineDigits) {
        logWithCaption(LogColour::Red, "Event Routine is full.");
        return false;
    }
    putRoutine(routine() + digits);
    return true;
}

void EventTab::PB_GetData_Click() {
    editor.commands().CheckControlWindow();
    if (!IsTXPanelOn(bench)) {
        return;
    }
    putRoutine(editor.GetDataFromControlPanel(index));
    freePayload();
    std::size_t room = routineDigits - routine().size() - commandRoom;
    TB_Payload.setLimit(view == View::Hex ? room : roundedHalf(room));
    showRoom("Payload  [ max. ", room);
    editor.dropImage();
}

void EventTab::showRoom(const char* before, std::size_t digits) {
    Label3.setCaption(before + byteCountText(digits) + " bytes ]");
}

void EventTab::PB_InsertCommand_Click() {
    editor.commands().ShowInsertCommandWindow();
}

void EventTab::PB_CmdSequence_Click() {
    editor.commands().ShowCommandEditor();
}

void EventTab::PB_InsertTx_Click() {
    inHexView([this] { insertTransmit(); });
}

void EventTab::insertTransmit() {
    std::string payload = TB_Payload.text();
    if (payload.size() % 2 != 0) {
        logWithCaption(LogColour::Red, oddDigits);
        log(LogColour::Red, "Data Transmit Command has not been added.");
        return;
    }
    if (!growRoutine(transmitCommand(payload))) {
        return;
    }
    std::size_t room = routineDigits - routine().size();
    if (room > payload.size() + commandRoom) {
        TB_Payload.setLimit(room);
        showRoom("Payload [ max. ", room);
        return;
    }
    Label3.setCaption("Payload [ full ]");
    if (room < leastFillRoom) {
        PB_Fill.setEnabled(false);
    }
}

void EventTab::PB_InsertSleep_Click() {
    if (growRoutine(std::string(sleepCommand))) {
        lockPayload();
    }
}

void EventTab::PB_Fill_Click() {
    std::size_t reserved = PB_InsertSleep.enabled() ? sleepCommand.size() : 0;
    std::string filling;
    for (int count = fillCount(routine().size(), reserved); count > 0; --count) {
        filling += TB_FillData.text();
    }
    putRoutine(routine() + filling);
}

void EventTab::appendToPayload(std::string_view digits) {
    std::string grown = TB_Payload.text() + std::string(digits);
    if (grown.size() > TB_Payload.limit().value_or(grown.size())) {
        logWithCaption(LogColour::Red, "Payload is full.");
        return;
    }
    TB_Payload.put(std::move(grown));
}

void EventTab::PB_Preamble_Click() {
    inHexView([this] { appendToPayload(preamble); });
}

void EventTab::PB_PN9_Click() {
    inHexView([this] { appendToPayload(pn9Sequence); });
}

void EventTab::PB_SynchPattern_Click() {
    inHexView([this] {
        const std::string payload = TB_Payload.text();
        if (payload.size() > preamble.size() && !payload.starts_with(preamble)) {
            logWithCaption(LogColour::Red, "WARNING: No preamble bytes found before synchronic pattern.");
            log(LogColour::Red,
                "It is recommended to send at least two bytes of preamble before start filling the FIFO.");
        }
        appendToPayload(TB_Pattern.text());
    });
}

void EventTab::PB_ClearEventRoutine_Click() {
    putRoutine({});
    freePayload();
}

void EventTab::TB_FillData_LostFocus() {
    std::string byte = TB_FillData.text();
    byte.insert(0, fillDigits - std::min(byte.size(), fillDigits), '0');
    TB_FillData.put(std::move(byte));
}

void EventTab::TB_Pattern_LostFocus() {
    if (TB_Pattern.text().size() >= patternDigits || std::exchange(patternFaultTold, true)) {
        return;
    }
    logWithCaption(LogColour::Red, oddDigits);
    log(LogColour::Red, "Please correct pattern bytes.");
}

} // namespace zor
