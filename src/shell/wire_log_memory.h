// SPDX-License-Identifier: MIT
#pragma once

#include "elements/signal.h"
#include "link/bench.h"

namespace zor {

/// Remembers over the runs where the user wants the wire log to stand, and tells each one that opens.
/// @return ends it; hold it no longer than the bench lives
[[nodiscard]] Subscription rememberWireLogPlace(Bench& bench);

} // namespace zor
