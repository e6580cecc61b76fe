// SPDX-License-Identifier: MIT
// What is to hold on every system.
#include "host/file_test.h"

namespace zor {

namespace {

namespace fs = std::filesystem;

} // namespace

TEST_F(FileTest, AFileIsWrittenAndReadToTheByte) {
    std::string bytes;
    for (int value = 0; value < 256; ++value) {
        bytes.append("\r\n\x1a").push_back(static_cast<char>(value));
    }
    writeFileWhole(folder / "new.tc", bytes);
    EXPECT_EQ(readFile(folder / "new.tc"), bytes);
    writeFileWhole(folder / "new.tc", "shorter");
    EXPECT_EQ(readFile(folder / "new.tc"), "shorter");
    EXPECT_EQ(entries(), 1U);
}

TEST_F(FileTest, ANameInAnyLanguageIsThatName) {
    fs::path name = u8"M\u00e4rz \u4e00 \U0001F4FB.tc";
    writeFileWhole(nameOf(folder / name), "new");
    EXPECT_EQ(readFile(folder / name), "new");
    EXPECT_EQ(readFile(nameOf(folder / name)), "new");
    EXPECT_EQ(fs::directory_iterator(folder)->path().filename(), name);
}

TEST_F(FileTest, WritingAFolderIsAnAccessError) {
    fs::create_directory(folder / "sub");
    EXPECT_EQ(errorOf([&] { writeFileWhole(folder / "sub", "new"); }), 75);
    EXPECT_TRUE(fs::is_directory(folder / "sub"));
    EXPECT_EQ(entries(), 1U);
}

TEST_F(FileTest, ReadingTellsAMissingFileFromAMissingFolder) {
    put(folder / "file", "x");
    EXPECT_EQ(errorOf([&] { (void)readFile(folder / "none.tc"); }), 53);
    EXPECT_EQ(errorOf([&] { (void)readFile(folder / "none/none.tc"); }), 76);
    EXPECT_EQ(errorOf([&] { (void)readFile(folder / "file/none.tc"); }), 76);
    EXPECT_EQ(errorOf([&] { (void)readFile(folder); }), 75);
    EXPECT_EQ(errorOf([&] { (void)readFile(""); }), 53);
}

TEST_F(FileTest, OnlyAFolderThatIsThereMayBeWritten) {
    put(folder / "file", "x");
    EXPECT_TRUE(mayWrite(folder));
    EXPECT_FALSE(mayWrite(folder / "none"));
    EXPECT_EQ(entries(), 1U);
}

TEST_F(FileTest, AnEmptyFileIsWrittenAndReadAsSuch) {
    writeFileWhole(folder / "empty", "");
    EXPECT_EQ(readFile(folder / "empty"), "");
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

TEST_F(FileTest, AFileLongerThanTheLimitIsRefused) {
    put(folder / "long", std::string(100000, 'x'));
    EXPECT_EQ(readFile(folder / "long", 100000).size(), 100000U);
    EXPECT_EQ(errorOf([&] { (void)readFile(folder / "long", 99999); }), 57);
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

} // namespace zor
