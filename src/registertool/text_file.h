// SPDX-License-Identifier: MIT
#pragma once

#include "link/bench.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zor {

// The register tool's text files: their dialogs, their lines, and what is told when one fails.

/// Asks for a file to load. Throws ToolError for a name of a foreign extension.
/// @return nothing if the user thought better of it
[[nodiscard]] std::optional<std::string> chooseTextToLoad(const Bench& bench, const std::string& title);
[[nodiscard]] std::optional<std::string> chooseTextToSave(const Bench& bench, const std::string& title);

/// The file's lines without their ends (CR LF, or either alone). Throws ToolError: those of a file that
/// cannot be read, and inputPastEnd for an empty one.
[[nodiscard]] std::vector<std::string> readTextLines(const std::string& name);

/// Runs a load; a failure of the file is told.
void loading(const Bench& bench, const std::function<void()>& action);
/// Runs a save; a failure of the file is told.
void saving(const Bench& bench, const std::function<void()>& action);

inline constexpr const char* textLineEnd = "\r\n";

} // namespace zor
