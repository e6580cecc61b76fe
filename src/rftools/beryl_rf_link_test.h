// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/form.h"
#include "elements/kept_text.h"
#include "elements/label.h"
#include "elements/options.h"
#include "elements/range.h"
#include "elements/tab_strip.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "link/bench.h"
#include "platform/event_loop.h"
#include "rftools/received_packets.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zor {

/// The transceivers' packet test: sends a payload once or again and again, or arms the board to receive and
/// shows what arrives. The chip's settings stay with its panel; only the FIFO's word is another while it
/// receives.
///
/// What runs ends as soon as another window of the program comes to the front.
class Frm_BerylRfLinkTest : public Form {
    // Older than the options that join them.
    OptionGroup viewGroup;
    OptionGroup endGroup;
    OptionGroup receiveViewGroup;

  public:
    explicit Frm_BerylRfLinkTest(Bench& ownBench);
    ~Frm_BerylRfLinkTest() override;

    TabStrip TabStrip1;
    /// One page each, the turned up one visible. What stands on a page is not held by its frame: a user turns
    /// the page to reach it.
    std::array<Frame, 2> Frm_LinkControl;

    // Transmit Control
    Label Label1;
    TextField TB_Payload;
    Option OB_AsciiView;
    Option OB_HexView;
    TextField TB_SynchPatt;
    Button PB_Preable;
    Button PB_SynchPatt;
    Button PB_Clear_Payload;
    Button PB_Send;
    TickBox CB_Continous;
    Label Label2;
    TextField TB_RepetitionTime;
    UpDown UD_RepetitionTime;
    TickBox CB_EOP;
    Label Label3;
    /// The end character that is sent, the one that ends a packet received, and a time-out that nothing waits
    /// for.
    std::array<TextField, 3> TB_EOP;
    Label Lbl_Sent;
    /// The line that a packet will be, with what it takes of the air's time.
    Label TransmitLine;
    /// Why the settings are out of reach.
    Label SendReason;

    // Receive Control
    Button PB_Enable;
    Frame EndCondition;
    Option OB_EOPorPL;
    Option OB_EOP;
    Option OB_PL;
    TextField TB_PL;
    UpDown UD_PL;
    TickBox CB_ContReceive;
    TickBox CB_AutoClear;
    TickBox CB_AddCR;
    KeptText TB_ReceiveData;
    KeptText TB_MonitoredData;
    Option OB_RxAsciiView;
    Option OB_RxHexView;
    TextField TB_PacketCount;
    Button PB_Clear;
    Button PB_Reset;
    Label ReceiveReason;
    ReceivedPackets packets;

    [[nodiscard]] bool sending() const;
    [[nodiscard]] bool receiving() const;

  protected:
    void unload() override;

  private:
    void wireTransmit();
    void wireReceive();
    void TabStrip1_Click();
    /// Another window came to the front, or this one closes.
    void left();
    [[nodiscard]] bool portOpen() const;
    void tellClosedPort() const;

    // Fields that take digits.
    void acceptDigits(TextField& field);
    void TB_EOP_Change(std::size_t index);
    void number_LostFocus(TextField& field, int maximum) const;
    void wireNumber(TextField& field, UpDown& arrows, int maximum);

    // Transmit.
    void TB_Payload_Change();
    void putPayload(const std::string& text);
    void showPayload(Option& view);
    void insertInFront(const std::string& digits);
    void CB_Continous_Click();
    void PB_Send_Click();
    void beginSending();
    void setSendOptions(bool enabled);
    void endSending();
    void Timer_CntMode_Timer();
    void sendPacket();
    void flashSent();
    void showTransmitLine();
    /// The payload's hexadecimal digits.
    [[nodiscard]] std::string payloadDigits() const;
    [[nodiscard]] std::string packetLine() const;

    // Receive.
    void PB_Enable_Click();
    void endReceiving();
    void setReceiveOptions(bool enabled);
    void arm();
    void disarm();
    [[nodiscard]] std::string armingLine() const;
    /// The lines that give the open panels' FIFO word a low byte.
    [[nodiscard]] std::vector<std::string> fifoLines(std::uint32_t lowByte);
    void TB_ReceiveData_Change();
    void takePacket(const std::string& payload);
    void showReceived(Option& view);
    void Rearm_Timer();
    void Timer_ReadTimeout_Timer();

    Bench& bench;
    Subscription deactivation;
    Subscription boardLost;
    Subscription rateChanged;
    Subscription received;
    /// Each says at the foot when its oldest text goes.
    std::vector<Subscription> shortened;

    Timer Timer_CntMode;
    Timer Timer_Blink;
    Timer Timer_ReadTimeout;
    /// Begins the next reception behind the handling of the report's last character.
    Timer rearm;
    Option* payloadView = nullptr;
    Option* receivedView = nullptr;
    std::int32_t secondsCounted = 0;
    std::int16_t packetCount = 0;
    std::int32_t readStep = 0;
    std::int32_t readTicks = 0;
    /// Counts the arm sequences, so that one which was ended or overtaken while it waits sends nothing more.
    std::uint32_t armRun = 0;

    /// A transceiver's panel that was open when the FIFO's word was sent last.
    struct PanelInUse {
        std::string_view name;
        std::uint32_t sensitiveReset = 0;
    };
    std::vector<PanelInUse> panelsInUse;
};

} // namespace zor
