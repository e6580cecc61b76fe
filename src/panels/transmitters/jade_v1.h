// SPDX-License-Identifier: MIT
#pragma once

#include "panels/transmitters/auto_power_transmitter.h"

namespace zor {

/// Control panel of the KT1101 transmitter.
class JadeV1 : public AutoPowerTransmitter {
  public:
    explicit JadeV1(Bench& ownBench);
    /// What the chip is, whether or not its panel exists.
    [[nodiscard]] static const PanelTraits& chipTraits();

    TextField DATARATEDIV;
    /// In kbit/s.
    TextField DATARATE;
    ControlWord Dataratew;
    /// The highest data rate in kbit/s that the synthesizer's loop is set up for.
    CodeList CB_MaxDataRate;
    /// Phase noise at that setting, in dBc/Hz.
    TextField TB_PHNoise;
    ControlWord TB_PLLCmd;
    TickBox CB_ebs;
    TickBox CB_dwc;

    /// 1 if the chip clocks the data itself.
    [[nodiscard]] int TXBitSinchOn() const { return CB_ebs.ticked() ? 1 : 0; }

    [[nodiscard]] KeptParts keptParts() override;

  protected:
    void setDefaults() override;
    void crystalChanged() override;
    void commitFurtherRead() override;
    [[nodiscard]] ConfigurationLines configuration() override;

  private:
    void defineWords();
    void DATARATEDIV_LostFocus();
    void CB_MaxDataRate_Click();

    std::int32_t dataRateDivider = 0;
};

} // namespace zor
