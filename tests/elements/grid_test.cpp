// SPDX-License-Identifier: MIT
#include "elements/grid.h"

#include "elements/desk.h"
#include "elements/form.h"
#include "virtual/virtual_loop.h"

#include <gtest/gtest.h>

namespace zor {

namespace {

using Access = GridColumn::Access;

/// A grid of two columns in an open window, with a record of what it tells.
struct Table {
    Table() {
        form.show();
        changes = grid.rowsChanged.subscribe([this](const GridChange& change) {
            const char* kinds[] = {"replaced", "inserted", "removed", "changed"};
            log += std::string(change.moment == GridChange::Moment::Before ? "<" : "") +
                   kinds[static_cast<int>(change.kind)] + " " + std::to_string(change.first) + "+" +
                   std::to_string(change.count) + " of " + std::to_string(grid.rowCount()) + "; ";
        });
        picks = grid.pickChanged.subscribe([this] { log += "picked; "; });
    }
    void fill() {
        grid.setRows({{{"00"}, {"A"}}, {{"01"}, {"B"}}, {{"02"}, {"C"}}});
        log.clear();
    }

    zor::testing::VirtualLoop loop;
    Desk desk{loop};
    Form form{desk, "Window", "A window"};
    Grid grid{form, "Table", {{.caption = "Addr."}, {.caption = "Hex", .access = Access::Editable}}};
    std::string log;
    Subscription changes;
    Subscription picks;
};

} // namespace

TEST(Grid, FindsAColumnByItsCaption) {
    Table table;
    EXPECT_EQ(table.grid.column("Hex"), 1u);
    EXPECT_EQ(table.grid.column("hex"), std::nullopt);
}

TEST(Grid, TellsAReplacementBeforeAndBehindIt) {
    Table table;
    table.grid.setRows({{{"00"}, {"A"}}});
    EXPECT_EQ(table.log, "<replaced 0+0 of 0; replaced 0+0 of 1; ");
}

TEST(Grid, FillsShortRowsUp) {
    Table table;
    table.grid.setRows({{{"00"}}});
    EXPECT_EQ(table.grid.cell(0, 1).text, "");
}

TEST(Grid, TellsTheRowThatChangedAndOnlyIfItDid) {
    Table table;
    table.fill();
    table.grid.setCell(1, 1, {"B"});
    EXPECT_EQ(table.log, "");
    table.grid.setCell(1, 1, {"F"});
    table.grid.setRow(2, {{"02"}, {"C", CellLook::Wrong}});
    EXPECT_EQ(table.log, "changed 1+1 of 3; changed 2+1 of 3; ");
}

TEST(Grid, ThePickedRowMovesWithRowsPutInAndTakenOutAboveIt) {
    Table table;
    table.fill();
    table.grid.putPicked(1);
    table.grid.insertRows(0, {{{"F0"}}, {{"F1"}}});
    EXPECT_EQ(table.grid.picked(), 3u);
    table.grid.removeRows(0, 1);
    EXPECT_EQ(table.grid.picked(), 2u);
    EXPECT_EQ(table.grid.cell(2, 1).text, "B");
    table.grid.insertRows(4, {{{"F2"}}});
    EXPECT_EQ(table.grid.picked(), 2u);
    EXPECT_EQ(table.log,
              "picked; <inserted 0+2 of 3; inserted 0+2 of 5; <removed 0+1 of 5; removed 0+1 of 4; "
              "<inserted 4+1 of 4; inserted 4+1 of 5; ");
}

TEST(Grid, ARemovedOrReplacedRowIsNoLongerPicked) {
    Table table;
    table.fill();
    table.grid.putPicked(1);
    table.grid.removeRows(1, 1);
    EXPECT_EQ(table.grid.picked(), std::nullopt);
    table.grid.putPicked(0);
    table.grid.setRows({});
    EXPECT_EQ(table.grid.picked(), std::nullopt);
}

TEST(Grid, PickingRunsTheActionEachTime) {
    Table table;
    table.fill();
    int picks = 0;
    table.grid.onPick = [&] { ++picks; };
    EXPECT_TRUE(table.grid.pickRow(2));
    EXPECT_TRUE(table.grid.pickRow(2));
    EXPECT_FALSE(table.grid.pickRow(3));
    EXPECT_EQ(picks, 2);
    table.grid.putPicked(0);
    EXPECT_EQ(picks, 2);
    EXPECT_EQ(table.log, "picked; picked; ");
}

TEST(Grid, AnEditPicksItsRowFirstAndShowsWhatTheActionMakesOfIt) {
    Table table;
    table.fill();
    std::string order;
    table.grid.onPick = [&] { order += "pick "; };
    table.grid.onCellEdit = [&](std::size_t row, std::size_t column, const std::string& text) {
        order += "edit";
        table.grid.setCell(row, column, {"0" + text});
    };
    EXPECT_TRUE(table.grid.editCell(1, 1, "5"));
    EXPECT_EQ(order, "pick edit");
    EXPECT_EQ(table.grid.cell(1, 1).text, "05");
    EXPECT_EQ(table.grid.picked(), 1u);
}

TEST(Grid, AnEditIsRefusedInAColumnForReadingBeyondTheRowsAndWhileDisabled) {
    Table table;
    table.fill();
    EXPECT_FALSE(table.grid.editCell(1, 0, "5"));
    EXPECT_FALSE(table.grid.editCell(3, 1, "5"));
    table.grid.setEnabled(false);
    EXPECT_FALSE(table.grid.editCell(1, 1, "5"));
    EXPECT_FALSE(table.grid.pickRow(1));
    EXPECT_EQ(table.grid.picked(), std::nullopt);
}

} // namespace zor
