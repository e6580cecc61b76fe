// SPDX-License-Identifier: MIT
#include "host/files.h"

#include "support/as_ordinary_user.h"
#include "support/error.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zor {

namespace {

namespace fs = std::filesystem;

/// The error number of a failing action, 0 if it does not fail.
int errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const ToolError& error) {
        return error.number();
    }
    return 0;
}

/// A folder of its own for each test, removed at the end.
class FileTest : public ::testing::Test {
  protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "zor-files-XXXXXX").string();
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        folder = pattern;
    }
    void TearDown() override {
        std::error_code ignored;
        fs::permissions(folder, fs::perms::owner_all, ignored);
        fs::remove_all(folder, ignored);
    }

    void put(const fs::path& path, const std::string& bytes) const {
        std::ofstream(path, std::ios::binary) << bytes;
    }
    /// Names in the folder; a failed save must leave no neighbour behind.
    [[nodiscard]] std::size_t entries() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder), fs::directory_iterator{}));
    }

    fs::path folder;
};

} // namespace

TEST_F(FileTest, ANewFileHoldsItsBytesAndTheUsersMask) {
    mode_t mask = ::umask(027);
    writeFileWhole(folder / "new.tc", std::string("a\0b\r\n", 5));
    ::umask(mask);
    EXPECT_EQ(readFile(folder / "new.tc"), std::string("a\0b\r\n", 5));
    EXPECT_EQ(fs::status(folder / "new.tc").permissions(), static_cast<fs::perms>(0640));
    EXPECT_EQ(entries(), 1U);
}

TEST_F(FileTest, AnOverwrittenFileKeepsItsMode) {
    put(folder / "old.tc", "old");
    fs::permissions(folder / "old.tc", static_cast<fs::perms>(0604));
    writeFileWhole(folder / "old.tc", "new");
    EXPECT_EQ(readFile(folder / "old.tc"), "new");
    EXPECT_EQ(fs::status(folder / "old.tc").permissions(), static_cast<fs::perms>(0604));
    EXPECT_EQ(entries(), 1U);
}

TEST_F(FileTest, AnEmptyFileIsWrittenAndReadAsSuch) {
    writeFileWhole(folder / "empty", "");
    EXPECT_EQ(readFile(folder / "empty"), "");
}

TEST_F(FileTest, ALinkStaysALink) {
    fs::create_directory(folder / "far");
    put(folder / "far/target.tc", "old");
    fs::create_symlink("far/target.tc", folder / "link.tc");
    fs::create_symlink(folder / "link.tc", folder / "second.tc");
    writeFileWhole(folder / "second.tc", "new");
    EXPECT_TRUE(fs::is_symlink(folder / "link.tc"));
    EXPECT_TRUE(fs::is_symlink(folder / "second.tc"));
    EXPECT_EQ(readFile(folder / "far/target.tc"), "new");
}

TEST_F(FileTest, ALinkToNothingYetGetsItsTarget) {
    fs::create_symlink("later.tc", folder / "link.tc");
    writeFileWhole(folder / "link.tc", "new");
    EXPECT_TRUE(fs::is_symlink(folder / "link.tc"));
    EXPECT_EQ(readFile(folder / "later.tc"), "new");
}

TEST_F(FileTest, ARingOfLinksIsAnAccessError) {
    fs::create_symlink("b", folder / "a");
    fs::create_symlink("a", folder / "b");
    EXPECT_EQ(errorOf([&] { writeFileWhole(folder / "a", "new"); }), 75);
    EXPECT_EQ(errorOf([&] { (void)readFile(folder / "a"); }), 75);
    EXPECT_EQ(entries(), 2U);
}

TEST_F(FileTest, AFolderOrADeviceIsNotReplaced) {
    fs::create_directory(folder / "sub");
    EXPECT_EQ(errorOf([&] { writeFileWhole(folder / "sub", "new"); }), 75);
    EXPECT_TRUE(fs::is_directory(folder / "sub"));
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(errorOf([&] { writeFileWhole(folder / "pipe", "new"); }), 75);
    EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
    fs::create_symlink("/dev/full", folder / "full");
    EXPECT_EQ(errorOf([&] { writeFileWhole(folder / "full", "new"); }), 75);
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    EXPECT_EQ(entries(), 3U);
}

TEST_F(FileTest, AMissingFolderOrAPathThroughAFileIsNoPath) {
    put(folder / "file", "old");
    EXPECT_EQ(errorOf([&] { writeFileWhole(folder / "none/new.tc", "new"); }), 76);
    EXPECT_EQ(errorOf([&] { writeFileWhole(folder / "file/new.tc", "new"); }), 76);
    EXPECT_EQ(readFile(folder / "file"), "old");
    EXPECT_EQ(entries(), 1U);
}

