// SPDX-License-Identifier: MIT
#include "panels/receivers/frm_topaz.h"

#include "panels/panel_bench.h"

#include <gtest/gtest.h>

namespace zor {

namespace {

using Bench3101 = testing::PanelBench<FRM_Topaz>;

} // namespace

TEST(FRM_Topaz, TheClockEdgesNeverMakeTheCode40) {
    Bench3101 bench;
    FRM_Topaz& panel = bench.open();
    for (auto [entry, word] : std::vector<std::pair<const char*, const char*>>{
             {"5 or 10 MHz", "CC07"}, {"3.3 MHz", "CC27"}, {"2.5 MHz or below", "CC67"}}) {
        bench.choose("CB_RFT", entry);
        EXPECT_EQ(panel.PLLCmd.text(), word) << entry;
    }
}

TEST(FRM_Topaz, TheShortPatternAddsEightToTheFifoWord) {
    Bench3101 bench;
    FRM_Topaz& panel = bench.open();
    EXPECT_EQ(panel.FIFOw.text(), "CA80");
    bench.choose("SynchPattern", 1);
    EXPECT_EQ(panel.FIFOw.text(), "CA88");
}

TEST(FRM_Topaz, ItsFileHoldsThePllBehindThePowerAndThePatternBehindTheLevel) {
    Bench3101 bench;
    std::string saved = bench.open().savedConfiguration();
    EXPECT_EQ(std::count(saved.begin(), saved.end(), '\n'), 58);
    EXPECT_NE(
        saved.find("\"Pmax\"\r\n0\r\n0\r\n1\r\n\"2.5 MHz or below\"\r\n\"Max. 256 kbps\"\r\n\"150\"\r\n"),
        std::string::npos);
    EXPECT_TRUE(saved.ends_with("\"Synchron pattern\"\r\n8\r\n\"D4\"\r\n\"2.5\"\r\n"));
}

TEST(FRM_Topaz, HasNoRegionalVariant) {
    Bench3101 bench;
    bench.shared().SetBijakuMode(true);
    FRM_Topaz& panel = bench.open();
    EXPECT_EQ(panel.title(), "KT3101 Transceiver control panel");
    EXPECT_TRUE(panel.band(Band::Band433)->visible());
    EXPECT_TRUE(panel.Revision.visible());
}

} // namespace zor
