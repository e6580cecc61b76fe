// SPDX-License-Identifier: MIT
// Whatever is typed into a tool's field, the tool, the line and the files stay sound.
#include "elements/text_field.h"
#include "host/files.h"
#include "panels/odd_texts.h"
#include "panels/panel_bench.h"
#include "shell/settings.h"
#include "support/numbers.h"
#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

namespace zor {

using testing::oddTexts;
using testing::VirtualBench;

namespace {

TextField& field(VirtualBench& bench, const char* form, const char* name) {
    return dynamic_cast<TextField&>(bench.at(form, name));
}

void connect(VirtualBench& bench) {
    bench.ports.place(1, sim::BoardKind::LoadBoard2);
    bench.startAndSearch();
    ASSERT_TRUE(bench.channel().isOpen());
    bench.takeSent();
}

bool isSupplyLine(const std::string& line) {
    return line.size() >= 2 && line.size() <= 3 && line.front() == 'V' && readHex(line.substr(1)).has_value();
}

} // namespace

TEST(OddTexts, InTheSupplyToolSetAVoltageInItsRangeOrNone) {
    VirtualBench bench;
    connect(bench);
    bench.shared().tools.open(Tool::frm_PowerSupply);
    int set = 0;
    for (const std::string& text : oddTexts()) {
        SCOPED_TRACE(text.substr(0, 30));
        std::string before = bench.shared().preferences.Pref_Voltage;
        field(bench, "frm_PowerSupply", "Voltage").edit(text);
        ASSERT_TRUE(bench.at("frm_PowerSupply", "PB_Voltage").click());
        auto sent = bench.takeSent();
        if (sent.empty()) {
            EXPECT_EQ(bench.shared().preferences.Pref_Voltage, before);
            EXPECT_NE(field(bench, "frm_PowerSupply", "Statusline").text(), " ");
        } else {
            ++set;
            ASSERT_EQ(sent.size(), 1U);
            EXPECT_TRUE(isSupplyLine(sent.front())) << sent.front();
            EXPECT_GE(numericPrefix(bench.shared().preferences.Pref_Voltage), 2.2);
            EXPECT_LE(numericPrefix(bench.shared().preferences.Pref_Voltage), 5);
        }
        EXPECT_TRUE(bench.channel().isOpen());
    }
    // "5." and a five with a stray byte behind it are 5 V; nothing else of the list is a voltage of this
    // board.
    EXPECT_EQ(set, 2);
}

TEST(OddTexts, InThePreferencesLeaveAFileThatCanBeReadAndPortsThatExist) {
    VirtualBench bench;
    bench.startAndSearch();
    for (const std::string& text : oddTexts()) {
        SCOPED_TRACE(text.substr(0, 30));
        ASSERT_TRUE(bench.at("main", "mnuFilePreferences").click());
        for (const char* name : {"ComNr_min", "ComNr_max"}) {
            ASSERT_TRUE(field(bench, "Preferences", name).type(text));
            double port = numericPrefix(field(bench, "Preferences", name).text());
            EXPECT_GE(port, 0);
            EXPECT_LE(port, 16);
        }
        ASSERT_TRUE(bench.at("Preferences", "Save").click());
        StoredPreferences read = storedPreferences(bench.shared());
        if (text.find('"') == std::string::npos) {
            parsePreferences(readFile(settingsFileToRead(bench.platform, "ZOR.ini")), read);
            EXPECT_EQ(read.Commport_min, bench.shared().preferences.Commport_min);
        }
        ASSERT_TRUE(bench.at("main", "Connect").click());
        while (bench.shared().link.CommState() != 0) {
            bench.loop.runOnce();
        }
        EXPECT_TRUE(bench.at("main", "Connect").usable());
    }
}

TEST(OddTexts, InAScriptReachTheBoardAndLeaveTheLineOpen) {
    VirtualBench bench;
    connect(bench);
    bench.shared().tools.open(Tool::Terminal);
    ASSERT_TRUE(bench.at("Terminal", "En_ScriptWindow").tick(true));
    for (const std::string& text : oddTexts()) {
        SCOPED_TRACE(text.substr(0, 30));
        field(bench, "Terminal", "Script").edit(text);
        ASSERT_TRUE(bench.at("Terminal", "SendScript").click());
        EXPECT_TRUE(bench.channel().isOpen());
        EXPECT_EQ(bench.shared().link.CommState(), 0);
    }
    bench.takeSent();
    field(bench, "Terminal", "Script").edit("\rL2\r");
    ASSERT_TRUE(bench.at("Terminal", "SendScript").click());
    bench.run(std::chrono::milliseconds(100));
    EXPECT_EQ(bench.takeSent().back(), "L2");
}

TEST(OddTexts, AsKeysInTheTerminalAreALineLikeAnyOther) {
    VirtualBench bench;
    connect(bench);
    bench.shared().tools.open(Tool::Terminal);
    for (const std::string& text : oddTexts()) {
        for (char key : text.substr(0, 200) + "\r") {
            bench.at("Terminal", "Text1").press(key);
        }
        bench.run(std::chrono::milliseconds(3000));
        EXPECT_EQ(bench.shared().link.Buf1, "");
        EXPECT_TRUE(bench.channel().isOpen());
    }
}

} // namespace zor
