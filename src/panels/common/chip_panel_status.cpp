// SPDX-License-Identifier: MIT
// The chip's answers: the status read, once or again and again, and the sample of the interrupt line.
#include "link/connect.h"
#include "panels/common/chip_panel.h"
#include "support/numbers.h"

#include <utility>

namespace zor {

namespace {

constexpr std::chrono::milliseconds interruptInterval(100);
/// Red and green full: what ReadStatus flashes in.
constexpr Colour flashColour{255, 255, 0};
/// Where a byte's two digits stand in the last 15 characters, from 1.
constexpr std::size_t byteAt = 6;

} // namespace

bool ChipPanel::sequenceMayBegin() {
    if (!bench.connect->isOpen()) {
        bench.warn("Commport not available, Loadboard not connected!");
        return false;
    }
    if (!bench.link.port.free()) {
        bench.warn("Commport is busy. Please retry later!");
        return false;
    }
    return true;
}

void ChipPanel::ReadStatus_Click() {
    bool repeats = RepStatusReadTimer.running();
    RepStatusReadTimer.stop();
    if (repeats && bench.connect->isOpen() && !bench.link.port.free()) {
        // It ends the repeats and asks for one read: where the last of them is under way, that one follows.
        readOnceMore = statusRead.claim.held();
        return;
    }
    StartStatusRead();
}

void ChipPanel::StartStatusRead() {
    if (sequenceMayBegin()) {
        statusRead.claim = bench.link.port.claim(begin);
        statusRead.timer.start(ownTraits.statusInterval);
    }
}

void ChipPanel::IRQpoll_Click() {
    if (sequenceMayBegin()) {
        interruptSample.claim = bench.link.port.claim(begin);
        interruptSample.timer.start(interruptInterval);
    }
}

void ChipPanel::Sequence::end() {
    timer.stop();
    claim.giveBack();
}

// The status read, one step a tick; the step is kept in its claim of the port.
//
//     begin --> firstByte --+--> secondByte --> finish
//                           |                     ^
//                           +--- one byte only ---+
//
// A port found closed at a tick, or a claim that another has taken, ends it at any step.
void ChipPanel::Timer3_Timer() {
    if (!bench.connect->isOpen() || !statusRead.claim.held()) {
        statusRead.end();
        chipSelected = false;
        readOnceMore = false;
        statusReadCutShort();
        return;
    }
    readStatusStep(static_cast<Step>(statusRead.claim.step()));
}

void ChipPanel::readStatusStep(Step step) {
    Step next = finish;
    switch (step) {
    case begin:
        beforeStatusRead();
        sendLine("H2");
        chipSelected = true;
        sendLine("L2");
        if (*ownTraits.statusCommand != '\0') {
            sendLine(ownTraits.statusCommand);
        }
        sendLine("L0");
        statusRead.asked = sendLine("RS");
        next = firstByte;
        break;
    case firstByte:
        showStatusByte(0, statusRead.asked.byteAt(byteAt).value_or(0));
        if (ownTraits.statusBytes == 2) {
            statusRead.asked = sendLine("RS");
            next = secondByte;
        } else {
            chipSelected = false;
            sendLine("H2");
        }
        break;
    case secondByte:
        showStatusByte(1, statusRead.asked.byteAt(byteAt).value_or(0));
        chipSelected = false;
        sendLine("H2");
        afterStatusRead();
        break;
    case finish:
        statusRead.end();
        if (std::exchange(readOnceMore, false) && bench.link.port.free()) {
            StartStatusRead();
        }
        return;
    }
    // Nobody hears of it where the sequence ended while a line waited for its answer.
    statusRead.claim.setStep(next);
}

void ChipPanel::releaseChip() {
    if (!bench.connect->isOpen()) {
        return;
    }
    if (std::exchange(chipSelected, false)) {
        sendLine("H2");
    }
    afterStatusRead();
}

void ChipPanel::showStatusByte(int index, std::uint32_t byte) {
    paintStatus(8 * (index + 1), byte);
}

void ChipPanel::paintStatus(int lastIndicator, std::uint32_t byte) {
    for (int bitNumber = 0; bitNumber < 8 && bitNumber < lastIndicator; ++bitNumber) {
        bool set = ((byte >> bitNumber) & 1U) != 0;
        status(lastIndicator - bitNumber).paint(set, set ? OnColor : OffColor);
    }
}

// The sample of the interrupt line: ask, read, end.
void ChipPanel::Timer1_Timer() {
    PortClaim& claim = interruptSample.claim;
    bool mayGoOn = bench.connect->isOpen() && claim.held();
    if (mayGoOn && claim.step() == begin) {
        interruptSample.asked = sendLine("RI");
        claim.setStep(firstByte);
    } else if (mayGoOn && claim.step() == firstByte) {
        bool low = interruptSample.asked.characterAt(ownTraits.interruptPosition) == '0';
        IRQ.paint(low, low ? OnColor : OffColor);
        claim.setStep(finish);
    } else {
        interruptSample.end();
    }
}

void ChipPanel::RepStatusReadTimer_Timer() {
    ReadStatus.setBackground(flashColour);
    SRVisualTimer.start();
    if (statusRead.timer.running()) {
        // The read before is still under way.
        return;
    }
    if (!bench.connect->isOpen()) {
        // Told once, and the repeats end.
        RepStatusReadTimer.stop();
    }
    StartStatusRead();
}

void ChipPanel::SRVisualTimer_Timer() {
    SRVisualTimer.stop();
    ReadStatus.setBackground(std::nullopt);
}

} // namespace zor
