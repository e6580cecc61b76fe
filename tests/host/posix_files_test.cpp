// SPDX-License-Identifier: MIT
#include "host/file_test.h"

#include "support/as_ordinary_user.h"

#include <csignal>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zor {

namespace {

namespace fs = std::filesystem;

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

TEST_F(FileTest, AnotherKindOfFileIsNotReplaced) {
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(errorOf([&] { writeFileWhole(folder / "pipe", "new"); }), 75);
    EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
    fs::create_symlink("/dev/full", folder / "full");
    EXPECT_EQ(errorOf([&] { writeFileWhole(folder / "full", "new"); }), 75);
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    EXPECT_EQ(entries(), 2U);
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

TEST_F(FileTest, ReadingAnotherKindOfFileIsAnAccessError) {
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(errorOf([&] { (void)readFile(folder / "pipe"); }), 75);
    EXPECT_EQ(errorOf([&] { (void)readFile("/dev/zero"); }), 75);
}

} // namespace zor
