// SPDX-License-Identifier: MIT
// The register tool in the hands of somebody who does anything in any order, also in the middle of a run and
// while the board comes and goes.
#include "registertool/spi.h"

#include "elements/menu.h"
#include "host/files.h"
#include "registertool/cell_values.h"
#include "registertool/register_lines.h"
#include "store/register_list_store.h"
#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

#include <random>

namespace zor::testing {

namespace {

using namespace std::chrono_literals;

constexpr const char* chips = R"(
chip 1 "One" "P1" 4 3 3E 3F registers
chip 2 "Two" "P2" 2 5 null null line
chip 3 "Bare" "P3" 0 0 null null line
register 1 00 "A" R,RF           24 8 "a7 a6 a5 a4 a3 a2 a1 a0" "first"
register 1 05 "B" R,W,RF,Digital 86 8 "b7 b6 b5 b4 b3 b2 b1 b0" "second"
register 1 0A "C" R,W,Misc       80 8 "c7 c6 c5 c4 c3 c2 c1 c0" "third"
register 1 22 "D" W,Test         01 8 "d7 d6 d5 d4 d3 d2 d1 d0" "fourth"
register 1 30 "S" R,Status     0000 16 "" "status"
register 2 07 "E" R,W,Misc       5F 8 "" ""
register 2 31 "T" R,Status     0000 16 "" ""
)";

constexpr const char* texts[] = {
    "",
    "0A",
    "5",
    "05",
    "zz",
    "3F",
    "1e3",
    "-1",
    "2.5",
    "abc",
    "5F",
    "\r\n",
    "/note",
    "H1\r\nL1\r\n",
    "S2 85",
    "#REFRESH\r\n",
    "#FIFO_READ\r\n#STATUSREAD",
    "#FIFO_WRITE\r\nH3",
};

constexpr const char* files[] = {"script.txt", "values.txt", "rows.txt", "fifo.txt", "none.txt", "other.dat"};

/// What sends or changes much; a hand that falls on any element finds it too seldom.
constexpr const char* busyElements[] = {
    "RefreshTable",     "UpdateChip",       "Defaults",       "WriteTXff", "ReadRXff",     "BatchRun(0)",
    "BatchRun(1)",      "BatchRun(2)",      "EnLoop(0)",      "LoadBach",  "LoadSettings", "LoadGUI",
    "OpenTXff",         "ChipSelect",       "Read",           "Send",      "M_Read(0)",    "M_Send(0)",
    "M_Name(0)",        "StatusRead",       "StatusRegCombo", "Stop",      "PB_Voltage",   "BatchCommands(0)",
    "BatchCommands(1)", "SettingsDataGrid", "RXFIFO",
};

class RandomEngineer {
  public:
    /// Lines that reached the board.
    std::size_t sent = 0;

    RandomEngineer(VirtualBench& virtualBench, unsigned seed)
        : bench(virtualBench)
        , random(seed) {
        auto write = [this](const char* name, const char* text) { writeFileWhole(path(name), text); };
        write("script.txt", "#BATCHNAME loaded\r\n#REFRESH\r\nH1\r\n");
        write("values.txt", "#CHIP x\r\nn\r\n05,11\r\n7F,1\r\n0A\r\n");
        write("rows.txt", "#CHIP x\r\nn\r\n05\r\n\r\n7F\r\n");
        write("fifo.txt", "#FIFO\r\n11\r\n2\r\n33\r\n");
    }

    /// One gesture, with others in its middle, and all that they began at its end.
    void step() {
        for (int more = upTo(2); more > 0; --more) {
            bench.after(std::chrono::milliseconds(1 + upTo(200)), [this] { gesture(); });
        }
        for (auto moment : {2s, 4s, 6s}) {
            bench.after(moment, [this] { onTool([](SPI& tool) { tool.Stop.click(); }); });
        }
        gesture();
        bench.run(7s);
        bench.dialogs.files.clear();
        bench.dialogs.boxes.clear();
        bench.asked.clear();
        sent += bench.takeSent().size();
        comeBack();
    }

    SPI& tool() {
        if (bench.desk.find("SPI") == nullptr) {
            bench.loop.perform([this] { bench.shared().tools.open(Tool::SPI); });
            bench.at("SPI", "ChipSelect").choosePosition(upTo(2));
        }
        return dynamic_cast<SPI&>(*bench.desk.find("SPI"));
    }

  private:
    int upTo(int most) { return static_cast<int>(random() % static_cast<unsigned>(most + 1)); }
    template <class List>
    const char* oneOf(const List& list) {
        return list[random() % std::size(list)];
    }
    [[nodiscard]] std::string path(const std::string& name) { return (bench.folder.path() / name).string(); }

    void onTool(const std::function<void(SPI&)>& action) {
        if (auto* found = dynamic_cast<SPI*>(bench.desk.find("SPI"))) {
            action(*found);
        }
    }

