// SPDX-License-Identifier: MIT
#pragma once

#include "faults/sending_actions.h"

namespace zor::testing {

/// What the windows of the carrier test and of the link tests send, with good reports and spoilt ones.
[[nodiscard]] std::vector<SendingAction> linkActions();

} // namespace zor::testing
