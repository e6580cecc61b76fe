// SPDX-License-Identifier: MIT
#pragma once

#include "faults/sending_actions.h"

#include <vector>

namespace zor::testing {

/// What the register tool sends: single registers and the whole table, macros, scripts, its FIFOs.
[[nodiscard]] std::vector<SendingAction> registerActions();

} // namespace zor::testing
