// SPDX-License-Identifier: MIT
#include "rftools/amber_v1_rflink.h"

#include "link/connect.h"
#include "link/number_reading.h"
#include "panels/receivers/receiver_panel.h"
#include "rftools/chip_of_tool.h"
#include "support/hex_text.h"
#include "support/marked.h"
#include "support/numbers.h"

#include <algorithm>
#include <array>
#include <limits>

namespace zor {

namespace {

constexpr const char* enable = "Enable";
constexpr const char* disable = "Disable";
constexpr const char* reading = "reading...";

/// The bits of the FIFO word that start its fill.
constexpr std::uint32_t fillBits = 0x3;

/// Reads the chip's status, which clears a pending interrupt, and discards it.
constexpr std::array<const char*, 6> statusRead = {"H2", "L2", "L0", "RS", "RS", "H2"};

constexpr Extent startExtent{7200, 9600};

constexpr ReceiverLinkTraits generation1{"AmberV1rflink", &WindowSwitches::RxLinkOn, false};
constexpr ReceiverLinkTraits generation2{"AmberV1rflink_LB2", &WindowSwitches::RxLinkOn_LB2, true};

std::int32_t wholeNumber(const std::string& text) {
    double number = numericPrefix(text);
    return static_cast<std::int32_t>(
        std::clamp(number, static_cast<double>(std::numeric_limits<std::int32_t>::min()),
                   static_cast<double>(std::numeric_limits<std::int32_t>::max())));
}

} // namespace

std::unique_ptr<Form> makeAmberV1rflink(Bench& bench) {
    return std::make_unique<AmberV1rflink>(bench, generation1);
}

std::unique_ptr<Form> makeAmberV1rflink_LB2(Bench& bench) {
    return std::make_unique<AmberV1rflink>(bench, generation2);
}

AmberV1rflink::AmberV1rflink(Bench& ownBench, const ReceiverLinkTraits& ownTraits)
    : Form(ownBench.desk, ownTraits.formName, "RF link test application")
    , EnRx(*this, "EnRx", enable)
    , RXActive(*this, "RXActive", "Receive")
    , EndOfPacket(*this, "EndOfPacket", "End Of Packet Condition")
    , ENeoppl(*this, endOfPacketGroup, "ENeoppl", "EOP or Packet Length")
    , ENeop(*this, endOfPacketGroup, "ENeop", "EOP character only")
    , ENpl(*this, endOfPacketGroup, "ENpl", "Packet Length only")
    , EOP(*this, "EOP", "13")
    , PL(*this, "PL", "100")
    , ContRx(*this, "ContRx", "Continuous receive", true)
    , AutoClear(*this, "AutoClear", "Show only the last packet (auto clear)")
    , AddCR(*this, "AddCR", "Add CR after each packet")
    , Monitor(*this, "Monitor")
    , OB_AsciiView(*this, viewGroup, "OB_AsciiView", "ASCII")
    , OB_HexView(*this, viewGroup, "OB_HexView", "Hex")
    , PCnt(*this, "PCnt", "0", TextField::Access::ReadOnly)
    , ResetPC(*this, "ResetPC", "Reset")
    , Clear(*this, "Clear", "Clear monitor")
    , RxLinkTimeout(*this, "RxLinkTimeout", std::to_string(ownBench.preferences.Pref_RxLinkTimeout))
    , Text1(*this, "Text1")
    , received(*this, ownBench, [this] { return frequencyOffset(); })
    , bench(ownBench)
    , traits(ownTraits)
    , RxTimer(ownBench.platform.loop, [this] { RxTimer_Timer(); }) {
    setExtent(startExtent);
    for (Element* element :
         {static_cast<Element*>(&ENeoppl), static_cast<Element*>(&ENeop), static_cast<Element*>(&ENpl),
          static_cast<Element*>(&EOP), static_cast<Element*>(&PL)}) {
        element->setContainer(&EndOfPacket);
    }
    ENeoppl.putChosen();
    OB_AsciiView.putChosen();
    Monitor.setLocked(true);
    Text1.setLocked(true);
    RxTimer.setInterval(std::chrono::milliseconds(std::max(0, bench.preferences.Pref_RxLinkTimeout)));
    RXActive.setEnabled(true);
    EOP.setCaption("EOP:");
    PL.setCaption("PL:");
    PCnt.setCaption("Packet counter:");
    RxLinkTimeout.setCaption("Read timeout:");
    EOP.setTip("Code of the character that ends a packet: 0 to 255");
    PL.setTip("Packet length in bytes: 1 to 255");
    RxLinkTimeout.setTip("Silence behind a packet in ms; 0 switches the reception of packets off");

    EnRx.onClick = [this] { EnRx_Click(); };
    OB_AsciiView.onChoose = [this] { changeView(false); };
    OB_HexView.onChoose = [this] { changeView(true); };
    ResetPC.onClick = [this] {
        packets = 0;
        PCnt.setText("0");
    };
    Clear.onClick = [this] { Monitor.clear(); };
    RxLinkTimeout.onEdit = [this] { RxLinkTimeout_Change(); };
    tellReadingsOf(bench, {&EOP, &PL, &RxLinkTimeout});

    subscriptions.push_back(Text1.appended.subscribe([this](std::string_view) { Text1_Change(); }));
    for (KeptText* kept : {&Monitor, &Text1}) {
        subscriptions.push_back(
            kept->shortened.subscribe([this, kept] { bench.notice(kept->droppedNote()); }));
    }
    subscriptions.push_back(changed.subscribe([this] { keepLimits(); }));
    subscriptions.push_back(bench.connect->closing.subscribe([this] { endReceiving(); }));
    subscriptions.push_back(bench.connect->lost.subscribe([this] { endReceiving(); }));
    subscriptions.push_back(deactivated.subscribe([this] {
        if (traits.stopsWhenLeft && (receiving() || sending)) {
            stopReceiving();
        }
    }));
    bench.windows.*traits.mirror = true;
    bench.setMirror(traits.mirror, &Text1);
    received.listen();
}

AmberV1rflink::~AmberV1rflink() {
    // The next one may be open already when this one is discarded.
    if (!isClosed()) {
        bench.windows.*traits.mirror = false;
        bench.setMirror(traits.mirror, nullptr);
    }
}

void AmberV1rflink::unload() {
    subscriptions.clear();
    received.ignore();
    endReceiving();
    bench.windows.*traits.mirror = false;
    bench.setMirror(traits.mirror, nullptr);
    if (bench.connect->isOpen()) {
        bench.connect->Send_To_LoadBoard("F0\r");
    }
}

ReceiverPanel* AmberV1rflink::panel() const {
    return dynamic_cast<ReceiverPanel*>(panelOfTool(bench, {"AmberV1", "Coral"}));
}

std::string AmberV1rflink::frequencyOffset() const {
    const ReceiverPanel* receiver = panel();
    return receiver == nullptr ? std::string() : receiver->Foffset.text();
}

void AmberV1rflink::EnRx_Click() {
    if (!bench.connect->isOpen()) {
        bench.warn("Commport not available, please open commport!");
        return;
    }
    if (receiving()) {
        stopReceiving();
    } else if (!sending) {
        startReceiving();
    }
}

void AmberV1rflink::startReceiving() {
    const ReceiverPanel* receiver = panel();
    if (modeCommand().empty()) {
        return;
    }
    if (receiver == nullptr) {
        bench.notice("Packets are received for a receiver panel; open one first.");
        return;
    }
    baseWord = (receiver->FIFOw.value() & ~fillBits) | (receiver->RevisionF() == 1 ? 1 : 0);
    fillWord = baseWord | fillBits;
    bench.CommStatus->setText(reading);
    ++turn;
    if (arm()) {
        RXActive.light(true);
        EnRx.setCaption(disable);
        waitForSilence();
    }
}

/// @return false if reception was ended meanwhile, or there is no board any more
bool AmberV1rflink::arm() {
    Marked marked(sending);
    RxTimer.stop();
    checkFields();
    unsigned mine = turn;
    if (!send("S2" + hexText(baseWord), mine)) {
        return false;
    }
    for (const char* line : statusRead) {
        if (!send(line, mine)) {
            return false;
        }
    }
    if (!send(modeCommand(), mine) || !send("S2" + hexText(fillWord), mine)) {
        return false;
    }
    Text1.keepFrom(promptSeen ? promptEnd - std::min(promptEnd, Text1.dropped()) : Text1.contents().size());
    return true;
}

bool AmberV1rflink::send(const std::string& line, unsigned mine) {
    promptSeen = false;
    Exchange result = bench.connect->Send_To_LoadBoard(line + "\r");
    if (mine == turn && result.portGone()) {
        endReceiving();
    }
    return mine == turn;
}

void AmberV1rflink::stopReceiving() {
    // Nothing that was begun for this reception goes on.
    ++turn;
    RxTimer.stop();
    bench.CommStatus->setText(reading);
    Marked marked(sending);
    // Also where the port is closed on purpose meanwhile.
    struct Ending {
        AmberV1rflink& window;
        ~Ending() { window.endReceiving(); }
    } ending{*this};
    unsigned mine = turn;
    if (!bench.connect->isOpen() || !send("F0", mine)) {
        return;
    }
    if (const ReceiverPanel* receiver = panel()) {
        send("S2" + receiver->FIFOw.text(), mine);
    }
}

void AmberV1rflink::endReceiving() {
    ++turn;
    RxTimer.stop();
    RXActive.light(false);
    EnRx.setCaption(enable);
}

/// Both numbers are checked against the packet length's field: that is how it stands.
void AmberV1rflink::checkFields() {
    if (numericPrefix(PL.text()) > 255) {
        PL.setText("255");
    } else if (numericPrefix(PL.text()) < 1) {
        PL.setText("1");
    }
    if (numericPrefix(EOP.text()) > 255) {
        PL.setText("255");
    } else if (numericPrefix(EOP.text()) < 0) {
        PL.setText("0");
    }
}

/// Empty for a board that has no packet firmware.
std::string AmberV1rflink::modeCommand() const {
    int rev = bench.link.LoadBoardRev;
    if (rev != 1 && rev != 2) {
        return {};
    }
    const ReceiverPanel* receiver = panel();
    int mode = ENeoppl.chosen() ? 1 : ENeop.chosen() ? 2 : 3;
    bool mark = rev == 2 || (receiver != nullptr && receiver->RevisionF() == 1);
    return (rev == 2 ? "F1" : "F") + std::to_string(mode) + "," + EOP.text() + "," + PL.text() +
           (mark ? ",1" : "");
}

void AmberV1rflink::RxLinkTimeout_Change() {
    bench.preferences.Pref_RxLinkTimeout = wholeNumber(RxLinkTimeout.text());
    std::chrono::milliseconds timeout(std::max(0, bench.preferences.Pref_RxLinkTimeout));
    if (timeout.count() == 0) {
        RxTimer.stop();
    }
    RxTimer.setInterval(timeout);
}

} // namespace zor
