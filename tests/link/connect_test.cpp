// SPDX-License-Identifier: MIT
#include "link/connect.h"

#include "virtual/virtual_bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zor {

namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using zor::testing::VirtualBench;

/// A generation 2 board on port 1, connected, its set-up forgotten.
struct Connected : VirtualBench {
    explicit Connected(sim::BoardKind kind = sim::BoardKind::LoadBoard2) {
        ports.place(1, kind);
        startAndSearch();
        run(1s);
        takeSent();
    }

    sim::Board& board() { return ports.seat(1).board(); }
    /// Sends as an action does. @return whether the action got to its end
    bool send(const std::string& line) {
        bool ended = false;
        loop.perform([&] {
            channel().Send_To_LoadBoard(line);
            ended = true;
        });
        return ended;
    }
    /// The oldest box: title, a bar, text.
    std::string takeBox() {
        if (dialogs.boxes.empty()) {
            return "none";
        }
        std::string shown = dialogs.boxes.front().title + "|" + dialogs.boxes.front().text;
        dialogs.boxes.pop_front();
        return shown;
    }
    std::chrono::microseconds timeOf(const std::string& line) {
        auto before = loop.now();
        send(line);
        return loop.now() - before;
    }
};

} // namespace

TEST(Send, ReturnsWithThePromptAndLeavesTheValueInTheTail) {
    Connected bench;
    bench.board().setStatus(0x5F);
    bench.send("H2\r");
    bench.send("L2\r");
    bench.send("WSCC\r");
    bench.send("RS\r");
    EXPECT_THAT(bench.takeSent(), ElementsAre("H2", "L2", "WSCC", "RS"));
    EXPECT_EQ(bench.shared().link.Last15.substr(5, 2), "5F");
    EXPECT_EQ(bench.shared().link.Last7, LinkVariables::Last7OK);
    EXPECT_EQ(bench.channel().ComFlag, 0);
}

TEST(Send, WritesTheWholeCommandAsItStands) {
    Connected bench;
    bench.send("S2c039\r");
    bench.send("ri\r\n");
    bench.run(1ms);
    EXPECT_THAT(bench.takeSent(), ElementsAre("S2c039", "ri\n"));
}

TEST(Send, TakesTheTimeOfItsCharactersOnTheLine) {
    Connected bench;
    // Three characters out and seven in, each ten bits at 19200 baud.
    auto time = bench.timeOf("Z3\r");
    EXPECT_GE(time, 5208us);
    EXPECT_LE(time, 5212us);
}

TEST(Send, ToAMuteBoardEndsAtTheTwelfthTickAndReopensThePort) {
    Connected bench;
    bench.board().setMute(true);
    EXPECT_EQ(bench.timeOf("Z3\r"), 1200ms);
    EXPECT_TRUE(bench.channel().isOpen());
    EXPECT_EQ(bench.channel().ComFlag, 0);
    EXPECT_EQ(bench.shared().link.Last7, "");
    EXPECT_EQ(bench.takeBox(), "none");
    EXPECT_THAT(bench.takeSent(), ElementsAre("Z3"));
}

TEST(Send, ToAClosedPortTellsAndNeverWaits) {
    VirtualBench plain;
    plain.start();
    auto before = plain.loop.now();
    plain.channel().ComFlag = 1;
    plain.shared().link.Last7 = "old";
    plain.channel().Send_To_LoadBoard("Z3\r");
    EXPECT_EQ(plain.loop.now(), before);
    ASSERT_EQ(plain.dialogs.boxes.size(), 1u);
    EXPECT_EQ(plain.dialogs.boxes.front().title, "USB communication error");
    EXPECT_EQ(plain.dialogs.boxes.front().text,
              "Error occured:8018,Operation valid only when the port is open\r\nPlease try again!");
    // The flag and the tail were cleared before the write; the watchdog was never armed.
    EXPECT_EQ(plain.channel().ComFlag, 0);
    EXPECT_EQ(plain.shared().link.Last7, "");
    EXPECT_EQ(plain.channel().WaitArmed, 0);
}

TEST(Send, WhosePortCannotBeReopenedTells) {
    Connected bench;
    bench.board().setMute(true);
    bench.ports.seat(1).openError = 57;
    EXPECT_TRUE(bench.send("Z3\r"));
    EXPECT_EQ(bench.takeBox(),
              "USB communication error|Error occured:57,Device I/O error\r\nPlease try again!");
    EXPECT_FALSE(bench.channel().isOpen());
}

TEST(Watchdog, WhoseClosingFailsForAnotherReasonTellsAndTheSendReopens) {
    Connected bench;
    bench.board().setMute(true);
    bench.ports.seat(1).closeError = 57;
    EXPECT_TRUE(bench.send("Z3\r"));
    EXPECT_EQ(bench.takeBox(),
              "LoadBoard Communication error|Error occured:57,Device I/O error\r\nPlease try again!");
    EXPECT_EQ(bench.takeBox(), "none");
    EXPECT_TRUE(bench.channel().isOpen());
    EXPECT_EQ(bench.main().linkBar.LoadboardList.text(), "LoadBoard 2.x: Com1");
}

