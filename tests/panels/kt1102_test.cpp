// SPDX-License-Identifier: MIT
// The settings of the KT1102 and the words that they make.
#include "panels/all_panels.h"
#include "panels/list_rows.h"
#include "panels/panel_bench.h"

namespace zor {

namespace {

using testing::expectRows;
using testing::PanelBench;

} // namespace

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
