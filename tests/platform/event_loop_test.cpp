// SPDX-License-Identifier: MIT
#include "platform/event_loop.h"

#include "virtual/virtual_loop.h"

#include <gtest/gtest.h>

#include <string>

namespace zor {

namespace {

using namespace std::chrono_literals;
using zor::testing::VirtualLoop;
using zor::testing::VirtualTimeError;
constexpr auto once = EventLoop::Repeat::Once;
constexpr auto every = EventLoop::Repeat::Every;

} // namespace

TEST(EventLoop, AWaitHandlesWhatIsDueUntilItsConditionHolds) {
    VirtualLoop loop;
    std::string log;
    bool over = false;
    loop.startTimer(30ms, once, [&] { over = true; });
    loop.startTimer(10ms, every, [&] { log += "t"; });
    loop.runUntil([&] { return over; });
    EXPECT_EQ(loop.now(), 30ms);
    // The one that was started first comes first at the same moment.
    EXPECT_EQ(log, "tt");
}

TEST(EventLoop, ALeftProgramEndsEveryWait) {
    VirtualLoop loop;
    int dropped = 0;
    std::string log;
    loop.startTimer(10ms, once, [&] {
        loop.perform([&] {
            loop.startTimer(10ms, once, [&] { loop.leave(); });
            loop.runUntil([] { return false; });
            log += "inner went on";
        });
        ++dropped;
    });
    loop.perform([&] {
        loop.runUntil([] { return false; });
        log += "outer went on";
    });
    EXPECT_EQ(log, "");
    EXPECT_EQ(dropped, 1);
    EXPECT_EQ(loop.now(), 20ms);
    EXPECT_FALSE(loop.acting());
}

TEST(EventLoop, AWaitWhoseConditionHoldsDoesNotEndByLeaving) {
    VirtualLoop loop;
    loop.leave();
    EXPECT_NO_THROW(loop.runUntil([] { return true; }));
    EXPECT_THROW(loop.runUntil([] { return false; }), ActionDropped);
}

TEST(EventLoop, AnErrorThatNobodyCaughtIsToldOnce) {
    VirtualLoop loop;
    std::string told;
    loop.uncaught = [&](const ToolError& error) { told += std::to_string(error.number()) + ";"; };
    loop.perform([&] { loop.perform([] { throw ToolError(53); }); });
    EXPECT_EQ(told, "53;");
    EXPECT_FALSE(loop.acting());
}

TEST(EventLoop, ADroppedActionEndsWithoutAWord) {
    VirtualLoop loop;
    bool told = false;
    loop.uncaught = [&](const ToolError&) { told = true; };
    loop.perform([] { throw ActionDropped(); });
    EXPECT_FALSE(told);
}

TEST(EventLoop, KeepsItsDepthWhenAForeignErrorPassesThrough) {
    VirtualLoop loop;
    EXPECT_THROW(loop.perform([] { throw std::runtime_error("foreign"); }), std::runtime_error);
    EXPECT_FALSE(loop.acting());
}

TEST(EventLoop, DiscardsWhenTheOutermostActionHasReturned) {
    VirtualLoop loop;
    std::string log;
    loop.perform([&] {
        loop.perform([&] {
            loop.discardLater([&] { log += "discarded"; });
            log += "inner,";
        });
        log += "outer,";
    });
    EXPECT_EQ(log, "inner,outer,discarded");
}

TEST(EventLoop, DiscardsAtOnceOutsideOfAnyAction) {
    VirtualLoop loop;
    bool gone = false;
    loop.discardLater([&] { gone = true; });
    EXPECT_TRUE(gone);
}

TEST(EventLoop, ADiscardMayHandOnAnother) {
    VirtualLoop loop;
    std::string log;
    loop.perform([&] {
        loop.discardLater([&] {
            log += "first,";
            loop.discardLater([&] { log += "second"; });
        });
    });
    EXPECT_EQ(log, "first,second");
}

TEST(VirtualLoop, TiesComeInTheOrderOfTheirStart) {
    VirtualLoop loop;
    std::string log;
    loop.startTimer(20ms, every, [&] { log += "a"; });
    loop.startTimer(10ms, every, [&] { log += "b"; });
    loop.startTimer(20ms, once, [&] { log += "c"; });
    loop.runFor(40ms);
    EXPECT_EQ(log, "babcbab");
}

TEST(VirtualLoop, AnActionBegunInTimeIsFinishedBeyondIt) {
    VirtualLoop loop;
    bool finished = false;
    loop.startTimer(90ms, once, [&] {
        bool over = false;
        loop.startTimer(50ms, once, [&] { over = true; });
        loop.runUntil([&] { return over; });
        finished = true;
    });
    loop.runFor(100ms);
    EXPECT_TRUE(finished);
    EXPECT_EQ(loop.now(), 140ms);
}

TEST(VirtualLoop, TimePassesWithoutEvents) {
    VirtualLoop loop;
    loop.runFor(100ms);
    EXPECT_EQ(loop.now(), 100ms);
}

TEST(VirtualLoop, AWaitForNothingIsAnErrorAndNoHang) {
    VirtualLoop loop;
    EXPECT_THROW(loop.runUntil([] { return false; }), VirtualTimeError);
}

TEST(VirtualLoop, ARunWithoutAnEndIsAnErrorAndNoHang) {
    VirtualLoop loop;
    loop.setLimits(1000, 1h);
    loop.startTimer(0ms, every, [] {});
    EXPECT_THROW(loop.runUntil([] { return false; }), VirtualTimeError);
    EXPECT_EQ(loop.eventCount(), 1001u);
}

TEST(VirtualLoop, ATimerMayStopItselfAndOthers) {
    VirtualLoop loop;
    std::string log;
    EventLoop::TimerId second = 0;
    EventLoop::TimerId first = 0;
    first = loop.startTimer(10ms, every, [&] {
        log += "a";
        loop.stopTimer(first);
        loop.stopTimer(second);
        loop.stopTimer(12345);
    });
    second = loop.startTimer(10ms, every, [&] { log += "b"; });
    loop.runFor(50ms);
    EXPECT_EQ(log, "a");
}

TEST(Timer, TicksAtItsIntervalUntilItIsStopped) {
    VirtualLoop loop;
    int ticks = 0;
    Timer timer(loop, [&] { ++ticks; });
    EXPECT_FALSE(timer.running());
    timer.start(100ms);
    loop.runFor(99ms);
    EXPECT_EQ(ticks, 0);
    loop.runFor(1ms);
    EXPECT_EQ(ticks, 1);
    loop.runFor(200ms);
    EXPECT_EQ(ticks, 3);
    timer.stop();
    loop.runFor(500ms);
    EXPECT_EQ(ticks, 3);
}

TEST(Timer, StartingAgainBeginsAWholeInterval) {
    VirtualLoop loop;
    int ticks = 0;
    Timer timer(loop, [&] { ++ticks; });
    timer.start(100ms);
    loop.runFor(60ms);
    timer.start(100ms);
    loop.runFor(60ms);
    EXPECT_EQ(ticks, 0);
    loop.runFor(40ms);
    EXPECT_EQ(ticks, 1);
}

TEST(Timer, StartingARunningTimerWithoutAnIntervalLeavesItAlone) {
    VirtualLoop loop;
    int ticks = 0;
    Timer timer(loop, [&] { ++ticks; });
    timer.setInterval(100ms);
    timer.start();
    loop.runFor(60ms);
    timer.start();
    loop.runFor(40ms);
    EXPECT_EQ(ticks, 1);
}

TEST(Timer, ANewIntervalCountsFromNow) {
    VirtualLoop loop;
    int ticks = 0;
    Timer timer(loop, [&] { ++ticks; });
    timer.start(100ms);
    loop.runFor(90ms);
    timer.setInterval(50ms);
    loop.runFor(49ms);
    EXPECT_EQ(ticks, 0);
    loop.runFor(1ms);
    EXPECT_EQ(ticks, 1);
}

TEST(Timer, SkipsTicksWhileItsOwnTickStillWaits) {
    VirtualLoop loop;
    int begun = 0;
    Timer timer(loop, [&] {
        ++begun;
        bool over = false;
        loop.startTimer(350ms, once, [&] { over = true; });
        loop.runUntil([&] { return over; });
    });
    timer.start(100ms);
    loop.runFor(400ms);
    EXPECT_EQ(begun, 1);
    EXPECT_EQ(loop.now(), 450ms);
    loop.runFor(60ms);
    EXPECT_EQ(begun, 2);
}

TEST(Timer, MayBeDestroyedByItsOwnTick) {
    VirtualLoop loop;
    int ticks = 0;
    std::unique_ptr<Timer> timer;
    timer = std::make_unique<Timer>(loop, [&] {
        ++ticks;
        timer.reset();
    });
    timer->start(100ms);
    loop.runFor(500ms);
    EXPECT_EQ(ticks, 1);
}

TEST(Timer, ATickThatThrowsIsToldAndTicksOn) {
    VirtualLoop loop;
    int told = 0;
    loop.uncaught = [&](const ToolError&) { ++told; };
    Timer timer(loop, [] { throw ToolError(57); });
    timer.start(100ms);
    loop.runFor(300ms);
    EXPECT_EQ(told, 3);
}

} // namespace zor