TEST(Watchdog, WhoseClosingFailsBecauseThePortIsInUseHasLostTheBoard) {
    Connected bench;
    bench.board().setMute(true);
    bench.ports.seat(1).closeError = 8005;
    bench.send("Z3\r");
    EXPECT_EQ(bench.takeBox(), "LoadBoard Communication Error!|Loadboard disconnected!\r\nPlease press "
                               "connect again!");
    EXPECT_EQ(bench.takeBox(), "none");
    EXPECT_FALSE(bench.channel().isOpen());
    EXPECT_EQ(bench.main().linkBar.LoadboardList.text(), "Press connect");
    EXPECT_EQ(bench.main().linkBar.CommStatus.text(), "No comm.");
}

TEST(Watchdog, DoesNothingBeforeTheFirstSend) {
    VirtualBench bench;
    EXPECT_EQ(bench.channel().WaitArmed, 0);
    bench.start();
    bench.run(5s);
    EXPECT_EQ(bench.channel().WaitTicks, 0);
}

TEST(Watchdog, OfALostBoardUnlocksTheListAndEmptiesItOnce) {
    Connected bench;
    bench.ports.seat(1).unplug();
    EXPECT_TRUE(bench.send("Z3\r"));
    EXPECT_EQ(bench.dialogs.boxes.size(), 1u);
    ListBox& list = bench.main().linkBar.LoadboardList;
    EXPECT_FALSE(list.locked());
    EXPECT_TRUE(list.entries().empty());
    EXPECT_EQ(list.text(), "Press connect");
    EXPECT_EQ(bench.shared().link.LoadBoardRev, 2);
    bench.run(10s);
    EXPECT_EQ(bench.dialogs.boxes.size(), 1u);
}

TEST(Watchdog, OfALostBoardEndsEverySendOfANest) {
    Connected bench;
    bench.ports.seat(1).unplug();
    bool innerEnded = false;
    bench.after(300ms, [&] { innerEnded = bench.send("L2\r"); });
    EXPECT_TRUE(bench.send("H2\r"));
    EXPECT_TRUE(innerEnded);
    EXPECT_EQ(bench.dialogs.boxes.size(), 1u);
    EXPECT_FALSE(bench.channel().isOpen());
}

TEST(Watchdog, OfANestThatTimedOutLeavesNoSendWithoutOne) {
    Connected bench;
    bench.board().setMute(true);
    std::string order;
    bench.after(300ms, [&] {
        bench.after(300ms, [&] {
            bench.send("3\r");
            order += "3";
        });
        bench.send("2\r");
        order += "2";
    });
    auto time = bench.timeOf("1\r");
    // The innermost began at 600 ms.
    EXPECT_EQ(time, 1800ms);
    EXPECT_EQ(order, "32");
    EXPECT_TRUE(bench.channel().isOpen());
    EXPECT_THAT(bench.takeSent(), ElementsAre("1", "2", "3"));
}

TEST(Watchdog, SeesAPromptThatIsInBeforeItCounts) {
    Connected bench;
    // Served in the last millisecond before the twelfth tick; the tick itself comes after the send has ended.
    bench.board().setDelay(1194ms);
    bench.send("Z3\r");
    EXPECT_EQ(bench.channel().WaitTicks, 11);
    bench.run(1s);
    EXPECT_TRUE(bench.channel().isOpen());
    EXPECT_EQ(bench.channel().WaitTicks, 0);
}

TEST(Watchdog, LeavesAServedExchangeAloneWhateverTheBoardSaysBehindThePrompt) {
    Connected bench;
    bench.send("Z3\r");
    bench.board().emit(std::string(10000, 'x'));
    bench.run(10s);
    EXPECT_TRUE(bench.channel().isOpen());
    EXPECT_EQ(bench.shared().link.Last7, "xxxxxxx");
    EXPECT_EQ(bench.channel().WaitTicks, 0);
    EXPECT_EQ(bench.takeBox(), "none");
}

TEST(Watchdog, OfADroppedSendDoesNotCloseTheNextConnection) {
    Connected bench;
    bench.board().setMute(true);
    bench.after(200ms, [&] {
        bench.main().Disconnect_Click();
        bench.channel().open(1, {});
    });
    bench.send("H2\r");
    bench.run(10s);
    EXPECT_TRUE(bench.channel().isOpen());
}

TEST(NestedSend, LetsTheOuterOneEndOnItsOwnPrompt) {
    Connected bench;
    bench.board().setDelay(200ms);
    std::string order;
    bench.after(100ms, [&] {
        bench.send("L2\r");
        order += "inner,";
    });
    bench.send("H2\r");
    order += "outer";
    EXPECT_EQ(order, "inner,outer");
    EXPECT_THAT(bench.takeSent(), ElementsAre("H2", "L2"));
}

