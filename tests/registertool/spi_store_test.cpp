// SPDX-License-Identifier: MIT
// What the register tool does when its database fails it, and what it leaves when it is killed.
#include "registertool/spi.h"

#include "store/register_list_store.h"
#include "store/sqlite_register_store.h"
#include "support/as_ordinary_user.h"
#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

namespace zor::testing {

namespace {

namespace fs = std::filesystem;

constexpr const char* chips = R"(
chip 1 "One" "P1" 4 3 null null line
chip 2 "Two" "P2" 2 0 null null line
register 1 00 "A" R,W,RF   11 8 "" ""
register 1 01 "B" R,W,Test 22 8 "" ""
register 1 02 "C" R,W,Misc 33 8 "" ""
register 2 07 "D" R,W,Misc 44 8 "" ""
)";

/// The program with a board and a database of two chips.
class RegisterBench : public VirtualBench {
  public:
    RegisterBench() {
        ports.place(1, sim::BoardKind::LoadBoard2).circuits().fitRegisters();
        store::SqliteRegisterStores maker;
        store::makeDatabase(maker, file(), readRegisterList(chips));
    }

    [[nodiscard]] fs::path file() const { return platform.programFolder / "ZOR.db"; }
    SPI& openTool() {
        loop.perform([this] { shared().tools.open(Tool::SPI); });
        return dynamic_cast<SPI&>(*desk.find("SPI"));
    }
    /// Numbers and texts of the boxes of the database.
    std::vector<std::string> storeBoxes() {
        std::vector<std::string> texts;
        for (const Box& box : dialogs.boxes) {
            texts.push_back(box.title + ": " + box.text);
        }
        dialogs.boxes.clear();
        return texts;
    }
};

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

TEST(RegisterStoreFault, TheFileGoesToTheUsersFolderWhereTheProgramsCannotBeWritten) {
    EXPECT_TRUE(holdsForOrdinaryUser([] {
        RegisterBench bench;
        fs::remove(bench.file());
        fs::permissions(bench.platform.programFolder, fs::perms::owner_read | fs::perms::owner_exec);
        bench.openTool();
        EXPECT_TRUE(bench.storeBoxes().empty());
        EXPECT_TRUE(fs::exists(bench.platform.userFolder / "ZOR.db"));
        EXPECT_FALSE(fs::exists(bench.file()));
        fs::permissions(bench.platform.programFolder, fs::perms::owner_all);
    }));
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

namespace {

int statementsLeft = 0;

int countStatement(unsigned, void*, void*, void*) {
    if (--statementsLeft == 0) {
        ::raise(SIGKILL);
    }
    return 0;
}

int watchConnection(sqlite3* database, const char**, const sqlite3_api_routines*) {
    return sqlite3_trace_v2(database, SQLITE_TRACE_STMT, countStatement, nullptr);
}

/// Chooses both chips in turn in a program of its own that is killed before its `last`-th statement on the
/// database. @return whether it came to its end before
bool chooseUntilKilled(RegisterBench& bench, int last) {
    pid_t child = ::fork();
    if (child == 0) {
        statementsLeft = last;
        sqlite3_auto_extension(reinterpret_cast<void (*)()>(watchConnection));
        SPI& tool = bench.openTool();
        tool.ChipSelect.choosePosition(0);
        tool.ChipSelect.choosePosition(1);
        tool.ChipSelect.choosePosition(0);
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) || WTERMSIG(status) == SIGKILL) << status;
    return WIFEXITED(status);
}

/// Registers and transmit FIFO rows in the worktables that a killed program left.
std::pair<std::size_t, std::size_t> leftIn(const fs::path& file) {
    store::SqliteRegisterStores stores;
    auto store = stores.open(file);
    EXPECT_EQ(store->select("Select * from Chip")->count(), 2u);
    return {store->select("Select * from Setting")->count(), store->select("Select * from TXFIFO")->count()};
}

} // namespace

TEST(RegisterStoreFault, AProgramKilledAnywhereInAChoiceLeavesASoundFileAndWholeWorktables) {
    using Left = std::pair<std::size_t, std::size_t>;
    RegisterBench bench;
    bool ended = false;
    int kills = 0;
    for (int last = 1; !ended; ++last) {
        ended = chooseUntilKilled(bench, last);
        kills += ended ? 0 : 1;
        Left left = leftIn(bench.file());
        EXPECT_TRUE(left == Left(0, 0) || left == Left(3, 4) || left == Left(1, 2))
            << left.first << " registers and " << left.second << " bytes behind statement " << last;
    }
    EXPECT_GT(kills, 30);
}

} // namespace zor::testing
