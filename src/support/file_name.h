// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace zor {

// Names of files are kept, written and shown as UTF-8. A path that is made of a std::string by itself would
// be read in the system's own encoding, which on Windows is another one; hence these two.

/// Bytes that are no UTF-8 are taken for a letter each where the system does not keep names as bytes.
[[nodiscard]] std::filesystem::path pathOf(std::string_view name);

/// A letter that has no UTF-8 becomes a question mark.
[[nodiscard]] std::string nameOf(const std::filesystem::path& path);

/// The same with slashes between the folders, whatever the system has there.
[[nodiscard]] std::string slashedNameOf(const std::filesystem::path& path);

} // namespace zor
