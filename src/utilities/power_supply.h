// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/form.h"
#include "elements/label.h"
#include "elements/text_field.h"
#include "link/bench.h"
#include "platform/event_loop.h"

#include <cstdint>
#include <optional>

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

  protected:
    void unload() override;

  private:
    void PB_Voltage_Click();
    void PB_Current_Click();
    void ContRead_Click();
    void Timer1_Timer();
    void stopContinuous();
    void readCurrent();

    Bench& bench;
    Timer Timer1;
    Subscription supply;
    bool reading = false;
};

/// The 10-bit value of the board's answer to "AD", out of the last 100 characters received.
/// @return 0 to 1023; nothing if no hexadecimal bytes stand where the answer has them
[[nodiscard]] std::optional<std::int32_t> converterReading(std::string_view last100);

} // namespace zor
