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

bool comesFromAProgram(const fs::path& link) {
    std::error_code ignored;
    return fs::is_symlink(link, ignored) &&
           fs::read_symlink(link, ignored).parent_path().filename() == link.parent_path().filename();
}

/// The folder is the user's, who puts data sheets into it; what the program brings stands in it by links, so
/// that they always show the documents of the program that runs.
void linkDocuments(const fs::path& from, const fs::path& to) {
    std::error_code ignored;
    if (fs::is_symlink(to, ignored)) {
        fs::remove(to, ignored);
    }
    fs::create_directories(to, ignored);
    for (const fs::directory_entry& document : fs::directory_iterator(to, ignored)) {
        if (comesFromAProgram(document.path())) {
            fs::remove(document.path(), ignored);
        }
    }
    for (const fs::directory_entry& document : fs::directory_iterator(from, ignored)) {
        fs::path link = to / document.path().filename();
        if (!fs::exists(fs::symlink_status(link, ignored))) {
            fs::create_symlink(document.path(), link, ignored);
        }
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
    for (const char* name : {"Project_Configurations", "EEPROM_Images", "Examples"}) {
        layExamples(folders.companions / name, users / name);
    }
    linkDocuments(folders.companions / "Documentation", users / "Documentation");
    return folders;
}

} // namespace zor
