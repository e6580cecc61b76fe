// SPDX-License-Identifier: MIT
#include "rftools/packet_report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zor::testing {

namespace {

using State = MirroredReport::State;
using ::testing::ElementsAre;

const std::string prompt = "\n\rOK\n\r>";

std::string report(const std::string& payload) {
    std::string count = std::to_string(payload.size());
    return "\n\rReceived packet: " + std::string(count.size() < 2 ? "0" : "") + count + " bytes: " + payload +
           prompt;
}

std::string mirrored(const std::string& wire) {
    std::string field;
    for (char c : wire) {
        if (c != '\n') {
            field += c == '\r' ? std::string("\r\n") : std::string(1, c);
        }
    }
    return field;
}

/// What a reader finds: payloads, and "!" for each damaged report.
std::vector<std::string> found(const std::string& wire) {
    std::vector<std::string> all;
    PacketReportReader reader;
    reader.found = [&all](const std::string& payload) { all.push_back(payload); };
    reader.damaged = [&all] { all.emplace_back("!"); };
    for (char c : wire) {
        reader.take(c);
    }
    reader.silence();
    return all;
}

TEST(MirroredReport, HoldsThePayloadAtItsPlaces) {
    MirroredReport read = readMirroredReport("\r\nReceived packet: 05 bytes: hello\r\nOK\r\n>");
    EXPECT_EQ(read.state, State::Complete);
    EXPECT_EQ(read.payload, "hello");
}

TEST(MirroredReport, OfNoBytesIsComplete) {
    MirroredReport read = readMirroredReport(mirrored(report("")));
    EXPECT_EQ(read.state, State::Complete);
    EXPECT_EQ(read.payload, "");
}

TEST(MirroredReport, CountsTheCharactersThatTheFieldShows) {
    // A carriage return takes two of the three, so the last byte stays behind; a line feed never shows.
    EXPECT_EQ(readMirroredReport(mirrored(report("a\rb"))).payload, "a\r\n");
    EXPECT_EQ(readMirroredReport(mirrored(report("a\nbc"))).payload, "abc\r");
}

TEST(MirroredReport, WaitsForTheLengthThatItTold) {
    std::string whole = "\r\nReceived packet: 05 bytes: hello\r\nOK\r\n>";
    EXPECT_EQ(readMirroredReport(whole.substr(0, 35)).state, State::Incomplete);
    EXPECT_EQ(readMirroredReport(whole.substr(0, 36)).state, State::Complete);
}

TEST(MirroredReport, IsNoneWithoutItsWordOrLength) {
    for (const char* text :
         {"", "\r\nOK\r\n>", "\r\nReceived packe", "\r\nReceived packet: ", "\r\nReceived packet: 5",
          "xReceived packet: 05 bytes: hello\r\nOK\r\n>", "\r\nreceived packet: 05 bytes: hello\r\nOK\r\n>",
          "\r\nReceived packet: xx bytes: hello\r\nOK\r\n>",
          "\r\nReceived packet: -1 bytes: hello\r\nOK\r\n>",
          "\r\nReceived packet:    bytes: hello\r\nOK\r\n>"}) {
        EXPECT_EQ(readMirroredReport(text).state, State::None) << text;
    }
}

TEST(MirroredReport, TakesALengthWithABlank) {
    EXPECT_EQ(readMirroredReport("\r\nReceived packet:  5 bytes: hello\r\nOK\r\n>").payload, "hello");
}

TEST(PacketReportReader, FindsReportsByteForByte) {
    EXPECT_THAT(found(report("PKT 1") + report("") + report("a\rb\nc") + report(std::string("\0\xFF", 2))),
                ElementsAre("PKT 1", "", "a\rb\nc", std::string("\0\xFF", 2)));
}

TEST(PacketReportReader, PassesOverWhatIsNoReport) {
    EXPECT_THAT(found(prompt + prompt + "5F " + prompt + report("x") + prompt + "\n\r\n\rReceived" + prompt),
                ElementsAre("x"));
}

TEST(PacketReportReader, TakesAPromptOrAReportInsideAPayloadForThePayload) {
    EXPECT_THAT(found(report("a" + prompt + "b")), ElementsAre("a" + prompt + "b"));
    EXPECT_THAT(found(report(report("inner"))), ElementsAre(report("inner")));
}

TEST(PacketReportReader, FindsTheNextReportBehindOneThatWasCut) {
    std::string cut = report("PKT 1").substr(0, 26);
    EXPECT_THAT(found(cut + report("PKT 2")), ElementsAre("PKT 2"));
    std::string cutInPayload = report("PKT 1").substr(0, 32);
    EXPECT_THAT(found(cutInPayload + report("PKT 2")), ElementsAre("!", "PKT 2"));
    EXPECT_THAT(found(cutInPayload + prompt + report("PKT 2")), ElementsAre("!", "PKT 2"));
}

TEST(PacketReportReader, FindsWhatIsHeldOnceTheLineIsSilent) {
    // The length says more than will ever come; the report behind it lies inside.
    std::string longer = "\n\rReceived packet: 99 bytes: ab" + prompt;
    EXPECT_THAT(found(longer + report("PKT 2")), ElementsAre("!", "PKT 2"));
}

TEST(PacketReportReader, RefusesAReportLongerThanItTold) {
    std::string told = "\n\rReceived packet: 02 bytes: abc" + prompt;
    EXPECT_THAT(found(told + report("x")), ElementsAre("!", "x"));
}

TEST(PacketReportReader, RefusesALengthThatNoPacketHas) {
    for (const char* length : {"256", "999", "1000", "99999999999999999999", "", "-1", "x"}) {
        std::string told = "\n\rReceived packet: " + std::string(length) + " bytes: ";
        EXPECT_THAT(found(told + std::string(300, 'y') + prompt + report("x")), ElementsAre("x")) << length;
    }
}

TEST(PacketReportReader, FindsTheReportThatGarbageBeganLike) {
    EXPECT_THAT(found("\n" + report("x")), ElementsAre("x"));
    EXPECT_THAT(found("\n\r" + report("x")), ElementsAre("x"));
    EXPECT_THAT(found("\n\rReceived packet: " + report("x")), ElementsAre("x"));
    EXPECT_THAT(found("\n\rReceived packet: 1" + report("x")), ElementsAre("x"));
}

TEST(PacketReportReader, KeepsNothingOfALongNoise) {
    PacketReportReader reader;
    int calls = 0;
    reader.found = [&calls](const std::string&) { ++calls; };
    for (int time = 0; time < 200'000; ++time) {
        reader.take("\n\rReceived packe?"[time % 17]);
    }
    for (char c : report("x")) {
        reader.take(c);
    }
    EXPECT_EQ(calls, 1);
}

} // namespace

} // namespace zor::testing
