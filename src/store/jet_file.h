// SPDX-License-Identifier: MIT
#pragma once

#include "support/register_list.h"

#include <filesystem>

namespace zor::store {

/// Whether this build can read Jet databases: it can where the library for them was installed.
[[nodiscard]] bool jetIsBuilt();

/// The chips and registers of a Jet database's tables Chip and Register. Throws StoreError for a file that is
/// none or lacks a table or column, and for any file where jetIsBuilt says no.
[[nodiscard]] RegisterList readJetFile(const std::filesystem::path& file);

} // namespace zor::store
