// SPDX-License-Identifier: MIT
// The settings of the three transmitters and the words that they make.
#include "panels/all_panels.h"
#include "panels/panel_bench.h"
#include "support/numbers.h"

namespace zor {

namespace {

using testing::PanelBench;

/// A setting by a list's entry, and the word that it gives.
struct Row {
    const char* list;
    const char* entry;
    const char* word;
    const char* text;
};

template <class Panel>
void expectRows(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        PanelBench<Panel> bench;
        bench.open();
        bench.choose(row.list, row.entry);
        EXPECT_EQ(bench.text(row.word), row.text) << row.list << " " << row.entry;
    }
}

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

TEST(KT1102, EveryListFillsItsFieldOfItsWord) {
    expectRows<KT1102>({
        {"OutputPower", "-3 dB", "Ctrlw", "9180"},
        {"OutputPower", "-21 dB", "Ctrlw", "9780"},
        {"Cxtal", "16.0 pF", "Ctrlw", "90F0"},
        {"ModPol", "fo - df", "Ctrlw", "9088"},
        {"ModFreq", "160", "Ctrlw", "9087"},
        {"CLKout", "1.25", "LBDw", "C220"},
        {"CLKout", "10", "LBDw", "C2E0"},
        {"CLKout", "10", "Ctrlw", "9080"},
        {"C_PLLBW", "30 kHz", "EFCmd", "B004"},
        {"C_PLLBW", "60 kHz", "EFCmd", "B008"},
        {"C_PLLBW", "120 kHz", "EFCmd", "B00C"},
    });
}

TEST(KT1102, EveryTickSetsItsBitOfItsWord) {
    struct {
        const char* box;
        const char* word;
        const char* text;
    } rows[] = {
        {"pm5", "PowerMw", "C020"},
        {"pm4", "PowerMw", "C010"},
        {"pm3", "PowerMw", "C008"},
        {"pm2", "PowerMw", "C004"},
        {"pm1", "PowerMw", "C002"},
        {"pm0", "PowerMw", "C001"},
        {"CB_ebs", "LBDw", "C210"},
        {"CB_EnFIFO", "TB_FIFOcmd", "CE83"},
        {"CB_Prescaler", "TB_DataRateCmd", "C893"},
        {"CB_EnLowPowerXtal", "EFCmd", "B080"},
        {"CB_512ClockTail", "EFCmd", "B040"},
        {"CB_DisWUTAutocal", "EFCmd", "B010"},
        {"CB_DisFIFOAutoSleep", "EFCmd", "B002"},
        {"CB_EnWUonIT", "EFCmd", "B001"},
    };
    PanelBench<KT1102> bench;
    bench.open();
    for (const auto& row : rows) {
        std::string before = bench.text(row.word);
        bench.tick(row.box);
        EXPECT_EQ(bench.text(row.word), row.text) << row.box;
        bench.untick(row.box);
        EXPECT_EQ(bench.text(row.word), before) << row.box;
    }
}

TEST(KT1102, TheManualTicksDoNotExcludeEachOther) {
    PanelBench<KT1102> bench;
    bench.open();
    for (const char* box : {"pm5", "pm4", "pm3", "pm2", "pm1", "pm0"}) {
        bench.tick(box);
    }
    EXPECT_EQ(bench.text("PowerMw"), "C03F");
}

TEST(KT1102, ThePowerStandsInTheConfigurationWord) {
    PanelBench<KT1102> bench;
    auto& panel = bench.open();
    bench.choose("OutputPower", "-21 dB");
    EXPECT_EQ(panel.Cxtal.text(), "12.5 pF");
    EXPECT_TRUE(panel.band(Band::Band868)->chosen());
    EXPECT_EQ(bench.text("Ctrlw"), "9780");
}

TEST(KT1102, TheWakeUpNumberIsSplitOverTwoWords) {
    PanelBench<KT1102> bench;
    bench.open();
    bench.tick("pm1");
    bench.type("WKUPM", "300");
    EXPECT_EQ(bench.text("Wkupw"), "E12C");
    EXPECT_EQ(bench.text("EWkupw"), "C301");
    EXPECT_EQ(bench.text("WKUPTIME"), "600");
    EXPECT_EQ(bench.text("Label8"), "ms");
    bench.type("WKUPD", "3");
    EXPECT_EQ(bench.text("EWkupw"), "C3C1");
    EXPECT_EQ(bench.text("WKUPTIME"), "75");
    bench.type("WKUPM", "20000");
    bench.type("WKUPR", "16");
    EXPECT_EQ(bench.text("WKUPM"), "16383");
    EXPECT_EQ(bench.text("WKUPR"), "15");
    EXPECT_EQ(bench.text("Wkupw"), "EFFF");
    EXPECT_EQ(bench.text("EWkupw"), "C3FF");
}

TEST(KT1102, TheThresholdCountsFromTwoVolts) {
    PanelBench<KT1102> bench;
    bench.open();
    bench.tick("pm2");
    bench.type("LBD", "15");
    EXPECT_EQ(bench.text("LBDV"), "3.5");
    EXPECT_EQ(bench.text("LBDw"), "C20F");
    bench.type("LBD", "16");
    EXPECT_EQ(bench.text("LBD"), "15");
    bench.type("LBDV", "2.7");
    EXPECT_EQ(bench.text("LBD"), "7");
    EXPECT_EQ(bench.text("LBDV"), "2.7");
    bench.type("LBDV", "0");
    EXPECT_EQ(bench.text("LBD"), "0");
    EXPECT_EQ(bench.text("LBDV"), "2");
}

TEST(KT1102, ASliderWritesItsNumberAndRunsTheFieldsCommit) {
    PanelBench<KT1102> bench;
    bench.open();
    bench.tick("pm1");
    bench.slide("SL_FIFOITLevel", 63);
    EXPECT_EQ(bench.text("TB_FIFOITLevel"), "63");
    EXPECT_EQ(bench.text("TB_FIFOcmd"), "CE3F");
    bench.slide("SL_DataRateLevel", 127);
    EXPECT_EQ(bench.text("TB_DataRate"), "127");
    EXPECT_EQ(bench.text("TB_DataRateCmd"), "C87F");
    EXPECT_EQ(bench.text("TB_DataRateValue"), "2.694");
    bench.slide("SL_WakeUpM", 16383);
    EXPECT_EQ(bench.text("WKUPM"), "16383");
    EXPECT_EQ(bench.text("Wkupw"), "E1FF");
    EXPECT_EQ(bench.text("EWkupw"), "C33F");
    bench.slide("SL_WakeUpR", 0);
    EXPECT_EQ(bench.text("WKUPR"), "0");
    EXPECT_EQ(bench.text("Wkupw"), "E0FF");
}

TEST(KT1102, ATypedNumberIsClampedAndMovesTheSlider) {
    PanelBench<KT1102> bench;
    auto& panel = bench.open();
    bench.tick("pm1");
    bench.type("TB_FIFOITLevel", "64");
    EXPECT_EQ(bench.text("TB_FIFOITLevel"), "63");
    EXPECT_EQ(panel.SL_FIFOITLevel.value(), 63);
    bench.type("TB_FIFOITLevel", "-5");
    EXPECT_EQ(bench.text("TB_FIFOITLevel"), "0");
    EXPECT_EQ(panel.SL_FIFOITLevel.value(), 0);
    bench.type("TB_DataRate", "&H7F");
    EXPECT_EQ(bench.text("TB_DataRate"), "127");
    EXPECT_EQ(panel.SL_DataRateLevel.value(), 127);
    bench.type("WKUPM", "99999");
    EXPECT_EQ(panel.SL_WakeUpM.value(), 16383);
    bench.type("WKUPR", "7");
    EXPECT_EQ(panel.SL_WakeUpR.value(), 7);
}

TEST(KT1102, TheArrowsStepTheNumberAndLeaveTheLimitsToTheCommit) {
    PanelBench<KT1102> bench;
    auto& panel = bench.open();
    bench.tick("pm1");
    bench.tick("pm2");
    struct {
        const char* arrows;
        const char* field;
        const char* start;
        const char* above;
        const char* last;
    } rows[] = {{"UD_LBD", "LBD", "14", "15", "15"},
                {"UD_FIFOITLevel", "TB_FIFOITLevel", "62", "63", "63"},
                {"UD_DataRate", "TB_DataRate", "126", "127", "127"},
                {"UD_WakeUpM", "WKUPM", "16382", "16383", "16383"},
                {"UD_WakeUpR", "WKUPR", "14", "15", "15"},
                {"UD_WakeUpD", "WKUPD", "2", "3", "3"}};
    for (const auto& row : rows) {
        bench.type(row.field, row.start);
        EXPECT_TRUE(bench.element(row.arrows).stepUp());
        EXPECT_EQ(bench.text(row.field), row.above) << row.arrows;
        EXPECT_TRUE(bench.element(row.arrows).stepUp());
        EXPECT_EQ(bench.text(row.field), row.last) << row.arrows;
        EXPECT_TRUE(bench.element(row.arrows).stepDown());
        EXPECT_EQ(bench.text(row.field), row.start) << row.arrows;
        bench.type(row.field, "0");
        EXPECT_TRUE(bench.element(row.arrows).stepDown());
        EXPECT_EQ(bench.text(row.field), "0") << row.arrows;
    }
    EXPECT_EQ(panel.SL_WakeUpM.value(), 0);
}

TEST(KT1102, TheTimerTickGovernsEverythingOfTheTimer) {
    PanelBench<KT1102> bench;
    bench.open();
    const char* governed[] = {"WKUPM",      "WKUPR",      "WKUPD",      "SL_WakeUpM", "SL_WakeUpR",
                              "UD_WakeUpM", "UD_WakeUpR", "UD_WakeUpD", "Wkupw",      "EWkupw"};
    for (const char* name : governed) {
        EXPECT_FALSE(bench.element(name).enabled()) << name;
    }
    bench.tick("pm1");
    for (const char* name : governed) {
        EXPECT_TRUE(bench.element(name).enabled()) << name;
    }
    for (const char* name : {"LBD", "LBDV", "LBDw", "UD_LBD"}) {
        EXPECT_FALSE(bench.element(name).enabled()) << name;
    }
    bench.tick("pm2");
    for (const char* name : {"LBD", "LBDV", "LBDw", "UD_LBD"}) {
        EXPECT_TRUE(bench.element(name).enabled()) << name;
    }
}

TEST(KT1102, ThePrescalerDividesTheRateByEight) {
    PanelBench<KT1102> bench;
    bench.open();
    bench.type("TB_DataRate", "0");
    EXPECT_EQ(bench.text("TB_DataRateValue"), "344.828");
    bench.tick("CB_Prescaler");
    EXPECT_EQ(bench.text("TB_DataRateValue"), "43.103");
    EXPECT_EQ(bench.text("TB_DataRateCmd"), "C880");
}

TEST(KT1102, TheStepShownIsThatOfTheUpperBandsAlsoOnTheLowest) {
    PanelBench<KT1102> bench;
    bench.open();
    bench.click("Band433");
    EXPECT_EQ(bench.text("FreqStep"), "20");
    bench.type("FreqCenter", "433.92");
    EXPECT_EQ(bench.text("FreqCenter"), "433.92");
    EXPECT_EQ(bench.text("Freqw"), "A620");
    EXPECT_EQ(bench.text("Ctrlw"), "8880");
}

} // namespace zor
