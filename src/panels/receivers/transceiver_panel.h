// SPDX-License-Identifier: MIT
#pragma once

#include "panels/receivers/receiving_panel.h"

namespace zor {

/// What the two transceivers share: a power management word with separate receiver and transmitter, the
/// transmitter's word, and registers behind the data line in both directions.
class TransceiverPanel : public ReceivingPanel {
    // Older than the options that join it.
    OptionGroup pinGroup;

  public:
    TransceiverPanel(Bench& ownBench, const PanelTraits& ownTraits, const ReceivingTraits& receivingTraits);

    /// Ends the repeats of the status read.
    void StopRepetitiveStatusRead() { hidden(); }

    /// "Select revision:", around the list Revision.
    Frame Frame1_11;

    TickBox EnTXLatch;
    TickBox EnRxFIFO;

    TickBox chb_er;
    TickBox chb_ebb;
    TickBox chb_et;
    TickBox chb_es;
    TickBox chb_ex;
    TickBox chb_eb;
    TickBox chb_ew;
    TickBox chb_dc;
    ControlWord PowerW;

    Frame PinFunction;
    Option Pin8IsInt;
    Option Pin8IsVDI;

    CodeList ModPol;
    ScaledList ModFreq;
    CodeList OutputPower;
    ControlWord TXCtrlw;

    TickBox SensResEn;

    /// 1 if the chip clocks the data itself, out of its transmit register.
    [[nodiscard]] int TXlatchOn() const { return EnTXLatch.ticked() ? 1 : 0; }

  protected:
    void setDefaults() override;
    void calibrate() override;
    [[nodiscard]] ConfigurationLines configuration() override;
    /// Lines of a chip's further settings: behind OutputPower, behind ITLEVEL.
    [[nodiscard]] virtual ConfigurationLines furtherTransmitterLines() { return {}; }
    [[nodiscard]] virtual ConfigurationLines furtherFifoLines() { return {}; }
    [[nodiscard]] bool needsDataLine() const override { return EnTXLatch.ticked() || EnRxFIFO.ticked(); }
    [[nodiscard]] std::vector<TickBox*> resetTicks() override { return {&ffillen}; }
    /// The FIFO word's bits; a chip may have more of them.
    [[nodiscard]] std::vector<BitField> fifoFields();

    static constexpr std::uint32_t fifoBase = 0xCA00;

  private:
    void wireTicks();
    void defineWords();
    void chb_er_Click();
};

/// The tables that both transceivers begin with.
[[nodiscard]] PanelTraits transceiverPanelTraits();
[[nodiscard]] ReceivingTraits transceiverTraits();

} // namespace zor
