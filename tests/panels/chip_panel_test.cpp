// SPDX-License-Identifier: MIT
// The engine that all panels share, on the KT1100's panel where the chip does not matter.
#include "panels/all_panels.h"
#include "panels/panel_bench.h"

#include <gmock/gmock.h>

namespace zor {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::PanelBench;
using testing::With;

constexpr const char* loadNotice = "Update chip control words, and power management settings!";

} // namespace

TEST(ChipPanel, UpdateSendsTheWordsInTheirOrderAndTakesTheMarkAway) {
    PanelBench<OpalV2> bench(With::LoadBoard1);
    auto& panel = bench.open();
    bench.click("Update");
    EXPECT_THAT(bench.takeSent(), ElementsAre("S28080", "S2A7D0", "S1B0", "S2C000", "S2C200", "S2E000"));
    EXPECT_FALSE(panel.LabelUpdate.visible());
    EXPECT_EQ(panel.Statusline.text(), " ");
    EXPECT_EQ(bench.shared().CommStatus->text(), "Comm. OK");
}

TEST(ChipPanel, AWordIsPendingWhileItDiffersFromWhatTheBoardHasTaken) {
    PanelBench<OpalV2> bench(With::LoadBoard2);
    auto& panel = bench.open();
    auto pending = [&panel] {
        std::string names;
        for (const ControlWord* word : panel.words()) {
            names += word->pending() ? word->name() + " " : "";
        }
        return names;
    };
    EXPECT_EQ(pending(), "Ctrlw Freqw OutPowerw PowerMw LBDw Wkupw ");
    bench.click("Update");
    EXPECT_EQ(pending(), "");
    bench.type("FreqCenter", "314");
    EXPECT_EQ(pending(), "Freqw ");
    bench.tick("pm5");
    EXPECT_EQ(pending(), "Freqw PowerMw ");
    // Back at what the chip has.
    bench.type("FreqCenter", "315");
    EXPECT_EQ(pending(), "PowerMw ");
    bench.click("Update");
    EXPECT_EQ(pending(), "");
}

TEST(ChipPanel, UpdateOfTheKT1101EndsWithThePllWord) {
    PanelBench<JadeV1> bench(With::LoadBoard2);
    bench.open();
    bench.choose("CB_MaxDataRate", "115.2");
    bench.click("Update");
    EXPECT_THAT(bench.takeSent(),
                ElementsAre("S28880", "S2A7D0", "S1B0", "S2C000", "S2C200", "S2E000", "S2C800", "S2D280"));
}

TEST(ChipPanel, UpdateOfTheKT1102SendsNineWords) {
    PanelBench<KT1102> bench(With::LoadBoard2);
    bench.open();
    bench.click("Update");
    EXPECT_THAT(bench.takeSent(), ElementsAre("S29080", "S2AD57", "S2C000", "S2CE03", "S2C813", "S2C200",
                                              "S2E196", "S2C300", "S2B000"));
}

TEST(ChipPanel, UpdateWithoutAPortSaysSoAndKeepsTheMark) {
    PanelBench<OpalV2> bench;
    auto& panel = bench.open();
    bench.click("Update");
    EXPECT_EQ(panel.Statusline.text(), "Communication fault.");
    EXPECT_EQ(bench.takeBox(),
              "Commport not available, please open commport. Control words were not updated.");
    EXPECT_TRUE(panel.LabelUpdate.visible());
    EXPECT_THAT(bench.takeSent(), IsEmpty());
}

TEST(ChipPanel, UpdateDoesNotAskWhetherASequenceRuns) {
    PanelBench<OpalV2> bench(With::LoadBoard1);
    bench.open();
    PortClaim other = bench.shared().link.port.claim(7);
    bench.click("Update");
    EXPECT_EQ(bench.takeSent().size(), 6U);
    EXPECT_EQ(bench.shared().link.CommState(), 7);
}

TEST(ChipPanel, WordsOfGroupsThatAreDisabledAreSentToo) {
    PanelBench<OpalV2> bench(With::LoadBoard1);
    bench.open();
    bench.tick("pm2");
    bench.type("LBD", "5");
    bench.tick("pm1");
    bench.type("WKUPM", "3");
    bench.untick("pm2");
    bench.untick("pm1");
    bench.takeSent();
    bench.click("Update");
    EXPECT_THAT(bench.takeSent(), ElementsAre("S28080", "S2A7D0", "S1B0", "S2C000", "S2C205", "S2E003"));
}

