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

TEST(ColouredLog, KeepsEveryLineUntilItIsCleared) {
    constexpr std::size_t count = 50'000;
    LogWindow window;
    for (std::size_t number = 0; number < count; ++number) {
        window.log.append(LogColour::Black, std::to_string(number));
    }
    ASSERT_EQ(window.log.lines().size(), count);
    EXPECT_EQ(window.log.lines().front().text, "0");
    EXPECT_EQ(window.log.lines().back().text, "49999");
    EXPECT_EQ(window.log.clearedLines(), 0U);
    window.log.clear();
    EXPECT_TRUE(window.log.lines().empty());
    EXPECT_EQ(window.log.clearedLines(), count);
}

} // namespace zor
