// SPDX-License-Identifier: MIT
#pragma once

#include "faults/sending_actions.h"

#include <vector>

namespace zor::testing {

/// Transcripts that are played, to their end and halted on the way. The bench needs a station.
[[nodiscard]] std::vector<SendingAction> playActions();

} // namespace zor::testing
