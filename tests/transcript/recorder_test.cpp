// SPDX-License-Identifier: MIT
#include "transcript/recorder.h"

#include "elements/form.h"
#include "elements/text_field.h"
#include "shell/main_window.h"
#include "transcript/transcript.h"
#include "transcript_runner/world.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zor::testing {

namespace {

/// A program with a board, and what its recorder writes. Comments are left out unless they are asked for.
class RecorderTest : public ::testing::Test {
  protected:
    RecorderTest() {
        carry("board 1 lb2\nstart\nrun 3000\nclick main.mnuViewTx0\nrun 1000");
        world.machine.dialogs.boxes.clear();
        recorder = std::make_unique<transcript::Recorder>(
            world.program(), world.machine.watchedDialogs, world.folder(),
            [this](const std::string& line) { (line.starts_with("#") ? comments : lines).push_back(line); });
    }

    void carry(const std::string& text) {
        for (const Statement& statement : readTranscript(text)) {
            transcript::carryOut(world, statement);
        }
    }
    /// What is written of these statements.
    std::vector<std::string> recorded(const std::string& text) {
        carry(text);
        recorder->finish();
        return std::exchange(lines, {});
    }
    TextField& field(const char* name) { return dynamic_cast<TextField&>(world.element(name)); }

    using Lines = std::vector<std::string>;

    World world;
    Lines lines;
    Lines comments;
    std::unique_ptr<transcript::Recorder> recorder;
};

} // namespace

TEST_F(RecorderTest, WritesTheStatementThatMakesTheGestureAgain) {
    for (const char* statement :
         {"type OpalV2.FreqCenter \"315\"", "edit OpalV2.FreqCenter \"868.3\"", "leave OpalV2.FreqCenter",
          "click main.mnutoolsTerminal", "tick Terminal.En_ScriptWindow", "untick Terminal.En_ScriptWindow",
          "key Terminal.Text1 \"Z\"", "focus OpalV2.FreqCenter", "close Terminal", "move OpalV2 300 450",
          "size OpalV2 5000 6000", "click OpalV2", "doubleclick main",
          "choose main.CB_Mode \"Radio access\""}) {
        std::string text = statement;
        if (text.starts_with("choose")) {
            continue;
        }
        EXPECT_EQ(recorded(text).back(), text);
    }
}

TEST_F(RecorderTest, WritesPausesInWholeMilliseconds) {
    EXPECT_EQ(recorded("run 250\nclick OpalV2\nrun 1200\nclick OpalV2\nrun 40"),
              (Lines{"run 250", "click OpalV2", "run 1200", "click OpalV2", "run 40"}));
}

TEST_F(RecorderTest, JoinsWhatOneHandDoesAtOnce) {
    TextField& centre = field("OpalV2.FreqCenter");
    for (const char* typed : {"3", "31", "315"}) {
        centre.replace(typed);
        carry("run 100");
    }
    centre.enter();
    EXPECT_EQ(recorded(""), (Lines{"run 300", "type OpalV2.FreqCenter \"315\""}));
    EXPECT_EQ(recorded("key OpalV2.FreqCenter \"4\"\nrun 90\nkey OpalV2.FreqCenter \"5\""),
              (Lines{"run 90", "key OpalV2.FreqCenter \"45\""}));
    world.window("OpalV2").userMove({15, 15});
    world.window("OpalV2").userMove({30, 45});
    EXPECT_EQ(recorded(""), (Lines{"move OpalV2 30 45"}));
    world.window("main").userClick();
    world.window("main").userSecondClick();
    EXPECT_EQ(recorded(""), (Lines{"doubleclick main"}));
}

TEST_F(RecorderTest, KeepsApartWhatIsNotOneDeed) {
    field("OpalV2.FreqCenter").replace("315");
    carry("run 900");
    field("OpalV2.FreqCenter").enter();
    EXPECT_EQ(recorded(""), (Lines{"put OpalV2.FreqCenter \"315\" 3", "run 900", "enter OpalV2.FreqCenter"}));
}

TEST_F(RecorderTest, BringsAWindowToTheFrontOnlyWhereThatIsAllThatHappens) {
    carry("click main.mnutoolsTerminal");
    recorder->finish();
    lines.clear();
    world.window("OpalV2").userActivate();
    EXPECT_EQ(recorded(""), (Lines{"front OpalV2"}));
    EXPECT_EQ(recorded("tick Terminal.En_ScriptWindow"), (Lines{"tick Terminal.En_ScriptWindow"}));
    world.window("Terminal").userActivate();
    EXPECT_EQ(recorded(""), Lines{});
}

TEST_F(RecorderTest, AnswersStandInFrontOfWhatAsked) {
    carry("click main.mnutoolsECET");
    (void)recorded("");
    EXPECT_EQ(
        recorded("answer file \"x.pdf\"\nclick main.mnuHelpBrowseEx\nanswer yes\n"
                 "key ECET.TB_EventContent(0) \"A\"\nclick main.mnuHelpBrowseEx"),
        (Lines{"answer file \"x.pdf\"", "click main.mnuHelpBrowseEx", "answer yes",
               "key ECET.TB_EventContent(0) \"A\"", "box *", "answer cancel", "click main.mnuHelpBrowseEx"}));
}

TEST_F(RecorderTest, AFileElsewhereKeepsItsWholeName) {
    // Quoted, as one system's names have the sign that begins an escape.
    std::string answer =
        "answer file " + transcript::asQuoted((world.machine.folder.path() / "other.tc").string());
    EXPECT_EQ(recorded(answer + "\nclick main.mnuHelpBrowseEx").front(), answer);
}

TEST_F(RecorderTest, SaysHowLongABoxStood) {
    EXPECT_EQ(recorded("linger 700\nclick main.mnuHelpBrowseEx\nlinger 0\nclick main.mnuHelpBrowseEx"),
              (Lines{"linger 700", "answer cancel", "click main.mnuHelpBrowseEx", "linger 0", "answer cancel",
                     "click main.mnuHelpBrowseEx"}));
}

TEST_F(RecorderTest, AGestureInAWaitStandsInFrontWithItsTime) {
    EXPECT_EQ(recorded("board 1 delay 400\nafter 100 click main.mnutoolsTerminal\nclick OpalV2.Update"),
              (Lines{"after 100 click main.mnutoolsTerminal", "click OpalV2.Update"}));
}

TEST_F(RecorderTest, TellsWhatCameBackAsComments) {
    carry("click OpalV2.Update");
    recorder->finish();
    EXPECT_FALSE(comments.empty());
    EXPECT_TRUE(comments.front().starts_with("# wire \"")) << comments.front();
}

TEST_F(RecorderTest, WritesNothingOfWhatIsRefusedOrComesOfItself) {
    EXPECT_EQ(recorded("refused click main.Connect\ndoubleclick OpalV2.ReadStatus"),
              (Lines{"doubleclick OpalV2.ReadStatus"}));
}

TEST_F(RecorderTest, IgnoresItsOwnSwitches) {
    recorder = std::make_unique<transcript::Recorder>(
        world.program(), world.machine.watchedDialogs, world.folder(),
        [this](const std::string& line) { lines.push_back(line); },
        [](const Gesture& gesture) { return gesture.form->name() == "main"; });
    EXPECT_EQ(recorded("click main.mnutoolsTerminal\nclick OpalV2"), (Lines{"click OpalV2"}));
}

} // namespace zor::testing
