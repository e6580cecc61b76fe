// SPDX-License-Identifier: MIT
#pragma once

#include "panels/receivers/synchron_pattern.h"
#include "panels/receivers/transceiver_panel.h"

namespace zor {

/// Control panel of the KT3101 transceiver: the KT3100 with a PLL word and a programmable synchron pattern.
class FRM_Topaz : public TransceiverPanel, public SynchronPattern {
  public:
    explicit FRM_Topaz(Bench& ownBench);
    /// What the chip is, whether or not its panel exists.
    [[nodiscard]] static const PanelTraits& chipTraits();

    CodeList CB_RFT;
    CodeList CB_PLLBW;
    TickBox CB_LPX;
    TickBox CB_DDY;
    TickBox CB_DDIT;
    ControlWord PLLCmd;

    /// How long the synchron pattern is: both bytes or the second alone.
    CodeList SynchPattern;

    [[nodiscard]] KeptParts keptParts() override;

  protected:
    void setDefaults() override;
    [[nodiscard]] ConfigurationLines furtherTransmitterLines() override;
    [[nodiscard]] ConfigurationLines furtherFifoLines() override;
};

} // namespace zor