TEST(ClosingOnPurpose, DropsWhatIsLeftOfTheActionsThatWait) {
    Connected bench;
    bench.board().setMute(true);
    bool innerEnded = false;
    bench.after(100ms, [&] { innerEnded = bench.send("L2\r"); });
    bench.after(200ms, [&] { bench.main().Disconnect_Click(); });
    EXPECT_FALSE(bench.send("H2\r"));
    EXPECT_FALSE(innerEnded);
    EXPECT_FALSE(bench.channel().isOpen());
    EXPECT_EQ(bench.takeBox(), "none");
    bench.run(5s);
    EXPECT_FALSE(bench.channel().isOpen());
}

TEST(ClosingOnPurpose, IsNotUndoneByAConnectionMadeMeanwhile) {
    Connected bench;
    bench.board().setMute(true);
    // The port is closed and another connection stands before the wait looks again.
    bench.after(200ms, [&] {
        bench.main().Disconnect_Click();
        bench.channel().open(1, {});
    });
    EXPECT_FALSE(bench.send("H2\r"));
    EXPECT_TRUE(bench.channel().isOpen());
}

TEST(Leaving, EndsASendWithoutABox) {
    Connected bench;
    bench.board().setMute(true);
    bench.after(100ms, [&] { bench.main().close(); });
    EXPECT_FALSE(bench.send("H2\r"));
    EXPECT_EQ(bench.takeBox(), "none");
    EXPECT_FALSE(bench.channel().isOpen());
}

TEST(LineError, OfEachKindReopensThePortInSilence) {
    Connected bench;
    for (int code : {1004, 1006, 1008, 1009, 1010, 1011}) {
        bench.ports.seat(1).openError = 57;
        bench.ports.seat(1).fault(code);
        EXPECT_EQ(bench.takeBox(),
                  "LoadBoard Communication error|Error occured:57,Device I/O error\r\nPlease try again!")
            << code;
        EXPECT_FALSE(bench.channel().isOpen());
        bench.ports.seat(1).openError = 0;
        bench.channel().open(1, {});
        bench.ports.seat(1).fault(code);
        EXPECT_EQ(bench.takeBox(), "none");
        EXPECT_TRUE(bench.channel().isOpen());
    }
}

TEST(LineError, OfNoOtherKindTouchesThePort) {
    Connected bench;
    bench.ports.seat(1).openError = 57;
    for (int code = 1001; code <= 1020; ++code) {
        if (code == 1004 || code == 1006 || (code >= 1008 && code <= 1011)) {
            continue;
        }
        bench.ports.seat(1).fault(code);
        EXPECT_TRUE(bench.channel().isOpen()) << code;
    }
}

TEST(Receiving, MirrorsIntoEveryOpenWindowInOrderWithTheCursorAtTheOldEnd) {
    Connected bench;
    Form form(bench.desk, "Mirrors", "");
    Monitor link(form, "Link");
    Monitor terminal(form, "Terminal");
    std::string order;
    Subscription first = terminal.appended.subscribe(
        [&](std::string_view text) { order += "T" + std::to_string(terminal.cursor()) + std::string(text); });
    Subscription second = link.appended.subscribe(
        [&](std::string_view text) { order += "L" + std::to_string(link.cursor()) + std::string(text); });
    bench.shared().setMirror(&WindowSwitches::Terminalon, &terminal);
    bench.shared().setMirror(&WindowSwitches::TRxLinkOn, &link);
    bench.shared().windows.Terminalon = true;
    bench.board().emit("a");
    bench.run(1ms);
    EXPECT_EQ(order, "T0a");
    bench.shared().windows.TRxLinkOn = true;
    bench.board().emit("b\n\rc");
    bench.run(5ms);
    EXPECT_EQ(order, "T0aL0bT1bL1\r\nT2\r\nL3cT4c");
    EXPECT_EQ(terminal.text(), "ab\r\nc");
    bench.shared().windows.Terminalon = false;
    bench.shared().windows.TRxLinkOn = false;
}

TEST(Receiving, TheStatusFollowsEveryCharacterButALineFeed) {
    Connected bench;
    TextField& status = bench.main().linkBar.CommStatus;
    std::string seen;
    Subscription changes = status.changed.subscribe([&] { seen += status.text() + ";"; });
    bench.board().emit("\n");
    bench.run(1ms);
    EXPECT_EQ(seen, "");
    bench.board().emit("\n\rOK\n\r>");
    bench.run(5ms);
    EXPECT_EQ(seen, "reading...;Comm. OK;");
}

TEST(Receiving, TheTailsHoldSevenFifteenAndAHundredCharacters) {
    Connected bench;
    bench.board().emit(std::string(200, 'x') + "y");
    bench.run(1s);
    EXPECT_EQ(bench.shared().link.Last7, "xxxxxxy");
    EXPECT_EQ(bench.shared().link.Last15, "xxxxxxxxxxxxxxy");
    EXPECT_EQ(bench.shared().link.Last100, std::string(99, 'x') + "y");
}

} // namespace zor
