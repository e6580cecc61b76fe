// SPDX-License-Identifier: MIT
// What the register tool does where it may not write, and what it leaves when it is killed.
#include "registertool/register_bench.h"

#include "support/as_ordinary_user.h"

#include <gtest/gtest.h>

#include <sqlite3.h>

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

namespace zor::testing {

TEST(RegisterStoreFault, TheFileGoesToTheUsersFolderWhereTheProgramsCannotBeWritten) {
    EXPECT_TRUE(holdsForOrdinaryUser([] {
        RegisterBench bench;
        using std::filesystem::perms;
        std::filesystem::remove(bench.file());
        std::filesystem::permissions(bench.platform.programFolder, perms::owner_read | perms::owner_exec);
        bench.openTool();
        EXPECT_TRUE(bench.storeBoxes().empty());
        EXPECT_TRUE(std::filesystem::exists(bench.platform.userFolder / "ZOR.db"));
        EXPECT_FALSE(std::filesystem::exists(bench.file()));
        std::filesystem::permissions(bench.platform.programFolder, perms::owner_all);
    }));
}

namespace {

namespace fs = std::filesystem;

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
