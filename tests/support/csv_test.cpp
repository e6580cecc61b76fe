// SPDX-License-Identifier: MIT
#include "support/csv.h"

#include <gtest/gtest.h>

namespace zor {

namespace {

using Fields = std::vector<std::string>;

/// "line:column what" of what is thrown.
std::string failureOf(std::string_view text) {
    try {
        (void)readCsv(text);
    } catch (const CsvError& error) {
        return std::to_string(error.line) + ":" + std::to_string(error.column) + " " + error.what();
    }
    return "none";
}

} // namespace

TEST(Csv, QuotesAFieldOnlyWhereItMust) {
    EXPECT_EQ(csvField("plain text"), "plain text");
    EXPECT_EQ(csvField("a,b"), "\"a,b\"");
    EXPECT_EQ(csvField("say \"hm\""), "\"say \"\"hm\"\"\"");
    EXPECT_EQ(csvField("two\nlines"), "\"two\nlines\"");
    EXPECT_EQ(csvLine({"a", "", "b,c"}), "a,,\"b,c\"\r\n");
}

TEST(Csv, ReadsWhatItWrites) {
    Fields fields = {"a", "", "b,c", "\"", "x\r\ny", " blank "};
    auto rows = readCsv(csvLine(fields) + csvLine({"next", "1"}));
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0].fields, fields);
    EXPECT_EQ(rows[0].line, 1u);
    EXPECT_EQ(rows[1].line, 3u);
}

TEST(Csv, TakesEachKindOfLineEndAndAByteOrderMark) {
    for (const char* text : {"a,b\r\nc,d\r\n", "a,b\nc,d\n", "a,b\rc,d\r", "a,b\nc,d",
                             "\xEF\xBB\xBF"
                             "a,b\nc,d"}) {
        auto rows = readCsv(text);
        ASSERT_EQ(rows.size(), 2u) << text;
        EXPECT_EQ(rows[0].fields, (Fields{"a", "b"})) << text;
        EXPECT_EQ(rows[1].fields, (Fields{"c", "d"})) << text;
        EXPECT_EQ(rows[1].line, 2u) << text;
    }
}

TEST(Csv, LeavesOutEmptyLinesAndCountsThem) {
    auto rows = readCsv("a\n\n\nb\n\n");
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[1].line, 4u);
    EXPECT_TRUE(readCsv("").empty());
}

TEST(Csv, NamesLineAndColumnOfWhatItCannotRead) {
    EXPECT_EQ(failureOf("a,b\nc,d\"e\n"), "2:2 a quotation mark inside a field that does not begin with one");
    EXPECT_EQ(failureOf("a\n\"b"), "2:1 a quotation mark is never closed");
    EXPECT_EQ(failureOf("a,\"b\nc\"d\n"), "2:2 more behind the closing quotation mark");
    EXPECT_EQ(failureOf("a,\"b\nc\",d\n"), "none");
}

TEST(CsvFields, StandInQuotationMarksWhereTheyMustOrWhereAllDo) {
    EXPECT_EQ(csvField("plain"), "plain");
    EXPECT_EQ(csvField("a,b"), "\"a,b\"");
    EXPECT_EQ(csvQuoted("plain"), "\"plain\"");
    EXPECT_EQ(csvQuoted("say \"on\""), "\"say \"\"on\"\"\"");
}

} // namespace zor
