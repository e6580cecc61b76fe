// SPDX-License-Identifier: MIT
#include "panels/receivers/amber_v1.h"

#include "panels/panel_bench.h"

#include <gtest/gtest.h>

namespace zor {

namespace {

using testing::With;
using Bench2100 = testing::PanelBench<AmberV1>;

constexpr const char* older = "'E' or below";
constexpr const char* newer = "'F' or above";

/// The lines of a saved file, without their ends.
std::vector<std::string> linesOf(const std::string& bytes) {
    std::vector<std::string> lines(1);
    for (char c : bytes) {
        if (c == '\n') {
            lines.emplace_back();
        } else if (c != '\r') {
            lines.back() += c;
        }
    }
    lines.pop_back();
    return lines;
}

} // namespace

TEST(AmberV1, OpensInTheOlderGenerationWhereThePreferenceSaysSo) {
    Bench2100 bench;
    bench.shared().preferences.Pref_AmberRevision = older;
    AmberV1& panel = bench.open();
    EXPECT_EQ(panel.Revision.text(), older);
    EXPECT_EQ(panel.VDI.text(), "Clock Recovery locked");
    EXPECT_EQ(panel.Recw.text(), "C081");
    EXPECT_EQ(panel.AFCauto.text(), "Manual");
    EXPECT_EQ(panel.AFCw.text(), "C667");
    EXPECT_EQ(panel.status(9).caption(), "SYNC");
    EXPECT_FALSE(panel.status(10).visible());
}

TEST(AmberV1, OpensInTheNewerGenerationForAPreferenceThatNamesNone) {
    Bench2100 bench;
    bench.shared().preferences.Pref_AmberRevision = "'G'";
    AmberV1& panel = bench.open();
    EXPECT_EQ(panel.Revision.text(), newer);
    EXPECT_EQ(panel.Recw.text(), "C0C1");
    EXPECT_EQ(panel.AFCw.text(), "C6F7");
}

TEST(AmberV1, TheOlderGenerationShowsBitSevenOfTheFirstByteNowhere) {
    Bench2100 bench(With::LoadBoard2);
    AmberV1& panel = bench.open();
    bench.choose("Revision", older);
    bench.board().setStatus(0x80, 0x00);
    bench.click("ReadStatus");
    bench.run(std::chrono::milliseconds(1000));
    for (int lamp = 1; lamp <= 16; ++lamp) {
        EXPECT_FALSE(panel.status(lamp).lit()) << lamp;
    }
}

TEST(AmberV1, TheOlderGenerationsBitsStandOneIndicatorFurtherToTheFront) {
    Bench2100 bench(With::LoadBoard2);
    AmberV1& panel = bench.open();
    bench.choose("Revision", older);
    for (int bit = 0; bit < 7; ++bit) {
        bench.board().setStatus(static_cast<std::uint8_t>(1U << bit), 0x00);
        bench.click("ReadStatus");
        bench.run(std::chrono::milliseconds(1000));
        for (int lamp = 1; lamp <= 7; ++lamp) {
            EXPECT_EQ(panel.status(lamp).lit(), lamp == 7 - bit) << "bit " << bit << " lamp " << lamp;
        }
    }
}

TEST(AmberV1, EnableAndOutputChangePlacesBetweenTheGenerations) {
    Bench2100 bench;
    AmberV1& panel = bench.open();
    bench.choose("AFCauto", "Manual");
    bench.choose("AFCres", "Unlimited");
    bench.untick("afcfi");
    bench.untick("afcoen");
    EXPECT_EQ(panel.AFCw.text(), "C601");
    bench.choose("Revision", older);
    EXPECT_EQ(panel.AFCw.text(), "C602");
    bench.tick("afcoen");
    bench.untick("afcen");
    EXPECT_EQ(panel.AFCw.text(), "C601");
    bench.choose("Revision", newer);
    EXPECT_EQ(panel.AFCw.text(), "C602");
}

TEST(AmberV1, EveryRangeStandsABitHigherOnTheOlderGeneration) {
    struct Row {
        const char* range;
        const char* newerWord;
        const char* olderWord;
    };
    Bench2100 bench;
    AmberV1& panel = bench.open();
    bench.choose("AFCauto", "Manual");
    for (const Row& row : {Row{"Unlimited", "C607", "C607"}, Row{"+15/-16 Fs", "C617", "C627"},
                           Row{"+7/-8 Fs", "C627", "C647"}, Row{"+3/-4 Fs", "C637", "C667"}}) {
        bench.choose("Revision", newer);
        bench.choose("AFCres", row.range);
        EXPECT_EQ(panel.AFCw.text(), row.newerWord) << row.range;
        bench.choose("Revision", older);
        EXPECT_EQ(panel.AFCw.text(), row.olderWord) << row.range;
    }
}

TEST(AmberV1, TheOlderGenerationsTipsTellItsOwnLayout) {
    Bench2100 bench;
    AmberV1& panel = bench.open();
    EXPECT_NE(panel.AFCw.tip().find("7:6 mode 11 = Auto, keep Foffset"), std::string::npos);
    EXPECT_NE(panel.Dataratew.tip().find("7 prescaler 0 = off"), std::string::npos);
    bench.choose("Revision", older);
    EXPECT_EQ(panel.AFCw.tip().find("mode"), std::string::npos);
    EXPECT_NE(panel.AFCw.tip().find("6:5 range 11 = +3/-4 Fs"), std::string::npos);
    EXPECT_NE(panel.Dataratew.tip().find("7:0 R 00100011"), std::string::npos);
}

TEST(AmberV1, ADividerAbove127SurvivesTheLoadOfAnOlderFileOverATickedPrescaler) {
    Bench2100 source;
    AmberV1& saved = source.open();
    source.choose("Revision", older);
    source.type("DATARATEDIV", "255");
    Bench2100 bench;
    AmberV1& panel = bench.open();
    bench.tick("dataratepresc");
    panel.takeConfiguration(saved.savedConfiguration());
    EXPECT_EQ(panel.DATARATEDIV.text(), "255");
    EXPECT_EQ(panel.Dataratew.text(), "C8FF");
    EXPECT_FALSE(panel.dataratepresc.ticked());
}

TEST(AmberV1, AFileOfTheNewerGenerationBringsItsModeToAPanelOfTheOlder) {
    Bench2100 source;
    AmberV1& saved = source.open();
    Bench2100 bench;
    AmberV1& panel = bench.open();
    bench.choose("Revision", older);
    panel.takeConfiguration(saved.savedConfiguration());
    EXPECT_EQ(panel.Revision.text(), newer);
    EXPECT_EQ(panel.AFCauto.text(), "Auto, keep Foffset");
    EXPECT_EQ(panel.AFCw.text(), "C6F7");
    // The switch comes last and sets this list.
    EXPECT_EQ(panel.VDI.text(), "Clock Recovery locked");
}

TEST(AmberV1, ItsFileHasFortyThreeLines) {
    Bench2100 bench;
    std::vector<std::string> lines = linesOf(bench.open().savedConfiguration());
    ASSERT_EQ(lines.size(), 43U);
    EXPECT_EQ(lines[0], "\"# ZOR Receiver configuration file. Version 2.0.0\"");
    EXPECT_EQ(lines[1], "50");
    EXPECT_EQ(lines[22], "\"150\"");
    EXPECT_EQ(lines[42], "\"'F' or above\"");
}

TEST(AmberV1, TheLinkTimeOutTravelsWithTheFile) {
    Bench2100 bench;
    AmberV1& panel = bench.open();
    bench.shared().preferences.Pref_RxLinkTimeout = 123;
    std::string saved = panel.savedConfiguration();
    bench.shared().preferences.Pref_RxLinkTimeout = 50;
    panel.takeConfiguration(saved);
    EXPECT_EQ(bench.shared().preferences.Pref_RxLinkTimeout, 123);
}

TEST(AmberV1, CalibrationEndsAsTheReceiverTickSays) {
    struct Row {
        bool receives;
        std::vector<std::string> sent;
    };
    for (const Row& row :
         {Row{true, {"S2C0C0", "S2C0C1", "S2C0C1"}}, Row{false, {"S2C0C0", "S2C0C1", "S2C0C0"}}}) {
        Bench2100 bench(With::LoadBoard2);
        AmberV1& panel = bench.open();
        panel.enrec.setTicked(row.receives);
        bench.takeSent();
        bench.click("CalibratePLL");
        EXPECT_EQ(bench.takeSent(), row.sent);
    }
}

} // namespace zor
