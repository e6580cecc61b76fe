// SPDX-License-Identifier: MIT
// What a comparison shows, and that what it shows is all there is.
#include "compare/panel_state.h"

#include "compare/each_device.h"
#include "compare/panel_setter.h"
#include "compare/quiet_panel.h"
#include "panels/random_user.h"
#include "support/numbers.h"

#include <gtest/gtest.h>

namespace zor {

namespace {

using testing::allDevices;
using testing::DeviceBench;
using testing::RandomUser;

constexpr unsigned rounds = 40;

std::string told(const std::vector<Difference>& rows) {
    std::string all;
    for (const Difference& row : rows) {
        all += row.title + " " + row.name + ": " + row.left + ", " + row.right + "\n";
    }
    return all;
}

} // namespace

class Comparing : public testing::OnEachDevice {};

INSTANTIATE_TEST_SUITE_P(Devices, Comparing, ::testing::ValuesIn(allDevices()), testing::DeviceName());

TEST_P(Comparing, TwoSidesDifferInWhatTheirWordsDifferInAndNothingElse) {
    DeviceBench one(GetParam());
    DeviceBench two(GetParam());
    for (unsigned seed = 1; seed <= rounds; ++seed) {
        RandomUser(seed).set(one.panel());
        RandomUser(seed + rounds).set(two.panel());
        PanelState left = shownState(one.panel(), one.shared());
        PanelState right = shownState(two.panel(), two.shared());
        EXPECT_TRUE(differences(left, left).empty());
        std::size_t words = 0;
        for (const ControlWord* word : one.panel().words()) {
            words += word->text() != two.panel().find(word->name())->text() ? 1 : 0;
        }
        std::size_t told = 0;
        std::uint32_t explained = 0;
        for (const Difference& row : differences(left, right)) {
            if (row.kind == Difference::Kind::Word) {
                // The word before is explained to its last bit by the rows behind it.
                EXPECT_EQ(explained, 0U);
                ++told;
                explained = row.leftCode ^ row.rightCode;
            } else if (row.kind == Difference::Kind::Field) {
                std::uint32_t mask = (1U << static_cast<unsigned>(row.highBit - row.lowBit + 1)) - 1U;
                explained &= ~(mask << static_cast<unsigned>(row.lowBit));
            }
        }
        EXPECT_EQ(explained, 0U);
        EXPECT_EQ(told, words);
        one.dialogs.boxes.clear();
        two.dialogs.boxes.clear();
    }
}

TEST_P(Comparing, AFileReadAsideHasWhatThePanelHas) {
    DeviceBench bench(GetParam());
    for (unsigned seed = 1; seed <= rounds; ++seed) {
        RandomUser(seed).set(bench.panel());
        QuietPanel follower(bench.shared(), bench.panel());
        follower.take(bench.panel());
        EXPECT_EQ(told(differences(shownState(bench.panel(), bench.shared()),
                                   shownState(follower.panel(), follower.bench()))),
                  "")
            << "seed " << seed;
        EXPECT_EQ(follower.panel().savedConfiguration(), bench.panel().savedConfiguration());
        if (const Option* lowest = bench.panel().band(Band::Band315);
            std::string(GetParam().name) == "KT2102" && lowest->chosen()) {
            // That option keeps the base of the band before it, of which a file does not know.
            bench.panel().band(Band::Band868)->choose();
            bench.panel().FreqCenter.type("868");
        }
        QuietPanel reader(bench.shared(), bench.panel());
        // A file that leaves settings out leaves them as the panel has them.
        reader.take(bench.panel());
        takeWholeFile(reader.panel(), bench.panel().savedConfiguration());
        EXPECT_EQ(told(differences(shownState(bench.panel(), bench.shared()),
                                   shownState(reader.panel(), reader.bench()))),
                  "")
            << "seed " << seed;
        bench.dialogs.boxes.clear();
    }
}

TEST(SentState, AWordThatWasNotSentIsKnownOnOneSideOnly) {
    DeviceBench bench(allDevices().front());
    PanelState shown = shownState(bench.panel(), bench.shared());
    PanelState sent = sentState(bench.panel());
    EXPECT_TRUE(sent.words.empty());
    EXPECT_TRUE(differences(shown, sent).empty());
    EXPECT_EQ(unknownWords(shown, sent), bench.panel().words().size());
}

TEST(WantedState, TheBandBesideItSaysWhatAFrequencyIs) {
    DeviceBench bench(allDevices().front());
    bench.panel().band(Band::Band433)->choose();
    WantedSettings wanted;
    wanted.words = {{"Ctrlw", 0x9080}, {"Freqw", 0xA640}};
    std::string rows =
        told(differences(shownState(bench.panel(), bench.shared()), wantedState(bench.panel(), wanted)));
    EXPECT_NE(rows.find("868 MHz\n"), std::string::npos) << rows;
    EXPECT_EQ(rows.find(", 434"), std::string::npos) << rows;
    // Alone it is one of the panel's band.
    wanted.words.erase(wanted.words.begin());
    rows = told(differences(shownState(bench.panel(), bench.shared()), wantedState(bench.panel(), wanted)));
    EXPECT_NE(rows.find("434 MHz\n"), std::string::npos) << rows;
}

} // namespace zor
