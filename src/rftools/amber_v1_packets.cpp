// SPDX-License-Identifier: MIT
// What the board prints while it receives: gathered until it is silent, and shown.
#include "rftools/amber_v1_rflink.h"
#include "support/hex_text.h"

#include <algorithm>
#include <utility>

namespace zor {

namespace {

/// How the board's prompt ends and what begins behind it.
constexpr std::string_view promptSequence = ">\r\n";
/// The success prompt as the mirror shows it.
constexpr std::string_view shownPrompt = "OK\r\n>";

constexpr Extent smallestExtent{2250, 3000};

} // namespace

void AmberV1rflink::Text1_Change() {
    RxTimer.stop();
    const std::string& text = Text1.contents();
    if (!promptSeen && text.ends_with(shownPrompt)) {
        promptSeen = true;
        promptEnd = Text1.dropped() + text.size();
    }
    if (text.ends_with(promptSequence)) {
        Text1.clear();
        promptEnd = 0;
    }
    if (receiving() && !sending && RxTimer.interval().count() > 0) {
        RxTimer.start();
    }
}

/// What the board said right behind the last prompt, in the same breath, waits in Text1.
void AmberV1rflink::waitForSilence() {
    if (!Text1.contents().empty() && RxTimer.interval().count() > 0) {
        RxTimer.start();
    }
}

void AmberV1rflink::RxTimer_Timer() {
    RxTimer.stop();
    takePacket();
}

void AmberV1rflink::takePacket() {
    if (AutoClear.ticked()) {
        Monitor.clear();
    }
    addToMonitor(Text1.contents());
    if (ContRx.ticked()) {
        if (arm()) {
            waitForSilence();
        }
    } else {
        bench.CommStatus->setText("reading...");
        endReceiving();
    }
    PCnt.setText(std::to_string(++packets));
    if (AddCR.ticked()) {
        addToMonitor("\r\n");
    }
}

void AmberV1rflink::addToMonitor(const std::string& text) {
    Monitor.append(hexView ? hexOfText(text) : text);
}

void AmberV1rflink::changeView(bool toHex) {
    if (std::exchange(hexView, toHex) == toHex) {
        return;
    }
    std::string shown = Monitor.contents();
    Monitor.clear();
    Monitor.append(toHex ? hexOfText(shown) : textOfHex(shown));
}

void AmberV1rflink::keepLimits() {
    Extent held{std::max(extent().height, smallestExtent.height),
                std::max(extent().width, smallestExtent.width)};
    if (held != extent()) {
        setExtent(held);
    }
}

} // namespace zor
