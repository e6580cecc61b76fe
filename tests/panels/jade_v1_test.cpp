// SPDX-License-Identifier: MIT
// The settings of the KT1101 and the words that they make.
#include "panels/all_panels.h"
#include "panels/list_rows.h"
#include "panels/panel_bench.h"

namespace zor {

namespace {

using testing::expectRows;
using testing::PanelBench;

} // namespace

TEST(JadeV1, EveryListFillsItsFieldOfItsWord) {
    expectRows<JadeV1>({
        {"Cxtal", "8.5 pF", "Ctrlw", "8800"},
        {"CLKout", "10", "Ctrlw", "8F80"},
        {"ModPol", "fo - df", "Ctrlw", "8888"},
        {"ModFreq", "240", "Ctrlw", "8887"},
        {"OutputPower", "-21 dB", "OutPowerw", "B7"},
        {"Modulation", "OOK", "OutPowerw", "B8"},
        {"CB_MaxDataRate", "19.2", "TB_PLLCmd", "D240"},
        {"CB_MaxDataRate", "38.4", "TB_PLLCmd", "D2C0"},
        {"CB_MaxDataRate", "68.9", "TB_PLLCmd", "D200"},
        {"CB_MaxDataRate", "115.2", "TB_PLLCmd", "D280"},
        {"CB_MaxDataRate", "38.4", "TB_PHNoise", "-110"},
        {"CB_MaxDataRate", "68.9", "TB_PHNoise", "-107"},
        {"CB_MaxDataRate", "115.2", "TB_PHNoise", "-102"},
    });
}

TEST(JadeV1, TheRevisionHasNoBearingOnThePower) {
    for (const char* revision : {"'A' or above", "'B' or below", "'C' or below"}) {
        PanelBench<JadeV1> bench;
        bench.shared().preferences.Pref_JadeRevision = revision;
        auto& panel = bench.open();
        EXPECT_EQ(panel.OutputPower.entries().size(), 8U);
        bench.choose("OutputPower", "-9 dB");
        bench.choose("Modulation", "OOK");
        EXPECT_EQ(bench.text("OutPowerw"), "BB") << revision;
    }
}

TEST(JadeV1, BothTicksOfTheDetectorWordWithTheLowestThreshold) {
    PanelBench<JadeV1> bench;
    auto& panel = bench.open();
    bench.tick("CB_ebs");
    EXPECT_EQ(bench.text("LBDw"), "C220");
    EXPECT_EQ(panel.TXBitSinchOn(), 1);
    bench.tick("CB_dwc");
    EXPECT_EQ(bench.text("LBDw"), "C2A0");
    bench.tick("pm2");
    bench.type("LBD", "31");
    EXPECT_EQ(bench.text("LBDw"), "C2BF");
    bench.untick("CB_ebs");
    EXPECT_EQ(bench.text("LBDw"), "C29F");
    EXPECT_EQ(panel.TXBitSinchOn(), 0);
}

TEST(JadeV1, TheDividerIsClampedWithoutANotice) {
    PanelBench<JadeV1> bench;
    bench.open();
    struct {
        const char* typed;
        const char* divider;
        const char* rate;
        const char* word;
    } rows[] = {{"0", "0", "344.828", "C800"},   {"35", "35", "9.579", "C823"},
                {"255", "255", "1.347", "C8FF"}, {"256", "255", "1.347", "C8FF"},
                {"-1", "0", "344.828", "C800"},  {"2.5", "2", "114.943", "C802"},
                {"3.5", "4", "68.966", "C804"},  {"abc", "0", "344.828", "C800"}};
    for (const auto& row : rows) {
        bench.type("DATARATEDIV", row.typed);
        EXPECT_EQ(bench.text("DATARATEDIV"), row.divider) << row.typed;
        EXPECT_EQ(bench.text("DATARATE"), row.rate) << row.typed;
        EXPECT_EQ(bench.text("Dataratew"), row.word) << row.typed;
        EXPECT_EQ(bench.text("Statusline"), "Update chip control words, and power management settings!");
    }
}

TEST(JadeV1, TheShownRateFollowsTheCrystal) {
    PanelBench<JadeV1> bench;
    bench.open();
    bench.type("DATARATEDIV", "35");
    bench.click("NonStdCrystal");
    bench.type("Crystalfreq", "12");
    EXPECT_EQ(bench.text("DATARATE"), "11.494");
    EXPECT_EQ(bench.text("Dataratew"), "C823");
}

} // namespace zor
