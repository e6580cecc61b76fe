// SPDX-License-Identifier: MIT
#pragma once

#include "faults/sending_actions.h"

namespace zor::testing {

/// What the windows of the carrier test and of the receivers' link test send.
[[nodiscard]] std::vector<SendingAction> linkActions();

} // namespace zor::testing
