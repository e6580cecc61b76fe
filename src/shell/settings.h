// SPDX-License-Identifier: MIT
#pragma once

#include "link/bench.h"

#include <filesystem>

namespace zor {

/// Where a settings file of the product is read: in the program's folder, or in the user's own where the
/// program's may not be written and the user's holds one.
[[nodiscard]] std::filesystem::path settingsFileToRead(const Platform& platform, const std::string& name);
/// Where it is written.
[[nodiscard]] std::filesystem::path settingsFileToWrite(const Platform& platform, const std::string& name);

/// Reads the preferences of ZOR.ini. A missing file leaves the defaults. Throws ToolError for a file that
/// cannot be read whole; what was read before stays.
void readPreferences(Bench& bench);

} // namespace zor
