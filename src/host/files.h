// SPDX-License-Identifier: MIT
#pragma once

#include "support/file_name.h"

#include <concepts>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace zor {

/// The whole file's bytes. Throws ToolError: fileNotFound, pathNotFound, permissionDenied, pathFileAccess for
/// what is no plain file, or deviceInputOutput.
/// @param limit  in bytes; a longer file is refused with deviceInputOutput, so that a huge one picked by
/// mistake does not eat the memory
[[nodiscard]] std::string readFile(const std::filesystem::path& path, std::uintmax_t limit = 64u << 20);

/// Writes a file so that it is either the new content whole or still the old one: a neighbour is written,
/// synced and renamed over it. The mode of an old file stays (on Windows its attributes), and so does a link
/// to it. Throws ToolError: pathNotFound, permissionDenied, diskFull, pathFileAccess (for a folder, a device
/// or a ring of links) or deviceInputOutput.
void writeFileWhole(const std::filesystem::path& path, std::string_view bytes);

/// A name as the program keeps it, in UTF-8.
template <typename Name>
concept FileName = std::convertible_to<const Name&, std::string_view>;

template <FileName Name>
[[nodiscard]] std::string readFile(const Name& name, std::uintmax_t limit = 64u << 20) {
    return readFile(pathOf(name), limit);
}

template <FileName Name>
void writeFileWhole(const Name& name, std::string_view bytes) {
    writeFileWhole(pathOf(name), bytes);
}

/// Whether this user may make files in a folder; false for one that does not exist.
[[nodiscard]] bool mayWrite(const std::filesystem::path& folder);

} // namespace zor
