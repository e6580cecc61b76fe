// SPDX-License-Identifier: MIT
#include "panels/receivers/coral.h"

#include "panels/panel_bench.h"

#include <gtest/gtest.h>

namespace zor {

namespace {

using testing::With;
using Bench2102 = testing::PanelBench<Coral>;

} // namespace

TEST(Coral, TheWakeUpMSpreadsOverBothWordsWithoutLoss) {
    Bench2102 bench;
    Coral& panel = bench.open();
    bench.tick("ent");
    bench.type("WKUPR", "0");
    struct Row {
        const char* mantissa;
        const char* word;
        const char* extended;
    };
    for (const Row& row :
         {Row{"0", "E000", "C300"}, Row{"255", "E0FF", "C300"}, Row{"256", "E000", "C301"},
          Row{"511", "E0FF", "C301"}, Row{"512", "E000", "C302"}, Row{"8192", "E000", "C320"},
          Row{"16128", "E000", "C33F"}, Row{"16383", "E0FF", "C33F"}}) {
        bench.type("WKUPM", row.mantissa);
        EXPECT_EQ(panel.Wkupw.text(), row.word) << row.mantissa;
        EXPECT_EQ(panel.EWkupw.text(), row.extended) << row.mantissa;
    }
}

TEST(Coral, TheUpperLevelBitsFollowTheLevel) {
    Bench2102 bench;
    Coral& panel = bench.open();
    struct Row {
        int level;
        const char* upper;
        const char* fifo;
        const char* features;
    };
    for (const Row& row :
         {Row{1, "0", "CE15", "B008"}, Row{15, "0", "CEF5", "B008"}, Row{16, "1", "CE05", "B009"},
          Row{31, "1", "CEF5", "B009"}, Row{32, "2", "CE05", "B00A"}, Row{48, "3", "CE05", "B00B"},
          Row{63, "3", "CEF5", "B00B"}}) {
        bench.slide("ITLEVEL", row.level);
        EXPECT_EQ(panel.TB_F5F4.text(), row.upper) << row.level;
        EXPECT_EQ(panel.FIFOw.text(), row.fifo) << row.level;
        EXPECT_EQ(panel.EFw.text(), row.features) << row.level;
    }
}

TEST(Coral, TheTwoDirectionsOfTheThresholdDisagree) {
    Bench2102 bench;
    Coral& panel = bench.open();
    bench.tick("enb");
    bench.type("LBDV", "2.2");
    EXPECT_EQ(panel.LBD.text(), "0");
    EXPECT_EQ(panel.LBDV.text(), "2");
    bench.type("LBDV", "3.7");
    EXPECT_EQ(panel.LBD.text(), "15");
    EXPECT_EQ(panel.LBDV.text(), "3.5");
}

TEST(Coral, ZeroIsNoSynchronPattern) {
    Bench2102 bench;
    Coral& panel = bench.open();
    for (auto [typed, shown, word] : std::vector<std::array<const char*, 3>>{{"00", "D4", "C1D4"},
                                                                             {"0", "D4", "C1D4"},
                                                                             {"", "D4", "C1D4"},
                                                                             {"000", "D4", "C1D4"},
                                                                             {" 5", "D4", "C1D4"},
                                                                             {"&H", "D4", "C1D4"},
                                                                             {"1", "01", "C101"},
                                                                             {"0a", "0A", "C10A"},
                                                                             {"ff", "FF", "C1FF"}}) {
        bench.type("TB_SP", typed);
        EXPECT_EQ(panel.TB_SP.text(), shown) << typed;
        EXPECT_EQ(panel.SynchPatt.text(), word) << typed;
        EXPECT_EQ(panel.TB_SP.cursor(), 2U) << typed;
    }
}

TEST(Coral, NothingSendsTheExtendedFeatures) {
    Bench2102 bench(With::LoadBoard2);
    bench.open();
    bench.tick("CB_exlp");
    for (const char* button : {"Update", "CalibratePLL", "FFreset", "ReadStatus"}) {
        bench.click(button);
        bench.run(std::chrono::milliseconds(1000));
    }
    for (const std::string& line : bench.takeSent()) {
        EXPECT_FALSE(line.starts_with("S2B")) << line;
    }
}

TEST(Coral, ItsLowestBandLeavesTheBaseOfTheBandBefore) {
    for (auto [before, shown] : std::vector<std::pair<Band, const char*>>{
             {Band::Band433, "788.3"}, {Band::Band868, "868.3"}, {Band::Band915, "948.3"}}) {
        Bench2102 bench;
        Coral& panel = bench.open();
        panel.band(before)->choose();
        panel.band(Band::Band315)->choose();
        EXPECT_EQ(panel.FreqCenter.text(), shown);
        EXPECT_EQ(panel.Freqw.text(), "AD57");
        EXPECT_EQ(panel.Ctrlw.text(), "8188");
    }
}

TEST(Coral, ATypedLevelWaitsForItsCommit) {
    Bench2102 bench;
    Coral& panel = bench.open();
    panel.ITlevelNr.edit("40");
    EXPECT_EQ(panel.ITLEVEL.value(), 8);
    panel.ITlevelNr.leave();
    EXPECT_EQ(panel.ITLEVEL.value(), 40);
}

TEST(Coral, ItsFileHasFiftyFourLines) {
    Bench2102 bench;
    std::string saved = bench.open().savedConfiguration();
    EXPECT_EQ(std::count(saved.begin(), saved.end(), '\n'), 54);
    EXPECT_TRUE(saved.starts_with("\"# ZOR KT2102 configuration file. Version 2.2.2\"\r\n50\r\n"));
    EXPECT_TRUE(
        saved.ends_with("\"2.5\"\r\n0\r\n0\r\n0\r\n#FALSE#\r\n#TRUE#\r\n\"D4\"\r\n\"'A' or above\"\r\n"));
}

} // namespace zor
