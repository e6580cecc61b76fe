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

} // namespace zor::testing
