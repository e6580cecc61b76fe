// SPDX-License-Identifier: MIT
#include "utilities/download_image.h"

#include <gtest/gtest.h>

namespace zor {

TEST(DownloadImage, PutsTheLoadCommandInFrontAndEndsEveryLine) {
    struct Row {
        const char* file;
        const char* image;
        std::size_t lines;
    };
    const Row rows[] = {
        {"", "", 0},
        {"a", "La\r\n", 1},
        {"a\n", "La\r\n", 1},
        {"a\r\n", "La\r\n", 1},
        {"\n", "L\r\n", 1},
        {"a\nb\r\nc", "La\r\nb\r\nc\r\n", 3},
        {"a\n\nb\n", "La\r\n\r\nb\r\n", 3},
        {"a\r\n\r\n", "La\r\n\r\n", 2},
        {"a\rb\n", "La\rb\r\n", 1},
        {"a\r\r\n", "La\r\r\n", 1},
        {"a\r", "La\r\n", 1},
        {"\r", "L\r\n", 1},
        {"a\r\nb\r", "La\r\nb\r\n", 2},
        {"a\r\nb\nc\r\nd\r\n", "La\r\nb\r\nc\r\nd\r\n", 4},
        {"\r\n\n\r\n", "L\r\n\r\n\r\n", 3},
    };
    for (const Row& row : rows) {
        DownloadImage image(row.file);
        EXPECT_EQ(image.text(), row.image) << row.file;
        EXPECT_EQ(image.lineCount(), row.lines) << row.file;
        EXPECT_EQ(image.empty(), row.lines == 0) << row.file;
    }
}

TEST(DownloadImage, LeavesOutTheLastLineUnlessItIsTheOnlyOne) {
    struct Row {
        const char* file;
        std::size_t lines;
        std::size_t bytes;
        bool loses;
    };
    const Row rows[] = {
        {"abc", 1, 6, false},     {"abc\nd", 1, 6, true},          {"abc\n\n", 1, 6, false},
        {"\n\n", 1, 3, false},    {"abc\nd\nef\n", 2, 9, true},    {"abc\nd\n\n", 2, 9, false},
        {"abc\r\nd", 1, 6, true}, {"a\nb\r\nc\r\nd", 3, 10, true}, {"a\r\nb\n\r\n", 2, 7, false},
    };
    for (const Row& row : rows) {
        DownloadImage image(row.file);
        EXPECT_EQ(image.linesToSend(), row.lines) << row.file;
        EXPECT_EQ(image.bytesToSend(), row.bytes) << row.file;
        EXPECT_EQ(image.losesLastLine(), row.loses) << row.file;
    }
}

TEST(LineCutter, CutsLineByLineAndIsAtTheEndBehindTheLast) {
    const std::string text = "La\r\n\r\nb\r\n";
    LineCutter cutter;
    EXPECT_EQ(cutter.position(), 1u);
    EXPECT_EQ(cutter.cut(text), "La\r\n");
    EXPECT_EQ(cutter.position(), 5u);
    EXPECT_FALSE(cutter.atEnd(text));
    EXPECT_EQ(cutter.cut(text), "\r\n");
    EXPECT_FALSE(cutter.atEnd(text));
    EXPECT_EQ(cutter.cut(text), "b\r\n");
    EXPECT_TRUE(cutter.atEnd(text));
    EXPECT_EQ(cutter.cut(text), "");
    EXPECT_EQ(cutter.cut(text), "");
    EXPECT_TRUE(cutter.atEnd(text));
}

TEST(LineCutter, ACarriageReturnInsideALineEndsNothing) {
    const std::string text = "La\rb\r\r\nc\r\n";
    LineCutter cutter;
    EXPECT_EQ(cutter.cut(text), "La\rb\r\r\n");
    EXPECT_EQ(cutter.cut(text), "c\r\n");
}

} // namespace zor
