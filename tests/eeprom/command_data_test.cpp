// SPDX-License-Identifier: MIT
#include "eeprom/command_data.h"

#include <gtest/gtest.h>

namespace zor {

TEST(CommandData, StartsWithEveryCellAtZero) {
    CommandData data;
    for (int event = 0; event < CommandData::columns; ++event) {
        for (int command = 0; command < CommandData::rows; ++command) {
            EXPECT_EQ(data.GetCmdSequenceData(event, command), 0);
        }
    }
}

TEST(CommandData, IsNotReadBeyondItsBounds) {
    CommandData data;
    data.put(0, pllSetting, true);
    EXPECT_EQ(data.GetCmdSequenceData(0, 9), 1);
    EXPECT_EQ(data.GetCmdSequenceData(-1, 9), 0);
    EXPECT_EQ(data.GetCmdSequenceData(8, 9), 0);
    EXPECT_EQ(data.GetCmdSequenceData(0, 10), 0);
    EXPECT_EQ(data.GetCmdSequenceData(0, -1), 0);
}

TEST(CommandData, RecommendsAllButTheFrequencyAtPowerOnAndTheFrequencyAloneElsewhere) {
    CommandData data;
    for (Command command : everyCommand) {
        EXPECT_EQ(data.contains(0, command), command != frequencySetting);
        for (int event = 1; event < eventCount; ++event) {
            EXPECT_EQ(data.contains(event, command), command == frequencySetting);
        }
        EXPECT_FALSE(data.contains(CommandData::insertColumn, command)) << "nothing is recommended to insert";
    }
}

TEST(CommandData, GivesASavedColumnAsItWasSaved) {
    CommandData data;
    data.put(3, powerSetting, true);
    EXPECT_FALSE(data.contains(3, powerSetting));
    data.markSaved(3);
    EXPECT_TRUE(data.contains(3, powerSetting));
    EXPECT_FALSE(data.contains(3, frequencySetting));
    EXPECT_EQ(data.GetCmdSequenceData(3, 8), 1);
    data.ClearSequenceData(3);
    EXPECT_TRUE(data.contains(3, frequencySetting));
}

TEST(PushButtonByte, HasEachSettingAtItsBit) {
    PushButtonSettings settings;
    EXPECT_EQ(pushButtonByte(settings), 0x40);
    settings.debouncing = Debouncing::Ms160;
    EXPECT_EQ(pushButtonByte(settings), 0x00);
    settings.debouncing = Debouncing::Ms40;
    EXPECT_EQ(pushButtonByte(settings), 0x20);
    settings.debouncing = Debouncing::Bypass;
    EXPECT_EQ(pushButtonByte(settings), 0x60);
    settings.continuous = {true, false, false, false};
    EXPECT_EQ(pushButtonByte(settings), 0x62);
    settings.continuous = {false, false, false, true};
    EXPECT_EQ(pushButtonByte(settings), 0x70);
    settings.pullUpOff = true;
    EXPECT_EQ(pushButtonByte(settings), 0x71);
    settings.fourthButton = true;
    settings.continuous = {true, true, true, true};
    EXPECT_EQ(pushButtonByte(settings), 0xFF);
}

TEST(PushButtonByte, IsReadBackToTheSettingsThatMadeIt) {
    for (int byte = 0; byte < 256; ++byte) {
        EXPECT_EQ(pushButtonByte(pushButtonSettings(static_cast<std::uint8_t>(byte))), byte);
    }
}

TEST(PushButtonWord, PadsASingleDigit) {
    EXPECT_EQ(pushButtonWord(0x40), "CA40");
    EXPECT_EQ(pushButtonWord(0x0E), "CA0E");
    EXPECT_EQ(pushButtonWord(0xFF), "CAFF");
}

TEST(RateWord, IsTheNearestDividerOfTheCrystal) {
    EXPECT_EQ(rateWord("9600", 10'000'000), "C823");
    EXPECT_EQ(rateWord("1348", 10'000'000), "C8FF");
    EXPECT_EQ(rateWord("1347", 10'000'000), "C8FF");
    EXPECT_EQ(rateWord("1347.9", 10'000'000), "C8FF") << "the whole part counts";
    EXPECT_EQ(rateWord("115200", 10'000'000), "C802");
    EXPECT_EQ(rateWord("9600", 12'000'000), "C82A");
}

TEST(RateWord, IsTheSlowestForNoNumber) {
    EXPECT_EQ(rateWord("", 10'000'000), "C8FF");
    EXPECT_EQ(rateWord("fast", 10'000'000), "C8FF");
    EXPECT_EQ(rateWord("-9600", 10'000'000), "C8FF");
}

TEST(RateWord, KeepsItsCodeInAByte) {
    EXPECT_EQ(rateWord("1348", 12'000'000), "C8FF");
    EXPECT_EQ(rateWord("400000", 10'000'000), "C800");
    EXPECT_EQ(rateWord("99999999999999999999", 10'000'000), "C800");
}

TEST(ObtainedRate, IsWhatTheWordReallyGives) {
    EXPECT_EQ(obtainedRate("C823", 10'000'000), "9579");
    EXPECT_EQ(obtainedRate("C8FF", 10'000'000), "1347");
    EXPECT_EQ(obtainedRate("C800", 10'000'000), "344828");
    EXPECT_EQ(obtainedRate("", 10'000'000), "344828");
}

TEST(ObtainedRate, GivesItsOwnWordBack) {
    for (std::int32_t crystal : {8'000'000, 10'000'000, 12'000'000}) {
        for (int code = 0; code < 255; ++code) {
            std::string word =
                "C8" + std::string(1, "0123456789ABCDEF"[code / 16]) + "0123456789ABCDEF"[code % 16];
            std::string rate = obtainedRate(word, crystal);
            if (std::stoi(rate) > 1347) {
                EXPECT_EQ(rateWord(rate, crystal), word);
            }
        }
    }
}

} // namespace zor
