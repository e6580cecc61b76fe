// SPDX-License-Identifier: MIT
// The ways in which a run ends, and what it tells then.
#include "eeprom/eeprom.h"
#include "eeprom/eeprom_device.h"

namespace zor {

using namespace eeprom_device;

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
