// SPDX-License-Identifier: MIT
#pragma once

#include "panels/receivers/receiving_panel.h"

namespace zor {

/// What the two receivers share: the power bits in the configuration word, the receiver chain's in the
/// receiver word, and a FIFO that has the data line while its mode is on.
class ReceiverPanel : public ReceivingPanel {
  public:
    ReceiverPanel(Bench& ownBench, const PanelTraits& ownTraits, const ReceivingTraits& receivingTraits);

    TickBox enb;
    TickBox ent;
    TickBox enx;
    TickBox disclk;
    /// The two labels of the caption of disclk; a click on either toggles it.
    Label Label47;
    Label Label48;
    TickBox enrec;
    TickBox fmodeen;

    /// 0 for the older of a chip's two generations, else 1.
    [[nodiscard]] virtual int RevisionF() const { return 1; }

  protected:
    void setDefaults() override;
    void calibrate() override;
    [[nodiscard]] bool needsDataLine() const override { return fmodeen.ticked(); }
    [[nodiscard]] std::vector<TickBox*> resetTicks() override { return {&ffillen, &fmodeen}; }
    void configurationRead() override;
    /// Takes the data line as an Update would; a chip does it when its defaults stand.
    void takeDataLineAtStart();

    // Parts of a configuration file that both chips have.

    /// From the crystal to the receiver's lists.
    [[nodiscard]] ConfigurationLines settingLines();
    /// From the frequency control to the prescaler.
    [[nodiscard]] ConfigurationLines frequencyControlLines();
    /// From the FIFO's level to the supply.
    [[nodiscard]] ConfigurationLines fifoLines();

  private:
    void wireTicks();
    void defineWords();
};

/// The tables that both receivers begin with.
[[nodiscard]] PanelTraits receiverPanelTraits();
[[nodiscard]] ReceivingTraits receiverTraits();

} // namespace zor
