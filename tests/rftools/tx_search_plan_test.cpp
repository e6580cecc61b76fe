// SPDX-License-Identifier: MIT
#include "rftools/tx_search_plan.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace zor {

namespace {

/// Plays the plan against a sky that answers each setting; gives up after more readings than any plan needs.
int play(SearchPlan& plan, const std::function<SearchReading(const SearchSetting&)>& sky) {
    int readings = 0;
    for (; !plan.done() && readings < 100'000; ++readings) {
        plan.take(sky(plan.next()));
    }
    return readings;
}

/// A carrier of a level (threshold code) that is heard so many steps to either side.
struct Carrier {
    int frequency;
    int threshold;
    int width;
};

SearchReading hear(const std::vector<Carrier>& carriers, const SearchSetting& setting) {
    SearchReading reading;
    int loudest = -1;
    for (const Carrier& carrier : carriers) {
        int away = carrier.frequency - setting.frequency;
        if (std::abs(away) <= carrier.width && carrier.threshold >= setting.threshold &&
            carrier.threshold > loudest) {
            loudest = carrier.threshold;
            reading.signal = true;
            reading.offset = std::clamp(away, -16, 15);
        }
    }
    return reading;
}

SearchPlan::Span wholeBand(int step) {
    SearchPlan::Span span;
    span.from = 96;
    span.to = 3903;
    span.step = step;
    span.resolution = 10;
    return span;
}

} // namespace

TEST(SearchPlan, StepsFromEndToEndAndEndsAtTheSpansLastPoint) {
    SearchPlan plan({.from = 100, .to = 125, .step = 10}, {});
    EXPECT_EQ(plan.pointCount(), 4);
    std::vector<int> tuned;
    play(plan, [&](const SearchSetting& setting) {
        tuned.push_back(setting.frequency);
        return SearchReading{};
    });
    EXPECT_EQ(tuned, (std::vector<int>{100, 110, 120, 125}));
    EXPECT_EQ(plan.points().size(), 4U);
    EXPECT_TRUE(plan.carriers().empty());
}

TEST(SearchPlan, ASpanOfOnePointIsReadOnce) {
    SearchPlan plan({.from = 100, .to = 100, .step = 10}, {});
    EXPECT_EQ(plan.pointCount(), 1);
    EXPECT_EQ(play(plan, [](const SearchSetting&) { return SearchReading{}; }), 1);
}

TEST(SearchPlan, TellsTheHighestThresholdThatASignalReaches) {
    for (int level = 0; level <= 7; ++level) {
        SearchPlan plan({.from = 100, .to = 100, .step = 10}, {});
        play(plan, [&](const SearchSetting& setting) { return hear({{100, level, 5}}, setting); });
        ASSERT_EQ(plan.points().size(), 1U);
        EXPECT_EQ(plan.points().front().threshold, level);
        ASSERT_EQ(plan.carriers().size(), 1U);
        EXPECT_EQ(plan.carriers().front().threshold, level);
    }
}

TEST(SearchPlan, FindsEveryCarrierAtItsFrequencyWhereverItLies) {
    for (int frequency = 96; frequency <= 3903; frequency += 7) {
        SearchPlan plan(wholeBand(40), {});
        play(plan, [&](const SearchSetting& setting) { return hear({{frequency, 5, 25}}, setting); });
        ASSERT_EQ(plan.carriers().size(), 1U) << frequency;
        EXPECT_EQ(plan.carriers().front().frequency, frequency);
        EXPECT_EQ(plan.carriers().front().seen, SearchPlan::readingsOfCarrier);
    }
}

TEST(SearchPlan, SeveralCarriersAreSeveralAndTheWeakerOneBesideIsNotLost) {
    SearchPlan::Span span = wholeBand(20);
    span.resolution = 15;
    SearchPlan plan(span, {});
    play(plan, [](const SearchSetting& setting) {
        return hear({{500, 7, 30}, {560, 3, 28}, {2000, 1, 30}}, setting);
    });
    std::vector<double> frequencies;
    for (const FoundCarrier& carrier : plan.carriers()) {
        frequencies.push_back(carrier.frequency);
    }
    EXPECT_EQ(frequencies, (std::vector<double>{500, 560, 2000}));
}

TEST(SearchPlan, TwoStrongOnesWithAValleyBetweenThemAreTwo) {
    SearchPlan plan(wholeBand(10), {});
    play(plan, [](const SearchSetting& setting) {
        // Each is weaker away from its middle.
        SearchReading reading;
        for (int middle : {1000, 1080}) {
            int away = middle - setting.frequency;
            int level = 7 - std::abs(away) / 10;
            if (level >= std::max(setting.threshold, 2) && (!reading.signal || std::abs(away) <= 40)) {
                reading.signal = true;
                reading.offset = std::clamp(away, -16, 15);
            }
        }
        return reading;
    });
    ASSERT_EQ(plan.carriers().size(), 2U);
    EXPECT_EQ(plan.carriers()[0].frequency, 1000);
    EXPECT_EQ(plan.carriers()[1].frequency, 1080);
}

