// SPDX-License-Identifier: MIT
// What the receiving panels ask of the board beyond every panel: the data line for the FIFO, the FIFO's
// reset, and a status read with the frequency control at rest.
#include "link/connect.h"
#include "link/data_selector.h"
#include "panels/receivers/receiving_panel.h"
#include "support/numbers.h"
#include "support/record_file.h"

#include <algorithm>
#include <utility>

namespace zor {

void ReceivingPanel::wordSent(const ControlWord& word) {
    if (&word == dataLineWord) {
        routeDataLine();
    }
}

void ReceivingPanel::routeDataLine() {
    if (needsDataLine()) {
        bench.dataSelector->DisableDataSelector(title());
        sendLine("H3");
    } else {
        sendLine("Z3");
        bench.dataSelector->EnableDataSelector();
    }
}

void ReceivingPanel::sendFarewell() {
    if (bench.connect->isOpen()) {
        sendLine("Z3");
        bench.dataSelector->EnableDataSelector();
    }
}

void ReceivingPanel::FFreset_Click() {
    if (!portReady(receiving.fifoResetWithoutPort)) {
        return;
    }
    reading();
    // The falling edge of the fill enable resets the latch. Both words go out at once, so nothing is pending.
    auto setTicks = [this](bool on) {
        for (TickBox* tick : resetTicks()) {
            tick->putTicked(on);
        }
        FIFOw.rebuildQuietly();
    };
    std::vector<TickBox*> ticks = resetTicks();
    tickedSoon.assign(ticks.begin(), ticks.end());
    try {
        for (bool on : {false, true}) {
            setTicks(on);
            sendWord(FIFOw);
        }
        tickedSoon.clear();
    } catch (...) {
        tickedSoon.clear();
        // Cut short between the two: the ticks end as they would have, and the word is yet to be sent.
        setTicks(true);
        FIFOw.rebuild();
        throw;
    }
}

void ReceivingPanel::beforeStatusRead() {
    if (!afcen.ticked()) {
        return;
    }
    // The offset must stand still while it is read.
    frequencyControlStopped = true;
    afcen.putTicked(false);
    AFCw.rebuildQuietly();
    for (int time = 0; time < receiving.frequencyControlStops; ++time) {
        sendWord(AFCw);
    }
}

void ReceivingPanel::afterStatusRead() {
    if (std::exchange(frequencyControlStopped, false)) {
        afcen.putTicked(true);
        AFCw.rebuildQuietly();
        sendWord(AFCw);
    }
}

void ReceivingPanel::statusReadCutShort() {
    if (std::exchange(frequencyControlStopped, false)) {
        // The setting comes back; the chip has not heard of it, so an update is due.
        afcen.putTicked(true);
        AFCw.rebuild();
    }
}

KeptParts ReceivingPanel::keptParts() {
    KeptParts parts = ChipPanel::keptParts();
    parts.push_back(keptPart(duty));
    parts.push_back(keptPart(dataRateDivider));
    parts.push_back(filterParameter.kept());
    parts.push_back(fifoLevel.kept());
    return parts;
}

Aspects ReceivingPanel::keptAspects(const Element& element) const {
    // The chip said it.
    return &element == &Foffset ? keepsVisible | keepsEnabled : ChipPanel::keptAspects(element);
}

ElementState ReceivingPanel::takeElement(const Element& element, Aspects aspects) const {
    ElementState state = ChipPanel::takeElement(element, aspects);
    // What is off for a moment only counts as the user has it.
    bool stopped = frequencyControlStopped && &element == &afcen;
    if (stopped || std::find(tickedSoon.begin(), tickedSoon.end(), &element) != tickedSoon.end()) {
        state.number = 1;
    }
    return state;
}

void ReceivingPanel::putElement(Element& element, const ElementState& state, Aspects aspects) {
    ElementState now = state;
    if (frequencyControlStopped && &element == &afcen) {
        // The status read gives it back at its end, or has nothing to give back.
        frequencyControlStopped = state.number != 0;
        now.number = 0;
    }
    ChipPanel::putElement(element, now, aspects);
}

ConfigurationLine ReceivingPanel::frequencyControlLine() {
    ConfigurationLine line = tickLine(afcen);
    line.write = [this](RecordWriter& writer) {
        writer.integer(afcen.ticked() || frequencyControlStopped ? 1 : 0);
    };
    line.read = [this, readTick = line.read](RecordReader& reader) {
        readTick(reader);
        // The file's setting holds; the status read has none to give back.
        frequencyControlStopped = false;
    };
    return line;
}

void ReceivingPanel::showStatusByte(int index, std::uint32_t byte) {
    paintStatus(8 * (index + 1) - statusShift(), byte);
    if (index == 1) {
        double step = numericPrefix(FreqStep.text());
        Foffset.setText(frequencyOffset(static_cast<std::int32_t>(byte), receiving.offsetBits, step).text);
    }
}

} // namespace zor
