// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/label.h"
#include "elements/text_field.h"

#include <string>

namespace zor {

class SPI;

/// The supply of the test board that the register tool sets, from 1.8 V to 4.0 V.
class BoardSupply {
  public:
    explicit BoardSupply(SPI& ownTool);

    Frame SupplyFrame;
    /// In V.
    TextField Voltage;
    Button PB_Voltage;

  private:
    void Voltage_LostFocus();
    void PB_Voltage_Click();

    SPI& tool;
};

} // namespace zor
