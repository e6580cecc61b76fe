// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace zor {

/// Where this run keeps its files and finds those that came with the program.
///
/// A portable folder has the executable in a folder of its own (`bin`), the settings beside it and
/// `Project_Configurations` and the like one level up; it must be writable. An installed program writes
/// nothing where it lies: each user has such a folder instead, with the examples copied and the documents
/// linked into it.
struct ProgramFolders {
    /// What the program takes for its own folder: settings, workspace and database live here.
    std::filesystem::path program;
    /// What came with the program: start database, register list, documents, examples.
    std::filesystem::path companions;

    /// @param executable  the executable's folder
    /// @param users       the user's folder for this program's data; it need not exist yet
    [[nodiscard]] static ProgramFolders find(const std::filesystem::path& executable,
                                             const std::filesystem::path& users);
};

} // namespace zor
