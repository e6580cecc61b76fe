// SPDX-License-Identifier: MIT
#pragma once

#include "panels/common/chip_panel.h"

#include <array>
#include <memory>
#include <vector>

namespace zor {

/// One power management tick: its bit of the word, and the ticks that it takes away when it is set.
struct PowerTick {
    int bitNumber;
    const char* caption;
    std::vector<int> excludes;
};

/// Completes a transmitter's table with what all three have in common.
[[nodiscard]] PanelTraits transmitterTraits(PanelTraits chip);

/// What the three transmitters share beyond every panel: modulation, output power, the power management word
/// and the calibration on its synthesizer bit.
class TransmitterPanel : public ChipPanel {
  public:
    /// @param deviationStep  in kHz at the standard crystal; the list has eight of them
    TransmitterPanel(Bench& ownBench, const PanelTraits& ownTraits, const std::vector<PowerTick>& ticks,
                     double deviationStep);

    CodeList ModPol;
    ScaledList ModFreq;
    CodeList OutputPower;
    /// The two labels of the caption of pm0; a click on either toggles it.
    Label Label47;
    Label Label48;
    ControlWord PowerMw;
    /// The wake-up time's formula with a gap for its exponent, which is a label of its own.
    Label WakeUpFormula;
    Label WakeUpFormulaPower;
    Label ThresholdFormula;

    /// The tick of a bit of the power management word; nullptr if the chip has none there.
    [[nodiscard]] TickBox* pm(int bitNumber) const {
        return powerTicks[static_cast<std::size_t>(bitNumber)].get();
    }

  protected:
    void setDefaults() override;
    void calibrate() override;
    void configurationRead() override;
    /// The commits behind those of FreqCenter and LBD once a file has been read.
    virtual void commitFurtherRead() {}
    /// The lines of the power management ticks, from the highest bit on.
    [[nodiscard]] ConfigurationLines powerTickLines();
    /// The lines from the band to the output power.
    [[nodiscard]] ConfigurationLines modulationLines();
    /// Fills Revision for the two later chips, whose panels share one preference; it is shown only.
    void showSharedRevision();
    /// What the wake-up tick governs.
    [[nodiscard]] virtual std::vector<Element*> wakeUpElements();
    [[nodiscard]] virtual std::vector<Element*> lowBatteryElements();

  private:
    void makePowerTicks(const std::vector<PowerTick>& ticks);
    void powerTickChanged(const PowerTick& tick);

    std::array<std::unique_ptr<TickBox>, 8> powerTicks;
};

} // namespace zor
