// SPDX-License-Identifier: MIT
// The chip's answers: the status read, once or again and again, and the sample of the interrupt line.
#include "link/connect.h"
#include "panels/common/chip_panel.h"
#include "support/numbers.h"

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
    if (bench.CommState != 0) {
        bench.warn("Commport is busy. Please retry later!");
        return false;
    }
    return true;
}

void ChipPanel::StartStatusRead() {
    if (sequenceMayBegin()) {
        bench.CommState = begin;
        Timer3.start(ownTraits.statusInterval);
    }
}

void ChipPanel::IRQpoll_Click() {
    if (sequenceMayBegin()) {
        bench.CommState = begin;
        Timer1.start(interruptInterval);
    }
}

void ChipPanel::endSequence(Timer& timer) {
    timer.stop();
    bench.CommState = 0;
}

// The status read, one step a tick; the step is kept in CommState, a value of anybody else's is left alone.
//
//     begin --> firstByte --+--> secondByte --> finish
//                           |                     ^
//                           +--- one byte only ---+
//
// A port found closed at a tick ends it at any step.
void ChipPanel::Timer3_Timer() {
    if (!bench.connect->isOpen()) {
        endSequence(Timer3);
        statusReadCutShort();
        return;
    }
    readStatusStep(static_cast<Step>(bench.CommState));
}

void ChipPanel::readStatusStep(Step step) {
    std::int32_t next = 0;
    switch (step) {
    case begin:
        beforeStatusRead();
        sendLine("H2");
        sendLine("L2");
        if (*ownTraits.statusCommand != '\0') {
            sendLine(ownTraits.statusCommand);
        }
        sendLine("L0");
        sendLine("RS");
        next = firstByte;
        break;
    case firstByte:
        showStatusByte(0, receivedByte());
        if (ownTraits.statusBytes == 2) {
            sendLine("RS");
            next = secondByte;
        } else {
            sendLine("H2");
            next = finish;
        }
        break;
    case secondByte:
        showStatusByte(1, receivedByte());
        sendLine("H2");
        afterStatusRead();
        next = finish;
        break;
    case finish:
        endSequence(Timer3);
        return;
    }
    // The panel may have been closed while a line waited for its answer; then the sequence is over.
    if (next != 0 && Timer3.running()) {
        bench.CommState = next;
    }
}

std::uint32_t ChipPanel::receivedByte() const {
    const std::string& tail = bench.Last15;
    if (tail.size() < byteAt + 1) {
        return 0;
    }
    return readHex(std::string_view(tail).substr(byteAt - 1, 2)).value_or(0);
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
    if (!bench.connect->isOpen()) {
        endSequence(Timer1);
        return;
    }
    if (bench.CommState == begin) {
        sendLine("RI");
        if (Timer1.running()) {
            bench.CommState = firstByte;
        }
    } else if (bench.CommState == firstByte) {
        const std::string& tail = bench.Last15;
        bool low = tail.size() >= ownTraits.interruptPosition && tail[ownTraits.interruptPosition - 1] == '0';
        IRQ.paint(low, low ? OnColor : OffColor);
        bench.CommState = finish;
    } else if (bench.CommState == finish) {
        endSequence(Timer1);
    }
}

void ChipPanel::RepStatusReadTimer_Timer() {
    ReadStatus.setBackground(flashColour);
    SRVisualTimer.start();
    if (Timer3.running()) {
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
