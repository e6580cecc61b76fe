// SPDX-License-Identifier: MIT
#include "support/record_file.h"

#include "support/error.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace zor {

namespace {

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

} // namespace

} // namespace zor
