// SPDX-License-Identifier: MIT
#pragma once

#include "shell/main_window.h"

#include <optional>
#include <string>
#include <string_view>

namespace zor::transcript {

/// The value of a shared variable by its product name, as text ("true", "3", "KT1100"); nothing for an
/// unknown name.
[[nodiscard]] std::optional<std::string> variable(MainWindow& program, std::string_view name);

} // namespace zor::transcript
