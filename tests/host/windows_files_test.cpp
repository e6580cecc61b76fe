// SPDX-License-Identifier: MIT
#include "host/file_test.h"

#include <windows.h>

namespace zor {

namespace {

namespace fs = std::filesystem;

/// Opens a file as another program does that lets nobody else at it.
HANDLE holdAlone(const fs::path& path) {
    return ::CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
}

} // namespace

TEST_F(FileTest, AnOverwrittenFileKeepsItsAttributes) {
    put(folder / "old.tc", "old");
    DWORD hidden = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    ASSERT_NE(::SetFileAttributesW((folder / "old.tc").c_str(), hidden), 0);
    writeFileWhole(folder / "old.tc", "new");
    EXPECT_EQ(readFile(folder / "old.tc"), "new");
    EXPECT_EQ(::GetFileAttributesW((folder / "old.tc").c_str()) & hidden, hidden);
    EXPECT_EQ(entries(), 1U);
}

TEST_F(FileTest, AWriteProtectedFileIsLeftAlone) {
    put(folder / "old.tc", "old");
    ASSERT_NE(::SetFileAttributesW((folder / "old.tc").c_str(), FILE_ATTRIBUTE_READONLY), 0);
    EXPECT_EQ(errorOf([&] { writeFileWhole(folder / "old.tc", "new"); }), 70);
    EXPECT_EQ(readFile(folder / "old.tc"), "old");
    EXPECT_EQ(entries(), 1U);
    ::SetFileAttributesW((folder / "old.tc").c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(FileTest, AFileThatAnotherProgramHoldsIsLeftWhole) {
    put(folder / "old.tc", "old");
    HANDLE other = holdAlone(folder / "old.tc");
    ASSERT_NE(other, INVALID_HANDLE_VALUE);
    EXPECT_EQ(errorOf([&] { writeFileWhole(folder / "old.tc", "new"); }), 70);
    EXPECT_EQ(errorOf([&] { (void)readFile(folder / "old.tc"); }), 70);
    ::CloseHandle(other);
    EXPECT_EQ(readFile(folder / "old.tc"), "old");
    EXPECT_EQ(entries(), 1U);
}

TEST_F(FileTest, WhatAnotherProgramIsSavingStays) {
    fs::path working = folder / ".zor-ZOR.ini-a1b2c3";
    put(working, "half");
    HANDLE other = holdAlone(working);
    ASSERT_NE(other, INVALID_HANDLE_VALUE);
    writeFileWhole(folder / "ZOR.ini", "new");
    EXPECT_TRUE(fs::exists(working));
    ::CloseHandle(other);
    writeFileWhole(folder / "ZOR.ini", "new");
    EXPECT_FALSE(fs::exists(working));
}

TEST_F(FileTest, ADeviceIsNoFile) {
    EXPECT_EQ(errorOf([&] { (void)readFile("NUL"); }), 75);
    EXPECT_EQ(errorOf([&] { writeFileWhole("NUL", "new"); }), 75);
}

TEST_F(FileTest, APathMayBeLongerThanTheSystemsOldLimit) {
    fs::path deep = folder;
    for (int level = 0; level < 3; ++level) {
        deep /= std::string(100, 'd');
        ASSERT_NE(
            ::CreateDirectoryW((L"\\\\?\\" + fs::path(deep).make_preferred().native()).c_str(), nullptr), 0);
    }
    writeFileWhole(deep / "new.tc", "new");
    EXPECT_EQ(readFile(deep / "new.tc"), "new");
    EXPECT_TRUE(mayWrite(deep));
}

} // namespace zor
