// SPDX-License-Identifier: MIT
// What a run does with the device: its status asked for, a page written or read.
#include "eeprom/eeprom.h"
#include "eeprom/eeprom_device.h"
#include "support/numbers.h"

namespace zor {

using namespace eeprom_device;

std::uint32_t Eeprom::status() const {
    const std::string& tail = bench.link.Last15;
    if (tail.size() < statusPosition) {
        return 0;
    }
    return static_cast<std::uint32_t>(numericPrefix("&H" + tail.substr(statusPosition - 1, 2)));
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

} // namespace zor
