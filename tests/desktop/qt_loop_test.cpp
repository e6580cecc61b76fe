// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_loop.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
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

TEST(QtLoop, WhatIsLeftBehindAnEventRunsInItsOrderBeforeTheTurnEnds) {
    QtLoop loop;
    std::string order;
    QTimer::singleShot(1, [&] {
        loop.afterEvent([&] { order += "first "; });
        loop.afterEvent([&] { order += "second"; });
        order += "event ";
    });
    loop.runUntil([&] { return !order.empty(); });
    EXPECT_EQ(order, "event first second");
}

TEST(QtLoop, AWaitInsideTheSameEventTakesWhatWasLeftBehindItWithoutSleeping) {
    QtLoop loop;
    bool came = false;
    bool late = false;
    QObject test;
    QTimer::singleShot(2000, &test, [&] { late = true; });
    QTimer::singleShot(1, [&] {
        loop.afterEvent([&] { came = true; });
        loop.runUntil([&] { return came || late; });
    });
    loop.runUntil([&] { return came || late; });
    EXPECT_TRUE(came);
    EXPECT_FALSE(late);
}

TEST(QtLoop, OneThatWaitsBehindAnEventLetsTheNextOnesRunInsideItsWait) {
    QtLoop loop;
    std::string order;
    bool late = false;
    QObject test;
    QTimer::singleShot(2000, &test, [&] { late = true; });
    QTimer::singleShot(1, [&] {
        loop.afterEvent([&] {
            loop.runUntil([&] { return !order.empty() || late; });
            order += "waited";
        });
        loop.afterEvent([&] { order += "next "; });
    });
    loop.runUntil([&] { return order.size() > 5 || late; });
    EXPECT_EQ(order, "next waited");
}

TEST(QtLoop, WhatIsLeftBehindAnEventRunsInTheToolkitsOwnLoopsToo) {
    QtLoop loop;
    bool late = false;
    QEventLoop dialog;
    QTimer::singleShot(2000, &dialog, [&] {
        late = true;
        dialog.quit();
    });
    QTimer::singleShot(1, [&] { loop.afterEvent([&] { dialog.quit(); }); });
    dialog.exec();
    EXPECT_FALSE(late);

    int runs = 0;
    loop.afterEvent([&] { ++runs; });
    QCoreApplication::processEvents();
    EXPECT_EQ(runs, 1);
}

TEST(QtLoop, ATimerThatIsStoppedAndStartedAnewIsNeverEarly) {
    QtLoop loop;
    EventLoop::Duration fired{};
    auto id = loop.startTimer(5ms, EventLoop::Repeat::Once, [] { FAIL() << "a stopped timer fired"; });
    loop.stopTimer(id);
    auto started = loop.now();
    loop.startTimer(20ms, EventLoop::Repeat::Once, [&] { fired = loop.now(); });
    loop.runUntil([&] { return fired.count() != 0; });
    EXPECT_GE(fired - started, 20ms);
}

TEST(QtLoop, ATimerThatComesBeforeTheOneWaitedForWakesInItsTime) {
    QtLoop loop;
    bool early = false;
    bool late = false;
    loop.startTimer(3000ms, EventLoop::Repeat::Once, [&] { late = true; });
    loop.startTimer(5ms, EventLoop::Repeat::Once, [&] { early = true; });
    loop.runUntil([&] { return early || late; });
    EXPECT_TRUE(early);
    EXPECT_FALSE(late);
}

} // namespace zor
