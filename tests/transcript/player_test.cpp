// SPDX-License-Identifier: MIT
#include "transcript/player.h"

#include "elements/desk.h"
#include "elements/form.h"
#include "elements/grid.h"
#include "shell/main_window.h"
#include "transcript/statements.h"
#include "transcript/station.h"
#include "transcript_runner/bench_statements.h"
#include "transcript_runner/world.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

namespace zor::testing {

namespace {

using transcript::PlayedLine;
using transcript::Player;
using State = Player::State;
using Result = PlayedLine::Result;

/// The program with a board, on which the product's own player plays.
class PlayerTest : public ::testing::Test {
  protected:
    PlayerTest() { carry("board 1 lb2\nstart\nrun 3000"); }

    void carry(const std::string& text) {
        for (const Statement& statement : readTranscript(text)) {
            transcript::carryOut(world, statement);
        }
    }
    Player& player() { return world.recordAndPlay().player(); }
    void load(const std::string& text) {
        std::ofstream(world.file("t.bench"), std::ios::binary) << text;
        player().load(world.file("t.bench"));
    }
    /// Plays it to its end, or for ten minutes.
    void play(const std::string& text) {
        load(text);
        player().play();
        carry("run 600000");
    }
    /// "3: what failed there", a line each.
    std::string failed() {
        std::string said;
        for (const PlayedLine& line : player().lines()) {
            if (line.result == Result::Failed) {
                said += (said.empty() ? "" : "\n") + std::to_string(line.line) + ": " + line.message;
            }
        }
        return said;
    }
    /// What loading this says.
    std::string mistake(const std::string& text) {
        try {
            load(text);
        } catch (const LineFailure& failure) {
            return std::to_string(failure.line) + ": " + failure.what();
        }
        return "none";
    }

