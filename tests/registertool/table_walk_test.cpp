// SPDX-License-Identifier: MIT
// A walk over the whole chip costs the list and the database only what it changes.
#include "registertool/register_bench.h"

#include "host/files.h"

#include <gtest/gtest.h>

#include <SQLiteCpp/SQLiteCpp.h>

namespace zor::testing {

namespace {

/// The tool with its first chip chosen and read once.
class TableWalk : public ::testing::Test {
  protected:
    TableWalk() {
        bench.startAndSearch();
        tool = &bench.openTool();
        tool->ChipSelect.choosePosition(0);
        tool->whole.RefreshTable.click();
    }

    [[nodiscard]] static std::string valueIn(SQLite::Database& file, const std::string& address) {
        SQLite::Statement row(file, "SELECT HexValue || '/' || BinaryValue FROM Setting WHERE Address = ?");
        row.bind(1, address);
        return row.executeStep() ? row.getColumn(0).getString() : "";
    }

    RegisterBench bench;
    SPI* tool = nullptr;
};

} // namespace

TEST_F(TableWalk, AReadThatFindsAllAsItWasWritesNothingAndKeepsTheRows) {
    Grid& grid = tool->editor.SettingsDataGrid;
    ASSERT_TRUE(grid.pickRow(1));
    SQLite::Database other(bench.file().string(), SQLite::OPEN_READWRITE);
    int before = other.execAndGet("PRAGMA data_version").getInt();
    int replaced = 0;
    Subscription rows = grid.rowsChanged.subscribe(
        [&](const GridChange& change) { replaced += change.kind == GridChange::Kind::Replaced; });
    tool->whole.RefreshTable.click();
    EXPECT_EQ(other.execAndGet("PRAGMA data_version").getInt(), before);
    EXPECT_EQ(replaced, 0);
    EXPECT_EQ(grid.picked(), 1u);
    EXPECT_EQ(tool->editor.Address.text(), "01");
}

TEST_F(TableWalk, WhatAnotherProgramWroteMeanwhileIsPutRight) {
    SQLite::Database other(bench.file().string(), SQLite::OPEN_READWRITE);
    std::string read = valueIn(other, "01");
    other.exec("UPDATE Setting SET HexValue = '77' WHERE Address = '01'");
    other.exec("UPDATE Setting SET BinaryValue = 'odd' WHERE Address = '02'");
    tool->whole.RefreshTable.click();
    EXPECT_EQ(valueIn(other, "01"), read);
    EXPECT_EQ(valueIn(other, "02"), read);
}

TEST_F(TableWalk, RowsThatAnotherProgramTookOutMeanwhileStayOut) {
    SQLite::Database other(bench.file().string(), SQLite::OPEN_READWRITE);
    other.exec("DELETE FROM Setting WHERE Address = '00'");
    other.exec("UPDATE Setting SET HexValue = '77' WHERE Address = '02'");
    tool->whole.RefreshTable.click();
    EXPECT_TRUE(bench.storeBoxes().empty());
    EXPECT_EQ(other.execAndGet("SELECT count(*) FROM Setting").getInt(), 2);
    EXPECT_EQ(valueIn(other, "02").substr(0, 2), tool->table.at("02")->HexValue);
}

TEST_F(TableWalk, MarksFollowWhatTheyAreHeldAgainstThoughTheRowsStay) {
    Grid& grid = tool->editor.SettingsDataGrid;
    const std::string before = grid.cell(1, 0).text;
    std::filesystem::path file = bench.folder.path() / "a.txt";
    writeFileWhole(file, "One\r\n\r\n01, EE\r\n");
    bench.dialogs.files.push_back(file.string());
    tool->differences.CompareFile.click();
    EXPECT_EQ(grid.cell(1, 0).text, before + "≠");
}

TEST(SettingTable, AnAddressIsFoundInEitherCaseAndItsFirstRegisterCounts) {
    RegisterBench bench;
    std::filesystem::remove(bench.file());
    store::SqliteRegisterStores maker;
    store::makeDatabase(maker, bench.file(), readRegisterList(R"(
chip 1 "One" "P1" 4 3 null null line
register 1 0a "A" R,W,RF 11 8 "" ""
register 1 0B "B" R,W,RF 22 8 "" ""
register 1 0B "C" R,W,RF 33 8 "" ""
)"));
    SPI& tool = bench.openTool();
    EXPECT_EQ(tool.table.at("0A"), nullptr);
    tool.ChipSelect.choosePosition(0);
    ASSERT_NE(tool.table.at("0A"), nullptr);
    EXPECT_EQ(tool.table.at("0A")->Name, "A");
    ASSERT_NE(tool.table.at("0b"), nullptr);
    EXPECT_EQ(tool.table.at("0b")->Name, "B");
    EXPECT_EQ(tool.table.at("0C"), nullptr);
    tool.userClose();
}

} // namespace zor::testing
