// SPDX-License-Identifier: MIT
#include "host/file_backup.h"

#include "host/files.h"
#include "support/as_ordinary_user.h"
#include "support/error.h"
#include "virtual/temporary_place.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

namespace zor {

namespace {

namespace fs = std::filesystem;

/// A folder of its own for each test, removed at the end.
class FileBackup : public ::testing::Test {
  protected:
    FileBackup()
        : folder(testing::temporaryPlace() / ("zor-backup-" + std::to_string(::getpid()))) {
        fs::remove_all(folder);
        fs::create_directory(folder);
        file = folder / "lab.tc";
        kept = folder / "lab.tc~";
    }
    ~FileBackup() override {
        fs::permissions(folder, fs::perms::owner_all);
        fs::remove_all(folder);
    }
    FileBackup(const FileBackup&) = delete;
    FileBackup& operator=(const FileBackup&) = delete;

    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (const auto& entry : fs::directory_iterator(folder)) {
            all.push_back(entry.path().filename().string());
        }
        std::sort(all.begin(), all.end());
        return all;
    }

    fs::path folder;
    fs::path file;
    fs::path kept;
};

TEST_F(FileBackup, ANewFileHasNone) {
    saveUserFile(file, "one");
    EXPECT_EQ(readFile(file), "one");
    EXPECT_EQ(names(), std::vector<std::string>{"lab.tc"});
    EXPECT_EQ(backupOf(file), kept);
}

TEST_F(FileBackup, ASaveKeepsTheFileBefore) {
    saveUserFile(file, "one");
    saveUserFile(file, "two");
    EXPECT_EQ(readFile(file), "two");
    EXPECT_EQ(readFile(kept), "one");
    saveUserFile(file, "three");
    EXPECT_EQ(readFile(file), "three");
    EXPECT_EQ(readFile(kept), "two");
    EXPECT_EQ(names(), (std::vector<std::string>{"lab.tc", "lab.tc~"}));
}

TEST_F(FileBackup, ASaveOfTheSameBytesKeepsTheOneBefore) {
    saveUserFile(file, "one");
    saveUserFile(file, "two");
    saveUserFile(file, "two");
    EXPECT_EQ(readFile(kept), "one");
}

TEST_F(FileBackup, TheFileBeforeKeepsItsMode) {
    saveUserFile(file, "one");
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
    saveUserFile(file, "two");
    EXPECT_EQ(fs::status(kept).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(FileBackup, AFailedSaveLeavesBothAsTheyWere) {
    saveUserFile(file, "one");
    saveUserFile(file, "two");
    // The new file cannot be written into the folder any more.
    fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                                fs::perms::others_exec);
    EXPECT_TRUE(holdsForOrdinaryUser([&] { EXPECT_THROW(saveUserFile(file, "three"), ToolError); }));
    fs::permissions(folder, fs::perms::owner_all);
    EXPECT_EQ(readFile(file), "two");
    EXPECT_EQ(readFile(kept), "one");
}

TEST_F(FileBackup, AWriteProtectedFileAndItsBackupStay) {
    saveUserFile(file, "one");
    saveUserFile(file, "two");
    fs::permissions(file, fs::perms::owner_read);
    fs::permissions(folder, fs::perms::all);
    EXPECT_TRUE(holdsForOrdinaryUser([&] { EXPECT_THROW(saveUserFile(file, "three"), ToolError); }));
    EXPECT_EQ(readFile(file), "two");
    EXPECT_EQ(readFile(kept), "one");
    EXPECT_EQ(names(), (std::vector<std::string>{"lab.tc", "lab.tc~"}));
}

TEST_F(FileBackup, ABackupThatCannotBeMadeKeepsNoSaveFromBeingMade) {
    saveUserFile(file, "one");
    fs::create_directory(kept);
    saveUserFile(kept / "inside", "x");
    saveUserFile(file, "two");
    EXPECT_EQ(readFile(file), "two");
    EXPECT_TRUE(fs::is_directory(kept));
    EXPECT_EQ(names(), (std::vector<std::string>{"lab.tc", "lab.tc~"}));
}

TEST_F(FileBackup, ALinkStaysOneAndItsTargetsFormerContentStandsBesideTheTarget) {
    fs::create_directory(folder / "far");
    fs::path target = folder / "far" / "real.tc";
    saveUserFile(target, "one");
    fs::create_symlink(target, file);
    saveUserFile(file, "two");
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(readFile(target), "two");
    EXPECT_EQ(readFile(folder / "far" / "real.tc~"), "one");
    EXPECT_FALSE(fs::exists(kept));
}

TEST_F(FileBackup, WhatAKilledSaveLeftBehindGoesWithTheNext) {
    saveUserFile(file, "one");
    saveUserFile(folder / ".zor-lab.tc-before~", "left");
    saveUserFile(file, "two");
    EXPECT_EQ(readFile(kept), "one");
    EXPECT_EQ(names(), (std::vector<std::string>{"lab.tc", "lab.tc~"}));
}

TEST_F(FileBackup, ANameWithoutRoomForTheSignIsSavedAllTheSame) {
    fs::path longest = folder / std::string(255, 'n');
    saveUserFile(longest, "one");
    saveUserFile(longest, "two");
    EXPECT_EQ(readFile(longest), "two");
    EXPECT_EQ(names().size(), 1U);
}

} // namespace

} // namespace zor
