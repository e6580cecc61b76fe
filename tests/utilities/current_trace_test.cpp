// SPDX-License-Identifier: MIT
#include "utilities/current_trace.h"

#include "utilities/current_over_time.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace zor {

TEST(CurrentTrace, HasNoFiguresWithoutReadings) {
    CurrentTrace trace;
    EXPECT_FALSE(trace.between(0, 100).has_value());
    EXPECT_EQ(trace.at(1), nullptr);
    trace.addGap(3);
    EXPECT_TRUE(trace.stretches().empty());
}

TEST(CurrentTrace, AReadingStandsUntilTheNextOne) {
    CurrentTrace trace;
    trace.add(0, 100);
    trace.add(0.5, 300);
    trace.add(1.0, 500);
    auto all = trace.between(0, 1);
    ASSERT_TRUE(all);
    EXPECT_DOUBLE_EQ(all->seconds, 1);
    EXPECT_DOUBLE_EQ(all->charge, 200); // 0.5 s of 100 uA and 0.5 s of 300 uA
    EXPECT_DOUBLE_EQ(all->mean, 200);
    EXPECT_DOUBLE_EQ(all->lowest, 100);
    EXPECT_DOUBLE_EQ(all->highest, 500);
}

TEST(CurrentTrace, CutsStretchesAtTheMarksWhicheverComesFirst) {
    CurrentTrace trace;
    trace.add(0, 100);
    trace.add(1, 300);
    trace.add(2, 300);
    for (auto [from, to] : {std::pair(0.75, 1.25), std::pair(1.25, 0.75)}) {
        auto part = trace.between(from, to);
        ASSERT_TRUE(part);
        EXPECT_DOUBLE_EQ(part->charge, 0.25 * 100 + 0.25 * 300);
        EXPECT_DOUBLE_EQ(part->mean, 200);
    }
}

TEST(CurrentTrace, AReadingStandsForNoLongerThanASecond) {
    CurrentTrace trace;
    trace.add(0, 1000);
    trace.add(60, 1000);
    EXPECT_DOUBLE_EQ(trace.between(0, 60)->charge, 1000);
    EXPECT_DOUBLE_EQ(trace.between(0, 60)->seconds, 1);
}

TEST(CurrentTrace, APauseCountsForNothing) {
    CurrentTrace trace;
    trace.add(0, 1000);
    trace.addGap(0.2);
    trace.addGap(0.4);
    trace.add(30, 1000);
    trace.addGap(30.2);
    EXPECT_EQ(trace.stretches().size(), 4U);
    EXPECT_NEAR(trace.between(0, 40)->charge, 400, 1e-9);
    EXPECT_FALSE(trace.at(10)->measured);
    EXPECT_FALSE(trace.between(5, 20).has_value());
}

TEST(CurrentTrace, AHundredThousandReadingsStayBoundedAndLoseNeitherExtremesNorCharge) {
    CurrentTrace trace;
    double charge = 0;
    double lowest = 1e9;
    double highest = 0;
    double previous = 0;
    for (int number = 0; number < 100'000; ++number) {
        // A quiet start with one peak in it, which must still be there at the end.
        double microamps = number == 57 ? 25'000 : 300 + 250 * std::sin(number / 37.0);
        if (number > 0) {
            charge += previous * 0.2;
        }
        previous = microamps;
        lowest = std::min(lowest, microamps);
        highest = std::max(highest, microamps);
        trace.add(number * 0.2, microamps);
        ASSERT_LE(trace.stretches().size(), CurrentTrace::capacity);
    }
    auto all = trace.between(0, 100'000 * 0.2);
    ASSERT_TRUE(all);
    EXPECT_NEAR(all->charge, charge, charge * 1e-9);
    EXPECT_DOUBLE_EQ(all->lowest, lowest);
    EXPECT_DOUBLE_EQ(all->highest, highest);
    EXPECT_NEAR(all->seconds, 99'999 * 0.2, 1e-3);
    // The newest stay as sharp as they came.
    const auto& held = trace.stretches();
    for (std::size_t place = held.size() - 1000; place + 1 < held.size(); ++place) {
        EXPECT_NEAR(held[place + 1].begin - held[place].begin, 0.2, 1e-6);
    }
}

TEST(CurrentTrace, PausesAndReadingsByTurnsStayBounded) {
    CurrentTrace trace;
    for (int number = 0; number < 50'000; ++number) {
        trace.add(number, 100);
        trace.addGap(number + 0.5);
        ASSERT_LE(trace.stretches().size(), CurrentTrace::capacity);
    }
    EXPECT_NEAR(trace.between(0, 50'000)->charge, 50'000 * 0.5 * 100, 1e-3);
}

TEST(CurrentText, ChangesItsUnitWhereTheNumberGrowsLong) {
    EXPECT_EQ(currentText(0), "0 uA");
    EXPECT_EQ(currentText(48.8), "48.8 uA");
    EXPECT_EQ(currentText(999.9), "999.9 uA");
    EXPECT_EQ(currentText(3050), "3.05 mA");
    EXPECT_EQ(chargeText(12.5), "12.5 uAs");
    EXPECT_EQ(chargeText(2440), "2.44 mAs");
    EXPECT_EQ(chargeText(7.2e6), "2 mAh");
}

} // namespace zor