TEST(ChipPanel, EverySettingThatRewritesAWordShowsTheMark) {
    PanelBench<OpalV2> bench(With::LoadBoard1);
    auto& panel = bench.open();
    bench.click("Update");
    bench.choose("Cxtal", "9.0 pF");
    EXPECT_TRUE(panel.LabelUpdate.visible());
    EXPECT_FALSE(panel.LabelCalibration.visible());
}

TEST(ChipPanel, ABandKeepsTheFrequencyWordAndMovesTheFrequency) {
    PanelBench<OpalV2> bench;
    auto& panel = bench.open();
    struct {
        const char* band;
        const char* megahertz;
        const char* step;
        const char* word;
    } rows[] = {{"Band433", "435", "2.5", "8880"},
                {"Band868", "870", "5", "9080"},
                {"Band915", "915", "7.5", "9880"},
                {"Band315", "315", "2.5", "8080"}};
    for (const auto& row : rows) {
        panel.LabelCalibration.setVisible(false);
        bench.click(row.band);
        EXPECT_EQ(bench.text("FreqCenter"), row.megahertz) << row.band;
        EXPECT_EQ(bench.text("FreqStep"), row.step) << row.band;
        EXPECT_EQ(bench.text("Freqw"), "A7D0") << row.band;
        EXPECT_EQ(bench.text("Ctrlw"), row.word) << row.band;
        EXPECT_TRUE(panel.LabelCalibration.visible()) << row.band;
    }
}

TEST(ChipPanel, ATypedFrequencyIsPulledOntoTheNearestStepAndKeptInItsLimits) {
    PanelBench<OpalV2> bench;
    bench.open();
    struct {
        const char* typed;
        const char* shown;
        const char* word;
        const char* notice;
    } rows[] = {{"314.0012", "314", "A640", loadNotice},
                {"300", "310.24", "A060", "Minimum frequency reached!"},
                {"400", "319.7575", "AF3F", "Maximum frequency reached!"},
                {"abc", "310.24", "A060", "Minimum frequency reached!"}};
    for (const auto& row : rows) {
        bench.type("FreqCenter", row.typed);
        EXPECT_EQ(bench.text("FreqCenter"), row.shown) << row.typed;
        EXPECT_EQ(bench.text("Freqw"), row.word) << row.typed;
        EXPECT_EQ(bench.text("Statusline"), row.notice) << row.typed;
    }
}

TEST(ChipPanel, ACrystalKeepsTheFrequencyAndMovesItsWord) {
    PanelBench<OpalV2> bench;
    auto& panel = bench.open();
    bench.choose("CLKout", 3);
    bench.choose("ModFreq", 5);
    bench.click("NonStdCrystal");
    EXPECT_TRUE(panel.Crystalfreq.enabled());
    EXPECT_EQ(bench.text("Crystalfreq"), "10");
    bench.type("Crystalfreq", "10.1");
    EXPECT_EQ(bench.text("FreqCenter"), "314.9988");
    EXPECT_EQ(bench.text("Freqw"), "A2F0");
    EXPECT_EQ(bench.text("FreqStep"), "2.525");
    // The lists go back to their first entries.
    EXPECT_EQ(panel.CLKout.position(), 0);
    EXPECT_EQ(panel.ModFreq.position(), 0);
    EXPECT_EQ(bench.text("CLKout"), "1.01");
    EXPECT_EQ(bench.text("ModFreq"), "30.3");
    EXPECT_EQ(bench.text("Ctrlw"), "8080");
    EXPECT_EQ(panel.GetXtalFrequency(), 10100000);
    EXPECT_FALSE(panel.LabelCalibration.visible());
    bench.click("StdCrystal");
    EXPECT_FALSE(panel.Crystalfreq.enabled());
    EXPECT_EQ(panel.GetXtalFrequency(), 10000000);
    EXPECT_EQ(bench.text("CLKout"), "1");
    EXPECT_EQ(bench.text("Statusline"), " ");
}

TEST(ChipPanel, ACrystalIsReadWithTheUsersDecimalMarkAndWithThePointThatItShows) {
    PanelBench<OpalV2> bench;
    bench.platform.decimalMark = ',';
    bench.open();
    bench.click("NonStdCrystal");
    bench.type("Crystalfreq", "10,5");
    EXPECT_EQ(bench.text("Crystalfreq"), "10.5");
    bench.type("Crystalfreq", bench.text("Crystalfreq"));
    EXPECT_EQ(bench.text("Crystalfreq"), "10.5");
    EXPECT_EQ(bench.panel->GetXtalFrequency(), 10500000);
}

