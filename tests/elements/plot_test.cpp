// SPDX-License-Identifier: MIT
#include "elements/desk.h"
#include "elements/form.h"
#include "elements/plot.h"
#include "virtual/virtual_loop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zor::testing {

namespace {

using ::testing::ElementsAre;

std::vector<std::string> texts(const std::vector<PlotTick>& ticks) {
    std::vector<std::string> all;
    all.reserve(ticks.size());
    for (const PlotTick& tick : ticks) {
        all.push_back(tick.text);
    }
    return all;
}

TEST(PlotScale, PutsMarksAtRoundNumbers) {
    EXPECT_THAT(texts(roundTicks({0, 24}, 5)), ElementsAre("0", "10", "20"));
    EXPECT_THAT(texts(roundTicks({0, 24}, 6)), ElementsAre("0", "5", "10", "15", "20"));
    EXPECT_THAT(texts(roundTicks({1092, 1291}, 11)),
                ElementsAre("1100", "1120", "1140", "1160", "1180", "1200", "1220", "1240", "1260", "1280"));
    EXPECT_THAT(texts(roundTicks({-0.25, 0.25}, 6)), ElementsAre("-0.2", "-0.1", "0", "0.1", "0.2"));
    EXPECT_THAT(texts(roundTicks({0, 0.003}, 4)), ElementsAre("0", "0.001", "0.002", "0.003"));
}

TEST(PlotScale, PutsMarksOfCountsAtWholeNumbers) {
    EXPECT_THAT(texts(roundTicks({0, 2}, 9, true)), ElementsAre("0", "1", "2"));
    EXPECT_THAT(texts(roundTicks({0, 2}, 5, false)), ElementsAre("0", "0.5", "1.0", "1.5", "2.0"));
}

TEST(PlotScale, NeverPutsMoreMarksThanThereIsRoomFor) {
    for (int most = 2; most < 12; ++most) {
        for (double high : {1.0, 3.0, 7.7, 99.0, 100.0, 101.0, 12345.6}) {
            EXPECT_LE(roundTicks({0, high}, most).size(), static_cast<std::size_t>(most)) << high;
            EXPECT_LE(decadeTicks({1e-6, high}, most).size(), static_cast<std::size_t>(std::max(most, 3)))
                << high << " " << most;
        }
    }
}

TEST(PlotScale, PutsMarksOfALogarithmicAxisAtPowersOfTen) {
    EXPECT_THAT(texts(decadeTicks({0.001, 1000}, 9)),
                ElementsAre("0.001", "0.01", "0.1", "1", "10", "100", "1000"));
    EXPECT_THAT(texts(decadeTicks({1e-6, 1}, 4)), ElementsAre("1E-06", "1E-04", "0.01", "1"));
    EXPECT_THAT(texts(decadeTicks({2, 6}, 5)), ElementsAre("2", "5"));
    EXPECT_TRUE(decadeTicks({0, 10}, 5).empty());
}

TEST(PlotScale, WidensARangeToItsMarks) {
    EXPECT_EQ(roundedRange({1, 23}, 6), (PlotRange{0, 25}));
    EXPECT_EQ(roundedRange({-3, 3}, 5), (PlotRange{-4, 4}));
    // The system's own power of ten may miss by its last bit.
    PlotRange decades = decadeRange({0.02, 300}, 1);
    EXPECT_DOUBLE_EQ(decades.low, 0.01);
    EXPECT_DOUBLE_EQ(decades.high, 1000);
    EXPECT_EQ(decadeRange({0, 0}, 0.1), (PlotRange{0.1, 1}));
}

TEST(PlotScale, GivesARangeOfNoWidthSome) {
    for (double value : {0.0, 5.0, -5.0, 1e-30, 1e15}) {
        PlotRange range = roundedRange({value, value}, 5);
        EXPECT_LT(range.low, range.high) << value;
        EXPECT_FALSE(roundTicks(range, 5).empty()) << value;
    }
}

TEST(PlotScale, StandsOddNumbers) {
    double infinity = std::numeric_limits<double>::infinity();
    double none = std::numeric_limits<double>::quiet_NaN();
    double largest = std::numeric_limits<double>::max();
    for (PlotRange range : {PlotRange{-infinity, infinity}, PlotRange{none, 1}, PlotRange{0, none},
                            PlotRange{-largest, largest}, PlotRange{5, 1}, PlotRange{0, 5e-324}}) {
        EXPECT_LE(roundTicks(range, 6).size(), 6U);
        PlotRange rounded = roundedRange(range, 6);
        EXPECT_LE(rounded.low, rounded.high);
        (void)decadeTicks(range, 6);
        PlotRange decades = decadeRange(range, 1);
        EXPECT_GT(decades.low, 0);
        EXPECT_LT(decades.low, decades.high);
    }
}

class PlotTest : public ::testing::Test {
  protected:
    VirtualLoop loop;
    Desk desk{loop};
    Form form{desk, "form", "Form"};
};

TEST_F(PlotTest, KeepsTheNewestPointsOnly) {
    Plot plot(form, "plot", {.title = "Length", .x = {"Packet"}, .y = {"Length", "bytes"}, .capacity = 3});
    for (int number = 1; number <= 5; ++number) {
        plot.add({static_cast<double>(number), 10.0 * number});
    }
    EXPECT_THAT(plot.points(), ElementsAre(PlotPoint{3, 30}, PlotPoint{4, 40}, PlotPoint{5, 50}));
    plot.setPoints({{1, 1}, {2, 2}, {3, 3}, {4, 4}});
    EXPECT_THAT(plot.points(), ElementsAre(PlotPoint{2, 2}, PlotPoint{3, 3}, PlotPoint{4, 4}));
    plot.clear();
    EXPECT_TRUE(plot.points().empty());
    EXPECT_EQ(plot.text(), "Length");
}

TEST_F(PlotTest, TakesWhatIsNoNumberForAGap) {
    Plot plot(form, "plot", {.title = "Length"});
    plot.add({1, std::numeric_limits<double>::quiet_NaN()});
    plot.add({std::numeric_limits<double>::infinity(), 1});
    EXPECT_THAT(plot.points(), ElementsAre(PlotPoint{1, std::nullopt}));
}

TEST_F(PlotTest, TellsEachChange) {
    Plot plot(form, "plot", {.title = "Length"});
    int changes = 0;
    Subscription counting = plot.changed.subscribe([&changes] { ++changes; });
    plot.add({1, 1});
    plot.setPoints({{1, 1}});
    plot.clear();
    plot.clear();
    EXPECT_EQ(changes, 3);
}

TEST_F(PlotTest, HasAxesAlsoWithoutAValue) {
    Plot plot(form, "plot",
              {.title = "Errors", .y = {.caption = "BER", .scale = PlotAxis::Scale::Logarithmic}});
    EXPECT_LT(plot.xRange(5).low, plot.xRange(5).high);
    EXPECT_EQ(plot.yRange(5), (PlotRange{0.1, 1}));
    plot.add({1, std::nullopt});
    plot.add({2, 0.0});
    EXPECT_EQ(plot.yRange(5), (PlotRange{0.1, 1}));
    EXPECT_LT(plot.xRange(5).low, plot.xRange(5).high);
}

TEST_F(PlotTest, EndsItsAxesAtRoundNumbersAroundTheValues) {
    Plot plot(form, "plot", {.title = "Length", .y = {.caption = "Length", .unit = "bytes", .from = 0.0}});
    plot.setPoints({{10, 17}, {20, 23}, {30, std::nullopt}});
    EXPECT_EQ(plot.yRange(6), (PlotRange{0, 25}));
    EXPECT_EQ(plot.xRange(6), (PlotRange{10, 30}));
    EXPECT_THAT(texts(plot.xTicks(3)), ElementsAre("10", "20", "30"));
}

TEST_F(PlotTest, GivesABarItsWholeWidth) {
    Plot plot(form, "plot",
              {.title = "Length",
               .x = {.caption = "Packet", .ticks = PlotAxis::Ticks::WholeNumbers},
               .style = Plot::Style::Bars});
    plot.setPoints({{1, 17}, {3, 17}});
    EXPECT_EQ(plot.xRange(6), (PlotRange{0.5, 3.5}));
    EXPECT_THAT(texts(plot.xTicks(6)), ElementsAre("1", "2", "3"));
}

TEST_F(PlotTest, PlacesValuesAlongItsAxes) {
    EXPECT_DOUBLE_EQ(Plot::share(5, {0, 20}, PlotAxis::Scale::Linear), 0.25);
    EXPECT_DOUBLE_EQ(Plot::share(-5, {0, 20}, PlotAxis::Scale::Linear), 0);
    EXPECT_DOUBLE_EQ(Plot::share(0.1, {0.001, 10}, PlotAxis::Scale::Logarithmic), 0.5);
    EXPECT_DOUBLE_EQ(Plot::share(0, {0.001, 10}, PlotAxis::Scale::Logarithmic), 0);
    EXPECT_DOUBLE_EQ(Plot::share(std::numeric_limits<double>::quiet_NaN(), {0, 1}, PlotAxis::Scale::Linear),
                     0);
}

TEST_F(PlotTest, FindsTheValueAtAPlaceOfItsAxes) {
    for (auto scale : {PlotAxis::Scale::Linear, PlotAxis::Scale::Logarithmic}) {
        PlotRange range{0.01, 100};
        for (double share : {0.0, 0.25, 0.5, 1.0}) {
            EXPECT_NEAR(Plot::share(Plot::valueAt(share, range, scale), range, scale), share, 1e-12);
        }
        EXPECT_NEAR(Plot::valueAt(-1, range, scale), 0.01, 1e-12);
        EXPECT_NEAR(Plot::valueAt(2, range, scale), 100, 1e-9);
    }
}

TEST_F(PlotTest, TakesNoCursorWithoutAnAction) {
    Plot plot(form, "plot", {.title = "Length"});
    form.show();
    plot.add({1, 1});
    EXPECT_FALSE(plot.placeCursor(1));
    EXPECT_FALSE(plot.stepCursor(1));
    EXPECT_FALSE(plot.cursor().has_value());
}

TEST_F(PlotTest, KeepsTheCursorOnItsPoints) {
    Plot plot(form, "plot", {.title = "Length"});
    int moves = 0;
    plot.onCursor = [&moves] { ++moves; };
    form.show();
    EXPECT_FALSE(plot.stepCursor(1));
    EXPECT_FALSE(plot.placeCursor(3));
    plot.setPoints({{0, 1}, {10, 2}, {20, std::nullopt}, {30, 4}});
    EXPECT_TRUE(plot.placeCursor(12));
    EXPECT_EQ(plot.cursor(), 10.0);
    EXPECT_TRUE(plot.stepCursor(1));
    EXPECT_EQ(plot.cursor(), 20.0);
    EXPECT_TRUE(plot.stepCursor(100));
    EXPECT_EQ(plot.cursor(), 30.0);
    EXPECT_TRUE(plot.stepCursor(-100));
    EXPECT_EQ(plot.cursor(), 0.0);
    EXPECT_EQ(moves, 4);
    plot.putCursor(17);
    EXPECT_EQ(plot.cursor(), 20.0);
    EXPECT_EQ(moves, 4);
    plot.putCursor(std::nullopt);
    // Without one the first step is to the newest point.
    EXPECT_TRUE(plot.stepCursor(-1));
    EXPECT_EQ(plot.cursor(), 30.0);
}

TEST_F(PlotTest, WritesItsValuesAsCsv) {
    Plot plot(form, "plot", {.title = "Errors", .x = {"Read"}, .y = {"Errors, all", "%"}});
    plot.setPoints({{1, 0.5}, {2, std::nullopt}, {3, 1e-7}});
    EXPECT_EQ(plot.csv(), "Read,\"Errors, all (%)\"\r\n1,0.5\r\n2,\r\n3,1e-07\r\n");
}

} // namespace

} // namespace zor::testing
