// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/form.h"
#include "elements/label.h"
#include "elements/text_field.h"
#include "link/bench.h"
#include "panels/common/chip_current.h"
#include "platform/event_loop.h"
#include "utilities/current_over_time.h"

namespace zor {

/// Sets the voltage that the board gives to the radio chip, and reads the current that the chip draws, once
/// or again and again. The reading needs a generation 2 board.
class PowerSupply : public Form {
  public:
    explicit PowerSupply(Bench& ownBench);
    ~PowerSupply() override;

    Label LabelVoltage;
    /// In V.
    TextField Voltage;
    Button PB_Voltage;
    /// The current group.
    Frame CurrentFrame;
    Label LabelCurrent;
    TextField Current;
    Label CurUnit;
    Button PB_Current;
    Button ContRead;
    TextField Statusline;

    /// The continuous reading over time, folded away at first.
    CurrentOverTime overTime;

  protected:
    void unload() override;

  private:
    void PB_Voltage_Click();
    void PB_Current_Click();
    void ContRead_Click();
    void Timer1_Timer();
    void stopContinuous();
    [[nodiscard]] std::optional<CurrentReading> readCurrent();

    Bench& bench;
    Timer Timer1;
    Subscription supply;
    bool reading = false;
};

} // namespace zor