    World world;
};

} // namespace

TEST_F(PlayerTest, PlaysGesturesChecksAndPausesInTheirTime) {
    play("click main.mnuViewTx0\ntype OpalV2.FreqCenter \"315\"\nclock\nrun 2500\nelapsed 2500 2510\n"
         "sent *\nclick OpalV2.Update\nsent ~\n");
    EXPECT_EQ(player().state(), State::Ended);
    EXPECT_EQ(player().failures(), 1U);
    EXPECT_TRUE(failed().starts_with("8: expected sent \"~\", found \"S2")) << failed();
    play("text OpalV2.FreqCenter \"315\"\nport open\nwithin 10 enabled main.Disconnect\n");
    EXPECT_TRUE(player().passed()) << failed();
}

TEST_F(PlayerTest, GoesOnBehindACheckThatDoesNotHoldAndEndsAtAGestureOutOfReach) {
    play("text main.LoadBoard \"x\"\nclick main.mnutoolsTerminal\nport closed\nclick main.Connect\nport "
         "open\n");
    EXPECT_EQ(player().failures(), 3U);
    EXPECT_EQ(player().done(), 4U);
    EXPECT_TRUE(failed().ends_with("4: expected a user to reach main.Connect, found it out of reach"))
        << failed();
    EXPECT_EQ(player().lines()[4].result, Result::Waiting);
}

TEST_F(PlayerTest, AnswersBoxesAndDialogsAndGivesThemBack) {
    play("click main.mnuViewTx0\nanswer file \"a.tc\"\nclick OpalV2.ConfSave\n"
         "click main.mnuSaveWorkspace\nbox ~ \"has been saved\"\n");
    EXPECT_TRUE(player().passed()) << failed();
    EXPECT_TRUE(std::filesystem::exists(world.file("a.tc")));
    EXPECT_TRUE(world.machine.dialogs.boxes.empty());
    carry("click main.mnuSaveWorkspace\nbox ~ \"has been saved\"");
}

TEST_F(PlayerTest, ABoxThatIsNotExpectedFailsAtTheEnd) {
    play("click main.mnuSaveWorkspace\n");
    EXPECT_TRUE(failed().starts_with("1: expected no box left at the end")) << failed();
}

TEST_F(PlayerTest, HaltsStepsGoesOnAndStops) {
    load("click main.mnutoolsTerminal\nrun 1000\nopen Terminal\nrun 5000\nopen Terminal\n");
    player().step();
    carry("run 10");
    EXPECT_EQ(player().state(), State::Paused);
    EXPECT_EQ(player().done(), 1U);
    player().play();
    carry("run 500");
    EXPECT_EQ(player().lines()[1].result, Result::Running);
    player().pause();
    carry("run 60000");
    EXPECT_EQ(player().done(), 2U);
    player().play();
    carry("run 2000");
    EXPECT_EQ(player().done(), 4U);
    player().stop();
    EXPECT_EQ(player().state(), State::Ended);
    EXPECT_EQ(failed(), "4: stopped by the user");
    EXPECT_FALSE(player().passed());
}

TEST_F(PlayerTest, ABoxInAPauseIsTheUsers) {
    load("run 10\nrun 10\n");
    player().step();
    carry("run 100\nclick main.mnuSaveWorkspace\nbox ~ \"has been saved\"");
    EXPECT_EQ(player().state(), State::Paused);
    player().stop();
}

TEST_F(PlayerTest, EndsWhenTheBoardIsLostInTheMiddle) {
    load("click main.mnuViewTx0\nrun 1000\nclick OpalV2.Update\nrun 1000\nclick OpalV2.Update\n");
    player().play();
    carry("run 1500\nboard 1 unplug\nrun 60000");
    EXPECT_EQ(player().state(), State::Ended);
    EXPECT_TRUE(failed().ends_with("the board is no longer connected")) << failed();
}

TEST_F(PlayerTest, EndsWhenTheUserDisconnectsButNotWhenTheTranscriptDoes) {
    load("click main.mnutoolsTerminal\nrun 1000\nopen Terminal\n");
    player().play();
    carry("run 500\nclick main.Disconnect\nrun 5000");
    // In the very pause in which it went.
    EXPECT_EQ(failed(), "2: the board is no longer connected");
    carry("click main.Connect\nrun 3000\nport open");
    play("click main.Disconnect\nport closed\nclick main.Connect\nwithin 5000 port open\n");
    EXPECT_TRUE(player().passed()) << failed();
}

TEST_F(PlayerTest, ABoardThatGoesEndsEvenTheFirstAndLastPauseAtOnce) {
    load("run 600000\n");
    player().play();
    carry("run 500\nboard 1 unplug\nrun 2000");
    EXPECT_EQ(player().state(), State::Ended);
    EXPECT_EQ(failed(), "1: the board is no longer connected");
}

TEST_F(PlayerTest, APauseOutlastsDataModeAndAHaltInIt) {
    carry("clock");
    load("run 1000\nrun 3000\nport closed\n");
    player().play();
    carry("run 500\nchoose main.CB_Mode \"Data Mode\"\nrun 1000");
    player().pause();
    carry("run 100");
    player().play();
    carry("run 1000");
    EXPECT_EQ(player().state(), State::Playing);
    carry("run 3000");
    EXPECT_TRUE(player().passed()) << failed();
}

TEST_F(PlayerTest, AMuteBoardNeverHoldsItForLong) {
    carry("board 1 mute");
    play("click main.mnuViewTx0\nclick OpalV2.Update\nclick OpalV2.ReadStatus\n");
    EXPECT_EQ(player().state(), State::Ended);
}

TEST_F(PlayerTest, EndsWithTheProgram) {
    load("click main.mnutoolsTerminal\nrun 1000\nopen Terminal\n");
    player().play();
    carry("run 500\nclose main");
    EXPECT_EQ(player().state(), State::Ended);
    EXPECT_EQ(failed(), "2: the program was closed");
}

TEST_F(PlayerTest, EndsWithTheProgramThatIsLeftInTheMiddleOfAGesture) {
    carry("board 1 delay 900");
    load("click main.mnuViewTx0\nclick OpalV2.Update\nopen OpalV2\n");
    player().play();
    carry("after 1500 close main\nrun 30000");
    EXPECT_EQ(player().state(), State::Ended);
    EXPECT_FALSE(player().passed());
    EXPECT_FALSE(failed().empty());
}

TEST_F(PlayerTest, ATranscriptMayCloseTheProgramItself) {
    play("click main.mnutoolsTerminal\nclick main.mnuFileExit\n");
    EXPECT_TRUE(player().passed()) << failed();
}

TEST_F(PlayerTest, StatementsInTheMiddleOfAWaitComeInTheirTime) {
    carry("board 1 delay 300");
    play("click main.mnuViewTx0\nafter 200 click main.mnutoolsTerminal\nclick OpalV2.Update\nopen "
         "Terminal\n");
    EXPECT_TRUE(player().passed()) << failed();
    play("after 60000 click main.mnutoolsTerminal\nrun 5\n");
    EXPECT_TRUE(failed().starts_with("1: expected this to be carried out")) << failed();
    play("after 10 text main.LoadBoard \"x\"\nrun 500\nport open\n");
    EXPECT_TRUE(failed().starts_with("1: expected text of main.LoadBoard")) << failed();
}

TEST_F(PlayerTest, ABadFileIsToldWithItsLineAndNothingHappens) {
    load("port open\n");
    EXPECT_EQ(mistake("port open\nclik main.TX\n"), "2: unknown statement clik");
    EXPECT_EQ(mistake("port open\nclick \"main\n"), "2: quoted text without an end");
    EXPECT_EQ(mistake("port\n"), "1: port needs more behind it");
    EXPECT_EQ(mistake("within 10 click main.TX\n"), "1: expected a check behind within");
    EXPECT_EQ(player().lines().size(), 1U) << "what was loaded before stays";
    EXPECT_THROW(player().load(world.file("none.bench")), ToolError);
}

TEST_F(PlayerTest, WhatASimulatedBenchAloneCanDoIsRefusedWithItsLine) {
    EXPECT_EQ(mistake("click main.TX\nboard 1 lb2\n"),
              "2: board is for a simulated bench; this transcript cannot be played on a real one");
    for (const StatementRow& row : benchStatements()) {
        EXPECT_TRUE(transcript::needsSimulatedBench(row.name)) << row.name;
        EXPECT_NE(mistake(std::string(row.name) + " 1 2 3\n").find("simulated bench"), std::string::npos)
            << row.name;
    }
    for (auto table :
         {transcript::commonStatements(), transcript::gestureStatements(), transcript::checkStatements()}) {
        for (const StatementRow& row : table) {
            EXPECT_FALSE(transcript::needsSimulatedBench(row.name)) << row.name;
        }
    }
}

TEST_F(PlayerTest, AnEmptyTranscriptPasses) {
    play("# nothing\n");
    EXPECT_TRUE(player().passed());
    load("");
    player().play();
    player().stop();
    EXPECT_EQ(player().state(), State::Ended);
}

TEST_F(PlayerTest, TheReportNamesEachLine) {
    play("text main.LoadBoard ~ \"<&>\\x01\"\nclick main.Connect\nport open\n");
    std::string report = junitReport(player());
    EXPECT_NE(
        report.find(
            "<testsuite name=\"t.bench\" tests=\"3\" failures=\"2\" errors=\"0\" skipped=\"1\" time=\"0."),
        std::string::npos)
        << report;
    EXPECT_NE(report.find("<testcase classname=\"t.bench\" name=\"line 1: text main.LoadBoard ~ "
                          "&quot;&lt;&amp;&gt;\\x01&quot;\" time=\"0.000\">"),
              std::string::npos)
        << report;
    EXPECT_NE(
        report.find("<failure message=\"expected a user to reach main.Connect, found it out of reach\"/>"),
        std::string::npos)
        << report;
    EXPECT_NE(report.find("<skipped/>"), std::string::npos);
}

TEST(WithinOfATranscript, WaitsForACheckAndSaysWhatItLastFound) {
    World world;
    auto carry = [&world](const std::string& text) {
        for (const Statement& statement : readTranscript(text)) {
            transcript::carryOut(world, statement);
        }
    };
    carry("board 1 lb2\nstart\nclock\nwithin 5000 text main.CommStatus \"Comm. OK\"\nelapsed 100 4000");
    carry("clock");
    try {
        carry("within 700 text main.CommStatus \"x\"");
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_STREQ(failure.what(),
                     R"(within 700 ms: expected text of main.CommStatus "x", found "Comm. OK")");
    }
    carry("elapsed 700 700\nsent *\nafter 300 choose main.CB_Mode #1\nwithin 1000 sent X0\nsent");
}

} // namespace zor::testing
