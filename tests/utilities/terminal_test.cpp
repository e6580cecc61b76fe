// SPDX-License-Identifier: MIT
#include "utilities/terminal.h"

#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

namespace zor {

namespace {

using zor::testing::VirtualBench;

struct TerminalBench : VirtualBench {
    TerminalBench() {
        ports.place(1, sim::BoardKind::LoadBoard1);
        startAndSearch();
        takeSent();
        main().menu.mnutoolsTerminal.click();
    }
    Terminal& terminal() { return dynamic_cast<Terminal&>(*desk.find("Terminal")); }
};

} // namespace

TEST(Terminal, KeepsAFloodOfMegabytesWhole) {
    TerminalBench bench;
    std::string line = "0123456789 0123456789 0123456789 0123456789 0123456789 012345\n\r";
    std::string expected;
    std::string flood;
    while (flood.size() < (2u << 20)) {
        flood += line;
        expected += "0123456789 0123456789 0123456789 0123456789 0123456789 012345\r\n";
    }
    std::size_t told = 0;
    int redrawn = 0;
    Subscription appended =
        bench.terminal().Text1.appended.subscribe([&](std::string_view text) { told += text.size(); });
    Subscription changed = bench.terminal().Text1.changed.subscribe([&] { ++redrawn; });
    auto before = bench.loop.now();
    bench.ports.seat(1).board().emit(flood);
    bench.run(std::chrono::minutes(20));
    EXPECT_TRUE(bench.terminal().Text1.contents() == expected);
    EXPECT_EQ(told, expected.size());
    EXPECT_EQ(redrawn, 0);
    EXPECT_EQ(bench.shared().link.Last7, "12345\n\r");
    EXPECT_GE(bench.loop.now() - before, std::chrono::minutes(18));
}

TEST(Terminal, TypingGoesOnInTheMiddleOfAFlood) {
    TerminalBench bench;
    bench.ports.seat(1).board().emit(std::string(1000, 'x'));
    bench.run(std::chrono::milliseconds(100));
    bench.terminal().Text1.press('H');
    bench.terminal().Text1.press('2');
    bench.terminal().Text1.press('\r');
    bench.run(std::chrono::seconds(2));
    EXPECT_EQ(bench.takeSent(), std::vector<std::string>{"H2"});
    const std::string& shown = bench.terminal().Text1.contents();
    EXPECT_EQ(std::count(shown.begin(), shown.end(), 'x'), 1000);
    EXPECT_TRUE(shown.ends_with("\r\nOK\r\n>"));
}

TEST(Terminal, AScriptsLinesStandBetweenTheirAnswersAsRemarks) {
    TerminalBench bench;
    bench.terminal().En_ScriptWindow.tick(true);
    bench.terminal().Script.edit("Z3\r\nQ\r\nH2\r\n");
    bench.terminal().SendScript.click();
    bench.run(std::chrono::milliseconds(50));
    EXPECT_EQ(bench.terminal().Text1.text(), "\r\nOK\r\n>ERROR\r\n>\r\nOK\r\n>");
    EXPECT_EQ(bench.terminal().Text1.withRemarks(), "Z3\r\n\r\nOK\r\n>Q\r\nERROR\r\n>H2\r\n\r\nOK\r\n>");
}

TEST(Terminal, ALineTypedBehindAScriptIsToldOnce) {
    TerminalBench bench;
    bench.terminal().En_ScriptWindow.tick(true);
    bench.terminal().Script.edit("H2\r\nL2\r\n");
    bench.terminal().SendScript.click();
    for (char key : std::string("Z3\r")) {
        bench.terminal().Text1.press(key);
    }
    bench.run(std::chrono::milliseconds(500));
    bench.terminal().SendScript.click();
    bench.run(std::chrono::milliseconds(50));
    ASSERT_EQ(bench.terminal().Text1.remarks().size(), 4U);
    EXPECT_TRUE(bench.terminal().Text1.withRemarks().ends_with("H2\r\n\r\nOK\r\n>L2\r\n\r\nOK\r\n>"));
}

TEST(Terminal, AScriptThatIsNotAnsweredIsGivenUp) {
    TerminalBench bench;
    bench.ports.seat(1).board().setMute(true);
    bench.terminal().En_ScriptWindow.tick(true);
    bench.terminal().Script.edit("H2\r\nL2\r\n");
    bench.terminal().SendScript.click();
    bench.ports.seat(1).board().setMute(false);
    bench.terminal().Text1.press('i');
    bench.terminal().Text1.press('\r');
    bench.run(std::chrono::seconds(2));
    ASSERT_EQ(bench.terminal().Text1.remarks().size(), 1U);
    EXPECT_EQ(bench.terminal().Text1.remarks().front().text, "H2\r\n");
}

TEST(Terminal, FetchesTypedLinesInTheWindowAndInWhatWillBeSent) {
    TerminalBench bench;
    for (char key : std::string("H2\rL2\r")) {
        bench.terminal().Text1.press(key);
    }
    bench.run(std::chrono::seconds(1));
    bench.takeSent();
    bench.terminal().Clear.click();
    bench.terminal().Text1.press('Z');
    EXPECT_TRUE(bench.terminal().Text1.recall(-1));
    EXPECT_EQ(bench.terminal().Text1.text(), "L2");
    bench.terminal().Text1.recall(-1);
    EXPECT_EQ(bench.shared().link.Buf1, "H2");
    bench.terminal().Text1.recall(1);
    bench.terminal().Text1.recall(1);
    EXPECT_EQ(bench.terminal().Text1.text(), "Z");
    bench.terminal().Text1.recall(-1);
    bench.terminal().Text1.press('\r');
    bench.run(std::chrono::seconds(1));
    EXPECT_EQ(bench.takeSent(), std::vector<std::string>{"L2"});
}

TEST(Terminal, FetchingDoesNotTouchALineThatWaitsForThePort) {
    TerminalBench bench;
    bench.main().linkBar.Disconnect.click();
    for (char key : std::string("H2\r")) {
        bench.terminal().Text1.press(key);
    }
    bench.terminal().Text1.recall(-1);
    EXPECT_EQ(bench.shared().link.Buf1, "H2\rH2");
    bench.terminal().Text1.recall(1);
    EXPECT_EQ(bench.shared().link.Buf1, "H2\r");
}

TEST(Terminal, SaysWhenItsOldestTextIsGone) {
    TerminalBench bench;
    bench.terminal().Text1.append(std::string(KeptText::mostKept, 'x'));
    EXPECT_EQ(bench.terminal().Kept.caption(), "");
    bench.terminal().Text1.append("y");
    EXPECT_EQ(bench.terminal().Kept.caption(), "The oldest 4.0 MiB are gone; the newest 16 MiB are kept.");
    bench.terminal().Clear.click();
    EXPECT_EQ(bench.terminal().Kept.caption(), "");
}

TEST(Terminal, ARefusedReadOnlyFileIsOfTheWrongKind) {
    TerminalBench bench;
    bench.terminal().En_ScriptWindow.tick(true);
    bench.dialogs.files.emplace_back("/bench/script.txt");
    bench.dialogs.readOnly = true;
    bench.terminal().LoadScript.click();
    ASSERT_EQ(bench.dialogs.boxes.size(), 1u);
    EXPECT_EQ(bench.dialogs.boxes.front().title, "File open error");
    EXPECT_EQ(bench.dialogs.boxes.front().text, "File type not supported! Please try again!");
}

TEST(Terminal, TheNoticeOfAClosedPortIsAWarning) {
    TerminalBench bench;
    bench.main().linkBar.Disconnect.click();
    bench.terminal().Text1.press('\r');
    ASSERT_EQ(bench.dialogs.boxes.size(), 1u);
    EXPECT_EQ(bench.dialogs.boxes.front().icon, BoxIcon::Warning);
}

} // namespace zor
