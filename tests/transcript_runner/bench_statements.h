// SPDX-License-Identifier: MIT
#pragma once

#include "transcript_runner/world.h"

#include <span>

namespace zor::testing {

/// What the simulated machine alone can carry out.
[[nodiscard]] std::span<const StatementRow> benchStatements();

} // namespace zor::testing
