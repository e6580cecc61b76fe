// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/form.h"
#include "elements/kept_text.h"
#include "elements/label.h"
#include "elements/options.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "link/bench.h"
#include "platform/event_loop.h"
#include "rftools/received_packets.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zor {

class ReceiverPanel;

/// What the two windows of this kind differ in.
struct ReceiverLinkTraits {
    const char* formName;
    /// The switch of the mirror that it reads.
    bool WindowSwitches::*mirror;
    /// Reception ends when another window comes to the front.
    bool stopsWhenLeft;
};

/// Arms the board to receive packets for the open receiver panel and shows what arrives.
///
///     idle --EnRx--> arming --> armed --silence behind some text--> arming again, or idle
///       ^                         |
///       +--- EnRx, the window is left, the port closes
///
/// The board reports one packet and is disarmed by that. Whatever it prints between two prompts counts as a
/// packet once the line has been silent for the read timeout.
class AmberV1rflink : public Form {
    // Older than the options that join them.
    OptionGroup endOfPacketGroup;
    OptionGroup viewGroup;

  public:
    AmberV1rflink(Bench& ownBench, const ReceiverLinkTraits& ownTraits);
    ~AmberV1rflink() override;

    Button EnRx;
    Lamp RXActive;
    /// "End Of Packet Condition"
    Frame EndOfPacket;
    Option ENeoppl;
    Option ENeop;
    Option ENpl;
    /// The character that ends a packet, as its decimal code.
    TextField EOP;
    /// In bytes.
    TextField PL;
    TickBox ContRx;
    TickBox AutoClear;
    TickBox AddCR;
    KeptText Monitor;
    Option OB_AsciiView;
    Option OB_HexView;
    TextField PCnt;
    Button ResetPC;
    Button Clear;
    /// How long the line has to be silent behind a packet, in ms; below 1 nothing counts as one.
    TextField RxLinkTimeout;
    /// What has come since the last prompt.
    KeptText Text1;
    ReceivedPackets received;

  protected:
    void unload() override;

  private:
    void EnRx_Click();
    void startReceiving();
    void stopReceiving();
    void endReceiving();
    bool arm();
    bool send(const std::string& line, unsigned mine);
    void Text1_Change();
    void waitForSilence();
    void RxTimer_Timer();
    void takePacket();
    void addToMonitor(const std::string& text);
    void RxLinkTimeout_Change();
    void changeView(bool toHex);
    void checkFields();
    void keepLimits();
    [[nodiscard]] std::string modeCommand() const;
    [[nodiscard]] ReceiverPanel* panel() const;
    /// What the panel's last status read gave, in kHz.
    [[nodiscard]] std::string frequencyOffset() const;
    /// It is lit, that is, packets are waited for; the board may just be armed again.
    [[nodiscard]] bool receiving() const { return RXActive.lit(); }

    Bench& bench;
    const ReceiverLinkTraits& traits;
    Timer RxTimer;
    /// Its own lines are under way; what comes meanwhile is no packet.
    bool sending = false;
    /// Grows with each begin and end of reception: an arming goes on only for its own.
    unsigned turn = 0;
    /// The FIFO word without and with the fill, from the panel's.
    std::uint32_t baseWord = 0;
    std::uint32_t fillWord = 0;
    /// Where what follows the last command's prompt begins in Text1.
    std::size_t promptEnd = 0;
    bool promptSeen = false;
    bool hexView = false;
    int packets = 0;
    std::vector<Subscription> subscriptions;
};

/// The window for generation 1 boards and the one for generation 2.
[[nodiscard]] std::unique_ptr<Form> makeAmberV1rflink(Bench& bench);
[[nodiscard]] std::unique_ptr<Form> makeAmberV1rflink_LB2(Bench& bench);

} // namespace zor
