// SPDX-License-Identifier: MIT
#include "link/connect.h"
#include "panels/receivers/transceiver_panel.h"
#include "rftools/beryl_rf_link_test.h"
#include "rftools/transmit_preview.h"
#include "support/hex_text.h"
#include "support/letters.h"
#include "support/numbers.h"

#include <optional>

namespace zor {

namespace {

constexpr const char* startSending = "&Start Sending";
constexpr const char* stopSending = "&Stop Sending";
constexpr const char* sendOne = "&Send Packet";
constexpr std::string_view sendCommand = "T14,";
constexpr double bitsInKilobit = 1000;
constexpr std::string_view hexDigits = "0123456789ABCDEF";

bool isHex(std::string_view text) {
    return text.find_first_not_of(hexDigits) == std::string_view::npos;
}

} // namespace

bool Frm_BerylRfLinkTest::sending() const {
    return PB_Send.caption() == stopSending;
}

void Frm_BerylRfLinkTest::TB_Payload_Change() {
    if (payloadView == &OB_HexView) {
        std::string before = TB_Payload.text();
        std::size_t caret = TB_Payload.cursor();
        std::string digits;
        std::size_t place = 0;
        // A key brings one character at the caret, a paste any number.
        for (std::size_t at = 0; at < before.size(); ++at) {
            std::string c = upperCase(before.substr(at, 1));
            if (isHex(c)) {
                digits += c;
                place += at < caret ? 1 : 0;
            }
        }
        TB_Payload.setText(digits);
        TB_Payload.setCursor(place);
    }
    showTransmitLine();
    std::size_t length = TB_Payload.text().size();
    std::size_t bytes = payloadView == &OB_HexView ? (length + 1) / 2 : length;
    Label1.setCaption("Payload ( " + std::to_string(bytes) + " byte(s) )");
}

void Frm_BerylRfLinkTest::putPayload(const std::string& text) {
    if (TB_Payload.text() != text) {
        TB_Payload.setText(text);
        TB_Payload_Change();
    }
}

void Frm_BerylRfLinkTest::showPayload(Option& view) {
    if (&view == payloadView) {
        return;
    }
    payloadView = &view;
    std::size_t limit = TB_Payload.limit().value_or(0);
    bool toHex = payloadView == &OB_HexView;
    TB_Payload.setLimit(toHex ? limit * 2 : limit / 2);
    putPayload(toHex ? hexOfText(TB_Payload.text()) : textOfHex(TB_Payload.text()));
}

void Frm_BerylRfLinkTest::insertInFront(const std::string& text) {
    std::string digits = upperCase(text);
    if (!isHex(digits)) {
        bench.notice("\"" + text + "\" is not hexadecimal; nothing was inserted.");
        return;
    }
    Option& shown = *payloadView;
    OB_HexView.choose();
    std::string payload = digits + TB_Payload.text();
    if (payload.size() <= TB_Payload.limit().value_or(0)) {
        putPayload(payload);
    } else {
        bench.notice("The payload has no room for " + digits + "; nothing was inserted.");
    }
    shown.choose();
}

void Frm_BerylRfLinkTest::CB_Continous_Click() {
    bool on = CB_Continous.ticked();
    for (Element* element : {static_cast<Element*>(&TB_RepetitionTime),
                             static_cast<Element*>(&UD_RepetitionTime), static_cast<Element*>(&Label2)}) {
        element->setEnabled(on);
    }
    PB_Send.setCaption(on ? startSending : sendOne);
}

void Frm_BerylRfLinkTest::PB_Send_Click() {
    if (!portOpen()) {
        // Ended in front of the box, so that no tick behind it shows another.
        if (sending()) {
            endSending();
        }
        tellClosedPort();
        return;
    }
    if (sending()) {
        endSending();
        bench.connect->Send_To_LoadBoard("T0\r");
    } else if (CB_Continous.ticked()) {
        beginSending();
    } else {
        sendPacket();
    }
}

void Frm_BerylRfLinkTest::setSendOptions(bool enabled) {
    for (Element* element :
         {static_cast<Element*>(&TabStrip1), static_cast<Element*>(&CB_Continous),
          static_cast<Element*>(&Label2), static_cast<Element*>(&CB_EOP), static_cast<Element*>(&TB_EOP[0]),
          static_cast<Element*>(&Label3), static_cast<Element*>(&TB_Payload)}) {
        element->setEnabled(enabled);
    }
    SendReason.setVisible(!enabled);
}

void Frm_BerylRfLinkTest::beginSending() {
    setSendOptions(false);
    PB_Send.setCaption(stopSending);
    secondsCounted = 0;
    Timer_CntMode.start();
}

void Frm_BerylRfLinkTest::endSending() {
    if (!sending()) {
        return;
    }
    setSendOptions(true);
    PB_Send.setCaption(startSending);
    Timer_CntMode.stop();
}

void Frm_BerylRfLinkTest::Timer_CntMode_Timer() {
    if (secondsCounted < numericPrefix(TB_RepetitionTime.text())) {
        ++secondsCounted;
        return;
    }
    secondsCounted = 0;
    sendPacket();
}

std::string Frm_BerylRfLinkTest::payloadDigits() const {
    return payloadView == &OB_HexView ? TB_Payload.text() : hexOfText(TB_Payload.text());
}

std::string Frm_BerylRfLinkTest::packetLine() const {
    std::string line(sendCommand);
    std::string digits = payloadDigits();
    for (std::size_t at = 0; at < digits.size(); at += 2) {
        std::string pair = digits.substr(at, 2);
        line += pair + (pair.size() == 2 ? "," : "");
    }
    if (CB_EOP.ticked()) {
        line += hexText(static_cast<std::uint32_t>(roundToInt(numericPrefix(TB_EOP[0].text()))) & 0xFF, 2);
    }
    return line;
}

void Frm_BerylRfLinkTest::showTransmitLine() {
    std::string line = packetLine();
    std::optional<double> rate;
    if (const auto* panel = dynamic_cast<const TransceiverPanel*>(bench.openPanel())) {
        rate = numericPrefix(panel->DATARATE.text()) * bitsInKilobit;
    }
    TransmitLine.setCaption(transmitPreview(line, rate));
    TransmitLine.setTip(line);
}

void Frm_BerylRfLinkTest::sendPacket() {
    if (!portOpen()) {
        PB_Send_Click();
        return;
    }
    if (bench.connect->Send_To_LoadBoard(packetLine() + "\r").portGone()) {
        endSending();
        return;
    }
    flashSent();
}

void Frm_BerylRfLinkTest::flashSent() {
    if (isClosed()) {
        return;
    }
    Lbl_Sent.setVisible(true);
    Timer_Blink.stop();
    Timer_Blink.start();
}

} // namespace zor
