// SPDX-License-Identifier: MIT
// The parts of a receiver's or transceiver's panel that look the same on all four.
#pragma once

#include "desktop/views/panel_parts.h"
#include "panels/receivers/receiving_panel.h"
#include "panels/receivers/synchron_pattern.h"

namespace zor {

/// What a chip adds to the pages that they all have, and its pages behind them.
struct PageAdditions {
    Lines wakeUp;
    Lines battery;
    Lines filter;
    Lines fifo;
    std::vector<QWidget*> further;
};

/// The seven pages and a chip's own ones.
[[nodiscard]] QWidget* receivingPages(ReceivingPanel& panel, PageAdditions additions = {});
/// The page of a chip whose synchron pattern can be chosen.
[[nodiscard]] QWidget* synchronPage(Frame& frame, SynchronPattern& pattern, Lines more = {});
/// @param more  lines of the chip's own, in front of the others
[[nodiscard]] QWidget* receiverGroup(ReceivingPanel& panel, Lines more = {});
/// The frequency offset beside the status indicators.
[[nodiscard]] std::vector<Cell> offsetAnswer(ReceivingPanel& panel);

} // namespace zor
