// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <random>
#include <stdexcept>
#include <string>

namespace zor::testing {

/// Where tests put their files: into memory where the system offers it. The program syncs what it writes to
/// the medium, which would take more of a test's time than everything else in it.
inline std::filesystem::path temporaryPlace() {
    std::filesystem::path memory = "/dev/shm";
    std::error_code ignored;
    auto mode = std::filesystem::status(memory, ignored).permissions();
    bool anybodys = (mode & std::filesystem::perms::others_write) != std::filesystem::perms::none;
    // Where a whole path begins with a drive, this names no place of the system's.
    return memory.is_absolute() && std::filesystem::is_directory(memory, ignored) && anybodys
               ? memory
               : std::filesystem::temp_directory_path();
}

/// Makes a folder of a name that nobody else has.
inline std::filesystem::path makeTemporaryFolder(const std::filesystem::path& place,
                                                 const std::string& stem) {
    std::random_device chance;
    for (int attempt = 0; attempt < 10; ++attempt) {
        std::filesystem::path folder = place / (stem + std::to_string(chance()));
        if (std::filesystem::create_directory(folder)) {
            return folder;
        }
    }
    throw std::runtime_error("no temporary folder can be made in " + place.string());
}

} // namespace zor::testing
