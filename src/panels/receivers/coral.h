// SPDX-License-Identifier: MIT
#pragma once

#include "panels/receivers/receiver_panel.h"
#include "panels/receivers/synchron_pattern.h"

namespace zor {

/// Control panel of the KT2102 receiver: an extended wake-up timer, a programmable synchron pattern, more
/// FIFO levels and an extended features word.
class Coral : public ReceiverPanel, public SynchronPattern {
    // Older than the options that join it.
    OptionGroup tailGroup;

  public:
    explicit Coral(Bench& ownBench);
    /// What the chip is, whether or not its panel exists.
    [[nodiscard]] static const PanelTraits& chipTraits();

    TextField WKUPD;
    ControlWord EWkupw;
    TickBox CB32kHz;
    TickBox cb_ewi;
    /// The upper bits of the FIFO level.
    TextField TB_F5F4;

    TickBox CB_exlp;
    TickBox CB_exr;
    TickBox CB_dcal;
    /// "Clock tail length"
    Frame ClockTail;
    Option OB_512bit;
    Option OB_128bit;
    CodeList CB_PllBW;
    ControlWord EFw;

    [[nodiscard]] KeptParts keptParts() override;

  protected:
    void setDefaults() override;
    [[nodiscard]] ConfigurationLines configuration() override;
    WakeUpSetting commitWakeUpFields() override;
    void wakeUpCommitted() override;
    [[nodiscard]] std::vector<Element*> wakeUpElements() override;
    void fifoLevelChanged() override;

  private:
    void wireFeatures();
    void defineWords();
    [[nodiscard]] int upperLevelBits() const { return ITLEVEL.value() / 16; }
};

} // namespace zor