TEST(ChipPanel, ACrystalIsKeptBetweenEightAndTwelveMegahertz) {
    PanelBench<OpalV2> bench;
    bench.open();
    bench.click("NonStdCrystal");
    struct {
        const char* typed;
        const char* shown;
        const char* notice;
    } rows[] = {// The chain commits the frequency, which has the last word while it has to move.
                {"8", "8", "Maximum frequency reached!"},
                {"7.9999994", "8", "Minimum crystal frequency reached!"},
                {"12", "12", "Minimum frequency reached!"},
                {"12.0000006", "12", "Maximum crystal frequency reached!"}};
    for (const auto& row : rows) {
        bench.type("Crystalfreq", row.typed);
        EXPECT_EQ(bench.text("Crystalfreq"), row.shown) << row.typed;
        EXPECT_EQ(bench.text("Statusline"), row.notice) << row.typed;
    }
}

TEST(ChipPanel, ACrystalWithoutANumberGoesBackToWhatItWas) {
    PanelBench<OpalV2> bench;
    auto& panel = bench.open();
    bench.click("NonStdCrystal");
    bench.type("Crystalfreq", "10.1234565");
    EXPECT_EQ(bench.text("Crystalfreq"), "10.123456");
    std::string frequency = bench.text("FreqCenter");
    for (const char* text : {"none", "", "MHz 10"}) {
        bench.type("Crystalfreq", text);
        EXPECT_EQ(bench.text("Crystalfreq"), "10.123456") << text;
        EXPECT_EQ(bench.text("FreqCenter"), frequency) << text;
    }
    EXPECT_EQ(panel.GetXtalFrequency(), 10123456);
}

TEST(ChipPanel, TheTimersClockFollowsTheCrystal) {
    PanelBench<OpalV2> bench;
    bench.open();
    bench.tick("pm1");
    bench.type("WKUPM", "100");
    bench.type("WKUPR", "10");
    EXPECT_EQ(bench.text("WKUPTIME"), "102.4");
    EXPECT_EQ(bench.text("Wkupw"), "EA64");
    bench.click("NonStdCrystal");
    bench.type("Crystalfreq", "8");
    EXPECT_EQ(bench.text("WKUPTIME"), "128");
    EXPECT_EQ(bench.text("Wkupw"), "EA64");
}

TEST(ChipPanel, TheTimersNumbersAreClampedWithoutANotice) {
    PanelBench<OpalV2> bench;
    bench.open();
    bench.tick("pm1");
    bench.type("WKUPM", "256");
    bench.type("WKUPR", "24");
    EXPECT_EQ(bench.text("WKUPM"), "255");
    EXPECT_EQ(bench.text("WKUPR"), "23");
    EXPECT_EQ(bench.text("Wkupw"), "F7FF");
    EXPECT_EQ(bench.text("Label8"), "days");
    EXPECT_EQ(bench.text("Statusline"), loadNotice);
    bench.type("WKUPM", "0");
    EXPECT_EQ(bench.text("WKUPTIME"), "0");
    EXPECT_EQ(bench.text("Label8"), "sec");
    EXPECT_EQ(bench.text("Wkupw"), "F700");
}

TEST(ChipPanel, AZeroThresholdVoltageEndsAtTheLowestThreshold) {
    PanelBench<OpalV2> bench;
    bench.open();
    bench.tick("pm2");
    bench.type("LBDV", "3.1");
    EXPECT_EQ(bench.text("LBD"), "9");
    EXPECT_EQ(bench.text("LBDw"), "C209");
    bench.type("LBDV", "0");
    EXPECT_EQ(bench.text("LBD"), "0");
    EXPECT_EQ(bench.text("LBDV"), "2.2");
    bench.type("LBDV", "9");
    EXPECT_EQ(bench.text("LBD"), "31");
    EXPECT_EQ(bench.text("LBDV"), "5.3");
    bench.type("LBDV", "-1");
    EXPECT_EQ(bench.text("LBD"), "0");
}

TEST(ChipPanel, CalibrationEndsWithTheSynthesizerOffWhereItsTickIs) {
    PanelBench<OpalV2> bench(With::LoadBoard1);
    auto& panel = bench.open();
    bench.click("Band433");
    bench.click("Update");
    bench.takeSent();
    bench.click("CalibratePLL");
    EXPECT_THAT(bench.takeSent(), ElementsAre("S2C000", "S2C010", "S2C000"));
    EXPECT_EQ(bench.text("PowerMw"), "C000");
    EXPECT_FALSE(panel.LabelCalibration.visible());
    EXPECT_FALSE(panel.LabelUpdate.visible());
}

