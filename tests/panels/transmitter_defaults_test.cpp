// SPDX-License-Identifier: MIT
// The three transmitters as they open.
#include "panels/all_panels.h"
#include "panels/panel_bench.h"

#include <gmock/gmock.h>

namespace zor {

namespace {

using testing::PanelBench;

struct Shown {
    const char* element;
    const char* text;
};

template <class Panel>
void expectShown(PanelBench<Panel>& bench, std::initializer_list<Shown> rows) {
    for (const Shown& row : rows) {
        EXPECT_EQ(bench.text(row.element), row.text) << row.element;
    }
}

} // namespace

TEST(OpalV2, OpensWithItsDefaults) {
    PanelBench<OpalV2> bench;
    auto& panel = bench.open();
    EXPECT_EQ(panel.name(), "OpalV2");
    EXPECT_EQ(panel.title(), "KT1100 transmitter control panel");
    expectShown(bench, {{"Ctrlw", "8080"},
                        {"Freqw", "A7D0"},
                        {"OutPowerw", "B0"},
                        {"PowerMw", "C000"},
                        {"LBDw", "C200"},
                        {"Wkupw", "E000"},
                        {"FreqCenter", "315"},
                        {"FreqStep", "2.5"},
                        {"Crystalfreq", "10"},
                        {"Cxtal", "12.5 pF"},
                        {"CLKout", "1"},
                        {"ModPol", "fo + df"},
                        {"ModFreq", "30"},
                        {"Modulation", "FSK"},
                        {"OutputPower", "Pmax"},
                        {"Revision", "'D' or above"},
                        {"LBD", "0"},
                        {"LBDV", "2.2"},
                        {"WKUPM", "0"},
                        {"WKUPR", "0"},
                        {"WKUPTIME", "0"},
                        {"PowerSupply", "2.5"},
                        {"Statusline", "Update chip control words, and power management settings!"}});
    EXPECT_EQ(panel.Label8.caption(), "sec");
    EXPECT_TRUE(panel.StdCrystal.chosen());
    EXPECT_FALSE(panel.Crystalfreq.enabled());
    EXPECT_TRUE(panel.band(Band::Band315)->chosen());
    EXPECT_TRUE(panel.LabelUpdate.visible());
    EXPECT_FALSE(panel.LabelCalibration.visible());
    EXPECT_EQ(panel.extent().height, 8930);
    EXPECT_EQ(panel.place(), (Place{0, 0}));
    EXPECT_EQ(panel.OutputPower.entries().size(), 8U);
    EXPECT_EQ(panel.Cxtal.entries().front(), "8.5 pF");
    EXPECT_EQ(panel.Cxtal.entries().back(), "16.0 pF");
    EXPECT_EQ(panel.Cxtal.entries().size(), 16U);
    for (int bitNumber = 0; bitNumber < 8; ++bitNumber) {
        EXPECT_FALSE(panel.pm(bitNumber)->ticked()) << bitNumber;
    }
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    EXPECT_TRUE(bench.dialogs.fileDialogs.empty());
}

TEST(OpalV2, OpensOnTheRevisionOfThePreferences) {
    PanelBench<OpalV2> bench;
    bench.shared().preferences.Pref_OpalRevision = "'C' or below";
    auto& panel = bench.open();
    EXPECT_EQ(panel.Revision.text(), "'C' or below");
    EXPECT_THAT(panel.OutputPower.entries(), ::testing::ElementsAre("Pmax", "-3 dB", "-6 dB", "-9 dB"));
    EXPECT_EQ(panel.Revision.background(), panel.Yellow.background());
}

TEST(JadeV1, OpensWithItsDefaults) {
    PanelBench<JadeV1> bench;
    auto& panel = bench.open();
    EXPECT_EQ(panel.title(), "KT1101 transmitter control panel");
    expectShown(bench, {{"Ctrlw", "8880"},
                        {"Freqw", "A7D0"},
                        {"OutPowerw", "B0"},
                        {"PowerMw", "C000"},
                        {"LBDw", "C200"},
                        {"Wkupw", "E000"},
                        {"Dataratew", "C800"},
                        {"TB_PLLCmd", "D240"},
                        {"FreqCenter", "435"},
                        {"FreqStep", "2.5"},
                        {"Revision", "'A' or above"},
                        {"DATARATEDIV", "0"},
                        {"DATARATE", "344.828"},
                        {"CB_MaxDataRate", "19.2"},
                        {"TB_PHNoise", "-112"},
                        {"ModFreq", "30"}});
    EXPECT_EQ(panel.find("Band315"), nullptr);
    EXPECT_TRUE(panel.band(Band::Band433)->chosen());
    EXPECT_FALSE(panel.CB_ebs.ticked());
    EXPECT_FALSE(panel.CB_dwc.ticked());
    EXPECT_EQ(panel.extent().height, 10380);
}

TEST(KT1102, OpensWithItsDefaults) {
    PanelBench<KT1102> bench;
    auto& panel = bench.open();
    EXPECT_EQ(panel.title(), "KT1102 transmitter control panel");
    expectShown(bench, {{"Ctrlw", "9080"},
                        {"Freqw", "AD57"},
                        {"PowerMw", "C000"},
                        {"TB_FIFOcmd", "CE03"},
                        {"TB_DataRateCmd", "C813"},
                        {"LBDw", "C200"},
                        {"Wkupw", "E196"},
                        {"EWkupw", "C300"},
                        {"EFCmd", "B000"},
                        {"FreqCenter", "868.3"},
                        {"FreqStep", "20"},
                        {"TB_FIFOITLevel", "3"},
                        {"TB_DataRate", "19"},
                        {"TB_DataRateValue", "17.241"},
                        {"WKUPM", "150"},
                        {"WKUPR", "1"},
                        {"WKUPD", "0"},
                        {"WKUPTIME", "300"},
                        {"Label8", "ms"},
                        {"LBD", "0"},
                        {"LBDV", "2"},
                        {"C_PLLBW", "15 kHz"},
                        {"OutputPower", "Pmax"},
                        {"Revision", "'A' or above"},
                        {"ModFreq", "20"}});
    EXPECT_EQ(panel.find("Band315"), nullptr);
    EXPECT_EQ(panel.find("pm6"), nullptr);
    EXPECT_EQ(panel.find("OutPowerw"), nullptr);
    EXPECT_TRUE(panel.band(Band::Band868)->chosen());
    EXPECT_EQ(panel.SL_FIFOITLevel.value(), 3);
    EXPECT_EQ(panel.SL_DataRateLevel.value(), 19);
    EXPECT_EQ(panel.SL_WakeUpM.value(), 150);
    EXPECT_EQ(panel.SL_WakeUpR.value(), 1);
    EXPECT_EQ(panel.extent().height, 10100);
}

TEST(KT1102, SharesTheRevisionPreferenceOfTheKT1101) {
    PanelBench<KT1102> bench;
    bench.shared().preferences.Pref_JadeRevision = "'B' or below";
    EXPECT_EQ(bench.open().Revision.text(), "'B' or below");
    PanelBench<JadeV1> sibling;
    sibling.shared().preferences.Pref_JadeRevision = "'B' or below";
    EXPECT_EQ(sibling.open().Revision.text(), "'B' or below");
}

} // namespace zor
