// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/board.h"

#include <string>
#include <string_view>

namespace zor::sim {

enum class ControlOutcome { done, quit, failed };

struct ControlResult {
    ControlOutcome outcome = ControlOutcome::done;
    std::string message; // why it failed
};

/// Carries out one statement of a bench on a running board, for example "status 5F" or "refuse S28080".
[[nodiscard]] ControlResult control(Board& board, std::string_view statement);

/// The statements, one a line, as help shows them.
[[nodiscard]] std::string controlHelp();

} // namespace zor::sim
