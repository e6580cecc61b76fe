// SPDX-License-Identifier: MIT
#include "compare/header_reader.h"

#include <gtest/gtest.h>

namespace zor {

namespace {

const HeaderVocabulary words{{"CONFIGSET_CMD", "WTC_CMD", "EWTC_CMD", "FIFO_CMD"},
                             {"KT1100", "KT1101", "KT1100B"}};

std::string valuesOf(const HeaderContent& content) {
    std::string all;
    for (const HeaderContent::Macro& macro : content.macros) {
        all += std::to_string(macro.line) + " " + macro.command + " " + std::to_string(macro.value) + ";";
    }
    return all;
}

std::string read(const char* text) {
    try {
        return valuesOf(readHeader(text, words));
    } catch (const HeaderFault& fault) {
        return fault.what();
    }
}

} // namespace

TEST(HeaderReader, TakesTheGeneratorsForm) {
    EXPECT_EQ(read("#define KT1100_CONFIGSET_CMD\t\t0x8080\r\n/*\r\n\tConfiguration\r\n*/\r\n"
                   "#define KT1100_WTC_CMD\t\t\t0xE000\r\n"),
              "1 CONFIGSET_CMD 32896;5 WTC_CMD 57344;");
}

TEST(HeaderReader, TellsNamesApartThatEndAlike) {
    EXPECT_EQ(read("#define A_EWTC_CMD 1\n#define A_WTC_CMD 2\n"), "1 EWTC_CMD 1;2 WTC_CMD 2;");
    EXPECT_EQ(read("#define WTC_CMD_FIFO_CMD 3"), "1 FIFO_CMD 3;");
}

TEST(HeaderReader, TakesAnyTextWithNamesAndValues) {
    EXPECT_EQ(read("CONFIGSET_CMD 0x80u\nMY_WTC_CMD = (0xE0);\nX_FIFO_CMD: 0b101,"),
              "1 CONFIGSET_CMD 128;2 WTC_CMD 224;3 FIFO_CMD 5;");
    EXPECT_EQ(read("  #  define\tX_FIFO_CMD 010UL // eight"), "1 FIFO_CMD 8;");
    EXPECT_EQ(read("#define X_FIFO_CMD \\\n 0x11\n#define X_WTC_CMD 3"), "1 FIFO_CMD 17;3 WTC_CMD 3;");
}

TEST(HeaderReader, TakesAPrefixThatCDoesNot) {
    EXPECT_EQ(read("#define my setup_FIFO_CMD\t0x11"), "1 FIFO_CMD 17;");
    EXPECT_EQ(read("#define _FIFO_CMD\t0x11"), "1 FIFO_CMD 17;");
}

TEST(HeaderReader, LeavesOutWhatIsNoDefinition) {
    EXPECT_EQ(read("/* #define A_FIFO_CMD 1 */\n// B_FIFO_CMD 2\nsend(A_FIFO_CMD);\n#undef A_FIFO_CMD\n"
                   "#define A_FIFO_CMD 3"),
              "5 FIFO_CMD 3;");
    EXPECT_EQ(read("#define TEXT \"/*\"\n#define A_FIFO_CMD 3"), "2 FIFO_CMD 3;");
}

TEST(HeaderReader, TellsTheLineOfAFault) {
    EXPECT_EQ(read("\n#define A_FIFO_CMD 1\n\n#define B_FIFO_CMD 2\n"),
              "Line 4: FIFO_CMD stands a second time, the first time in line 2.");
    EXPECT_EQ(read("#define A_FIFO_CMD\r\n"), "Line 1: FIFO_CMD has no value.");
    EXPECT_EQ(read("#define A_FIFO_CMD other"), "Line 1: FIFO_CMD has no number: other");
    EXPECT_EQ(read("#define A_FIFO_CMD 0x1FFFFFFFF"), "Line 1: FIFO_CMD has no number: 0x1FFFFFFFF");
    EXPECT_EQ(read("#define A_FIFO_CMD 08"), "Line 1: FIFO_CMD has no number: 08");
    EXPECT_EQ(read(""), "No macro of the chip stands in the text.");
    EXPECT_EQ(read("#define KT1100\n#define KT1101\n#define A_FIFO_CMD 1"),
              "Line 2: KT1101, but line 1 says KT1100.");
}

TEST(HeaderReader, KnowsTheDeviceItsRevisionAndTheCrystal) {
    HeaderContent content = readHeader("*** Device: KT1100 rev:'C' or below\t\t***\n#define KT1100\n"
                                       "#define UPCLKFREQUENCY\t\t\t11059200\n#define A_PLLSET_CMD 1\n"
                                       "#define A_FIFO_CMD 1\n",
                                       words);
    EXPECT_EQ(content.device, "KT1100");
    EXPECT_EQ(content.revision, "'C' or below");
    ASSERT_TRUE(content.crystal);
    EXPECT_EQ(content.crystal->value, 11059200U);
    EXPECT_EQ(content.foreign, std::vector<std::string>{"A_PLLSET_CMD"});
}

TEST(HeaderReader, ReadsAWordAsAPersonWritesIt) {
    for (const char* text : {"A7D0", "a7d0", "0xA7D0", "0Xa7D0", " S2A7D0\r\n", "s2a7d0"}) {
        std::optional<WrittenWord> word = readWrittenWord(text);
        ASSERT_TRUE(word) << text;
        EXPECT_EQ(word->value, 0xA7D0U) << text;
    }
    EXPECT_EQ(readWrittenWord("S1B0")->bits, 8);
    EXPECT_EQ(readWrittenWord("S2A7D0")->bits, 16);
    EXPECT_EQ(readWrittenWord("A7D0")->bits, 0);
    for (const char* text : {"", "0x", "A7D0 1", "xyz", "123456789", "S3A7D0", "-1"}) {
        EXPECT_FALSE(readWrittenWord(text)) << text;
    }
}

} // namespace zor
