// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace zor::testing {

/// Where tests put their files: into memory where the system offers it. The program syncs what it writes to
/// the medium, which would take more of a test's time than everything else in it.
inline std::filesystem::path temporaryPlace() {
    std::filesystem::path memory = "/dev/shm";
    std::error_code ignored;
    auto mode = std::filesystem::status(memory, ignored).permissions();
    bool anybodys = (mode & std::filesystem::perms::others_write) != std::filesystem::perms::none;
    return std::filesystem::is_directory(memory, ignored) && anybodys
               ? memory
               : std::filesystem::temp_directory_path();
}

} // namespace zor::testing
