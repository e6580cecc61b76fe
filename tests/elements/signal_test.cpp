// SPDX-License-Identifier: MIT
#include "elements/signal.h"

#include <gtest/gtest.h>

#include <string>

namespace zor {

TEST(Signal, TellsItsSubscribersInTheOrderInWhichTheyCame) {
    Signal<int> signal;
    std::string heard;
    Subscription first = signal.subscribe([&](int n) { heard += "a" + std::to_string(n); });
    Subscription second = signal.subscribe([&](int n) { heard += "b" + std::to_string(n); });
    signal.emit(1);
    signal.emit(2);
    EXPECT_EQ(heard, "a1b1a2b2");
}

TEST(Signal, ASubscriptionEndsWithItsHandle) {
    Signal<> signal;
    int calls = 0;
    {
        Subscription subscription = signal.subscribe([&] { ++calls; });
        signal.emit();
    }
    signal.emit();
    EXPECT_EQ(calls, 1);
}

TEST(Signal, AssigningOverAHandleEndsTheOldSubscription) {
    Signal<> signal;
    std::string heard;
    Subscription subscription = signal.subscribe([&] { heard += "a"; });
    subscription = signal.subscribe([&] { heard += "b"; });
    signal.emit();
    EXPECT_EQ(heard, "b");
}

TEST(Signal, AMovedHandleStillHoldsTheSubscription) {
    Signal<> signal;
    int calls = 0;
    Subscription first = signal.subscribe([&] { ++calls; });
    Subscription second = std::move(first);
    signal.emit();
    first.end(); // NOLINT(bugprone-use-after-move,clang-analyzer-cplusplus.Move): what a moved handle still
                 // does
    signal.emit();
    EXPECT_EQ(calls, 2);
    second.end();
    signal.emit();
    EXPECT_EQ(calls, 2);
}

TEST(Signal, ASubscriberThatComesDuringANotificationHearsTheNextOne) {
    Signal<> signal;
    int late = 0;
    Subscription second;
    Subscription first = signal.subscribe([&] { second = signal.subscribe([&] { ++late; }); });
    signal.emit();
    EXPECT_EQ(late, 0);
    first.end();
    signal.emit();
    EXPECT_EQ(late, 1);
}

TEST(Signal, ASubscriberThatEndsDuringANotificationIsNotCalledAnyMore) {
    Signal<> signal;
    int calls = 0;
    Subscription second;
    Subscription first = signal.subscribe([&] { second.end(); });
    second = signal.subscribe([&] { ++calls; });
    Subscription third = signal.subscribe([&] { calls += 10; });
    signal.emit();
    EXPECT_EQ(calls, 10);
}

TEST(Signal, ASubscriberMayEndItself) {
    Signal<> signal;
    int calls = 0;
    Subscription subscription = signal.subscribe([&] {
        ++calls;
        subscription.end();
    });
    signal.emit();
    signal.emit();
    EXPECT_EQ(calls, 1);
}

TEST(Signal, TheSignalMayBeDestroyedInsideANotification) {
    auto signal = std::make_unique<Signal<>>();
    int calls = 0;
    Subscription first = signal->subscribe([&] { signal.reset(); });
    Subscription second = signal->subscribe([&] { ++calls; });
    signal->emit();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(signal, nullptr);
    first.end();
}

TEST(Signal, AHandleMayOutliveItsSignal) {
    Subscription subscription;
    {
        Signal<> signal;
        subscription = signal.subscribe([] {});
    }
    subscription.end();
    subscription.end();
}

TEST(Signal, ANotificationInsideANotificationReachesEverybodyTwice) {
    Signal<int> signal;
    std::string heard;
    Subscription first = signal.subscribe([&](int depth) {
        heard += "a";
        if (depth == 0) {
            signal.emit(1);
        }
    });
    Subscription second = signal.subscribe([&](int) { heard += "b"; });
    signal.emit(0);
    EXPECT_EQ(heard, "aabb");
}

} // namespace zor
