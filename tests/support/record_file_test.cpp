// SPDX-License-Identifier: MIT
#include "support/as_ordinary_user.h"
#include "support/record_file.h"

#include "support/error.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <limits>
#include <string>
#include <vector>

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

int textError(const std::string& bytes) {
    return errorOf([&] { (void)RecordReader(bytes).text(); });
}

int booleanError(const std::string& bytes) {
    return errorOf([&] { (void)RecordReader(bytes).boolean(); });
}

int integerError(const std::string& bytes) {
    return errorOf([&] { (void)RecordReader(bytes).integer(); });
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

TEST(RecordWriter, WritesOneValueALineEndedByCrLf) {
    RecordWriter writer;
    writer.text("# ZOR ini file version 2.2.0");
    writer.text("");
    writer.boolean(true);
    writer.boolean(false);
    writer.integer(-7);
    writer.integer(std::numeric_limits<std::int32_t>::max());
    writer.position(8930.0F);
    writer.position(-.5F);
    EXPECT_EQ(writer.bytes(), "\"# ZOR ini file version 2.2.0\"\r\n\"\"\r\n#TRUE#\r\n#FALSE#\r\n-7\r\n"
                              "2147483647\r\n8930\r\n-.5\r\n");
}

TEST(RecordReader, ReadsBackWhatTheWriterWrote) {
    RecordWriter writer;
    writer.text(" two  blanks , comma \xb5\xff");
    writer.boolean(true);
    writer.integer(std::numeric_limits<std::int32_t>::min());
    writer.position(1234.5F);
    writer.boolean(false);
    writer.text("");
    RecordReader reader(writer.bytes());
    EXPECT_EQ(reader.text(), " two  blanks , comma \xb5\xff");
    EXPECT_TRUE(reader.boolean());
    EXPECT_EQ(reader.integer(), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(reader.integer(), 1234); // a tie, to the even neighbour
    EXPECT_FALSE(reader.boolean());
    EXPECT_FALSE(reader.atEnd());
    EXPECT_EQ(reader.text(), "");
    EXPECT_TRUE(reader.atEnd());
}

TEST(RecordReader, EveryLineEndWillDo) {
    RecordReader reader("1\r\n2\n3\r4\n\"a\"\r\n5");
    EXPECT_EQ(reader.integer(), 1);
    EXPECT_EQ(reader.integer(), 2);
    EXPECT_EQ(reader.integer(), 3);
    EXPECT_EQ(reader.integer(), 4);
    EXPECT_EQ(reader.text(), "a");
    EXPECT_EQ(reader.integer(), 5);
    EXPECT_TRUE(reader.atEnd());
}

TEST(RecordReader, BlanksAroundAValueDoNotCount) {
    RecordReader reader("  \"a b\"\t \r\n\t7 \r\n #TRUE# \r\n");
    EXPECT_EQ(reader.text(), "a b");
    EXPECT_EQ(reader.integer(), 7);
    EXPECT_TRUE(reader.boolean());
}

TEST(RecordReader, ATextEndsAtItsSecondMark) {
    EXPECT_EQ(RecordReader("\"a\"b\"\r\n").text(), "a");
    EXPECT_EQ(RecordReader("\"\"\"\"\r\n").text(), "");
    EXPECT_EQ(textError("\"a\r\nb\"\r\n"), 13);
    EXPECT_EQ(textError("\""), 13);
}

TEST(RecordReader, TellsALineThatIsExactlyATextFromOneWithMoreInIt) {
    auto exactly = [](const std::string& line) { return RecordReader(line).isExactly("a b"); };
    EXPECT_TRUE(exactly("\"a b\"\r\n"));
    EXPECT_TRUE(exactly("\"a b\"\n"));
    EXPECT_TRUE(exactly("\"a b\""));
    for (const char* other :
         {" \"a b\"\r\n", "\"a b\" \r\n", "\t\"a b\"\r\n", "\"a b\",1\r\n", "\"a b\"x\r\n", "\"a  b\"\r\n",
          "a b\r\n", "\"a b\r\n", "a b\"\r\n", "\r\n", "\"\r\n"}) {
        EXPECT_FALSE(exactly(other)) << other;
    }
    EXPECT_EQ(errorOf([] { (void)RecordReader("").isExactly("a b"); }), 62);
}

TEST(RecordReader, TellsATextFromARecordOfAnotherForm) {
    RecordReader reader(" \"a\" \r\n\"b\"\r\na\r\n1\r\n\"a\r\n\"a\"");
    std::string seen;
    while (!reader.atEnd()) {
        seen += reader.isText("a") ? '1' : '0';
    }
    EXPECT_EQ(seen, "100001");
    EXPECT_EQ(errorOf([&] { (void)reader.isText("a"); }), 62);
}

TEST(RecordReader, ARecordOfAnotherFormIsATypeMismatch) {
    for (const char* bytes : {"1\r\n", "#TRUE#\r\n", "abc\r\n", "\r\n", "'a'\r\n", "a\"b\"\r\n"}) {
        EXPECT_EQ(textError(bytes), 13) << bytes;
    }
    for (const char* bytes : {"1\r\n", "0\r\n", "\"#TRUE#\"\r\n", "#true#\r\n", "TRUE\r\n", "#TRUE\r\n",
                              "#TRUE#x\r\n", "#NULL#\r\n", "\r\n", "#\r\n"}) {
        EXPECT_EQ(booleanError(bytes), 13) << bytes;
    }
    for (const char* bytes : {"\"1\"\r\n", "#TRUE#\r\n", "abc\r\n", "\r\n", "-\r\n", "+\r\n", ".\r\n",
                              "1.2.3\r\n", "1,5\r\n", "1 2\r\n", "--1\r\n", "1-\r\n", "1e3\r\n", "&H13\r\n",
                              "0x1\r\n", "nan\r\n", "inf\r\n", "\xb2\r\n"}) {
        EXPECT_EQ(integerError(bytes), 13) << bytes;
    }
}

TEST(RecordReader, WholeNumbersTakeSignAndFractionButNot33Bits) {
    EXPECT_EQ(RecordReader("+5").integer(), 5);
    EXPECT_EQ(RecordReader("-0").integer(), 0);
    EXPECT_EQ(RecordReader(".5").integer(), 0);
    EXPECT_EQ(RecordReader("1.5").integer(), 2);
    EXPECT_EQ(RecordReader("-2.5").integer(), -2);
    EXPECT_EQ(RecordReader("2147483647.4").integer(), 2147483647);
    EXPECT_EQ(integerError("2147483647.5"), 6);
    EXPECT_EQ(integerError("2147483648"), 6);
    EXPECT_EQ(integerError("-2147483649"), 6);
    EXPECT_EQ(integerError(std::string(10000, '9')), 6);
    EXPECT_EQ(integerError("-" + std::string(10000, '9')), 6);
}

TEST(RecordReader, BehindTheLastRecordTheInputIsPastItsEnd) {
    EXPECT_EQ(textError(""), 62);
    EXPECT_EQ(booleanError(""), 62);
    EXPECT_EQ(integerError(""), 62);
    RecordReader reader("1\r\n");
    EXPECT_EQ(reader.integer(), 1);
    EXPECT_TRUE(reader.atEnd());
    for (int again = 0; again < 3; ++again) {
        EXPECT_EQ(errorOf([&] { (void)reader.integer(); }), 62);
    }
}

TEST(RecordReader, AFileCutAnywhereEndsInAnErrorOrAtItsEnd) {
    RecordWriter writer;
    writer.text("banner");
    writer.integer(42);
    writer.boolean(true);
    const std::string whole = writer.bytes();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        RecordReader reader(whole.substr(0, length));
        std::string text;
        std::int32_t number = 0;
        bool truth = false;
        int error = errorOf([&] {
            text = reader.text();
            number = reader.integer();
            truth = reader.boolean();
        });
        // "banner" stands whole from its mark at 8 on, #TRUE# from byte 20 on; before, nothing true is
        // invented.
        bool complete = length >= 20;
        EXPECT_EQ(error == 0, complete) << length;
        EXPECT_TRUE(error == 0 || error == 13 || error == 62) << length << ": " << error;
        EXPECT_EQ(truth, complete) << length;
        EXPECT_EQ(text, length >= 8 ? "banner" : "") << length;
    }
}

TEST(RecordReader, ARecordOfAMegabyteIsRead) {
    std::string text(1U << 20, 'x');
    RecordReader reader("\"" + text + "\"\r\n1");
    EXPECT_EQ(reader.text(), text);
    EXPECT_EQ(reader.integer(), 1);
}

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
