// SPDX-License-Identifier: MIT
#include "desktop/program_folders.h"

#include "support/as_ordinary_user.h"
#include "virtual/virtual_machine.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace zor::testing {

namespace {

namespace fs = std::filesystem;

void put(const fs::path& file, const char* text) {
    std::ofstream(file) << text;
}

std::string textOf(const fs::path& file) {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// A program laid out at `top`, its companions in the folder `companions`, and a user who has no data yet.
struct LaidOut {
    LaidOut(const char* binaries, const char* companions)
        : executable(temporary.path() / binaries)
        , came(temporary.path() / companions)
        , users(temporary.path() / "home" / "zor") {
        fs::create_directories(executable);
        fs::create_directories(came / "Project_Configurations");
        fs::create_directories(came / "Documentation");
        put(came / "Project_Configurations" / "a.tc", "example");
        put(came / "Documentation" / "user-guide.md", "guide");
    }
    [[nodiscard]] ProgramFolders find() const { return ProgramFolders::find(executable, users); }
    [[nodiscard]] fs::path example() const { return users / "Project_Configurations" / "a.tc"; }

    TemporaryFolder temporary;
    fs::path executable;
    fs::path came;
    fs::path users;
};

/// As a package lays it out.
struct Installed : LaidOut {
    Installed()
        : LaidOut("bin", "share/zor") {}
};

} // namespace

TEST(ProgramFolders, APortableFolderKeepsEverythingBesideTheExecutable) {
    LaidOut portable("bin", ".");
    ProgramFolders folders = portable.find();
    EXPECT_EQ(folders.program, portable.executable);
    EXPECT_EQ(fs::canonical(folders.companions), fs::canonical(portable.temporary.path()));
    EXPECT_FALSE(fs::exists(portable.users)) << "nothing of it is the user's";
}

TEST(ProgramFolders, AnInstalledProgramKeepsItsFilesWithTheUser) {
    Installed installed;
    ProgramFolders folders = installed.find();
    EXPECT_EQ(folders.program, installed.users / "Settings");
    EXPECT_TRUE(fs::is_directory(folders.program));
    EXPECT_EQ(fs::canonical(folders.companions), fs::canonical(installed.came));
}

TEST(ProgramFolders, TheFoldersBesideAnInstalledProgramsOwnAreTheUsers) {
    Installed installed;
    fs::path beside = installed.find().program / "..";
    EXPECT_EQ(textOf(beside / "Project_Configurations" / "a.tc"), "example");
    EXPECT_EQ(textOf(beside / "Documentation" / "user-guide.md"), "guide");
    EXPECT_TRUE(fs::is_directory(beside / "EEPROM_Images"));
    EXPECT_TRUE(fs::is_directory(beside / "Examples"));
}

TEST(ProgramFolders, ExamplesAreTheUsersToChangeAndToThrowAway) {
    Installed installed;
    fs::permissions(installed.came / "Project_Configurations" / "a.tc", fs::perms::owner_read);
    (void)installed.find();
    put(installed.example(), "mine");
    (void)installed.find();
    EXPECT_EQ(textOf(installed.example()), "mine");
    fs::remove(installed.example());
    (void)installed.find();
    EXPECT_FALSE(fs::exists(installed.example()));
}

TEST(ProgramFolders, DocumentsFollowTheProgramThatRuns) {
    Installed older;
    (void)older.find();
    Installed newer;
    newer.users = older.users;
    put(newer.came / "Documentation" / "user-guide.md", "newer guide");
    (void)newer.find();
    EXPECT_EQ(textOf(older.users / "Documentation" / "user-guide.md"), "newer guide");
}

TEST(ProgramFolders, TheFolderOfDocumentsIsTheUsersToPutDataSheetsInto) {
    Installed installed;
    fs::create_directories(installed.users);
    // As an earlier program laid it.
    fs::create_directory_symlink(installed.came / "Documentation", installed.users / "Documentation");
    (void)installed.find();
    fs::path documents = installed.users / "Documentation";
    EXPECT_FALSE(fs::is_symlink(documents));
    put(documents / "KT1100.pdf", "data sheet");
    fs::remove(documents / "user-guide.md");
    put(documents / "user-guide.md", "mine");
    (void)installed.find();
    EXPECT_EQ(textOf(documents / "KT1100.pdf"), "data sheet");
    EXPECT_EQ(textOf(documents / "user-guide.md"), "mine");
    EXPECT_FALSE(fs::exists(installed.came / "Documentation" / "KT1100.pdf"));
}

TEST(ProgramFolders, ADocumentThatComesNoMoreLeavesNoLink) {
    Installed installed;
    put(installed.came / "Documentation" / "old.md", "old");
    (void)installed.find();
    EXPECT_EQ(textOf(installed.users / "Documentation" / "old.md"), "old");
    fs::remove(installed.came / "Documentation" / "old.md");
    (void)installed.find();
    EXPECT_FALSE(fs::is_symlink(installed.users / "Documentation" / "old.md"));
}

TEST(ProgramFolders, APortableFolderThatMayNotBeWrittenLeavesItsFilesToTheUser) {
    LaidOut portable("bin", ".");
    fs::create_directories(portable.users);
    // Everybody may look, and write but in the program's folder.
    fs::permissions(portable.temporary.path(), fs::perms::all);
    fs::permissions(portable.users, fs::perms::all);
    fs::permissions(portable.executable, fs::perms::owner_read | fs::perms::owner_exec |
                                             fs::perms::others_read | fs::perms::others_exec);
    EXPECT_TRUE(
        holdsForOrdinaryUser([&] { EXPECT_EQ(portable.find().program, portable.users / "Settings"); }));
    EXPECT_EQ(textOf(portable.example()), "example");
}

TEST(ProgramFolders, AHomeThatCannotBeWrittenStopsNothing) {
    Installed installed;
    installed.users = "/proc/zor";
    EXPECT_EQ(installed.find().program, "/proc/zor/Settings");
}

} // namespace zor::testing
