// SPDX-License-Identifier: MIT
#include "panels/receivers/beryl_v3.h"

#include "panels/panel_bench.h"

#include <gtest/gtest.h>

namespace zor::testing {

namespace {

using Lines = std::vector<std::string>;
using Bench3100 = PanelBench<BerylV3>;

Lines wordsOf(const ChipPanel& panel) {
    Lines words;
    for (const ControlWord* word : panel.words()) {
        words.push_back(word->name() + " " + word->text());
    }
    return words;
}

} // namespace

TEST(BerylV3, StartsWithItsTwelveWords) {
    Bench3100 bench;
    EXPECT_EQ(wordsOf(bench.open()), (Lines{"Ctrlw 8008", "Freqw A7D0", "PowerW 8208", "Recw 9080",
                                            "TXCtrlw 9800", "Wkupw E196", "Dutyw C80E", "LBDw C000",
                                            "AFCw C4F7", "Dataratew C623", "Datafiltw C22C", "FIFOw CA80"}));
}

TEST(BerylV3, StartsWithTheUpdateDueAndNoCalibration) {
    Bench3100 bench;
    BerylV3& panel = bench.open();
    EXPECT_TRUE(panel.LabelUpdate.visible());
    EXPECT_FALSE(panel.LabelCalibration.visible());
    EXPECT_EQ(panel.Statusline.text(), "Update chip control commands, and power management settings!");
    EXPECT_EQ(panel.extent().height, 8800);
}

TEST(BerylV3, ReleasesTheDataLineAsItOpens) {
    Bench3100 bench(With::LoadBoard2);
    bench.open();
    EXPECT_EQ(bench.takeSent(), (Lines{"Z3"}));
}

TEST(BerylV3, UpdateSendsTheWordsInTheirOrder) {
    Bench3100 bench(With::LoadBoard2);
    BerylV3& panel = bench.open();
    bench.takeSent();
    bench.click("Update");
    EXPECT_EQ(bench.takeSent(), (Lines{"S28008", "Z3", "S2A7D0", "S28208", "S29080", "S29800", "S2E196",
                                       "S2C80E", "S2C000", "S2C4F7", "S2C623", "S2C22C", "S2CA80"}));
    EXPECT_FALSE(panel.LabelUpdate.visible());
    EXPECT_EQ(panel.Statusline.text(), " ");
}

TEST(BerylV3, CalibratesInEveryCombinationOfItsTicks) {
    struct Row {
        bool receiver;
        bool transmitter;
        bool synthesizer;
        Lines sent;
    };
    for (const Row& row : {
             Row{false, false, false, {"S28208", "S28218", "S28208"}},
             Row{false, false, true, {"S28208", "S28218", "S28218"}},
             Row{false, true, false, {"S28208", "S28228"}},
             Row{false, true, true, {"S28208", "S28238"}},
             Row{true, false, false, {"S28208", "S28288"}},
             Row{true, false, true, {"S28208", "S28298"}},
             Row{true, true, false, {"S28208", "S282A8"}},
             Row{true, true, true, {"S28208", "S282B8"}},
         }) {
        Bench3100 bench(With::LoadBoard2);
        BerylV3& panel = bench.open();
        panel.chb_er.setTicked(row.receiver);
        panel.chb_et.setTicked(row.transmitter);
        panel.chb_es.setTicked(row.synthesizer);
        bench.takeSent();
        bench.click("CalibratePLL");
        EXPECT_EQ(bench.takeSent(), row.sent);
        EXPECT_EQ("S2" + panel.PowerW.text(), row.sent.back());
    }
}

TEST(BerylV3, ACalibrationWithAnUpdateDueKeepsItsMark) {
    Bench3100 bench(With::LoadBoard2);
    BerylV3& panel = bench.open();
    bench.click("Band433");
    bench.click("CalibratePLL");
    EXPECT_TRUE(panel.LabelCalibration.visible());
    bench.click("Update");
    bench.click("CalibratePLL");
    EXPECT_FALSE(panel.LabelCalibration.visible());
}

TEST(BerylV3, TheOffsetIsFiveBitsSigned) {
    Bench3100 bench(With::LoadBoard2);
    BerylV3& panel = bench.open();
    for (auto [byte, shown] : std::vector<std::pair<std::uint8_t, const char*>>{
             {0x00, "0"}, {0x01, "2.5"}, {0x0F, "37.5"}, {0x10, "-40"}, {0x1F, "-2.5"}, {0xE0, "0"}}) {
        bench.board().setStatus(0, byte);
        bench.click("ReadStatus");
        bench.run(std::chrono::milliseconds(1000));
        EXPECT_EQ(panel.Foffset.text(), shown) << static_cast<int>(byte);
    }
}

TEST(BerylV3, TheVariantHasOneBandAndNoRevision) {
    Bench3100 bench;
    bench.shared().SetBijakuMode(true);
    BerylV3& panel = bench.open();
    EXPECT_EQ(panel.title(), "KT3100B Transceiver control panel");
    EXPECT_TRUE(panel.band(Band::Band315)->visible());
    for (Band which : {Band::Band433, Band::Band868, Band::Band915}) {
        EXPECT_FALSE(panel.band(which)->visible());
    }
    EXPECT_FALSE(panel.Revision.visible());
    EXPECT_FALSE(panel.find("Frame1(11)")->visible());
    // Nothing else differs.
    EXPECT_EQ(panel.Ctrlw.text(), "8008");
}

TEST(BerylV3, StopsItsRepeatedReadsForOthers) {
    Bench3100 bench(With::LoadBoard2);
    BerylV3& panel = bench.open();
    panel.ReadStatus.doubleClick();
    bench.run(std::chrono::milliseconds(1400));
    bench.takeSent();
    panel.StopRepetitiveStatusRead();
    bench.run(std::chrono::milliseconds(5000));
    EXPECT_EQ(bench.takeSent(), Lines{});
}

TEST(BerylV3, ATextThatIsNoEntryShowsAndKeepsTheCode) {
    Bench3100 bench;
    BerylV3& panel = bench.open();
    bench.choose("OutputPower", "-9 dB");
    panel.OutputPower.selectText("-10 dB");
    EXPECT_EQ(panel.OutputPower.text(), "-10 dB");
    EXPECT_EQ(panel.TXCtrlw.text(), "9803");
}

TEST(BerylV3, ItsFileHasFiftyTwoLines) {
    Bench3100 bench;
    std::string saved = bench.open().savedConfiguration();
    EXPECT_EQ(std::count(saved.begin(), saved.end(), '\n'), 52);
    EXPECT_TRUE(saved.starts_with("\"# ZOR Transceiver configuration file. Version 2.0.0\"\r\n#TRUE#\r\n"));
    EXPECT_TRUE(saved.ends_with("\"Synchron pattern\"\r\n8\r\n\"2.5\"\r\n"));
}

} // namespace zor::testing
