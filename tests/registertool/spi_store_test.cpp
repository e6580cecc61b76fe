// SPDX-License-Identifier: MIT
// What the register tool does when its database fails it.
#include "registertool/register_bench.h"

#include <gtest/gtest.h>

#include <SQLiteCpp/SQLiteCpp.h>

namespace zor::testing {

namespace {

namespace fs = std::filesystem;

std::vector<std::string> oneBox(const std::string& failure) {
    return {"Register database: Error occured:" + failure + "\r\nPlease try again!"};
}

void expectEmpty(const SPI& tool) {
    EXPECT_TRUE(tool.isOpen());
    EXPECT_EQ(tool.store, nullptr);
    EXPECT_TRUE(tool.ChipSelect.entries().empty());
    EXPECT_EQ(tool.editor.SettingsDataGrid.rowCount(), 0u);
    EXPECT_EQ(tool.fifo.TXFIFO.rowCount(), 0u);
    EXPECT_TRUE(tool.whole.RefreshTable.enabled());
}

/// Every button, list and field that is there, used once.
void useEverything(SPI& tool) {
    for (Element* element : tool.elements()) {
        if (element != &tool.Stop) {
            element->click();
            element->choosePosition(0);
            element->type("0A");
        }
    }
}

} // namespace

TEST(RegisterStoreFault, AReadOnlyFileGivesOneBoxAndAnEmptyTool) {
    RegisterBench bench;
    bench.startAndSearch();
    fs::permissions(bench.file(), fs::perms::owner_read);
    SPI& tool = bench.openTool();
    EXPECT_EQ(bench.storeBoxes(), oneBox("70,Permission denied"));
    expectEmpty(tool);
    useEverything(tool);
    for (const std::string& box : bench.storeBoxes()) {
        EXPECT_FALSE(box.starts_with("Register database")) << box;
    }
}

TEST(RegisterStoreFault, AFileThatLacksAColumnIsToldByItsName) {
    RegisterBench bench;
    bench.startAndSearch();
    SQLite::Database(bench.file().string(), SQLite::OPEN_READWRITE)
        .exec("ALTER TABLE Register DROP COLUMN Databits");
    SPI& tool = bench.openTool();
    EXPECT_EQ(bench.storeBoxes(), oneBox("1227,The table Register has no column Databits"));
    expectEmpty(tool);
}

TEST(RegisterStoreFault, AFileThatAnotherProgramHoldsIsToldOnceAndOpensLater) {
    RegisterBench bench;
    bench.startAndSearch();
    {
        SQLite::Database other(bench.file().string(), SQLite::OPEN_READWRITE);
        SQLite::Transaction writing(other, SQLite::TransactionBehavior::EXCLUSIVE);
        SPI& tool = bench.openTool();
        EXPECT_EQ(bench.storeBoxes(), oneBox("70,Permission denied"));
        expectEmpty(tool);
        tool.userClose();
    }
    EXPECT_EQ(bench.openTool().ChipSelect.entries().size(), 2u);
    EXPECT_TRUE(bench.storeBoxes().empty());
}

TEST(RegisterStoreFault, AFailureInTheMiddleOfARefreshEndsItAndEmptiesTheTool) {
    RegisterBench bench;
    bench.startAndSearch();
    SPI& tool = bench.openTool();
    tool.ChipSelect.choosePosition(0);
    std::unique_ptr<SQLite::Database> other;
    bench.after(std::chrono::milliseconds(12), [&] {
        other = std::make_unique<SQLite::Database>(bench.file().string(), SQLite::OPEN_READWRITE);
        other->exec("BEGIN IMMEDIATE");
    });
    tool.whole.RefreshTable.click();
    EXPECT_EQ(bench.storeBoxes(), oneBox("70,Permission denied"));
    expectEmpty(tool);
    EXPECT_FALSE(tool.Stop.enabled());
}

TEST(RegisterStoreFault, AFailedChoiceLeavesTheWorktablesAsTheyWere) {
    RegisterBench bench;
    bench.startAndSearch();
    SPI& tool = bench.openTool();
    tool.ChipSelect.choosePosition(0);
    {
        SQLite::Database other(bench.file().string(), SQLite::OPEN_READWRITE);
        SQLite::Transaction writing(other, SQLite::TransactionBehavior::IMMEDIATE);
        tool.ChipSelect.choosePosition(1);
    }
    EXPECT_EQ(bench.storeBoxes(), oneBox("70,Permission denied"));
    expectEmpty(tool);
    SQLite::Database file(bench.file().string());
    EXPECT_EQ(file.execAndGet("SELECT count(*) FROM Setting").getInt(), 3);
    EXPECT_EQ(file.execAndGet("SELECT count(*) FROM TXFIFO").getInt(), 4);
}

TEST(RegisterStoreFault, TwoProgramsOnOneFileLeaveItSound) {
    RegisterBench bench;
    bench.startAndSearch();
    SPI& tool = bench.openTool();
    store::SqliteRegisterStores others;
    auto second = others.open(bench.file());
    for (int turn = 0; turn < 20; ++turn) {
        tool.ChipSelect.choosePosition(turn % 2);
        StoreTransaction transaction(*second);
        second->run("delete * from Setting");
        transaction.commit();
        tool.whole.RefreshTable.click();
    }
    EXPECT_TRUE(bench.storeBoxes().empty());
    EXPECT_EQ(others.open(bench.file())->select("Select * from Chip")->count(), 2u);
}

TEST(RegisterStoreFault, TheDatabaseThatComesWithTheProgramIsCopiedAtFirstUseOnly) {
    RegisterBench bench;
    bench.platform.startDatabase = bench.folder.path() / "start.db";
    fs::rename(bench.file(), bench.platform.startDatabase);
    SPI& tool = bench.openTool();
    EXPECT_EQ(tool.ChipSelect.entries().size(), 2u);
    tool.ChipSelect.choosePosition(0);
    tool.userClose();
    EXPECT_EQ(SQLite::Database(bench.platform.startDatabase.string())
                  .execAndGet("SELECT count(*) FROM Setting")
                  .getInt(),
              0);
    SQLite::Database(bench.file().string(), SQLite::OPEN_READWRITE).exec("DELETE FROM Chip WHERE ChipID = 2");
    EXPECT_EQ(bench.openTool().ChipSelect.entries().size(), 1u);
}

} // namespace zor::testing
