// SPDX-License-Identifier: MIT
#pragma once

#include "panels/transmitters/auto_power_transmitter.h"

namespace zor {

/// Control panel of the KT1100 transmitter and of its low-power regional variant KT1100B.
class OpalV2 : public AutoPowerTransmitter {
  public:
    explicit OpalV2(Bench& ownBench);
    /// What the chip is, whether or not its panel exists.
    [[nodiscard]] static const PanelTraits& chipTraits();

    /// "Select revision:", around the list Revision.
    Frame Frame1;
    /// Colours that the revision list takes.
    Swatch Green;
    Swatch Yellow;

    void SetFrameMode() override;

    [[nodiscard]] KeptParts keptParts() override;
    void partsPutBack() override;

  protected:
    void setDefaults() override;
    [[nodiscard]] int ookMark() const override;
    [[nodiscard]] ConfigurationLines configuration() override;
    void excludeForeignSettings() override { SetFrameMode(); }

  private:
    void Revision_Click();
    void switchRevision(int flag, const Swatch& colour);
    /// Bits of the power step: two on the old revision, three on the new one.
    [[nodiscard]] int powerBits() const;
    void layOutPowerWord();

    /// 0 for "'C' or below", 1 for "'D' or above".
    int revisionFlag = 1;
    /// What the power word was declared for.
    int laidOutFor = 1;
};

} // namespace zor
