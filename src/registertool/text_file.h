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
/// @param firstName  as in link/file_dialog.h; whoever loads the file says so by fileLoaded
[[nodiscard]] std::optional<std::string> chooseTextToLoad(const Bench& bench, const std::string& title,
                                                          const std::string& firstName);
/// Asks for a file and saves there what text gives once a name is known. A failure is told.
void saveText(Bench& bench, const std::string& title, const std::string& firstName,
              const std::function<std::string()>& text);
/// The name that was chosen. Throws ToolError for a name of a foreign extension.
[[nodiscard]] std::optional<std::string> onlyOwnExtension(const FileChoice& choice);

/// What the first files of the tool are proposed as.
inline constexpr const char* firstRegisters = "registers.txt";
inline constexpr const char* firstMacroRows = "macro-rows.txt";
inline constexpr const char* firstTable = "registers.csv";
/// Apart from the exports: a database of the older kind can be imported alone.
inline constexpr const char* firstImport = "imported.csv";

/// The file's lines without their ends (CR LF, or either alone). Throws ToolError: those of a file that
/// cannot be read, and inputPastEnd for an empty one.
[[nodiscard]] std::vector<std::string> readTextLines(const std::string& name);

/// Runs a load; a failure of the file is told.
void loading(const Bench& bench, const std::function<void()>& action);
/// Runs a save; a failure of the file is told.
void saving(const Bench& bench, const std::function<void()>& action);

inline constexpr const char* textLineEnd = "\r\n";

} // namespace zor
