// SPDX-License-Identifier: MIT
#include "elements/kept_text.h"

#include "elements/desk.h"
#include "elements/form.h"
#include "virtual/virtual_loop.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace zor {

namespace {

class KeptTextTest : public ::testing::Test {
  protected:
    /// Lines of 64 bytes that bear their number.
    void append(std::size_t lines) {
        for (std::size_t line = 0; line < lines; ++line) {
            std::string text = std::to_string(next++);
            text.resize(62, '.');
            element.append(text + "\r\n");
        }
    }

    zor::testing::VirtualLoop loop;
    Desk desk{loop};
    Form form{desk, "Window", "Window"};
    KeptText element{form, "Text1"};
    std::size_t next = 0;
};

constexpr std::size_t linesOfAll = KeptText::mostKept / 64;

} // namespace

TEST_F(KeptTextTest, KeepsAllUpToItsBound) {
    append(linesOfAll);
    EXPECT_EQ(element.contents().size(), KeptText::mostKept);
    EXPECT_EQ(element.dropped(), 0U);
    EXPECT_EQ(element.droppedNote(), "");
    EXPECT_TRUE(element.contents().starts_with("0..."));
}

TEST_F(KeptTextTest, LetsTheOldestLinesGoAndSaysSo) {
    int told = 0;
    Subscription shortened = element.shortened.subscribe([&] { ++told; });
    append(linesOfAll + 1);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(element.dropped() + element.contents().size(), KeptText::mostKept + 64);
    EXPECT_EQ(element.dropped() % 64, 0U) << "whole lines go";
    EXPECT_EQ(element.contents().substr(0, 6), std::to_string(element.dropped() / 64) + ".");
    EXPECT_TRUE(element.contents().ends_with("\r\n"));
    EXPECT_EQ(element.droppedNote(), "The oldest 4.0 MiB are gone; the newest 16 MiB are kept.");
}

TEST_F(KeptTextTest, HoursOfAFullLineStayWithinTheBound) {
    std::size_t greatest = 0;
    for (int part = 0; part < 64; ++part) {
        append(linesOfAll / 8);
        greatest = std::max(greatest, element.contents().size());
    }
    EXPECT_LE(greatest, KeptText::mostKept);
    EXPECT_GE(element.contents().size(), KeptText::mostKept / 2);
    EXPECT_EQ(element.dropped() + element.contents().size(), next * 64);
}

TEST_F(KeptTextTest, ATextWithoutLinesIsCutAnywhere) {
    std::string part(1 << 20, 'z');
    for (int count = 0; count < 17; ++count) {
        element.append(part);
    }
    EXPECT_LE(element.contents().size(), KeptText::mostKept);
    EXPECT_GT(element.dropped(), 0U);
}

TEST_F(KeptTextTest, ClearingGivesTheMemoryBackAndForgetsWhatWasDropped) {
    append(linesOfAll + 1);
    element.remark("asked\r\n");
    element.clear();
    EXPECT_EQ(element.contents().capacity(), std::string().capacity());
    EXPECT_EQ(element.dropped(), 0U);
    EXPECT_TRUE(element.remarks().empty());
}

TEST_F(KeptTextTest, RemarksStandBetweenTheTextAndAreNoPartOfIt) {
    element.remark("first\r\n");
    element.append("one");
    element.remark("second\r\n");
    element.append("two");
    EXPECT_EQ(element.text(), "onetwo");
    EXPECT_EQ(element.withRemarks(), "first\r\nonesecond\r\ntwo");
}

TEST_F(KeptTextTest, RemarksGoWithTheTextThatTheyStoodIn) {
    element.remark("old\r\n");
    append(linesOfAll);
    element.remark("new\r\n");
    append(1);
    ASSERT_EQ(element.remarks().size(), 1U);
    EXPECT_EQ(element.remarks().front().position, element.contents().size() - 64);
}

TEST_F(KeptTextTest, ABackspaceInFrontOfARemarkLeavesItAtTheEnd) {
    form.show();
    element.press('a');
    element.press('b');
    element.remark("said");
    element.press('\b');
    EXPECT_EQ(element.withRemarks(), "asaid");
}

} // namespace zor
