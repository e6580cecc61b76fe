// SPDX-License-Identifier: MIT
#include "link/data_selector.h"

#include "virtual/virtual_bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zor {

namespace {

using ::testing::ElementsAre;
using zor::testing::VirtualBench;

constexpr const char* freeTip = "Please Select the FSK raw data mode!";
constexpr const char* forcedTip = "Please disable the FIFO mode or the CW Link Setup!";

struct Selecting : VirtualBench {
    explicit Selecting(sim::BoardKind kind = sim::BoardKind::LoadBoard2) {
        ports.place(1, kind);
        startAndSearch();
        takeSent();
    }

    ListBox& list() { return main().linkBar.CB_Mode; }
    const std::string& labelTip() { return main().linkBar.Text1.tip(); }
    DataSelector& selector() { return *shared().dataSelector; }
    std::string saved() { return std::to_string(main().dataSelector().savedIndex()); }
};

} // namespace

TEST(DataSelector, IsForcedToInternalAndGivenBack) {
    Selecting bench;
    bench.list().choosePosition(1);
    bench.takeSent();
    bench.selector().DisableDataSelector();
    EXPECT_THAT(bench.takeSent(), ElementsAre("X1"));
    EXPECT_EQ(bench.list().position(), 0);
    EXPECT_FALSE(bench.list().enabled());
    EXPECT_EQ(bench.list().tip(), forcedTip);
    EXPECT_EQ(bench.labelTip(), forcedTip);
    EXPECT_EQ(bench.saved(), "1");
    bench.selector().EnableDataSelector();
    EXPECT_THAT(bench.takeSent(), ElementsAre("X0"));
    EXPECT_EQ(bench.list().position(), 1);
    EXPECT_TRUE(bench.list().enabled());
    EXPECT_EQ(bench.list().tip(), freeTip);
    EXPECT_EQ(bench.labelTip(), freeTip);
}

TEST(DataSelector, ForcedASecondTimeKeepsWhatItSaved) {
    Selecting bench;
    bench.list().choosePosition(1);
    bench.selector().DisableDataSelector();
    bench.takeSent();
    bench.selector().DisableDataSelector();
    EXPECT_THAT(bench.takeSent(), ElementsAre());
    EXPECT_EQ(bench.saved(), "1");
}

TEST(DataSelector, GivenBackWithoutBeingForcedDoesNothing) {
    Selecting bench;
    bench.selector().EnableDataSelector();
    EXPECT_THAT(bench.takeSent(), ElementsAre());
    EXPECT_TRUE(bench.list().enabled());
}

TEST(DataSelector, OfAGenerationOneBoardDoesNothing) {
    Selecting bench(sim::BoardKind::LoadBoard1);
    bench.selector().DisableDataSelector();
    EXPECT_THAT(bench.takeSent(), ElementsAre());
    EXPECT_TRUE(bench.list().enabled());
    EXPECT_EQ(bench.list().tip(), freeTip);
}

TEST(DataSelector, OfALostBoardStaysForcedUntilTheNextConnection) {
    Selecting bench;
    bench.selector().DisableDataSelector();
    bench.ports.seat(1).unplug();
    bench.channel().Send_To_LoadBoard("Z3\r");
    bench.dialogs.boxes.clear();
    bench.takeSent();
    bench.selector().EnableDataSelector();
    EXPECT_FALSE(bench.list().enabled());
    EXPECT_EQ(bench.list().tip(), forcedTip);
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    bench.ports.seat(1).plug();
    bench.main().linkBar.Connect.click();
    bench.run(std::chrono::seconds(3));
    EXPECT_THAT(bench.takeSent(), ElementsAre("i", "i", "Z3", "V83", "X1"));
    EXPECT_TRUE(bench.list().enabled());
    EXPECT_EQ(bench.list().position(), 0);
    EXPECT_EQ(bench.list().tip(), freeTip);
    EXPECT_EQ(bench.labelTip(), freeTip);
}

TEST(DataSelector, InDataModeIsNeitherForcedNorGivenBack) {
    Selecting bench;
    bench.list().choosePosition(2);
    bench.takeSent();
    bench.selector().DisableDataSelector();
    bench.selector().EnableDataSelector();
    EXPECT_THAT(bench.takeSent(), ElementsAre());
    EXPECT_EQ(bench.list().position(), 2);
    EXPECT_TRUE(bench.list().enabled());
}

TEST(DataSelector, InDataModeTheBoardNoLongerListensToCommands) {
    Selecting bench;
    sim::Board& board = bench.ports.seat(1).board();
    bench.list().choosePosition(2);
    EXPECT_EQ(board.dataSelector(), sim::DataSelector::dataMode);
    bench.list().choosePosition(1);
    EXPECT_EQ(board.dataSelector(), sim::DataSelector::external);
}

} // namespace zor