TEST(SearchPlan, WithoutAnOffsetACarrierIsTheMiddleOfWhereItWasHeard) {
    for (int frequency = 1000; frequency < 1020; ++frequency) {
        SearchPlan plan(wholeBand(20), {});
        play(plan, [&](const SearchSetting& setting) {
            SearchReading reading = hear({{frequency, 4, 45}}, setting);
            reading.offset.reset();
            return reading;
        });
        ASSERT_EQ(plan.carriers().size(), 1U);
        EXPECT_NEAR(plan.carriers().front().frequency, frequency, 20);
        EXPECT_FALSE(plan.carriers().front().offset);
    }
}

TEST(SearchPlan, SaysHowSteadyACarrierIs) {
    SearchPlan plan({.from = 100, .to = 100, .step = 10}, {RateSetting{1, false, 172.414}});
    int reads = 0;
    play(plan, [&](const SearchSetting& setting) {
        if (plan.phase() != SearchPlan::Phase::Measure) {
            return hear({{100, 2, 5}}, setting);
        }
        // There at every fourth reading, two steps apart.
        ++reads;
        SearchReading reading;
        reading.signal = reads % 4 == 0;
        reading.offset = reads == 4 ? -1 : 1;
        return reading;
    });
    ASSERT_EQ(plan.carriers().size(), 1U);
    const FoundCarrier& carrier = plan.carriers().front();
    EXPECT_EQ(carrier.readings, 8);
    EXPECT_EQ(carrier.seen, 2);
    EXPECT_EQ(carrier.offset, 0);
    EXPECT_EQ(carrier.spread, 2);
    EXPECT_EQ(carrier.rateState, FoundCarrier::Rate::NotTried) << "it is away too often";
}

TEST(SearchPlan, ACarrierThatRunsAwayEndsTheCentring) {
    SearchPlan plan({.from = 100, .to = 100, .step = 10}, {});
    int readings = play(plan, [](const SearchSetting&) {
        return SearchReading{.signal = true, .clockLocked = false, .offset = 15};
    });
    EXPECT_LT(readings, 40);
    EXPECT_EQ(plan.carriers().size(), 1U);
}

TEST(SearchPlan, TriesRatesUntilTheClockStaysLocked) {
    std::vector<RateSetting> rates = {{0, false, 100}, {1, false, 50}, {2, false, 33}};
    SearchPlan plan({.from = 100, .to = 120, .step = 10}, rates);
    int flickers = 0;
    play(plan, [&](const SearchSetting& setting) {
        SearchReading reading = hear({{100, 2, 5}}, setting);
        // The first rate's clock locks once and is lost again.
        reading.clockLocked = setting.rate == 2 || (setting.rate == 0 && flickers++ == 0);
        return reading;
    });
    ASSERT_EQ(plan.carriers().size(), 1U);
    EXPECT_EQ(plan.carriers().front().rateState, FoundCarrier::Rate::Locked);
    EXPECT_EQ(plan.carriers().front().rate, rates[2]);
    EXPECT_EQ(plan.points().size(), 3U) << "the sweep goes on behind it";
}

TEST(SearchPlan, WithoutALockTheRateStaysOpen) {
    SearchPlan plan({.from = 100, .to = 100, .step = 10}, {{0, false, 100}, {1, false, 50}});
    play(plan, [](const SearchSetting& setting) { return hear({{100, 2, 5}}, setting); });
    ASSERT_EQ(plan.carriers().size(), 1U);
    EXPECT_EQ(plan.carriers().front().rateState, FoundCarrier::Rate::None);
}

TEST(RateTrials, BeginWithTheGivenRateAndReachEveryRateOfTheChip) {
    for (RateRange range : {RateRange{127, true, 1}, RateRange{255, false, 1}, RateRange{127, true, 1.2F}}) {
        std::vector<RateSetting> trials = rateTrials(4.8, range);
        EXPECT_NEAR(trials.front().kilobits, 4.8, 0.1);
        EXPECT_LT(trials.size(), 180U);
        for (bool prescaler : {false, true}) {
            for (int divider = 0; divider <= range.greatestDivider && (!prescaler || range.hasPrescaler);
                 ++divider) {
                double rate = 10000 * static_cast<double>(range.crystalRatio) / 29 / (divider + 1) /
                              (prescaler ? 8 : 1);
                bool near = std::any_of(trials.begin(), trials.end(), [&](const RateSetting& trial) {
                    return std::abs(trial.kilobits / rate - 1) < 0.016;
                });
                EXPECT_TRUE(near) << rate << " kbit/s";
            }
        }
    }
}

TEST(RateTrials, TheNearestRateIsTheOneThatThePanelWouldShow) {
    EXPECT_EQ(nearestRate(9.6, {}).divider, 35);
    EXPECT_FALSE(nearestRate(9.6, {}).prescaler);
    EXPECT_EQ(nearestRate(1000, {}).divider, 0);
    EXPECT_EQ(nearestRate(0.001, {}), (RateSetting{127, true, 0.337}));
    EXPECT_EQ(nearestRate(2, {255, false, 1}).divider, 171);
}

} // namespace zor