TEST_F(FileTest, ANameOfTheGreatestLengthIsWritten) {
    std::string name(255, 'n');
    writeFileWhole(folder / name, "new");
    EXPECT_EQ(readFile(folder / name), "new");
    EXPECT_EQ(errorOf([&] { writeFileWhole(folder / (name + "n"), "new"); }), 75);
    EXPECT_EQ(entries(), 1U);
}

TEST_F(FileTest, WhatAKilledSavingLeftGoesWithTheNextSavingOfThatFile) {
    put(folder / "ZOR.ini", "old");
    put(folder / ".zor-ZOR.ini-a1B2c3", "ol");
    put(folder / ".zor-ZOR.wsp-a1B2c3", "another file's");
    put(folder / ".zor-ZOR.ini-notes.x", "no neighbour");
    writeFileWhole(folder / "ZOR.ini", "new");
    EXPECT_EQ(readFile(folder / "ZOR.ini"), "new");
    EXPECT_FALSE(fs::exists(folder / ".zor-ZOR.ini-a1B2c3"));
    EXPECT_TRUE(fs::exists(folder / ".zor-ZOR.wsp-a1B2c3"));
    EXPECT_TRUE(fs::exists(folder / ".zor-ZOR.ini-notes.x"));
    EXPECT_EQ(entries(), 3U);
}

TEST_F(FileTest, WhatAnotherProgramIsSavingStays) {
    fs::path working = folder / ".zor-ZOR.ini-a1B2c3";
    put(working, "half");
    int other = ::open(working.c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(::flock(other, LOCK_EX | LOCK_NB), 0);
    writeFileWhole(folder / "ZOR.ini", "new");
    EXPECT_TRUE(fs::exists(working));
    ::close(other);
    writeFileWhole(folder / "ZOR.ini", "new");
    EXPECT_FALSE(fs::exists(working));
}

TEST_F(FileTest, AFullDiskLeavesTheOldFileWhole) {
    put(folder / "old.tc", "old");
    // A limit on the size of a file fails the write half way, as a full disk does.
    rlimit before = {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    rlimit narrow = {4096, before.rlim_max};
    auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &narrow), 0);
    int error = errorOf([&] { writeFileWhole(folder / "old.tc", std::string(10000, 'x')); });
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(error, 61);
    EXPECT_EQ(readFile(folder / "old.tc"), "old");
    EXPECT_EQ(entries(), 1U);
}

TEST_F(FileTest, AProtectedFolderOrFileIsLeftAlone) {
    put(folder / "old.tc", "old");
    if (::geteuid() == 0) {
        ASSERT_EQ(::chown(folder.c_str(), ordinaryUser, ordinaryUser), 0);
        ASSERT_EQ(::chown((folder / "old.tc").c_str(), ordinaryUser, ordinaryUser), 0);
    }
    EXPECT_TRUE(holdsForOrdinaryUser([&] {
        fs::permissions(folder / "old.tc", static_cast<fs::perms>(0400));
        EXPECT_EQ(errorOf([&] { writeFileWhole(folder / "old.tc", "new"); }), 70);
        fs::permissions(folder / "old.tc", static_cast<fs::perms>(0600));
        fs::permissions(folder, static_cast<fs::perms>(0500));
        EXPECT_EQ(errorOf([&] { writeFileWhole(folder / "old.tc", "new"); }), 70);
        EXPECT_EQ(errorOf([&] { writeFileWhole(folder / "new.tc", "new"); }), 70);
    }));
    fs::permissions(folder, static_cast<fs::perms>(0700));
    EXPECT_EQ(readFile(folder / "old.tc"), "old");
    EXPECT_EQ(entries(), 1U);
}

TEST_F(FileTest, ReadingTellsAMissingFileFromAMissingFolder) {
    put(folder / "file", "x");
    EXPECT_EQ(errorOf([&] { (void)readFile(folder / "none.tc"); }), 53);
    EXPECT_EQ(errorOf([&] { (void)readFile(folder / "none/none.tc"); }), 76);
    EXPECT_EQ(errorOf([&] { (void)readFile(folder / "file/none.tc"); }), 76);
    EXPECT_EQ(errorOf([&] { (void)readFile(folder); }), 75);
    EXPECT_EQ(errorOf([&] { (void)readFile(""); }), 53);
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(errorOf([&] { (void)readFile(folder / "pipe"); }), 75);
    EXPECT_EQ(errorOf([&] { (void)readFile("/dev/zero"); }), 75);
}

TEST_F(FileTest, AFileLongerThanTheLimitIsRefused) {
    put(folder / "long", std::string(100000, 'x'));
    EXPECT_EQ(readFile(folder / "long", 100000).size(), 100000U);
    EXPECT_EQ(errorOf([&] { (void)readFile(folder / "long", 99999); }), 57);
}

} // namespace zor
