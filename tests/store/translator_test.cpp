// SPDX-License-Identifier: MIT
#include "store/translator.h"

#include "support/error.h"

#include <gtest/gtest.h>

#include <ostream>

namespace zor::store {

namespace {

using Value = std::variant<std::int64_t, std::string>;

struct Row {
    const char* text;
    const char* sql;
    std::vector<Value> values;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.text;
}

class Translations : public ::testing::TestWithParam<Row> {};
class UnknownTexts : public ::testing::TestWithParam<const char*> {};

TEST_P(Translations, StandAsListed) {
    Translation found = translate(GetParam().text);
    EXPECT_EQ(found.sql, GetParam().sql);
    EXPECT_EQ(found.values, GetParam().values);
}

TEST(AsStored, HasTheRowsWithoutTheOrder) {
    EXPECT_EQ(asStored(translate("Select * from Register where Name = 'a ORDER BY b' ORDER BY Address")).sql,
              R"(SELECT rowid, * FROM "Register" WHERE "Name" = ? ORDER BY rowid)");
}

TEST_P(UnknownTexts, AreAnError) {
    EXPECT_THROW((void)translate(GetParam()), ToolError);
}

constexpr std::int64_t yes = 1;
constexpr std::int64_t no = 0;

// clang-format off
INSTANTIATE_TEST_SUITE_P(Of, Translations, ::testing::Values(
    Row{"delete * from Setting",             "DELETE FROM \"Setting\"", {}},
    Row{"delete * from RXFIFO",              "DELETE FROM \"RXFIFO\"", {}},
    Row{"delete * from TXFIFO",              "DELETE FROM \"TXFIFO\"", {}},
    Row{"Select * from Chip",                "SELECT rowid, * FROM \"Chip\" ORDER BY rowid", {}},
    Row{"Select * from Register where ChipID = 1",
        "SELECT rowid, * FROM \"Register\" WHERE \"ChipID\" = ? ORDER BY rowid", {std::int64_t{1}}},
    Row{"Select * from Setting order by Name",
        "SELECT rowid, * FROM \"Setting\" ORDER BY \"Name\", rowid", {}},
    Row{"Select * from TXFIFO",              "SELECT rowid, * FROM \"TXFIFO\" ORDER BY rowid", {}},
    Row{"Select * from RXFIFO",              "SELECT rowid, * FROM \"RXFIFO\" ORDER BY rowid", {}},
    Row{"Select * from Register where ChipID = 12 AND Databits = 8 ORDER BY Address",
        "SELECT rowid, * FROM \"Register\" WHERE \"ChipID\" = ? AND \"Databits\" = ? ORDER BY \"Address\", rowid",
        {std::int64_t{12}, std::int64_t{8}}},
    Row{"Select * from Register where ChipID = 12 AND Databits = 8 ORDER BY Name",
        "SELECT rowid, * FROM \"Register\" WHERE \"ChipID\" = ? AND \"Databits\" = ? ORDER BY \"Name\", rowid",
        {std::int64_t{12}, std::int64_t{8}}},
    Row{"Select * from Setting where StatusReg = False",
        "SELECT rowid, * FROM \"Setting\" WHERE \"StatusReg\" = ? ORDER BY rowid", {no}},
    Row{"Select * from Register where ChipID = 3 AND StatusReg = True",
        "SELECT rowid, * FROM \"Register\" WHERE \"ChipID\" = ? AND \"StatusReg\" = ? ORDER BY rowid",
        {std::int64_t{3}, yes}},
    Row{"Select * from Setting where RFReg = True ORDER BY Address",
        "SELECT rowid, * FROM \"Setting\" WHERE \"RFReg\" = ? ORDER BY \"Address\", rowid", {yes}},
    Row{"Select * from Setting where RFReg = True OR TestReg = True OR DigitalReg = True OR MiscReg = True ORDER BY Name",
        "SELECT rowid, * FROM \"Setting\" WHERE \"RFReg\" = ? OR \"TestReg\" = ? OR \"DigitalReg\" = ? OR \"MiscReg\" = ? ORDER BY \"Name\", rowid",
        {yes, yes, yes, yes}},
    Row{"Select * from Setting where RFReg = True OR MiscReg = True ",
        "SELECT rowid, * FROM \"Setting\" WHERE \"RFReg\" = ? OR \"MiscReg\" = ? ORDER BY rowid", {yes, yes}},
    Row{"Select * from Setting where Address = 'n/a' ORDER BY Address",
        "SELECT rowid, * FROM \"Setting\" WHERE \"Address\" = ? ORDER BY \"Address\", rowid", {std::string("n/a")}},
    Row{"SELECT * FROM setting WHERE statusreg = FALSE",
        "SELECT rowid, * FROM \"Setting\" WHERE \"StatusReg\" = ? ORDER BY rowid", {no}},
    Row{"Select * from Setting where Name = '; drop table Chip --'",
        "SELECT rowid, * FROM \"Setting\" WHERE \"Name\" = ? ORDER BY rowid", {std::string("; drop table Chip --")}}));

INSTANTIATE_TEST_SUITE_P(Of, UnknownTexts, ::testing::Values(
    "", " ", "delete from Setting", "delete * from", "delete * from Settings", "delete * from Setting where R = True",
    "update Setting set R = True", "Select Name from Setting", "Select * from sqlite_master",
    "Select * from Setting where", "Select * from Setting where ChipID = 1", "Select * from Setting where Name 'a'",
    "Select * from Setting where Name = 'a", "Select * from Setting where Name = a", "Select * from Chip where ChipID = 1x",
    "Select * from Setting where R = True OR", "Select * from Setting order by Size", "Select * from Setting order Name",
    "Select * from Setting; delete * from Chip", "Select * from Chip where ChipID = 99999999999999999999"));
// clang-format on

} // namespace

TEST(Criterion, ComparesOneColumnWithAValueInQuotesOrNot) {
    auto is = [](const char* text, const char* column, const char* value) {
        Criterion found = readCriterion(text);
        return found.column == column && found.value == value;
    };
    EXPECT_TRUE(is("ChipID = 3", "ChipID", "3"));
    EXPECT_TRUE(is("Address = '0A'", "Address", "0A"));
    EXPECT_TRUE(is("Address = 0A", "Address", "0A"));
    EXPECT_TRUE(is("Address = ''", "Address", ""));
    EXPECT_TRUE(is("Address = ", "Address", ""));
    EXPECT_TRUE(is("Address = 'it's'", "Address", "it's"));
    EXPECT_THROW((void)readCriterion("Address"), ToolError);
    EXPECT_THROW((void)readCriterion("= 3"), ToolError);
}

} // namespace zor::store
