// SPDX-License-Identifier: MIT
#include "elements/coloured_log.h"

#include "elements/desk.h"
#include "elements/form.h"
#include "virtual/virtual_loop.h"

#include <gtest/gtest.h>

namespace zor {

namespace {

struct LogWindow {
    zor::testing::VirtualLoop loop;
    Desk desk{loop};
    Form form{desk, "Window", "A window"};
    ColouredLog log{form, "Log"};
};

} // namespace

TEST(ColouredLog, KeepsItsLinesUntilItIsCleared) {
    LogWindow window;
    window.log.append(LogColour::Blue, "begun");
    window.log.append(LogColour::Red, "wrong");
    EXPECT_EQ(window.log.text(), "begun\r\nwrong\r\n");
    EXPECT_EQ(window.log.lines().back(), (ColouredLog::Line{LogColour::Red, "wrong"}));
    EXPECT_EQ(window.log.clearedLines(), 0U);
    window.log.clear();
    EXPECT_EQ(window.log.text(), "");
    EXPECT_EQ(window.log.clearedLines(), 2U);
}

TEST(ColouredLog, TellsOfEachLineAndOfItsClearing) {
    LogWindow window;
    std::string told;
    auto lines =
        window.log.appended.subscribe([&](const ColouredLog::Line& line) { told += line.text + ";"; });
    auto changes = window.log.changed.subscribe([&] { told += "changed;"; });
    auto ends = window.log.movedToEnd.subscribe([&] { told += "end;"; });
    window.log.append(LogColour::Green, "right");
    window.log.moveToEnd();
    window.log.clear();
    EXPECT_EQ(told, "right;end;changed;");
}

TEST(ColouredLog, CanBeClearedByWhoHearsOfALine) {
    LogWindow window;
    auto lines = window.log.appended.subscribe([&](const ColouredLog::Line& line) {
        window.log.clear();
        EXPECT_EQ(line.text, "last");
    });
    window.log.append(LogColour::Black, "last");
    EXPECT_TRUE(window.log.lines().empty());
}

TEST(ColouredLog, KeepsTheNewestLinesAndSaysSo) {
    LogWindow window;
    for (std::size_t number = 0; number < ColouredLog::mostLines; ++number) {
        window.log.append(LogColour::Black, std::to_string(number));
    }
    EXPECT_EQ(window.log.lines().size(), ColouredLog::mostLines);
    EXPECT_EQ(window.log.hint(), "");
    window.log.append(LogColour::Black, "one more");
    EXPECT_EQ(window.log.lines().size(), 7501U);
    EXPECT_EQ(window.log.lines().front().text, "2500");
    EXPECT_EQ(window.log.lines().back().text, "one more");
    EXPECT_EQ(window.log.clearedLines(), 2500U);
    EXPECT_EQ(window.log.hint(), "The oldest 2500 lines are gone; the newest 10000 are kept.");
    window.log.clear();
    EXPECT_EQ(window.log.clearedLines(), 10'001U);
    EXPECT_EQ(window.log.hint(), "");
}

} // namespace zor
