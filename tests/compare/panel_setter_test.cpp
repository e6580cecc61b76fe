// SPDX-License-Identifier: MIT
// Headers and words read backwards, for every chip and over what a user can set.
#include "compare/panel_setter.h"

#include "compare/each_device.h"
#include "compare/quiet_panel.h"
#include "elements/list_box.h"
#include "panels/common/settings_plan.h"
#include "panels/random_user.h"
#include "support/error.h"
#include "support/numbers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace zor {

namespace {

using testing::allDevices;
using testing::Device;
using testing::DeviceBench;
using testing::RandomUser;

/// Random settings a device; with nine devices there are thousands.
constexpr unsigned rounds = 250;

std::string wordsOf(const ChipPanel& panel, const WantedSettings& wanted) {
    std::string all;
    for (const auto& [name, value] : wanted.words) {
        all += name + " " + panel.find(name)->text() + "\n";
    }
    return all;
}

std::string told(const std::vector<RefusedBits>& refused) {
    std::string all;
    for (const RefusedBits& row : refused) {
        all += row.word + " " + row.bits + " " + row.field + ": " + row.asked + ", possible " + row.possible +
               "\n";
    }
    return all;
}

} // namespace

class SetFrom : public testing::OnEachDevice {};

INSTANTIATE_TEST_SUITE_P(Devices, SetFrom, ::testing::ValuesIn(allDevices()), testing::DeviceName());

TEST_P(SetFrom, AHeaderGivesAnotherPanelTheSameWords) {
    DeviceBench source(GetParam());
    DeviceBench target(GetParam());
    for (unsigned seed = 1; seed <= rounds; ++seed) {
        RandomUser(seed).set(source.panel());
        RandomUser(seed + rounds).set(target.panel());
        WantedByHeader wanted = wantedByHeader(target.panel(), source.header());
        ASSERT_FALSE(wanted.settings.words.empty());
        ASSERT_EQ(told(setPanel(target.shared(), target.panel(), wanted.settings)), "") << "seed " << seed;
        ASSERT_EQ(wordsOf(target.panel(), wanted.settings), wordsOf(source.panel(), wanted.settings))
            << "seed " << seed;
        // The same meaning, too: the same revision and crystal stand behind the words.
        ASSERT_EQ(target.panel().Revision.text(), source.panel().Revision.text());
        // Its own header is the other's then, to the last character of what it tells in words.
        ASSERT_EQ(wordsOf(target.panel(), wantedByHeader(source.panel(), target.header()).settings),
                  wordsOf(source.panel(), wanted.settings));
        source.dialogs.boxes.clear();
        target.dialogs.boxes.clear();
    }
}

TEST_P(SetFrom, EveryValueOfEveryFieldReadsBackOrIsRefusedByName) {
    DeviceBench bench(GetParam());
    ChipPanel& panel = bench.panel();
    for (unsigned seed = 1; seed <= 3; ++seed) {
        RandomUser(seed).set(panel);
        for (const ControlWord* word : panel.words()) {
            for (std::size_t place = 0; place < word->fields().size(); ++place) {
                const BitField& field = word->fields()[place];
                std::uint32_t mask = (1U << (field.highBit - field.lowBit + 1)) - 1U;
                for (std::uint32_t code = 0; code <= mask; ++code) {
                    std::uint32_t before = word->value();
                    std::uint32_t asked = (before & ~(mask << field.lowBit)) | (code << field.lowBit);
                    SettingsPlan plan;
                    plan.ask(*word, asked);
                    std::vector<RefusedBits> refused = plan.refused();
                    if (refused.empty()) {
                        plan.carryOut();
                        refused = plan.missed();
                    }
                    if (refused.empty()) {
                        ASSERT_EQ(word->value(), asked) << word->name() << " " << field.name;
                        ASSERT_EQ(word->text(), hexText(asked)) << word->name() << " " << field.name;
                    } else {
                        ASSERT_TRUE(std::any_of(refused.begin(), refused.end(),
                                                [&](const RefusedBits& row) {
                                                    return row.field == field.name ||
                                                           row.possible.find("beside") != std::string::npos;
                                                }))
                            << word->name() << " " << field.name << " " << code << "\n"
                            << told(refused);
                    }
                }
            }
        }
        bench.dialogs.boxes.clear();
    }
}

TEST_P(SetFrom, ARefusedWordChangesNothing) {
    DeviceBench bench(GetParam());
    ChipPanel& panel = bench.panel();
    std::mt19937 random(7);
    int refusals = 0;
    for (int round = 0; round < 150; ++round) {
        const ControlWord* word = panel.words()[random() % panel.words().size()];
        WantedSettings wanted;
        // Mostly the word's own fixed bits, so that it is the fields which refuse.
        std::uint32_t value = random() & 0xFFFFU;
        wanted.words.emplace_back(word->name(), round % 4 == 0 ? value : (word->base() | (value & 0x1FFU)));
        std::string before = panel.savedConfiguration();
        std::map<std::string, std::string> words;
        for (const ControlWord* each : panel.words()) {
            words[each->name()] = each->text();
        }
        std::vector<RefusedBits> refused = setPanel(bench.shared(), panel, wanted);
        if (refused.empty()) {
            ASSERT_EQ(word->value(), wanted.words.front().second);
            continue;
        }
        ++refusals;
        ASSERT_EQ(panel.savedConfiguration(), before);
        for (const ControlWord* each : panel.words()) {
            ASSERT_EQ(each->text(), words[each->name()]);
        }
    }
    EXPECT_GT(refusals, 0);
}

