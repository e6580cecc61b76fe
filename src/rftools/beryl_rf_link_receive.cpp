// SPDX-License-Identifier: MIT
#include "link/connect.h"
#include "panels/receivers/transceiver_panel.h"
#include "rftools/beryl_rf_link_test.h"
#include "rftools/packet_report.h"
#include "support/hex_text.h"
#include "support/numbers.h"

#include <limits>

namespace zor {

namespace {

constexpr const char* enableReceive = "&Enable Receive";
constexpr const char* disableReceive = "&Disable Receive";

// Low byte of the FIFO's word: level 8, its fill off and on.
constexpr std::uint32_t fifoStopped = 0x80;
constexpr std::uint32_t fifoFilling = 0x82;

/// Reads the chip's status to the end, which clears an interrupt that is pending.
constexpr const char* statusRead[] = {"H2\r", "L2\r", "L0\r", "RS\r", "RS\r", "H2\r"};

// Steps of the read-out by polling.
constexpr std::int32_t askingStep = 1;
constexpr std::int32_t unansweredStep = 2;
constexpr std::int32_t pollLimit = 10;

} // namespace

bool Frm_BerylRfLinkTest::receiving() const {
    return PB_Enable.caption() == disableReceive;
}

void Frm_BerylRfLinkTest::PB_Enable_Click() {
    if (!portOpen()) {
        endReceiving();
        tellClosedPort();
        return;
    }
    if (receiving()) {
        endReceiving();
        disarm();
        return;
    }
    bench.windows.TRxLinkOn = false;
    setReceiveOptions(false);
    PB_Enable.setCaption(disableReceive);
    bench.link.Last7.clear();
    arm();
}

void Frm_BerylRfLinkTest::endReceiving() {
    if (!receiving()) {
        return;
    }
    bench.windows.TRxLinkOn = false;
    ++armRun;
    rearm.stop();
    setReceiveOptions(true);
    PB_Enable.setCaption(enableReceive);
}

void Frm_BerylRfLinkTest::setReceiveOptions(bool enabled) {
    for (Element* element : {static_cast<Element*>(&TabStrip1), static_cast<Element*>(&OB_EOPorPL),
                             static_cast<Element*>(&OB_EOP), static_cast<Element*>(&OB_PL),
                             static_cast<Element*>(&TB_EOP[1]), static_cast<Element*>(&TB_PL),
                             static_cast<Element*>(&UD_PL), static_cast<Element*>(&CB_ContReceive),
                             static_cast<Element*>(&CB_AutoClear), static_cast<Element*>(&CB_AddCR)}) {
        element->setEnabled(enabled);
    }
    ReceiveReason.setVisible(!enabled);
}

// The main window's switches say which panel is open. When a panel goes, its switch goes first, and the one
// that was open still counts.
std::vector<std::string> Frm_BerylRfLinkTest::fifoLines(std::uint32_t lowByte) {
    if (bench.windows.TRXon || bench.windows.TRX1on) {
        panelsInUse.clear();
        if (bench.windows.TRXon) {
            panelsInUse.push_back({"BerylV3"});
        }
        if (bench.windows.TRX1on) {
            panelsInUse.push_back({"FRM_Topaz"});
        }
    }
    std::vector<std::string> lines;
    for (PanelInUse& inUse : panelsInUse) {
        if (auto* panel = dynamic_cast<TransceiverPanel*>(bench.desk.find(inUse.name))) {
            inUse.sensitiveReset = panel->SensResEn.ticked() ? 1 : 0;
        }
        lines.push_back("S2CA" + hexText(lowByte + inUse.sensitiveReset) + "\r");
    }
    return lines;
}

std::string Frm_BerylRfLinkTest::armingLine() const {
    const char* mode = OB_EOP.chosen() ? "F12," : OB_PL.chosen() ? "F13," : "F11,";
    return mode + TB_EOP[1].text() + "," + TB_PL.text() + ",1\r";
}

void Frm_BerylRfLinkTest::arm() {
    if (!portOpen()) {
        tellClosedPort();
        return;
    }
    std::uint32_t run = ++armRun;
    std::vector<std::string> lines = fifoLines(fifoStopped);
    lines.insert(lines.end(), std::begin(statusRead), std::end(statusRead));
    lines.push_back(armingLine());
    for (std::string& line : fifoLines(fifoFilling)) {
        lines.push_back(std::move(line));
    }
    // What the board says in the breath in which it answers the last line comes before the mirror is open.
    std::string behindAnswer;
    Subscription ear = bench.connect->tap.bytes.subscribe([&behindAnswer](const WireBytes& heard) {
        if (heard.direction == WireBytes::Direction::ToBoard) {
            behindAnswer.clear();
        } else if (!heard.awaited) {
            behindAnswer += heard.bytes;
        }
    });
    for (const std::string& line : lines) {
        if (bench.connect->Send_To_LoadBoard(line).portGone() || run != armRun || isClosed()) {
            return;
        }
    }
    ear.end();
    TB_ReceiveData.clear();
    bench.windows.TRxLinkOn = true;
    if (!behindAnswer.empty()) {
        TB_ReceiveData.append(mirrored(behindAnswer));
    }
}

void Frm_BerylRfLinkTest::disarm() {
    if (!portOpen()) {
        tellClosedPort();
        return;
    }
    Timer_ReadTimeout.stop();
    std::vector<std::string> lines = fifoLines(fifoStopped);
    lines.insert(lines.begin(), "F0\r");
    for (const std::string& line : lines) {
        if (bench.connect->Send_To_LoadBoard(line).portGone()) {
            return;
        }
    }
}

void Frm_BerylRfLinkTest::TB_ReceiveData_Change() {
    if (bench.link.Last7 != LinkVariables::Last7OK) {
        return;
    }
    MirroredReport report = readMirroredReport(TB_ReceiveData.contents());
    switch (report.state) {
    case MirroredReport::State::None:
        TB_ReceiveData.clear();
        break;
    case MirroredReport::State::Incomplete:
        break;
    case MirroredReport::State::Complete:
        // First of all, so that the answers to what follows do not land here.
        bench.windows.TRxLinkOn = false;
        takePacket(report.payload);
        rearm.start(std::chrono::milliseconds(0));
        break;
    }
}

void Frm_BerylRfLinkTest::takePacket(const std::string& payload) {
    if (CB_AutoClear.ticked()) {
        TB_MonitoredData.clear();
    }
    TB_MonitoredData.append(receivedView == &OB_RxHexView ? hexOfText(payload) : payload);
    TB_MonitoredData.setCursor(TB_MonitoredData.contents().size());
    TB_ReceiveData.clear();
    packetCount = packetCount == std::numeric_limits<std::int16_t>::max()
                      ? std::int16_t{0}
                      : static_cast<std::int16_t>(packetCount + 1);
    TB_PacketCount.setText(std::to_string(packetCount));
}

void Frm_BerylRfLinkTest::Rearm_Timer() {
    rearm.stop();
    if (!receiving()) {
        return;
    }
    if (CB_ContReceive.ticked()) {
        arm();
    } else {
        PB_Enable_Click();
    }
}

void Frm_BerylRfLinkTest::showReceived(Option& view) {
    if (&view == receivedView) {
        return;
    }
    receivedView = &view;
    std::string text = receivedView == &OB_RxHexView ? hexOfText(TB_MonitoredData.contents())
                                                     : textOfHex(TB_MonitoredData.contents());
    TB_MonitoredData.clear();
    TB_MonitoredData.append(text);
    TB_MonitoredData.setCursor(TB_MonitoredData.contents().size());
}

// A board reports a packet by itself, so no action begins the read-out: the timer stands still.
void Frm_BerylRfLinkTest::Timer_ReadTimeout_Timer() {
    if (readStep == askingStep) {
        bench.connect->Send_To_LoadBoard("F15\r");
        if (++readTicks > pollLimit) {
            readStep = unansweredStep;
        }
    } else if (readStep == unansweredStep) {
        TB_ReceiveData.clear();
        bench.windows.TRxLinkOn = false;
        Timer_ReadTimeout.stop();
        readStep = 0;
        bench.CommStatus->setText("No answer");
    }
}

} // namespace zor