    void gesture() {
        switch (upTo(80)) {
        case 0:
            bench.at("main", "Disconnect").click();
            return;
        case 1:
            onTool([](SPI& tool) { tool.userClose(); });
            return;
        case 2:
            bench.ports.seat(1).unplug();
            return;
        case 3:
            bench.ports.seat(1).board().setMute(upTo(1) == 0);
            return;
        case 4:
            bench.at("main", "CB_Mode").choosePosition(upTo(2));
            return;
        default:
            act(upTo(9) == 0 ? "SPIsub2" : "SPI");
        }
    }

    void act(const char* window) {
        Form* form = bench.desk.find(window);
        if (form == nullptr) {
            return;
        }
        Element* busy = form->find(oneOf(busyElements));
        Element& element =
            busy != nullptr && upTo(3) != 0 ? *busy : *form->elements()[random() % form->elements().size()];
        if (upTo(1) == 0) {
            bench.dialogs.files.emplace_back(path(oneOf(files)));
        }
        if (auto* grid = dynamic_cast<Grid*>(&element)) {
            std::size_t row = random() % 6;
            upTo(1) == 0 ? grid->pickRow(row) : grid->editCell(row, random() % 5, oneOf(texts));
            return;
        }
        element.click();
        element.doubleClick();
        element.tick(upTo(1) == 0);
        element.choosePosition(upTo(4));
        upTo(1) == 0 ? element.type(oneOf(texts)) : element.edit(oneOf(texts));
        element.leave();
    }

    /// The board is there again and connected.
    void comeBack() {
        VirtualSeat& seat = bench.ports.seat(1);
        if (seat.plugged() && bench.channel().isOpen()) {
            return;
        }
        seat.plug();
        seat.board().setMute(false);
        bench.at("main", "CB_Mode").choosePosition(0);
        bench.at("main", "Connect").click();
        bench.run(15s);
        bench.dialogs.boxes.clear();
    }

    VirtualBench& bench;
    std::minstd_rand random;
};

/// What holds whenever nothing runs.
void expectAtRest(SPI& tool) {
    for (const Element* element : tool.whileReady) {
        EXPECT_TRUE(element->enabled()) << element->name();
    }
    EXPECT_FALSE(tool.Stop.enabled());
    for (const Batch& batch : tool.batch.batches) {
        EXPECT_EQ(batch.BatchName.background(), idleColour);
    }
    RegisterFilter& filter = tool.filter;
    EXPECT_EQ(filter.ENRF.ticked(), filter.ENRF2.ticked());
    EXPECT_EQ(filter.ENTest.ticked(), filter.ENTest2.ticked());
    EXPECT_EQ(filter.ENDigital.ticked(), filter.ENDigital2.ticked());
    EXPECT_EQ(filter.ENMisc.ticked(), filter.ENMisc2.ticked());
    EXPECT_EQ(filter.ByName.chosen(), filter.ByName2.chosen());
    EXPECT_EQ(filter.ByAddress.chosen(), filter.ByAddress2.chosen());

    ASSERT_NE(tool.store, nullptr);
    auto kept = tool.store->select("Select * from Setting");
    ASSERT_EQ(kept->count(), tool.table.rows().size());
    for (const Setting& setting : tool.table.rows()) {
        EXPECT_EQ(setting.BinaryValue, binaryValue(setting.HexValue));
        EXPECT_EQ(kept->value("HexValue").value_or(""), setting.HexValue) << setting.Address;
        kept->moveNext();
    }
    EXPECT_EQ(tool.fifo.TXFIFO.rowCount(), static_cast<std::size_t>(tool.fifo.TxSize));
    EXPECT_EQ(tool.fifo.RXFIFO.rowCount(), static_cast<std::size_t>(tool.fifo.RxSize));
    for (const MacroRow& row : tool.macros.rows) {
        std::string digits = HexToBinary(row.M_Hexvalue.text());
        for (const BitCell& cell : row.M_bit) {
            bool one = digits[7 - static_cast<std::size_t>(cell.number())] == '1';
            EXPECT_EQ(cell.state() == BitState::One, one) << cell.name();
        }
    }
}

} // namespace

TEST(RegisterToolInAnyOrder, IsFreeAndTrueToItsStoreBehindEveryStep) {
    for (unsigned seed : {1U, 2U, 3U, 4U}) {
        SCOPED_TRACE(seed);
        VirtualBench bench;
        bench.ports.place(1, sim::BoardKind::LoadBoard2).circuits().fitRegisters();
        store::SqliteRegisterStores maker;
        store::makeDatabase(maker, bench.platform.programFolder / "ZOR.db", readRegisterList(chips));
        bench.startAndSearch();
        RandomEngineer engineer(bench, seed);
        for (int step = 0; step < 400 && !HasFailure(); ++step) {
            engineer.step();
            expectAtRest(engineer.tool());
        }
        EXPECT_EQ(bench.shared().link.CommState(), 0);
        EXPECT_GT(engineer.sent, 1000U) << "too idle a hand to find anything";
    }
}

} // namespace zor::testing
