// SPDX-License-Identifier: MIT
#pragma once

#include "host/files.h"

#include <filesystem>
#include <string_view>

namespace zor {

/// Writes a file that the user saves, as writeFileWhole does, and keeps the file that was there before beside
/// it as "NAME~". A save of the very same bytes leaves the file kept before as it is, and so does a save that
/// fails; one whose old file cannot be kept is made all the same. Throws what writeFileWhole throws.
void saveUserFile(const std::filesystem::path& path, std::string_view bytes);

template <FileName Name>
void saveUserFile(const Name& name, std::string_view bytes) {
    saveUserFile(pathOf(name), bytes);
}

/// Where the file before a save is kept.
[[nodiscard]] std::filesystem::path backupOf(const std::filesystem::path& path);

} // namespace zor
