// SPDX-License-Identifier: MIT
// The run: what a tick does at each step, and the ways in which a run ends.
#include "eeprom/eeprom.h"
#include "link/connect.h"
#include "support/numbers.h"

#include <algorithm>
#include <utility>

namespace zor {

namespace {

constexpr std::chrono::milliseconds programInterval(40);
constexpr std::chrono::milliseconds readInterval(50);

/// The status register comes back behind the instruction as the second byte of the word.
constexpr const char* statusCommand = "S20500";
constexpr const char* readPageCommand = "RS16";
constexpr const char* selectHigh = "H2";
constexpr std::uint32_t writeUnderWay = 0x01;

/// Where the two digits of a word's second byte stand in the last 15 characters, from 1.
constexpr std::size_t statusPosition = 6;
/// An answer to "RS16": 16 times two digits and a separator, and the prompt.
constexpr std::size_t pageAnswer = 55;

/// A page's address is a signed 16-bit number.
constexpr std::int32_t greatestAddress = 32767;

std::string statusText(const char* word, std::uint32_t status) {
    return std::string(word) + "0x" + hexText(status);
}

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

/// The first sends of a run: ticks wait for their end, whichever way it comes.
class Eeprom::Start {
  public:
    explicit Start(Eeprom& tool)
        : owner(tool) {
        owner.starting = true;
    }
    Start(const Start&) = delete;
    Start& operator=(const Start&) = delete;
    ~Start() { owner.starting = false; }

  private:
    Eeprom& owner;
};

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
    Start start(*this);
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
    Start start(*this);
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
    Start start(*this);
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

std::uint32_t Eeprom::status() const {
    const std::string& tail = bench.link.Last15;
    if (tail.size() < statusPosition) {
        return 0;
    }
    return static_cast<std::uint32_t>(numericPrefix("&H" + tail.substr(statusPosition - 1, 2)));
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

void Eeprom::ask(const char* command, Step next) {
    if (sendInRun(command)) {
        claim.setStep(next);
    }
}

void Eeprom::statusForPage() {
    std::uint32_t now = status();
    claim.setStep(askBeforePage);
    if ((now & writeUnderWay) != 0) {
        StatusMsg.setText(statusText("Busy ", now));
        return;
    }
    StatusMsg.setText("Programming ");
    showRunProgress(static_cast<std::size_t>(PageIndex - 1) * eepromPageBytes, EEprogData.size() / 2);
    PageAddress = (PageIndex - 1) * static_cast<std::int32_t>(eepromPageBytes);
    if (PageIndex <= PageCount) {
        ProgressBar1.putValue(PageIndex);
        PageBytes = static_cast<std::int32_t>(eepromPageBytes);
        if (WriteEepromPage()) {
            ++PageIndex;
        }
        return;
    }
    StatusMsg.setText(statusText("Program end", now));
    claim.setStep(programEnd);
    if (TailDigits != 0) {
        // As many fields as digits are left, not bytes: the second half goes out empty.
        PageBytes = TailDigits;
        if (!WriteEepromPage()) {
            return;
        }
    }
    (void)sendInRun("S104");
}

bool Eeprom::WriteEepromPage() {
    return sendInRun("S106") && sendInRun(pageWriteCommand(EEprogData, PageAddress, PageBytes));
}

void Eeprom::readStep(Step take, const char* doing, const char* done, Step end) {
    if (ReadOffset < static_cast<std::int32_t>(eepromBytes)) {
        if (sendInRun(readPageCommand)) {
            ProgressBar1.putValue(ReadOffset);
            StatusMsg.setText(doing);
            showRunProgress(static_cast<std::size_t>(ReadOffset), eepromBytes);
            claim.setStep(take);
        }
        return;
    }
    StatusMsg.setText(done);
    ask(selectHigh, end);
}

void Eeprom::takePage(Step next) {
    std::string& tail = bench.link.Last100;
    if (tail.size() > pageAnswer) {
        tail.erase(0, tail.size() - pageAnswer);
    }
    for (std::size_t byte = 0; byte < eepromPageBytes; ++byte) {
        if (3 * byte < tail.size()) {
            EEreadData += tail.substr(3 * byte, 2);
        }
    }
    ReadOffset += static_cast<std::int32_t>(eepromPageBytes);
    claim.setStep(next);
    if (next == askVerify) {
        deviceDigits = EEreadData;
    }
    MemoryPicture.setPassed(static_cast<std::size_t>(ReadOffset));
    showMemory();
}

void Eeprom::showUpdate() {
    std::uint32_t now = status();
    const char* word = now == 0 ? "Not present " : (now & writeUnderWay) != 0 ? "busy " : "ready ";
    StatusMsg.setText(statusText(word, now));
    claim.setStep(updateEnd);
}

void Eeprom::settle() {
    std::uint32_t now = status();
    if ((now & writeUnderWay) != 0) {
        // A device that still writes would answer a read with nothing.
        StatusMsg.setText(statusText("Busy ", now));
        claim.setStep(settleAsk);
        return;
    }
    openForReading(askVerify);
    if (claim.held()) {
        EEprog_timer.start(readInterval);
    }
}

void Eeprom::endProgramming() {
    if (VerifyAfterProgramming.ticked()) {
        claim.setStep(settleAsk);
        return;
    }
    endRun();
    bench.platform.dialogs.show({.text = "Buffer content successfully programmed into the EEPROM.",
                                 .title = "End of Programming",
                                 .icon = BoxIcon::Information});
}

void Eeprom::endReading() {
    endRun();
    fillFromDevice();
    bench.platform.dialogs.show(
        {.text = "EEPROM content readed into buffer.", .title = "Read end", .icon = BoxIcon::Information});
}

void Eeprom::fillFromDevice() {
    deviceDigits = EEreadData;
    // A step of its own, whatever was being typed.
    history()->settle();
    nameOfAction = "Read from the device";
    WorkSheet.setText(shownImage(EEreadData));
    history()->settle();
    showMemory();
}

void Eeprom::endVerify() {
    endRun();
    EEprogData = foldedHexDigits(WorkSheet.text());
    deviceDigits = EEreadData;
    showMemory();
    std::string report = differenceReport(EEprogData, EEreadData);
    ReadOffset = report.empty() ? 1 : 2;
    if (ReadOffset == 1) {
        bench.platform.dialogs.show({.text = "Buffer and EEPROM contents are identical.",
                                     .title = "Verify Successful",
                                     .icon = BoxIcon::Information});
    } else {
        bench.platform.dialogs.show({.text = report, .title = "Verify failed", .icon = BoxIcon::Warning});
    }
}

void Eeprom::endStopped() {
    (void)SendEepromCommand(selectHigh);
    if (!claim.held()) {
        return;
    }
    freeButtons();
    if (StoppedStep == askRead || StoppedStep == takeRead) {
        fillFromDevice();
    }
    claim.setStep(stopTold);
}

void Eeprom::tellStopped() {
    EEprog_timer.stop();
    claim.giveBack();
    bench.warn("Warning!\r\nProgress is not finished!\r\nEEPROM and buffer data inconsistent!");
}

} // namespace zor
