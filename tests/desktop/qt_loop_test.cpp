// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_loop.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTimer>

#include <string>

namespace zor {

using namespace std::chrono_literals;

TEST(QtLoop, TimersDueTogetherFireInTheOrderOfTheirStart) {
    QtLoop loop;
    std::string order;
    for (char name : std::string("abcdef")) {
        loop.startTimer(2ms, EventLoop::Repeat::Once, [&order, name] { order += name; });
    }
    loop.runUntil([&] { return order.size() == 6; });
    EXPECT_EQ(order, "abcdef");
}

TEST(QtLoop, ALaterTimerWaitsForAnEarlierOne) {
    QtLoop loop;
    std::string order;
    loop.startTimer(20ms, EventLoop::Repeat::Once, [&] { order += "late "; });
    loop.startTimer(5ms, EventLoop::Repeat::Once, [&] { order += "early "; });
    loop.runUntil([&] { return order.size() > 10; });
    EXPECT_EQ(order, "early late ");
}

TEST(QtLoop, AnIntervalIsNeverShorterThanAskedFor) {
    QtLoop loop;
    auto started = loop.now();
    EventLoop::Duration fired{};
    loop.startTimer(2'300us, EventLoop::Repeat::Once, [&] { fired = loop.now(); });
    loop.runUntil([&] { return fired.count() != 0; });
    EXPECT_GE(fired - started, 2'300us);
}

TEST(QtLoop, ARepeatingTimerGoesOnInsideAWaitThatItsOwnTickRuns) {
    QtLoop loop;
    int ticks = 0;
    int depth = 0;
    int deepest = 0;
    auto id = loop.startTimer(2ms, EventLoop::Repeat::Every, [&] {
        ++ticks;
        deepest = std::max(deepest, ++depth);
        if (ticks == 1) {
            loop.runUntil([&] { return ticks >= 3; });
        }
        --depth;
    });
    loop.runUntil([&] { return ticks >= 3 && depth == 0; });
    loop.stopTimer(id);
    EXPECT_EQ(deepest, 2);
}

TEST(QtLoop, AStoppedTimerFiresNoMoreEvenIfItIsDue) {
    QtLoop loop;
    bool fired = false;
    EventLoop::TimerId second = 0;
    bool first = false;
    loop.startTimer(2ms, EventLoop::Repeat::Once, [&] {
        first = true;
        loop.stopTimer(second);
    });
    second = loop.startTimer(2ms, EventLoop::Repeat::Once, [&] { fired = true; });
    bool later = false;
    loop.startTimer(10ms, EventLoop::Repeat::Once, [&] { later = true; });
    loop.runUntil([&] { return later; });
    EXPECT_TRUE(first);
    EXPECT_FALSE(fired);
}

TEST(QtLoop, LeavingEndsAWaitThatAnActionRuns) {
    QtLoop loop;
    bool reachedEnd = false;
    loop.startTimer(2ms, EventLoop::Repeat::Once, [&] { loop.leave(); });
    loop.perform([&] {
        loop.runUntil([] { return false; });
        reachedEnd = true;
    });
    EXPECT_FALSE(reachedEnd);
    EXPECT_FALSE(loop.acting());
}

TEST(QtLoop, EventsOfTheToolkitAreHandledInsideAWait) {
    QtLoop loop;
    bool handled = false;
    QTimer::singleShot(2, [&] { handled = true; });
    loop.runUntil([&] { return handled; });
    EXPECT_TRUE(handled);
}

} // namespace zor
