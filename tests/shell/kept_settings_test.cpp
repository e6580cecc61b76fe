// SPDX-License-Identifier: MIT
// What a run keeps of its panel, and what the next one makes of it.
#include "shell/kept_settings.h"

#include "elements/history.h"
#include "host/files.h"
#include "host/process.h"
#include "panels/common/chip_panel.h"
#include "panels/common/panel_memory.h"
#include "panels/random_user.h"
#include "support/error.h"
#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace zor {

namespace {

using testing::VirtualBench;

/// No process has it.
constexpr const char* foreignFile = "ZOR-kept-999999998.ini";

std::filesystem::path ownFile(VirtualBench& bench) {
    return bench.platform.programFolder / ("ZOR-kept-" + std::to_string(ownProcess()) + ".ini");
}

ChipPanel& open(VirtualBench& bench, std::string_view entry) {
    bench.at("main", entry).click();
    return *bench.shared().openPanel();
}

constexpr std::array<const char*, 9> panelEntries = {"mnuViewTx0", "mnuViewTx0Bijaku", "mnuViewTx1",
                                                     "mnuViewTx2", "mnuViewRx",        "mnuViewCoralRx",
                                                     "mnuViewTRx", "mnuViewTRxBijaku", "mnuViewTopazTRx"};

std::vector<std::string> wordsOf(const ChipPanel& panel) {
    std::vector<std::string> words;
    for (const ControlWord* word : panel.words()) {
        words.push_back(word->text());
    }
    return words;
}

TEST(KeptSettings, EveryPanelComesBackAsItWasWithinTheMinute) {
    unsigned seed = 0;
    for (const char* entry : panelEntries) {
        VirtualBench first;
        first.startAndSearch();
        ChipPanel& panel = open(first, entry);
        testing::RandomUser(++seed).set(panel);
        first.run(KeptSettings::interval + std::chrono::milliseconds(100));
        ASSERT_TRUE(std::filesystem::exists(ownFile(first))) << entry;
        std::string kept = readFile(ownFile(first));

        VirtualBench second;
        writeFileWhole(second.platform.programFolder / foreignFile, kept);
        second.startAndSearch();
        ASSERT_TRUE(second.main().kept.KeptOffer.visible()) << entry;
        EXPECT_NE(second.main().kept.KeptOffer.caption().find(panel.chip()), std::string::npos)
            << second.main().kept.KeptOffer.caption();
        second.takeSent();
        second.dialogs.boxes.clear();
        ASSERT_TRUE(second.main().kept.KeptBring.click());
        ChipPanel* back = second.shared().openPanel();
        ASSERT_NE(back, nullptr) << entry;
        EXPECT_EQ(back->title(), panel.title());
        EXPECT_EQ(back->savedConfiguration(), panel.savedConfiguration()) << entry;
        EXPECT_EQ(wordsOf(*back), wordsOf(panel)) << entry;
        EXPECT_TRUE(back->LabelUpdate.visible());
        EXPECT_FALSE(second.main().kept.KeptOffer.visible());
        EXPECT_FALSE(second.main().kept.KeptBring.visible());
        EXPECT_FALSE(std::filesystem::exists(second.platform.programFolder / foreignFile));
        EXPECT_TRUE(second.dialogs.boxes.empty());
        EXPECT_TRUE(second.takeSent().empty());
    }
}

TEST(KeptSettings, AProperEndTakesTheFileAway) {
    VirtualBench bench;
    bench.startAndSearch();
    open(bench, "mnuViewTx0").FreqCenter.type("311");
    bench.run(KeptSettings::interval * 2);
    ASSERT_TRUE(std::filesystem::exists(ownFile(bench)));
    bench.loop.perform([&] { bench.main().close(); });
    EXPECT_FALSE(std::filesystem::exists(ownFile(bench)));
}

TEST(KeptSettings, APanelAsItWasOpenedLeavesNothing) {
    VirtualBench bench;
    bench.startAndSearch();
    ChipPanel& panel = open(bench, "mnuViewTx0");
    bench.run(KeptSettings::interval * 2);
    EXPECT_FALSE(std::filesystem::exists(ownFile(bench)));
    panel.FreqCenter.type("311");
    bench.run(KeptSettings::interval * 2);
    EXPECT_TRUE(std::filesystem::exists(ownFile(bench)));
    panel.history()->undo();
    bench.run(KeptSettings::interval * 2);
    EXPECT_FALSE(std::filesystem::exists(ownFile(bench)));
}

TEST(KeptSettings, AClosedPanelsFileGoes) {
    VirtualBench bench;
    bench.startAndSearch();
    ChipPanel& panel = open(bench, "mnuViewTx0");
    panel.FreqCenter.type("311");
    bench.run(KeptSettings::interval * 2);
    panel.userClose();
    bench.run(KeptSettings::interval * 2);
    EXPECT_FALSE(std::filesystem::exists(ownFile(bench)));
}

TEST(KeptSettings, AnOpenPanelsOwnSettingsStayAStepBack) {
    std::string kept;
    {
        VirtualBench bench;
        bench.startAndSearch();
        open(bench, "mnuViewTx0").FreqCenter.type("311");
        bench.run(KeptSettings::interval * 2);
        kept = readFile(ownFile(bench));
    }
    VirtualBench bench;
    writeFileWhole(bench.platform.programFolder / foreignFile, kept);
    bench.startAndSearch();
    ChipPanel& panel = open(bench, "mnuViewTx0");
    panel.FreqCenter.type("312");
    ASSERT_TRUE(bench.main().kept.KeptBring.click());
    EXPECT_EQ(panel.FreqCenter.text(), "311");
    EXPECT_FALSE(panel.history()->undo().empty());
    EXPECT_EQ(panel.FreqCenter.text(), "312");
}

TEST(KeptSettings, TheNewestIsOfferedAndTheOthersGo) {
    VirtualBench bench;
    std::string head = "\"# ZOR kept settings file version 1\"\r\n\"OpalV2\"\r\n#FALSE#\r\n";
    writeFileWhole(bench.platform.programFolder / "ZOR-kept-999999997.ini", head);
    writeFileWhole(bench.platform.programFolder / foreignFile, head);
    writeFileWhole(bench.platform.programFolder / "ZOR-kept-notes.ini", "mine");
    auto old = std::filesystem::file_time_type::clock::now() - std::chrono::hours(2);
    std::filesystem::last_write_time(bench.platform.programFolder / "ZOR-kept-999999997.ini", old);
    bench.startAndSearch();
    EXPECT_TRUE(bench.main().kept.KeptOffer.visible());
    EXPECT_FALSE(std::filesystem::exists(bench.platform.programFolder / "ZOR-kept-999999997.ini"));
    EXPECT_TRUE(std::filesystem::exists(bench.platform.programFolder / "ZOR-kept-notes.ini"));
    ASSERT_TRUE(bench.main().kept.KeptDismiss.click());
    EXPECT_FALSE(bench.main().kept.KeptOffer.visible());
    EXPECT_FALSE(std::filesystem::exists(bench.platform.programFolder / foreignFile));
}

TEST(KeptSettings, WhatCannotBeReadIsToldAtTheFootAndNothingChanges) {
    std::vector<std::string> behind = {
        "", "nonsense\r\n", "#FALSE#\r\n#FALSE#\r\n1\r\n\"\"\r\n\"\"\r\n\"\"\r\n5\r\n",
        "#FALSE#\r\n#FALSE#\r\n1\r\n\"%\"\r\n\"%4\"\r\n\"%zz\"\r\n-7\r\n0\r\n"};
    for (const std::string& rest : behind) {
        VirtualBench bench;
        writeFileWhole(bench.platform.programFolder / foreignFile,
                       "\"# ZOR kept settings file version 1\"\r\n\"OpalV2\"\r\n#FALSE#\r\n" + rest);
        bench.startAndSearch();
        ASSERT_TRUE(bench.main().kept.KeptBring.click());
        EXPECT_TRUE(bench.dialogs.boxes.empty());
        EXPECT_FALSE(bench.main().kept.KeptOffer.visible());
    }
}

/// The run after one that kept these bytes, with the panel back.
ChipPanel& broughtBack(VirtualBench& bench, const std::string& kept) {
    writeFileWhole(bench.platform.programFolder / foreignFile, kept);
    bench.startAndSearch();
    EXPECT_TRUE(bench.main().kept.KeptBring.click());
    return *bench.shared().openPanel();
}

TEST(KeptSettings, WhatStandsInNoElementComesBackAndIsMissedInAnOlderFileAlone) {
    VirtualBench first;
    first.startAndSearch();
    ChipPanel& panel = open(first, "mnuViewCoralRx");
    // The lowest band keeps the base of the band before it.
    panel.band(Band::Band433)->click();
    panel.band(Band::Band315)->click();
    panel.FreqCenter.type("725");
    first.run(KeptSettings::interval * 2);
    std::string kept = readFile(ownFile(first));

    VirtualBench second;
    ChipPanel& back = broughtBack(second, kept);
    EXPECT_EQ(back.FreqCenter.text(), "725");
    EXPECT_EQ(wordsOf(back), wordsOf(panel));

    // Versions before wrote no such values, and others may have others: a number stands in front of them.
    std::size_t last = kept.rfind("\r\n\"", kept.size() - 3);
    while (kept.compare(last - 1, 1, "\"") == 0) {
        last = kept.rfind("\r\n", last - 1);
    }
    std::string without = kept.substr(0, kept.rfind("\r\n", last - 1) + 2);
    ASSERT_LT(without.size(), kept.size());
    for (const std::string& older : {without, without + "1\r\n\"i7\"\r\n", without + "0\r\n"}) {
        VirtualBench third;
        ChipPanel& old = broughtBack(third, older);
        EXPECT_EQ(old.band(Band::Band315)->chosen(), true);
        EXPECT_EQ(old.FreqCenter.text(), "725");
        EXPECT_TRUE(third.dialogs.boxes.empty());
    }
    // One that says it has values, and has them not, is told and brings nothing.
    VirtualBench fourth;
    writeFileWhole(fourth.platform.programFolder / foreignFile, without + "3\r\n\"x\"\r\n");
    fourth.startAndSearch();
    ASSERT_TRUE(fourth.main().kept.KeptBring.click());
    EXPECT_EQ(fourth.shared().openPanel(), nullptr);
}

TEST(KeptSettings, AFileOfAnotherKindIsTakenAway) {
    for (const char* bytes : {"", "\"# ZOR ini file version 2.2.0\"\r\n",
                              "\"# ZOR kept settings file version 1\"\r\n\"NoPanel\"\r\n#FALSE#\r\n"}) {
        VirtualBench bench;
        writeFileWhole(bench.platform.programFolder / foreignFile, bytes);
        bench.startAndSearch();
        EXPECT_FALSE(bench.main().kept.KeptOffer.visible());
        EXPECT_FALSE(std::filesystem::exists(bench.platform.programFolder / foreignFile));
    }
}

TEST(KeptSettings, ARunningProcessKeepsItsOwn) {
    EXPECT_TRUE(processRuns(ownProcess()));
    EXPECT_FALSE(processRuns(0));
    EXPECT_FALSE(processRuns(-1));
    EXPECT_FALSE(processRuns(999999998));
    VirtualBench bench;
    writeFileWhole(ownFile(bench), "\"# ZOR kept settings file version 1\"\r\n\"OpalV2\"\r\n#FALSE#\r\n");
    bench.startAndSearch();
    EXPECT_FALSE(bench.main().kept.KeptOffer.visible());
    EXPECT_TRUE(std::filesystem::exists(ownFile(bench)));
}

} // namespace

} // namespace zor
