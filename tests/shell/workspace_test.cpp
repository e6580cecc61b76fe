// SPDX-License-Identifier: MIT
#include "shell/workspace.h"
#include "support/error.h"
#include "virtual/fake_tools.h"
#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

namespace zor {

namespace {

/// The head of a file with these of the eleven switches true, counted from 0.
std::string head(std::initializer_list<int> on) {
    std::string bytes = "\"# ZOR workspace file version 1.3.4\"\r\n";
    for (int index = 0; index < 11; ++index) {
        bool isOn = std::find(on.begin(), on.end(), index) != on.end();
        bytes += isOn ? "#TRUE#\r\n" : "#FALSE#\r\n";
    }
    return bytes;
}

/// A workspace over windows that are plain forms, made when they are asked for.
struct PlainWindows {
    PlainWindows() {
        bench.startAndSearch();
        tools.names = {{Tool::AmberV1rflink, "AmberV1rflink"},
                       {Tool::AmberV1rflink_LB2, "AmberV1rflink_LB2"},
                       {Tool::eeprom, "eeprom"},
                       {Tool::OpalV2test, "OpalV2test"}};
        workspace.createPanel = [this](std::string_view panel) -> Form& {
            std::unique_ptr<Form>& form = panels[std::string(panel)];
            if (!form) {
                form = std::make_unique<Form>(bench.desk, std::string(panel), std::string(panel));
            }
            return *form;
        };
        workspace.openPanel = [this](std::string_view panel) {
            throw ToolError(cannotCreate, std::string(panel));
        };
    }

    int errorOf(const std::string& bytes) {
        try {
            workspace.open(bytes);
        } catch (const ToolError& error) {
            return error.number();
        }
        return 0;
    }

    testing::VirtualBench bench;
    testing::FakeTools tools{bench.desk};
    Bench shared{bench.platform, bench.desk, tools};
    std::map<std::string, std::unique_ptr<Form>> panels;
    Workspace workspace{shared};
};

} // namespace

TEST(Workspace, TheGeneration2LinkWindowGetsTheValuesAndItsSiblingIsShown) {
    PlainWindows windows;
    ASSERT_EQ(windows.errorOf(head({7}) + "10\r\n20\r\n3000\r\n4000\r\n"), 0);
    EXPECT_TRUE(windows.tools.forms[Tool::AmberV1rflink]->isOpen());
    EXPECT_EQ(windows.tools.forms[Tool::AmberV1rflink]->place(), (Place{0, 0}));
    EXPECT_FALSE(windows.tools.forms[Tool::AmberV1rflink_LB2]->isOpen());
    EXPECT_EQ(windows.tools.forms[Tool::AmberV1rflink_LB2]->place(), (Place{10, 20}));
    EXPECT_EQ(windows.tools.forms[Tool::AmberV1rflink_LB2]->extent(), (Extent{3000, 4000}));
    EXPECT_TRUE(windows.shared.windows.RxLinkOn_LB2);
    EXPECT_FALSE(windows.shared.windows.RxLinkOn);
}

TEST(Workspace, ATransceiverJustBecomesVisible) {
    PlainWindows windows;
    ASSERT_EQ(windows.errorOf(head({9}) + "10\r\n20\r\n"), 0);
    EXPECT_TRUE(windows.panels["BerylV3"]->isOpen());
    EXPECT_EQ(windows.panels["BerylV3"]->place(), (Place{10, 20}));
    EXPECT_TRUE(windows.shared.windows.TRXon);
    EXPECT_EQ(windows.shared.selections.SelectedTrx, "");
    EXPECT_FALSE(windows.bench.main().TRX.pressed());
    EXPECT_EQ(windows.bench.main().TRX.caption(), "KT310x");
    EXPECT_FALSE(windows.bench.main().menu.mnuViewTRx.checked());
    EXPECT_FALSE(windows.bench.main().menu.mnuToolsBerylTestmode.enabled());
}

TEST(Workspace, BlocksComeInTheOrderOfTheSwitches) {
    PlainWindows windows;
    ASSERT_EQ(
        windows.errorOf(head({1, 6, 8}) + "1\r\n2\r\n3\r\n4\r\n" + "5\r\n6\r\n7\r\n8\r\n" + "9\r\n10\r\n"),
        0);
    EXPECT_EQ(windows.tools.forms[Tool::eeprom]->place(), (Place{1, 2}));
    EXPECT_EQ(windows.tools.forms[Tool::eeprom]->extent(), (Extent{3, 4}));
    EXPECT_EQ(windows.tools.forms[Tool::AmberV1rflink]->place(), (Place{5, 6}));
    EXPECT_EQ(windows.tools.forms[Tool::AmberV1rflink]->extent(), (Extent{7, 8}));
    EXPECT_EQ(windows.tools.forms[Tool::OpalV2test]->place(), (Place{9, 10}));
}

TEST(Workspace, AWindowThatDoesNotExistEndsTheReading) {
    PlainWindows windows;
    windows.tools.names.erase(Tool::eeprom);
    EXPECT_EQ(windows.errorOf(head({1, 9}) + "1\r\n2\r\n3\r\n4\r\n10\r\n20\r\n"), 429);
    EXPECT_FALSE(windows.shared.windows.EEPROMon);
    EXPECT_FALSE(windows.shared.windows.TRXon);
}

TEST(Workspace, AFileOfAnotherKindIsToldByItsFirstLine) {
    PlainWindows windows;
    EXPECT_EQ(windows.errorOf(""), 62);
    EXPECT_EQ(windows.errorOf("\"# ZOR workspace file version 1.3.3\"\r\n"), 1226);
    EXPECT_EQ(windows.errorOf("something else\r\n"), 1226);
    EXPECT_EQ(windows.errorOf("\"# ZOR workspace file version 1.3.4\"\r\n#TRUE#\r\n"), 62);
    EXPECT_EQ(windows.errorOf("\"# ZOR workspace file version 1.3.4\"\r\nTRUE\r\n"), 13);
    EXPECT_FALSE(windows.shared.windows.Terminalon);
}

TEST(Workspace, WhatLeavesTheBlockHalfReadClosesItsWindow) {
    PlainWindows windows;
    EXPECT_EQ(windows.errorOf(head({1, 10}) + "1\r\n2\r\n3\r\n"), 62);
    EXPECT_TRUE(windows.tools.forms[Tool::eeprom]->isClosed());
    EXPECT_FALSE(windows.shared.windows.EEPROMon);
    EXPECT_FALSE(windows.shared.windows.TRX1on);
}

TEST(Workspace, ThatCannotBeWrittenReachesTheGeneralErrorBox) {
    testing::VirtualBench bench;
    bench.startAndSearch();
    std::filesystem::create_directory(bench.platform.programFolder / "ZOR.wsp");
    ASSERT_TRUE(bench.at("main", "mnuSaveWorkspace").click());
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].title, "Ortolan Radio Bench System");
    EXPECT_EQ(bench.dialogs.boxes[0].text, "Error occured:75,Path/File access error\r\nPlease try again!");
}

} // namespace zor
