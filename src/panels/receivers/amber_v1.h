// SPDX-License-Identifier: MIT
#pragma once

#include "panels/receivers/receiver_panel.h"

namespace zor {

/// Control panel of the KT2100 receiver in its two generations, "'E' or below" and "'F' or above".
class AmberV1 : public ReceiverPanel {
  public:
    explicit AmberV1(Bench& ownBench);
    /// What the chip is, whether or not its panel exists.
    [[nodiscard]] static const PanelTraits& chipTraits();

    /// "Select revision:", around the list Revision.
    Frame Frame1;
    /// Colours that the revision list takes.
    Swatch Green;
    Swatch Yellow;

    [[nodiscard]] int RevisionF() const override { return revisionFlag; }

    [[nodiscard]] KeptParts keptParts() override;
    void partsPutBack() override;

  protected:
    void setDefaults() override;
    [[nodiscard]] ConfigurationLines configuration() override;
    void excludeForeignSettings() override;
    [[nodiscard]] IntegerRange dataRateRange() const override { return {0, isF() ? 127 : 255}; }
    /// The older generation's second byte begins with the last bit of the newer one's first.
    [[nodiscard]] int statusShift() const override { return isF() ? 0 : 1; }
    void FIFOstrt_Click() override;

  private:
    struct RevisionRow;

    [[nodiscard]] bool isF() const { return revisionFlag == 1; }
    void Revision_Click();
    void switchRevision(const RevisionRow& row);
    void showStatusOf(const RevisionRow& row);
    void setDataRateForm();
    void setFrequencyControlForm();

    /// 1 for "'F' or above", 0 for "'E' or below", -1 before the start.
    int revisionFlag = -1;
    /// The generation that the words are laid out for.
    int laidOutFor = -1;
};

} // namespace zor
