// SPDX-License-Identifier: MIT
// The blocks that the receivers and the transceivers have alike.
#pragma once

#include "headergen/header_block.h"

namespace zor {

class ReceivingPanel;

[[nodiscard]] HeaderBlock wakeUpBlock(const ReceivingPanel& panel);
[[nodiscard]] HeaderBlock dutyCycleBlock(const ReceivingPanel& panel);
[[nodiscard]] HeaderBlock lowBatteryBlock(const ReceivingPanel& panel);
[[nodiscard]] HeaderBlock frequencyControlBlock(const ReceivingPanel& panel);
[[nodiscard]] HeaderBlock dataFilterBlock(const ReceivingPanel& panel);
/// With the prescaler's line if its tick is set.
[[nodiscard]] HeaderBlock dataRateBlock(const ReceivingPanel& panel);

} // namespace zor
