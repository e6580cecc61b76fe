// SPDX-License-Identifier: MIT
#pragma once

#include "panels/transmitters/transmitter_panel.h"

namespace zor {

/// The KT1100 and its successor KT1101: automatic power control, and an output power word of one byte.
class AutoPowerTransmitter : public TransmitterPanel {
  public:
    AutoPowerTransmitter(Bench& ownBench, const PanelTraits& ownTraits);

    CodeList Modulation;
    ControlWord OutPowerw;

  protected:
    void setDefaults() override;
    /// What on-off keying adds to the power word.
    [[nodiscard]] virtual int ookMark() const { return 8; }
    /// What a power word's field means: power step and keying.
    [[nodiscard]] std::string powerText(int code) const;
    void powerChanged() { OutPowerw.rebuild(); }
    /// Declares the power word.
    /// @param powerBits  how many of its bits hold the power step; the keying's stands above them
    void definePowerWord(int powerBits);
};

} // namespace zor
