// SPDX-License-Identifier: MIT
#include "eeprom/programmer_bench.h"

#include <gtest/gtest.h>

namespace zor::testing {

using namespace std::chrono_literals;

TEST(Eeprom, ProgramsTheWholeDeviceAndVerifiesIt) {
    ProgrammerBench bench;
    bench.putImage(patternDigits(eepromBytes));
    bench.tool().Prog.click();
    bench.runToTheEnd();
    EXPECT_EQ(bench.takeBox(), "End of Programming");
    EXPECT_EQ(bench.held(eepromBytes), patternDigits(eepromBytes));
    bench.tool().Verify.click();
    bench.runToTheEnd();
    EXPECT_EQ(bench.takeBox(), "Verify Successful");
    EXPECT_EQ(bench.takeBox(), "");
}

TEST(Eeprom, PulledOutAtAnyPageItIsProgrammedAgainAndVerified) {
    const std::string image = patternDigits(eepromBytes);
    for (std::size_t page = 0; page <= eepromBytes / eepromPageBytes; ++page) {
        SCOPED_TRACE(page);
        ProgrammerBench bench;
        bench.putImage(image);
        bench.strikeAt(page == 0 ? "H2" : "SX02", std::max<std::size_t>(page, 1),
                       [&] { bench.ports.seat(ProgrammerBench::port).unplug(); });
        bench.tool().Prog.click();
        bench.runToTheEnd();
        ASSERT_FALSE(bench.tool().running());
        EXPECT_FALSE(bench.tool().StopButton.visible());
        EXPECT_EQ(bench.shared().link.CommState(), 0);
        bench.dialogs.boxes.clear();

        bench.ports.seat(ProgrammerBench::port).plug();
        ASSERT_TRUE(bench.at("main", "Connect").click());
        bench.run(12s);
        ASSERT_TRUE(bench.channel().isOpen());
        bench.tool().Prog.click();
        bench.runToTheEnd();
        EXPECT_EQ(bench.takeBox(), "End of Programming");
        bench.tool().Verify.click();
        bench.runToTheEnd();
        EXPECT_EQ(bench.takeBox(), "Verify Successful");
        EXPECT_EQ(bench.takeBox(), "");
        EXPECT_EQ(bench.held(eepromBytes), image);
    }
}

TEST(Eeprom, StopsWithinOneExchange) {
    ProgrammerBench bench;
    bench.putImage(patternDigits(eepromBytes));
    // The write enable of the fifth page is on the line; its page is not written any more.
    bench.strikeAt("S106", 5, [&] {
        bench.takeSent();
        bench.tool().StopButton.click();
    });
    bench.tool().Prog.click();
    bench.runToTheEnd();
    EXPECT_EQ(bench.takeSent(), std::vector<std::string>{"H2"});
    EXPECT_EQ(bench.takeBox(), productTitle);
    EXPECT_EQ(bench.held(64), patternDigits(64));
    EXPECT_EQ(bench.held(80).substr(128), std::string(32, 'f'));
}

TEST(Eeprom, ATextTooLongForAddressesIsRefusedBeforeAnythingIsSent) {
    ProgrammerBench bench;
    bench.putImage(std::string(2 * 32776, '0'));
    bench.tool().Prog.click();
    EXPECT_FALSE(bench.tool().running());
    EXPECT_TRUE(bench.takeSent().empty());
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_NE(bench.dialogs.boxes.front().text.find("Error occured:6,Overflow"), std::string::npos);
}

TEST(Eeprom, PastTheDeviceItGoesOnAndTheDeviceIgnoresIt) {
    ProgrammerBench bench;
    bench.putImage(patternDigits(eepromBytes + 32));
    bench.tool().Prog.click();
    bench.runToTheEnd();
    EXPECT_EQ(bench.takeBox(), "End of Programming");
    EXPECT_EQ(bench.lines("SX02,04,10"), 1U);
    EXPECT_EQ(bench.held(eepromBytes), patternDigits(eepromBytes));
}

TEST(Eeprom, AnUpperCaseAnswerOfTheDeviceIsADifference) {
    ProgrammerBench bench;
    std::string line;
    for (int byte = 0; byte < 16; ++byte) {
        line += "AB ";
    }
    bench.board().setReply("RS16", line);
    bench.putImage("abab");
    bench.tool().Verify.click();
    bench.runToTheEnd();
    EXPECT_EQ(bench.takeBox(), "Verify failed");
}

TEST(Eeprom, ASearchThatSeizesThePortEndsTheRun) {
    ProgrammerBench bench;
    bench.tool().Read.click();
    bench.run(300ms);
    {
        PortClaim other = bench.shared().link.port.seize(1);
        bench.run(300ms);
        EXPECT_FALSE(bench.tool().running());
        EXPECT_FALSE(bench.tool().StopButton.visible());
        EXPECT_TRUE(bench.tool().Read.enabled());
        EXPECT_EQ(bench.tool().StatusMsg.text(), "LB comm. error");
        EXPECT_EQ(bench.shared().link.CommState(), 1);
    }
    EXPECT_EQ(bench.shared().link.CommState(), 0);
}

TEST(Eeprom, ShowsWhereTheDeviceDiffersAsTheVerificationGoes) {
    ProgrammerBench bench;
    bench.putImage("c605ab");
    bench.tool().EditorWindow.tick(true);
    bench.tool().Verify.click();
    bench.run(400ms);
    EXPECT_EQ(bench.tool().MemoryPicture.contents()[1], CellPicture::Cell::Differs);
    EXPECT_EQ(bench.tool().MemoryPicture.contents()[3], CellPicture::Cell::Absent);
    EXPECT_TRUE(bench.tool().MemoryPicture.passed());
    bench.runToTheEnd();
    EXPECT_FALSE(bench.tool().MemoryPicture.passed());
    bench.tool().MemoryPicture.clickCell(2);
    EXPECT_EQ(bench.tool().WorkSheet.cursor(), 6U);
    EXPECT_EQ(bench.tool().MemoryCaret.caption(), "Address 002  buffer ab, device ff");
    EXPECT_EQ(bench.tool().MemoryPicture.picked(), 2U);
    EXPECT_EQ(bench.tool().MemoryPicture.explain(900), "Address 384  device ff");
}

TEST(Eeprom, TakesALongTextAtOnce) {
    ProgrammerBench bench;
    bench.tool().EditorWindow.tick(true);
    bench.putImage(std::string(2'000'000, '5'));
    EXPECT_EQ(bench.tool().MemoryPicture.text(), "1024 written, 0 zero, 0 empty, 0 different");
}

} // namespace zor::testing
