// SPDX-License-Identifier: MIT
#include "rftools/beryl_rf_link_test.h"

#include "link/connect.h"
#include "link/number_reading.h"
#include "panels/receivers/transceiver_panel.h"
#include "rftools/window_place.h"
#include "support/letters.h"
#include "support/numbers.h"

#include <algorithm>

namespace zor {

namespace {

constexpr int longestPacket = 255;
/// In seconds.
constexpr int longestRepetition = 3600;
constexpr double highestCode = 255;
constexpr std::size_t payloadCharacters = 64;
constexpr std::chrono::milliseconds repetitionTick(1000);
constexpr std::chrono::milliseconds blink(400);
constexpr std::chrono::milliseconds pollInterval(100);

/// What the open panel's last status read gave, in kHz.
std::string frequencyOffset(const Bench& bench) {
    const auto* panel = dynamic_cast<const TransceiverPanel*>(bench.openPanel());
    return panel == nullptr ? std::string() : panel->Foffset.text();
}

} // namespace

Frm_BerylRfLinkTest::Frm_BerylRfLinkTest(Bench& ownBench)
    : Form(ownBench.desk, "Frm_BerylRfLinkTest", "KT3100 and KT3101 (Transceiver) RF link test")
    , TabStrip1(*this, "TabStrip1", {"Transmit Control", "Receive Control"})
    , Frm_LinkControl{{{*this, "Frm_LinkControl(0)"}, {*this, "Frm_LinkControl(1)"}}}
    , Label1(*this, "Label1", "Payload (64 bytes)")
    , TB_Payload(*this, "TB_Payload")
    , OB_AsciiView(*this, viewGroup, "OB_AsciiView", "ASCII")
    , OB_HexView(*this, viewGroup, "OB_HexView", "Hex")
    , TB_SynchPatt(*this, "TB_SynchPatt", "2DD4")
    , PB_Preable(*this, "PB_Preable", "Insert Preamble")
    , PB_SynchPatt(*this, "PB_SynchPatt", "Insert Synchron Pattern")
    , PB_Clear_Payload(*this, "PB_Clear_Payload", "Clear Payload")
    , PB_Send(*this, "PB_Send", "&Start Sending")
    , CB_Continous(*this, "CB_Continous", "&Continuous Mode", true)
    , Label2(*this, "Label2", "Repetition time in seconds")
    , TB_RepetitionTime(*this, "TB_RepetitionTime", "00")
    , UD_RepetitionTime(*this, "UD_RepetitionTime")
    , CB_EOP(*this, "CB_EOP", "Append EO&P character", true)
    , Label3(*this, "Label3", "EOP character")
    , TB_EOP{{{*this, "TB_EOP(0)", "13"}, {*this, "TB_EOP(1)", "13"}, {*this, "TB_EOP(2)", "100"}}}
    , Lbl_Sent(*this, "Lbl_Sent", "Packet sent.")
    , TransmitLine(*this, "TransmitLine")
    , SendReason(*this, "SendReason", "Stop sending to change these.")
    , PB_Enable(*this, "PB_Enable", "&Enable Receive")
    , EndCondition(*this, "EndCondition", "End of Packet Condition")
    , OB_EOPorPL(*this, endGroup, "OB_EOPorPL", "EOP &or Packet Length")
    , OB_EOP(*this, endGroup, "OB_EOP", "EO&P character only")
    , OB_PL(*this, endGroup, "OB_PL", "Packet &Length only")
    , TB_PL(*this, "TB_PL", "100")
    , UD_PL(*this, "UD_PL")
    , CB_ContReceive(*this, "CB_ContReceive", "Continuous  &Receive", true)
    , CB_AutoClear(*this, "CB_AutoClear", "&Show only the last packet (Auto clear)")
    , CB_AddCR(*this, "CB_AddCR", "&Add CR after each packet")
    , TB_ReceiveData(*this, "TB_ReceiveData")
    , TB_MonitoredData(*this, "TB_MonitoredData")
    , OB_RxAsciiView(*this, receiveViewGroup, "OB_RxAsciiView", "ASCII")
    , OB_RxHexView(*this, receiveViewGroup, "OB_RxHexView", "Hex")
    , TB_PacketCount(*this, "TB_PacketCount", "0", TextField::Access::ReadOnly)
    , PB_Clear(*this, "PB_Clear", "&Clear Monitor")
    , PB_Reset(*this, "PB_Reset", "Reset")
    , ReceiveReason(*this, "ReceiveReason", "Stop receiving to change these.")
    , packets(*this, ownBench, [&ownBench] { return frequencyOffset(ownBench); })
    , bench(ownBench)
    , Timer_CntMode(ownBench.platform.loop, [this] { Timer_CntMode_Timer(); })
    , Timer_Blink(ownBench.platform.loop,
                  [this] {
                      Lbl_Sent.setVisible(false);
                      Timer_Blink.stop();
                  })
    , Timer_ReadTimeout(ownBench.platform.loop, [this] { Timer_ReadTimeout_Timer(); })
    , rearm(ownBench.platform.loop, [this] { Rearm_Timer(); }) {
    // As large as both pages need: it stands in sight as a whole where it is placed for that.
    setExtent({9900, 18900});
    Timer_CntMode.setInterval(repetitionTick);
    Timer_Blink.setInterval(blink);
    Timer_ReadTimeout.setInterval(pollInterval);
    wireTransmit();
    wireReceive();
    TabStrip1.onTurn = [this] { TabStrip1_Click(); };
    TabStrip1_Click();
    placeBeside(*this, bench.openPanel());

    bench.windows.TRxLinkOn = false;
    bench.setMirror(&WindowSwitches::TRxLinkOn, &TB_ReceiveData);
    if (auto* panel = dynamic_cast<TransceiverPanel*>(bench.openPanel())) {
        rateChanged = panel->DATARATE.changed.subscribe([this] { showTransmitLine(); });
    }
    packets.listen();
    deactivation = deactivated.subscribe([this] { left(); });
    // The box of the lost board is the one that the user gets.
    boardLost = bench.connect->lost.subscribe([this] { endSending(); });
}

Frm_BerylRfLinkTest::~Frm_BerylRfLinkTest() {
    // The next one may be open already when this one is discarded.
    if (!isClosed()) {
        bench.setMirror(&WindowSwitches::TRxLinkOn, nullptr);
        bench.windows.TRxLinkOn = false;
    }
}

void Frm_BerylRfLinkTest::wireTransmit() {
    OB_AsciiView.putChosen();
    payloadView = &OB_AsciiView;
    Lbl_Sent.setVisible(false);
    SendReason.setVisible(false);
    TB_Payload.setLimit(payloadCharacters);
    TB_Payload.setTip("What is sent: 64 characters, or 128 digits in the hexadecimal view");
    TB_SynchPatt.setTip("Hexadecimal");
    TB_Payload.onEdit = [this] { TB_Payload_Change(); };
    OB_AsciiView.onChoose = [this] { showPayload(OB_AsciiView); };
    OB_HexView.onChoose = [this] { showPayload(OB_HexView); };
    PB_Preable.onClick = [this] { insertInFront("AA"); };
    PB_SynchPatt.onClick = [this] { insertInFront(TB_SynchPatt.text()); };
    PB_Clear_Payload.onClick = [this] { putPayload({}); };
    PB_Send.onClick = [this] { PB_Send_Click(); };
    CB_Continous.onChange = [this] { CB_Continous_Click(); };
    CB_EOP.onChange = [this] {
        Label3.setEnabled(CB_EOP.ticked());
        TB_EOP[0].setEnabled(CB_EOP.ticked());
        showTransmitLine();
    };
    for (std::size_t index = 0; index < TB_EOP.size(); ++index) {
        TB_EOP[index].onEdit = [this, index] { TB_EOP_Change(index); };
    }
    TB_EOP[0].setCaption(Label3.caption());
    TB_EOP[0].setTip("Code of the character, 0 to 255");
    wireNumber(TB_RepetitionTime, UD_RepetitionTime, longestRepetition);
    TB_RepetitionTime.setCaption(Label2.caption());
    TB_RepetitionTime.setTip("Whole seconds, 0 to 3600; a packet takes one more");
    showTransmitLine();
}

void Frm_BerylRfLinkTest::wireReceive() {
    OB_EOPorPL.putChosen();
    OB_RxAsciiView.putChosen();
    ReceiveReason.setVisible(false);
    receivedView = &OB_RxAsciiView;
    for (Option* condition : {&OB_EOPorPL, &OB_EOP, &OB_PL}) {
        condition->setContainer(&EndCondition);
    }
    TB_EOP[1].setCaption("EOP:");
    TB_EOP[1].setTip("Code of the character that ends a packet, 0 to 255");
    TB_EOP[2].setCaption("Read Timeout:");
    TB_EOP[2].setTip("Without effect: the board reports a packet by itself");
    TB_PL.setCaption("PL:");
    TB_PL.setTip("Bytes after which a packet ends, up to 255");
    TB_PacketCount.setCaption("Packet Count");
    wireNumber(TB_PL, UD_PL, longestPacket);
    PB_Enable.onClick = [this] { PB_Enable_Click(); };
    received = TB_ReceiveData.appended.subscribe([this](std::string_view) { TB_ReceiveData_Change(); });
    for (KeptText* kept : {&TB_ReceiveData, &TB_MonitoredData}) {
        shortened.push_back(kept->shortened.subscribe([this, kept] { bench.notice(kept->droppedNote()); }));
    }
    OB_RxAsciiView.onChoose = [this] { showReceived(OB_RxAsciiView); };
    OB_RxHexView.onChoose = [this] { showReceived(OB_RxHexView); };
    PB_Clear.onClick = [this] { TB_MonitoredData.clear(); };
    PB_Reset.onClick = [this] {
        packetCount = 0;
        TB_PacketCount.setText("0");
    };
}

bool Frm_BerylRfLinkTest::portOpen() const {
    return bench.connect->isOpen();
}

void Frm_BerylRfLinkTest::tellClosedPort() const {
    bench.warn("Commport not available, please open commport!");
}

void Frm_BerylRfLinkTest::TabStrip1_Click() {
    for (std::size_t page = 0; page < Frm_LinkControl.size(); ++page) {
        bool chosen = static_cast<int>(page) + 1 == TabStrip1.page();
        if (!chosen) {
            Frm_LinkControl[page].setVisible(false);
        } else if (!receiving()) {
            Frm_LinkControl[page].setVisible(true);
        }
    }
}

void Frm_BerylRfLinkTest::left() {
    if (receiving()) {
        PB_Enable_Click();
    }
    if (sending()) {
        PB_Send_Click();
    } else if (TabStrip1.page() == 1 && portOpen()) {
        bench.connect->Send_To_LoadBoard("T0\r");
    }
}

// A tool that closes without a port has nothing to tell the board, and the user knows.
void Frm_BerylRfLinkTest::unload() {
    deactivation.end();
    boardLost.end();
    rateChanged.end();
    packets.ignore();
    if (!portOpen()) {
        endReceiving();
        endSending();
    }
    struct Ending {
        Frm_BerylRfLinkTest& tool;
        ~Ending() {
            tool.Timer_CntMode.stop();
            tool.Timer_Blink.stop();
            tool.Timer_ReadTimeout.stop();
            tool.rearm.stop();
            tool.bench.windows.TRxLinkOn = false;
            tool.bench.setMirror(&WindowSwitches::TRxLinkOn, nullptr);
        }
    } ending{*this};
    left();
}

void Frm_BerylRfLinkTest::wireNumber(TextField& field, UpDown& arrows, int maximum) {
    field.onEdit = [this, &field] { acceptDigits(field); };
    field.onCommit = [this, &field, maximum] { number_LostFocus(field, maximum); };
    tellReadingsOf(bench, {&field});
    arrows.reading = [&field, maximum] {
        return std::clamp(roundToInt(numericPrefix(field.text())), 0, maximum);
    };
    arrows.onUp = [&field, &arrows, maximum] {
        field.setText(std::to_string(std::min(arrows.value() + 1, maximum)));
    };
    arrows.onDown = [&field, &arrows] { field.setText(std::to_string(std::max(arrows.value() - 1, 0))); };
}

void Frm_BerylRfLinkTest::number_LostFocus(TextField& field, int maximum) const {
    double value = numericPrefix(field.text());
    if (field.text().empty() || value < 0) {
        field.setText("0");
    } else if (value > maximum) {
        field.setText(std::to_string(maximum));
    }
}

// The last character alone is looked at, whatever the caret's place is; dropping it is a change too, so the
// one before it has its turn.
void Frm_BerylRfLinkTest::acceptDigits(TextField& field) {
    std::string text = field.text();
    while (!text.empty() && !isDigit(text.back())) {
        text.pop_back();
        field.setText(text);
    }
}

void Frm_BerylRfLinkTest::TB_EOP_Change(std::size_t index) {
    acceptDigits(TB_EOP[index]);
    if (numericPrefix(TB_EOP[index].text()) > highestCode) {
        TB_EOP[index].setText("255");
    }
    showTransmitLine();
}

} // namespace zor
