// SPDX-License-Identifier: MIT
#include "desktop/program_folders.h"

#include "host/files.h"

namespace zor {

namespace {

namespace fs = std::filesystem;

/// Examples are the user's to change, so they are laid once; a folder that was emptied on purpose stays
/// empty.
void layExamples(const fs::path& from, const fs::path& to) {
    std::error_code ignored;
    if (fs::exists(to, ignored)) {
        return;
    }
    fs::create_directories(to, ignored);
    for (const fs::directory_entry& file : fs::directory_iterator(from, ignored)) {
        fs::path copy = to / file.path().filename();
        fs::copy_file(file.path(), copy, ignored);
        fs::permissions(copy, fs::perms::owner_write, fs::perm_options::add, ignored);
    }
}

/// Documents are read only; a link always shows those of the program that runs. A folder of the user's own
/// stays.
void linkFolder(const fs::path& from, const fs::path& to) {
    std::error_code ignored;
    if (fs::is_symlink(to, ignored)) {
        if (fs::read_symlink(to, ignored) == from) {
            return;
        }
        fs::remove(to, ignored);
    }
    if (!fs::exists(to, ignored) && fs::exists(from, ignored)) {
        fs::create_directory_symlink(from, to, ignored);
    }
}

} // namespace

ProgramFolders ProgramFolders::find(const fs::path& executable, const fs::path& users) {
    std::error_code ignored;
    fs::path installed = (executable / ZOR_DATA_FROM_PROGRAM).lexically_normal();
    bool isInstalled = fs::is_directory(installed, ignored);
    // Whether it was installed is not told by the rights alone: the administrator may write everywhere.
    if (!isInstalled && mayWrite(executable)) {
        return {.program = executable, .companions = executable / ".."};
    }
    ProgramFolders folders{.program = users / "Settings",
                           .companions = isInstalled ? installed : executable.parent_path()};
    // What cannot be made here shows where it is needed: a save then says so, a read finds the defaults.
    fs::create_directories(folders.program, ignored);
    for (const char* name : {"Project_Configurations", "EEPROM_Images"}) {
        layExamples(folders.companions / name, users / name);
    }
    for (const char* name : {"Documentation", "Examples"}) {
        linkFolder(folders.companions / name, users / name);
    }
    return folders;
}

} // namespace zor