TEST(ChipPanel, CalibrationEndsWithTheSynthesizerOnWhereItsTickIs) {
    PanelBench<KT1102> bench(With::LoadBoard1);
    bench.open();
    bench.tick("pm5");
    bench.tick("pm4");
    bench.click("CalibratePLL");
    EXPECT_THAT(bench.takeSent(), ElementsAre("S2C020", "S2C030"));
    EXPECT_EQ(bench.text("PowerMw"), "C030");
}

TEST(ChipPanel, CalibrationWithWordsPendingLeavesTheReminder) {
    PanelBench<OpalV2> bench(With::LoadBoard1);
    auto& panel = bench.open();
    bench.click("Band433");
    bench.click("CalibratePLL");
    EXPECT_TRUE(panel.LabelCalibration.visible());
    EXPECT_TRUE(panel.LabelUpdate.visible());
}

TEST(ChipPanel, CalibrationWithoutAPortSaysSo) {
    PanelBench<OpalV2> bench;
    auto& panel = bench.open();
    bench.click("CalibratePLL");
    EXPECT_EQ(panel.Statusline.text(), "Communication fault.");
    EXPECT_EQ(bench.takeBox(),
              "Commport not available, please open commport. Synthesizer was not calibrated!");
}

TEST(ChipPanel, ASupplyIsRoundedClampedKeptAndSentWithTheSecondGenerationsConstant) {
    for (With board : {With::LoadBoard1, With::LoadBoard2}) {
        PanelBench<OpalV2> bench(board);
        bench.open();
        struct {
            const char* typed;
            const char* shown;
            const char* line;
            const char* notice;
        } rows[] = {{"2.5", "2.5", "V83", " "},
                    {"3.3", "3.3", "VA1", " "},
                    {"3.14", "3.1", "V9B", " "},
                    {"1", "2", "V64", "Minimum supply voltage is 2.0 V!"},
                    {"6", "5.4", "VC6", "Maximum supply voltage is 5.4 V!"},
                    {"2,5", "2", "V64", "Incorrect Power Supply voltage format!  (2,5 V)"}};
        for (const auto& row : rows) {
            bench.panel->Statusline.setText(" ");
            bench.type("PowerSupply", row.typed);
            EXPECT_EQ(bench.text("PowerSupply"), row.shown) << row.typed;
            EXPECT_EQ(bench.shared().preferences.Pref_Voltage, row.shown) << row.typed;
            EXPECT_THAT(bench.takeSent(), ElementsAre(row.line)) << row.typed;
            EXPECT_EQ(bench.text("Statusline"), row.notice) << row.typed;
        }
    }
}

TEST(ChipPanel, TwoSuppliesInARowWithoutAPortRaiseOneBox) {
    PanelBench<OpalV2> bench;
    bench.open();
    bench.type("PowerSupply", "3");
    EXPECT_EQ(bench.text("Statusline"), "Communication fault.");
    EXPECT_EQ(bench.takeBox(), "Commport not available, please open commport. PSU setting was not updated.");
    bench.type("PowerSupply", "4");
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    EXPECT_EQ(bench.shared().preferences.Pref_Voltage, "4");
}

TEST(ChipPanel, ALossOfFocusCommitsAsEnterDoes) {
    PanelBench<OpalV2> bench;
    auto& panel = bench.open();
    panel.FreqCenter.edit("316");
    EXPECT_EQ(bench.text("Freqw"), "A7D0");
    panel.FreqCenter.leave();
    EXPECT_EQ(bench.text("Freqw"), "A960");
}

TEST(ChipPanel, TheAutoLoadAsksForAFileBeforeThePanelShows) {
    PanelBench<OpalV2> bench;
    bench.shared().preferences.Pref_CCautoLoad = 1;
    auto& panel = bench.open();
    ASSERT_EQ(bench.dialogs.fileDialogs.size(), 1U);
    EXPECT_EQ(bench.dialogs.fileDialogs.front().title, "Load Transmitter Configuration File");
    // It was cancelled: the defaults stand, nothing is sent.
    EXPECT_EQ(panel.savedConfiguration(), PanelBench<OpalV2>().open().savedConfiguration());
    EXPECT_EQ(panel.Statusline.text(), loadNotice);
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    EXPECT_THAT(bench.takeSent(), IsEmpty());
}

} // namespace zor
