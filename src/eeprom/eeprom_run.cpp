// SPDX-License-Identifier: MIT
// The run: how it begins, and what a tick does at each step.
#include "eeprom/eeprom.h"
#include "eeprom/eeprom_device.h"
#include "link/connect.h"
#include "support/marked.h"

#include <utility>

namespace zor {

namespace {

using namespace eeprom_device;

constexpr std::chrono::milliseconds programInterval(40);

/// A page's address is a signed 16-bit number.
constexpr std::int32_t greatestAddress = 32767;

} // namespace

bool Eeprom::takePort(Step first) {
    if (!bench.connect->isOpen()) {
        bench.warn("Commport not available, Loadboard not connected!");
        return false;
    }
    // A run of our own has the port too.
    PortClaim fresh = bench.link.port.claim(first);
    if (!fresh) {
        bench.warn("Commport is busy. Please try again later!");
        return false;
    }
    claim = std::move(fresh);
    runBegan = bench.platform.loop.now();
    return true;
}

void Eeprom::Prog_Click() {
    std::string digits = hexDigits(WorkSheet.text());
    PageSplit split = splitIntoPages(digits.size());
    if (bench.connect->isOpen() && bench.link.port.free() &&
        split.pages > greatestAddress / static_cast<std::int32_t>(eepromPageBytes)) {
        throw ToolError(overflow);
    }
    if (!takePort(askBeforePage)) {
        return;
    }
    Marked start(starting);
    StatusMsg.setText("Status read ");
    PageIndex = 1;
    EEprogData = std::move(digits);
    PageCount = split.pages;
    TailDigits = split.tailDigits;
    forgetDevice();
    beginRun(1, PageCount);
    (void)sendInRun(selectHigh);
    if (claim.held()) {
        EEprog_timer.start(programInterval);
    }
}

void Eeprom::StartEepromRead(Step step) {
    if (!takePort(step)) {
        return;
    }
    Marked start(starting);
    openForReading(step);
    if (claim.held()) {
        EEprog_timer.start(readInterval);
    }
}

void Eeprom::openForReading(Step step) {
    ReadOffset = 0;
    forgetDevice();
    beginRun(0, static_cast<int>(eepromBytes));
    if (!sendInRun(selectHigh)) {
        return;
    }
    EEreadData.clear();
    // The select line stays low over the reads that follow, so that the device runs on from byte to byte.
    if (sendInRun("L2") && sendInRun("WS03,00,00")) {
        claim.setStep(step);
    }
}

void Eeprom::Command1_Click() {
    if (!takePort(askStatus)) {
        return;
    }
    Marked start(starting);
    EEprog_timer.start(readInterval);
    // The write-enable latch shows in the status: a status of 0 then means that nobody is there.
    (void)sendInRun("S106");
    if (claim.held()) {
        StatusMsg.setText("Reading");
    }
}

void Eeprom::StopButton_Click() {
    if (!claim.held() || claim.step() == stopped || claim.step() == stopTold) {
        return;
    }
    StatusMsg.setText("Stopped");
    StoppedStep = claim.step();
    claim.setStep(stopped);
}

void Eeprom::beginRun(int lowest, int highest) {
    for (Button* button : runButtons()) {
        button->setEnabled(false);
    }
    Import.setEnabled(false);
    Export.setEnabled(false);
    VerifyAfterProgramming.setEnabled(false);
    ProgressBar1.setRange(lowest, highest);
    ProgressBar1.putValue(lowest);
    ProgressBar1.setVisible(true);
    StopButton.setVisible(true);
    showMemory();
}

void Eeprom::freeButtons() {
    for (Button* button : runButtons()) {
        button->setEnabled(true);
    }
    Import.setEnabled(true);
    Export.setEnabled(true);
    VerifyAfterProgramming.setEnabled(true);
    ProgressBar1.setRange(0, ProgressBar1.maximum());
    ProgressBar1.putValue(0);
    ProgressBar1.setVisible(false);
    StopButton.setVisible(false);
    RunProgress.setCaption({});
    MemoryPicture.setPassed(std::nullopt);
}

void Eeprom::endRun() {
    EEprog_timer.stop();
    claim.giveBack();
    freeButtons();
}

void Eeprom::breakOff() {
    StatusMsg.setText("LB comm. error");
    endRun();
}

Exchange Eeprom::SendEepromCommand(const std::string& text) {
    return bench.connect->Send_To_LoadBoard(text + "\r");
}

/// @return false if the run shall do no more of its step: it was stopped or ended meanwhile, or the port is
/// gone. An answer that is missing shows at the next tick.
bool Eeprom::sendInRun(const std::string& text) {
    std::int32_t step = claim.step();
    Exchange result = SendEepromCommand(text);
    return claim.held() && claim.step() == step && !result.portGone();
}

void Eeprom::EEprog_timer_Timer() {
    if (starting) {
        return;
    }
    if (!claim.held()) {
        // A search took the port.
        breakOff();
    } else if (!bench.connect->isOpen() || bench.link.Last7 != LinkVariables::Last7OK) {
        promptMissing();
    } else {
        runStep(static_cast<Step>(claim.step()));
    }
}

void Eeprom::promptMissing() {
    if (claim.step() != lost) {
        StatusMsg.setText("LB comm. error");
        claim.setStep(lost);
        // Should the prompt come back, only this ends the run, an update too.
        StopButton.setVisible(true);
        return;
    }
    endRun();
    bench.platform.dialogs.show({.text = "Operation not completed! Please try again!",
                                 .title = "Communication Error",
                                 .icon = BoxIcon::Critical});
}

void Eeprom::runStep(Step step) {
    switch (step) {
    case askBeforePage:
        ask(statusCommand, takeStatus);
        break;
    case takeStatus:
        statusForPage();
        break;
    case askStatus:
        ask(statusCommand, showStatus);
        break;
    case showStatus:
        showUpdate();
        break;
    case askVerify:
        readStep(takeVerify, "Verifying", "Verify end", verifyEnd);
        break;
    case takeVerify:
        takePage(askVerify);
        break;
    case askRead:
        readStep(takeRead, "Reading", "Read end", readEnd);
        break;
    case takeRead:
        takePage(askRead);
        break;
    case programEnd:
        endProgramming();
        break;
    case settleAsk:
        ask(statusCommand, settleTake);
        break;
    case settleTake:
        settle();
        break;
    case verifyEnd:
        endVerify();
        break;
    case readEnd:
        endReading();
        break;
    case lost:
        // The prompt is back, and nobody knows of what; the user decides.
        break;
    case stopped:
        endStopped();
        break;
    case stopTold:
        tellStopped();
        break;
    case updateEnd:
        EEprog_timer.stop();
        claim.giveBack();
        break;
    }
}

} // namespace zor