TEST_P(SetFrom, OneWordLeavesTheOthersAsTheyAre) {
    DeviceBench bench(GetParam());
    ChipPanel& panel = bench.panel();
    for (unsigned seed = 1; seed <= 20; ++seed) {
        RandomUser(seed).set(panel);
        std::map<std::string, std::uint32_t> there;
        for (const ControlWord* word : panel.words()) {
            there[word->name()] = word->value();
        }
        RandomUser(seed + 1000).set(panel);
        for (const ControlWord* word : panel.words()) {
            std::map<std::string, std::uint32_t> before;
            for (const ControlWord* each : panel.words()) {
                before[each->name()] = each->value();
            }
            WantedSettings wanted;
            wanted.words.emplace_back(word->name(), there[word->name()]);
            if (!setPanel(bench.shared(), panel, wanted).empty()) {
                continue;
            }
            before[word->name()] = there[word->name()];
            for (const ControlWord* each : panel.words()) {
                ASSERT_EQ(each->value(), before[each->name()])
                    << each->name() << " with " << word->name() << ", seed " << seed;
            }
        }
        bench.dialogs.boxes.clear();
    }
}

TEST_P(SetFrom, WhatItBecomesDoesNotDependOnTheBandBefore) {
    DeviceBench bench(GetParam());
    ChipPanel& panel = bench.panel();
    auto choose = [&panel](Band which) {
        Option* option = panel.band(which);
        return option->visible() && (option->chosen() || option->click());
    };
    for (Band wantedBand : panel.traits().offeredBands) {
        if (!choose(wantedBand)) {
            continue;
        }
        panel.FreqCenter.type("1");
        WantedSettings wanted;
        for (const ControlWord* word : panel.words()) {
            wanted.words.emplace_back(word->name(), word->value() + (word == &panel.Freqw ? 1000 : 0));
        }
        std::string file = panel.savedConfiguration();
        std::set<std::string> byWords;
        std::set<std::string> byFile;
        for (Band before : panel.traits().offeredBands) {
            for (Band beforeThat : panel.traits().offeredBands) {
                if (!choose(beforeThat) || !choose(before)) {
                    continue;
                }
                ASSERT_EQ(told(setPanel(bench.shared(), panel, wanted)), "");
                byWords.insert(panel.savedConfiguration());
                ASSERT_TRUE(choose(beforeThat) && choose(before));
                takeWholeFile(panel, file);
                byFile.insert(panel.savedConfiguration());
            }
        }
        EXPECT_EQ(byWords.size(), 1U) << ::testing::PrintToString(byWords);
        EXPECT_EQ(byFile.size(), 1U) << ::testing::PrintToString(byFile);
    }
}

TEST_P(SetFrom, AWordOfTheSameBandAsksForNoCalibration) {
    DeviceBench bench(GetParam());
    ChipPanel& panel = bench.panel();
    panel.LabelCalibration.setVisible(false);
    WantedSettings wanted;
    // The load capacitance alone.
    const std::vector<BitField>& fields = panel.Ctrlw.fields();
    auto field = std::ranges::find(fields, &panel.Cxtal, &BitField::source);
    ASSERT_NE(field, fields.end());
    std::uint32_t value = panel.Ctrlw.value() ^ 1U << static_cast<unsigned>(field->lowBit);
    wanted.words.emplace_back(panel.Ctrlw.name(), value);
    ASSERT_EQ(told(setPanel(bench.shared(), panel, wanted)), "");
    EXPECT_EQ(panel.Ctrlw.value(), value);
    EXPECT_FALSE(panel.LabelCalibration.visible());
}

TEST(SetFromHeader, AHeaderOfTheOtherGenerationBringsItsRevision) {
    const Device& device = allDevices()[4];
    DeviceBench source(device);
    DeviceBench target(device);
    source.panel().find("Revision")->chooseText("'E' or below");
    source.panel().find("DATARATEDIV")->type("200");
    WantedByHeader wanted = wantedByHeader(target.panel(), source.header());
    EXPECT_EQ(wanted.settings.revision, "'E' or below");
    EXPECT_EQ(told(setPanel(target.shared(), target.panel(), wanted.settings)), "");
    EXPECT_EQ(target.panel().Revision.text(), "'E' or below");
    EXPECT_EQ(target.panel().find("DATARATEDIV")->text(), "200");
}

TEST(SetFromWord, ABitThatAnotherTakesAwayIsToldByName) {
    // The oscillator by hand and by the automatic exclude each other.
    DeviceBench bench(allDevices().front());
    WantedSettings wanted;
    wanted.words.emplace_back("PowerMw", 0xC0A0U);
    EXPECT_EQ(told(setPanel(bench.shared(), bench.panel(), wanted)),
              "Power Management 7 Xtal osc.+ synthesizer: 1, possible 0 beside the other settings\n");
    EXPECT_EQ(bench.panel().find("PowerMw")->text(), "C000");
}

} // namespace zor
