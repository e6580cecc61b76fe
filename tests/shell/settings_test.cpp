// SPDX-License-Identifier: MIT
#include "shell/settings.h"
#include "support/error.h"
#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace zor {

namespace {

int errorOf(const std::string& bytes, StoredPreferences& preferences) {
    try {
        parsePreferences(bytes, preferences);
    } catch (const ToolError& error) {
        return error.number();
    }
    return 0;
}

const std::string banner = "\"# ZOR ini file version 2.2.0\"\r\n";

} // namespace

TEST(PreferencesFile, HoldsTheFirstPortTheTwoTicksAndTheLastPort) {
    EXPECT_EQ(formatPreferences({"2", 1, 0, "12"}), banner + "\"2\"\r\n1\r\n0\r\n\"12\"\r\n");
}

TEST(PreferencesFile, ReadsBackWhatWasWritten) {
    StoredPreferences preferences{"1", 0, 0, "8"};
    EXPECT_EQ(errorOf(banner + "\"2\"\r\n1\r\n0\r\n\"12\"\r\n", preferences), 0);
    EXPECT_EQ(preferences.Commport_min, "2");
    EXPECT_EQ(preferences.Pref_LoadWS, 1);
    EXPECT_EQ(preferences.Pref_CCautoLoad, 0);
    EXPECT_EQ(preferences.Commport_max, "12");
}

TEST(PreferencesFile, OfAnotherVersionKeepsTheLastPort) {
    StoredPreferences preferences{"1", 0, 0, "8"};
    EXPECT_EQ(errorOf("\"# ZOR ini file version 2.2.0 \"\r\n\"2\"\r\n1\r\n1\r\n\"12\"\r\n", preferences), 0);
    EXPECT_EQ(preferences.Commport_min, "2");
    EXPECT_EQ(preferences.Pref_CCautoLoad, 1);
    EXPECT_EQ(preferences.Commport_max, "8");
}

TEST(PreferencesFile, WithAFirstLineThatIsNoTextIsOfAnotherVersion) {
    for (const char* first : {"ZOR ini file", "2", "\"# ZOR ini file version 2.2.0", ""}) {
        SCOPED_TRACE(first);
        StoredPreferences preferences{"1", 0, 0, "8"};
        EXPECT_EQ(errorOf(std::string(first) + "\r\n\"2\"\r\n1\r\n1\r\n\"12\"\r\n", preferences), 0);
        EXPECT_EQ(preferences.Commport_min, "2");
        EXPECT_EQ(preferences.Pref_LoadWS, 1);
        EXPECT_EQ(preferences.Pref_CCautoLoad, 1);
        EXPECT_EQ(preferences.Commport_max, "8");
    }
}

TEST(PreferencesFile, ThatBreaksOffLeavesWhatWasReadBefore) {
    StoredPreferences preferences{"1", 0, 0, "8"};
    EXPECT_EQ(errorOf("", preferences), 62);
    EXPECT_EQ(errorOf(banner + "\"3\"\r\n", preferences), 62);
    EXPECT_EQ(errorOf(banner + "\"4\"\r\n#TRUE#\r\n", preferences), 13);
    EXPECT_EQ(errorOf(banner + "\"5\"\r\n99999999999\r\n", preferences), 6);
    EXPECT_EQ(preferences.Commport_min, "5");
    EXPECT_EQ(preferences.Pref_LoadWS, 0);
    EXPECT_EQ(preferences.Commport_max, "8");
}

TEST(PreferencesDialog, ThatCannotWriteItsFileStaysOpenAndChangesNothing) {
    testing::VirtualBench bench;
    bench.startAndSearch();
    std::filesystem::create_directory(bench.platform.programFolder / "ZOR.ini");
    ASSERT_TRUE(bench.at("main", "mnuFilePreferences").click());
    ASSERT_TRUE(bench.at("Preferences", "ComNr_min").edit("4"));
    ASSERT_TRUE(bench.at("Preferences", "Save").click());
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].title, "Ortolan Radio Bench System");
    EXPECT_EQ(bench.dialogs.boxes[0].text, "Error occured:75,Path/File access error\r\nPlease try again!");
    EXPECT_TRUE(bench.desk.find("Preferences")->isOpen());
    EXPECT_EQ(bench.at("Preferences", "ComNr_min").text(), "4");
    EXPECT_EQ(bench.shared().preferences.Commport_min, "1");
}

} // namespace zor
