// SPDX-License-Identifier: MIT
#include "rftools/packet_log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zor::testing {

namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using Kind = PacketEvent::Kind;

/// What is new by a packet: "L5x2" for numbers 5 and 6 lost, "R7" for packet 7, "R" for one without a number.
std::vector<std::string> news(PacketLog& log, const std::string& payload, EventLoop::Duration time = 0us) {
    std::vector<std::string> all;
    for (const PacketEvent& event : log.add(payload, time)) {
        std::string text = event.kind == Kind::Lost ? "L" : "R";
        text += event.number ? std::to_string(*event.number) : "";
        text += event.count > 1 ? "x" + std::to_string(event.count) : "";
        all.push_back(text);
    }
    return all;
}

TEST(NumberIn, IsTheFirstDecimalNumberOfAPayload) {
    EXPECT_EQ(numberIn("PKT 01291 T=23.7C")->number, 1291);
    EXPECT_EQ(numberIn("PKT 01291 T=23.7C")->prefix, "PKT ");
    EXPECT_EQ(numberIn("7")->number, 7);
    EXPECT_EQ(numberIn("7")->prefix, "");
    EXPECT_EQ(numberIn("999999999x")->number, 999'999'999);
    for (const char* payload : {"", "no number", "1234567890", "A 1234567890 7"}) {
        EXPECT_FALSE(numberIn(payload)) << payload;
    }
}

TEST(PacketLog, FindsWhatIsMissingInACount) {
    PacketLog log;
    EXPECT_THAT(news(log, "PKT 1"), ElementsAre("R1"));
    EXPECT_THAT(news(log, "PKT 2"), ElementsAre("R2"));
    EXPECT_THAT(news(log, "PKT 4"), ElementsAre("L3", "R4"));
    EXPECT_THAT(news(log, "PKT 8"), ElementsAre("L5x3", "R8"));
    EXPECT_THAT(news(log, "PKT 9"), ElementsAre("R9"));
    EXPECT_EQ(log.figures().received, 5U);
    EXPECT_EQ(log.figures().lost, 4);
    EXPECT_DOUBLE_EQ(log.figures().lostPercent, 100.0 * 4 / 9);
}

TEST(PacketLog, TakesNoNumberForACountThatNeverCounted) {
    PacketLog log;
    news(log, "T=23");
    EXPECT_THAT(news(log, "T=29"), ElementsAre("R29"));
    EXPECT_THAT(news(log, "T=31"), ElementsAre("R31"));
    EXPECT_EQ(log.figures().lost, 0);
}

TEST(PacketLog, BeginsAnewWhereTheCountDoes) {
    PacketLog log;
    for (const char* payload : {"PKT 1", "PKT 2"}) {
        news(log, payload);
    }
    // Begun again, the same once more, another text, a jump that no loss explains.
    EXPECT_THAT(news(log, "PKT 1"), ElementsAre("R1"));
    EXPECT_THAT(news(log, "PKT 3"), ElementsAre("R3"));
    EXPECT_THAT(news(log, "PKT 4"), ElementsAre("R4"));
    EXPECT_THAT(news(log, "PKT 4"), ElementsAre("R4"));
    EXPECT_THAT(news(log, "PKT 6"), ElementsAre("R6"));
    EXPECT_THAT(news(log, "PKT 7"), ElementsAre("R7"));
    EXPECT_THAT(news(log, "REP 9"), ElementsAre("R9"));
    EXPECT_THAT(news(log, "REP 10"), ElementsAre("R10"));
    EXPECT_THAT(news(log, "REP 20000"), ElementsAre("R20000"));
    EXPECT_THAT(news(log, "REP 20002"), ElementsAre("R20002"));
    EXPECT_THAT(news(log, "no number"), ElementsAre("R"));
    EXPECT_THAT(news(log, "REP 20004"), ElementsAre("R20004"));
    EXPECT_EQ(log.figures().lost, 0);
}

TEST(PacketLog, TellsTheRateOverTheTimeThatThePacketsTook) {
    PacketLog log;
    EXPECT_EQ(log.figures().perMinute, 0);
    news(log, "a", 10s);
    EXPECT_EQ(log.figures().perMinute, 0);
    news(log, "b", 11s);
    news(log, "c", 12s);
    EXPECT_DOUBLE_EQ(log.figures().perMinute, 60);
}

TEST(PacketLog, KeepsTheNewestOnly) {
    PacketLog log;
    for (int number = 1; number <= 1000; ++number) {
        news(log, "PKT " + std::to_string(number), std::chrono::seconds(number));
    }
    EXPECT_EQ(log.recent().size(), PacketLog::window);
    EXPECT_EQ(log.received(), 1000U);
    EXPECT_EQ(log.figures().received, PacketLog::window);
    log.addDamaged(1s);
    EXPECT_EQ(log.figures().damaged, 1U);
    log.clear();
    EXPECT_EQ(log.received(), 0U);
    EXPECT_TRUE(log.recent().empty());
}

} // namespace

} // namespace zor::testing
