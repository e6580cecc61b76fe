// SPDX-License-Identifier: MIT
#pragma once

#include "panels/receivers/transceiver_panel.h"

namespace zor {

/// Control panel of the KT3100 transceiver and of its low-power regional variant KT3100B.
class BerylV3 : public TransceiverPanel {
  public:
    explicit BerylV3(Bench& ownBench);
    /// What the chip is, whether or not its panel exists.
    [[nodiscard]] static const PanelTraits& chipTraits();

    void SetFrameMode() override;

  protected:
    void excludeForeignSettings() override { SetFrameMode(); }
};

} // namespace zor
