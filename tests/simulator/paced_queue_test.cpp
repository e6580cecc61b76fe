// SPDX-License-Identifier: MIT
#include "simulator/paced_queue.h"

#include <gtest/gtest.h>

namespace zor::sim {

namespace {

using std::chrono::microseconds;

PacedQueue::TimePoint after(long micros) {
    return PacedQueue::TimePoint(microseconds(micros + 1'000'000));
}

} // namespace

TEST(PacedQueue, ACharacterIsThroughAfterTenBits) {
    PacedQueue queue(PacedQueue::characterAt19200);
    queue.push("abc", after(0));
    EXPECT_EQ(queue.take(after(520)), "");
    EXPECT_EQ(queue.take(after(521)), "a");
    EXPECT_EQ(queue.take(after(1042)), "b");
    EXPECT_EQ(queue.take(after(1562)), "");
    EXPECT_EQ(queue.take(after(1563)), "c");
}

TEST(PacedQueue, ACharacterThatIsNotThroughGoesAtTheNewSpeed) {
    PacedQueue queue(PacedQueue::characterAt19200);
    queue.push("abc", after(0));
    EXPECT_EQ(queue.take(after(521)), "a");
    queue.setCharacterTime(std::chrono::nanoseconds(173'611));
    EXPECT_EQ(queue.take(after(694)), "");
    EXPECT_EQ(queue.take(after(695)), "b");
    EXPECT_EQ(queue.take(after(869)), "c");
}

TEST(PacedQueue, SevenCharactersOfAPromptTake3646Microseconds) {
    PacedQueue queue(PacedQueue::characterAt19200);
    queue.push("\n\rOK\n\r>", after(0));
    EXPECT_EQ(queue.take(after(3645)).size(), 6u);
    EXPECT_EQ(queue.take(after(3646)).size(), 1u);
}

TEST(PacedQueue, APieceWaitsForItsTimeAndForThePieceBeforeIt) {
    PacedQueue queue(microseconds(500));
    queue.push("ab", after(10'000));
    queue.push("c", after(0));
    EXPECT_EQ(queue.next(), after(10'500));
    EXPECT_EQ(queue.take(after(10'499)), "");
    EXPECT_EQ(queue.take(after(11'000)), "ab");
    EXPECT_EQ(queue.take(after(11'500)), "c");
}

TEST(PacedQueue, AnIdleLineGivesNoTimeAndStartsAtOnceWhenUsed) {
    PacedQueue queue(microseconds(500));
    EXPECT_EQ(queue.next(), std::nullopt);
    queue.push("", after(0));
    EXPECT_EQ(queue.next(), std::nullopt);
    queue.push("a", after(0));
    EXPECT_EQ(queue.take(after(9'000)), "a");
    queue.push("b", after(9'000));
    EXPECT_EQ(queue.next(), after(9'500));
}

TEST(PacedQueue, WithoutAPaceEverythingIsThroughAtItsTime) {
    PacedQueue queue(microseconds(0));
    queue.push("ab", after(0));
    queue.push("c", after(5));
    EXPECT_EQ(queue.take(after(0)), "ab");
    EXPECT_EQ(queue.take(after(5)), "c");
}

TEST(PacedQueue, TakeAllEmptiesTheLine) {
    PacedQueue queue(microseconds(500));
    queue.push("abc", after(0));
    queue.push("de", after(99'000));
    EXPECT_EQ(queue.take(after(500)), "a");
    EXPECT_EQ(queue.size(), 4u);
    EXPECT_EQ(queue.takeAll(), "bcde");
    EXPECT_EQ(queue.size(), 0u);
    EXPECT_EQ(queue.next(), std::nullopt);
}

} // namespace zor::sim
