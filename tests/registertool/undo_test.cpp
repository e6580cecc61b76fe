// SPDX-License-Identifier: MIT
// Going back and forth in the register tool's steps: the values in the table and the one being edited.
#include "elements/bit_cell.h"
#include "elements/grid.h"
#include "elements/history.h"
#include "elements/text_field.h"
#include "store/register_list_store.h"
#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>

namespace zor {

namespace {

using testing::VirtualBench;

constexpr const char* chips = R"(
chip 1 "One" "P1" 4 3 3E 3F registers
register 1 00 "A" R,W,RF         24 8 "a7 a6 a5 a4 a3 a2 a1 a0" "first"
register 1 05 "B" R,W,RF,Digital 86 8 "b7 b6 b5 b4 b3 b2 b1 b0" "second"
register 1 0A "C" R,W,Misc       80 8 "c7 c6 c5 c4 c3 c2 c1 c0" "third"
register 1 22 "D" R,W,Test       01 8 "d7 d6 d5 d4 d3 d2 d1 d0" "fourth"
)";

class UndoInTheRegisterTool : public ::testing::Test {
  protected:
    UndoInTheRegisterTool() {
        bench.ports.place(1, sim::BoardKind::LoadBoard2).circuits().fitRegisters();
        store::SqliteRegisterStores maker;
        store::makeDatabase(maker, bench.platform.programFolder / "ZOR.db", readRegisterList(chips));
        bench.startAndSearch();
        bench.loop.perform([this] { bench.shared().tools.open(Tool::SPI); });
        bench.at("SPI", "ChipSelect").choosePosition(0);
    }

    Grid& grid() { return dynamic_cast<Grid&>(bench.at("SPI", "SettingsDataGrid")); }
    TextField& value() { return dynamic_cast<TextField&>(bench.at("SPI", "HexValue")); }
    History& history() { return *History::of(bench.desk.find("SPI")); }

    /// The table; the edited value and its bits, while one is edited.
    std::string everything() {
        std::string all;
        for (std::size_t row = 0; row < grid().rowCount(); ++row) {
            all += grid().cell(row, 1).text + "=" + grid().cell(row, 2).text + " " +
                   grid().cell(row, 3).text + ";";
        }
        if (value().background()) {
            all += bench.at("SPI", "Address").text() + ":" + value().text();
            for (int number = 0; number < 8; ++number) {
                auto& bit = dynamic_cast<BitCell&>(bench.at("SPI", "bit(" + std::to_string(number) + ")"));
                all += std::to_string(static_cast<int>(bit.state()));
            }
        }
        return all;
    }

    VirtualBench bench;
};

TEST_F(UndoInTheRegisterTool, AWalkUndoneToItsBeginningAndDoneAgainIsExact) {
    std::mt19937 random(3);
    auto byte = [&random] {
        static constexpr std::string_view digits = "0123456789ABCDEF";
        return std::string{digits[random() % 16], digits[random() % 16]};
    };
    ASSERT_EQ(grid().rowCount(), 4U);
    std::string first = everything();

    for (int made = 0; made < 10000; ++made) {
        switch (random() % 6) {
        case 0:
            grid().pickRow(random() % 4);
            break;
        case 1:
            grid().editCell(random() % 4, 2, byte());
            break;
        case 2:
            value().edit(byte());
            value().leave();
            break;
        case 3:
            bench.at("SPI", "Send").click();
            break;
        case 4:
            bench.at("SPI", "Read").click();
            break;
        default:
            bench.at("SPI", "bit(" + std::to_string(random() % 8) + ")").click();
            break;
        }
    }
    std::string last = everything();
    EXPECT_GT(history().count(), 2000U);
    bench.takeSent();
    bench.dialogs.boxes.clear();
    while (!history().undo().empty()) {
    }
    EXPECT_EQ(everything(), first);
    while (!history().redo().empty()) {
    }
    EXPECT_EQ(everything(), last);
    EXPECT_TRUE(bench.takeSent().empty());
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

} // namespace

} // namespace zor
