// SPDX-License-Identifier: MIT
#include "simulator/air.h"

#include "simulator/board_on_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zor::sim {

namespace {

ControlOutcome say(Air& air, std::string_view statement, std::size_t index = 0) {
    auto result = airControl(air, index, statement);
    return result ? result->outcome : ControlOutcome::quit;
}

} // namespace

TEST(AirControl, SetsWhatIsOnTheAir) {
    BoardOnLine bench;
    BoardOnLine second;
    Air air;
    air.add(bench.board);
    air.add(second.board);
    air.addFarEnd();
    EXPECT_EQ(say(air, "loss 95"), ControlOutcome::done);
    EXPECT_EQ(air.ether().pathLoss(), 95);
    EXPECT_EQ(say(air, "crystal -12", 1), ControlOutcome::done);
    EXPECT_EQ(air.station(1).crystal(), -12);
    EXPECT_EQ(air.station(0).crystal(), 0);
    EXPECT_EQ(say(air, "far numbered 250"), ControlOutcome::done);
    EXPECT_EQ(air.farEnd()->interval(), std::chrono::milliseconds(250));
    EXPECT_EQ(say(air, "far carrier"), ControlOutcome::done);
    EXPECT_EQ(air.farEnd()->interval(), std::chrono::milliseconds(1000));
    EXPECT_EQ(say(air, "beacon 433920000 9600"), ControlOutcome::done);
    EXPECT_EQ(air.farEnd()->interval(), std::nullopt) << "a beacon has nothing to do";
    EXPECT_EQ(air.farEnd()->carrier()->frequency, 433.92e6);
    EXPECT_EQ(air.farEnd()->carrier()->dataRate, 9600);
    EXPECT_EQ(say(air, "beacon 433920000"), ControlOutcome::done);
    EXPECT_EQ(air.farEnd()->carrier()->dataRate, std::nullopt);
    EXPECT_EQ(say(air, "farcrystal 30"), ControlOutcome::done);
    EXPECT_EQ(say(air, "lose 3"), ControlOutcome::done);
}

TEST(AirControl, RefusesWhatItCannotRead) {
    BoardOnLine bench;
    Air air;
    air.add(bench.board);
    for (const char* statement :
         {"loss", "loss -1", "loss 9x", "crystal 2000", "far numbered", "lose 1", "farcrystal 1"}) {
        EXPECT_EQ(say(air, statement), ControlOutcome::failed) << statement;
    }
    air.addFarEnd();
    for (const char* statement : {"far", "far loud", "far echo 5", "far echo x", "lose 0", "farcrystal",
                                  "beacon", "beacon 5", "beacon 433920000 0", "beacon 433920000 9x"}) {
        EXPECT_EQ(say(air, statement), ControlOutcome::failed) << statement;
    }
    EXPECT_FALSE(airControl(air, 0, "status 5F")) << "not about the air";
}

TEST(AirControl, HelpNamesEveryStatement) {
    for (const char* form :
         {"loss DB", "crystal PPM", "far MODE [MS]", "farcrystal PPM", "lose N", "beacon HZ [BITS]"}) {
        EXPECT_THAT(airControlHelp(), testing::HasSubstr(form));
    }
}

} // namespace zor::sim
