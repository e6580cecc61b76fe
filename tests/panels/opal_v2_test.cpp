// SPDX-License-Identifier: MIT
// The settings of the KT1100 and the words that they make.
#include "panels/all_panels.h"
#include "panels/list_rows.h"
#include "panels/panel_bench.h"

namespace zor {

namespace {

using testing::expectRows;
using testing::PanelBench;

} // namespace

TEST(OpalV2, EveryListFillsItsFieldOfItsWord) {
    expectRows<OpalV2>({
        {"Cxtal", "8.5 pF", "Ctrlw", "8000"},
        {"Cxtal", "9.0 pF", "Ctrlw", "8010"},
        {"Cxtal", "16.0 pF", "Ctrlw", "80F0"},
        {"CLKout", "1.25", "Ctrlw", "8180"},
        {"CLKout", "3.33", "Ctrlw", "8580"},
        {"CLKout", "10", "Ctrlw", "8780"},
        {"ModPol", "fo - df", "Ctrlw", "8088"},
        {"ModFreq", "60", "Ctrlw", "8081"},
        {"ModFreq", "240", "Ctrlw", "8087"},
        {"OutputPower", "-3 dB", "OutPowerw", "B1"},
        {"OutputPower", "-6 dB", "OutPowerw", "B2"},
        {"OutputPower", "-9 dB", "OutPowerw", "B3"},
        {"OutputPower", "-12 dB", "OutPowerw", "B4"},
        {"OutputPower", "-15 dB", "OutPowerw", "B5"},
        {"OutputPower", "-18 dB", "OutPowerw", "B6"},
        {"OutputPower", "-21 dB", "OutPowerw", "B7"},
        {"Modulation", "OOK", "OutPowerw", "B8"},
    });
}

TEST(OpalV2, TheOnOffMarkStandsAboveThePowerStepsOfItsRevision) {
    PanelBench<OpalV2> bench;
    bench.open();
    bench.choose("OutputPower", "-9 dB");
    bench.choose("Modulation", "OOK");
    EXPECT_EQ(bench.text("OutPowerw"), "BB");
    bench.choose("Revision", "'C' or below");
    EXPECT_EQ(bench.text("OutPowerw"), "B4");
    bench.choose("OutputPower", "-9 dB");
    EXPECT_EQ(bench.text("OutPowerw"), "B7");
    bench.choose("Modulation", "FSK");
    EXPECT_EQ(bench.text("OutPowerw"), "B3");
}

TEST(OpalV2, RevisionChangeReturnsThePowerToPmax) {
    PanelBench<OpalV2> bench;
    auto& panel = bench.open();
    bench.choose("OutputPower", "-12 dB");
    bench.choose("Revision", "'C' or below");
    EXPECT_EQ(panel.OutputPower.text(), "Pmax");
    EXPECT_EQ(panel.OutputPower.entries().size(), 4U);
    EXPECT_EQ(panel.Revision.background(), panel.Yellow.background());
    EXPECT_EQ(bench.text("OutPowerw"), "B0");
    bench.choose("OutputPower", "-3 dB");
    bench.choose("Revision", "'D' or above");
    EXPECT_EQ(panel.OutputPower.text(), "Pmax");
    EXPECT_EQ(panel.OutputPower.entries().size(), 8U);
    EXPECT_EQ(panel.Revision.background(), panel.Green.background());
}

TEST(OpalV2, TheSameRevisionChosenAgainKeepsThePower) {
    PanelBench<OpalV2> bench;
    bench.open();
    bench.choose("OutputPower", "-12 dB");
    bench.choose("Revision", "'D' or above");
    EXPECT_EQ(bench.text("OutputPower"), "-12 dB");
    EXPECT_EQ(bench.text("OutPowerw"), "B4");
}

TEST(OpalV2, TheLatestTickOfAnExcludingPairWins) {
    PanelBench<OpalV2> bench;
    auto& panel = bench.open();
    bench.tick("pm5");
    bench.tick("pm4");
    EXPECT_EQ(bench.text("PowerMw"), "C030");
    bench.tick("pm7");
    EXPECT_FALSE(panel.pm(5)->ticked());
    EXPECT_FALSE(panel.pm(4)->ticked());
    EXPECT_EQ(bench.text("PowerMw"), "C080");
    bench.tick("pm4");
    EXPECT_FALSE(panel.pm(7)->ticked());
    EXPECT_EQ(bench.text("PowerMw"), "C010");
    bench.tick("pm7");
    bench.tick("pm5");
    EXPECT_EQ(bench.text("PowerMw"), "C020");
    bench.tick("pm3");
    bench.tick("pm6");
    EXPECT_FALSE(panel.pm(3)->ticked());
    EXPECT_EQ(bench.text("PowerMw"), "C060");
    bench.tick("pm3");
    EXPECT_FALSE(panel.pm(6)->ticked());
    EXPECT_EQ(bench.text("PowerMw"), "C028");
}

TEST(OpalV2, TheDetectorTickGovernsTheDetectorsFields) {
    PanelBench<OpalV2> bench;
    auto& panel = bench.open();
    EXPECT_FALSE(panel.LBD.enabled());
    EXPECT_FALSE(panel.LBDV.enabled());
    EXPECT_FALSE(panel.LBDw.enabled());
    EXPECT_TRUE(panel.Label38.visible());
    EXPECT_EQ(panel.Label38.caption(), "Enable LBD by the Power Management Command");
    bench.tick("pm2");
    EXPECT_TRUE(panel.LBD.enabled());
    EXPECT_TRUE(panel.LBDV.enabled());
    EXPECT_TRUE(panel.LBDw.enabled());
    EXPECT_FALSE(panel.Label38.visible());
    EXPECT_EQ(bench.text("PowerMw"), "C004");
    bench.untick("pm2");
    EXPECT_FALSE(panel.LBD.enabled());
    EXPECT_TRUE(panel.Label38.visible());
}

TEST(OpalV2, TheTimerTickGovernsTheTimersFields) {
    PanelBench<OpalV2> bench;
    auto& panel = bench.open();
    EXPECT_FALSE(panel.WKUPM.enabled());
    EXPECT_EQ(panel.Label39.caption(), "Enable the Wake-up timer by the Power Management command.");
    bench.tick("pm1");
    EXPECT_TRUE(panel.WKUPM.enabled());
    EXPECT_TRUE(panel.WKUPR.enabled());
    EXPECT_TRUE(panel.Wkupw.enabled());
    EXPECT_FALSE(panel.Label39.visible());
    EXPECT_EQ(bench.text("PowerMw"), "C002");
}

TEST(OpalV2, TheClockTickDisablesTheListAndLeavesTheWordItsClockBits) {
    PanelBench<OpalV2> bench;
    auto& panel = bench.open();
    bench.choose("CLKout", 5);
    bench.tick("pm0");
    EXPECT_FALSE(panel.CLKout.enabled());
    EXPECT_EQ(bench.text("Ctrlw"), "8580");
    EXPECT_EQ(bench.text("PowerMw"), "C001");
    bench.untick("pm0");
    EXPECT_TRUE(panel.CLKout.enabled());
}

TEST(OpalV2, EitherLabelOfTheClockCaptionTogglesTheTick) {
    PanelBench<OpalV2> bench;
    auto& panel = bench.open();
    bench.click("Label47");
    EXPECT_TRUE(panel.pm(0)->ticked());
    EXPECT_EQ(bench.text("PowerMw"), "C001");
    bench.click("Label48");
    EXPECT_FALSE(panel.pm(0)->ticked());
    EXPECT_EQ(bench.text("PowerMw"), "C000");
}

TEST(OpalV2, TheRegionalVariantHasOneBandAndNoRevision) {
    PanelBench<OpalV2> bench;
    bench.shared().SetBijakuMode(true);
    auto& panel = bench.open();
    EXPECT_EQ(panel.title(), "KT1100B transmitter control panel");
    EXPECT_FALSE(panel.band(Band::Band433)->visible());
    EXPECT_FALSE(panel.band(Band::Band868)->visible());
    EXPECT_FALSE(panel.band(Band::Band915)->visible());
    EXPECT_TRUE(panel.band(Band::Band315)->visible());
    EXPECT_FALSE(panel.Revision.visible());
    EXPECT_FALSE(panel.Frame1.bordered());
    bench.shared().SetBijakuMode(false);
    panel.SetFrameMode();
    EXPECT_EQ(panel.title(), "KT1100 transmitter control panel");
    EXPECT_TRUE(panel.band(Band::Band915)->visible());
    EXPECT_TRUE(panel.Revision.visible());
    EXPECT_TRUE(panel.Frame1.bordered());
}

TEST(OpalV2, TheRegionalVariantLeavesAnotherBandForItsOwn) {
    PanelBench<OpalV2> bench;
    auto& panel = bench.open();
    bench.click("Band868");
    bench.shared().SetBijakuMode(true);
    panel.SetFrameMode();
    EXPECT_TRUE(panel.band(Band::Band315)->chosen());
    EXPECT_EQ(bench.text("Ctrlw"), "8080");
    EXPECT_EQ(bench.text("FreqCenter"), "315");
}

} // namespace zor
