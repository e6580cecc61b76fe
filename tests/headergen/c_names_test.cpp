// SPDX-License-Identifier: MIT
#include "headergen/c_names.h"

#include <gtest/gtest.h>

namespace zor {

TEST(CNames, LettersDigitsAndUnderscoresWithoutADigitInFront) {
    for (const char* name : {"RFSETUP", "a", "_", "_1", "Tx2", "KT1100_"}) {
        EXPECT_TRUE(isIdentifier(name)) << name;
        EXPECT_EQ(prefixNote(name), "") << name;
    }
    for (const char* text : {"1", "2nd", " A", "A ", "A B", "A-B", "A.B", "\xC3\x84", "A\t", "a\"b", "$"}) {
        EXPECT_FALSE(isIdentifier(text)) << text;
        EXPECT_EQ(prefixNote(text), "This is no C identifier; a compiler will not take the macros.") << text;
    }
}

TEST(CNames, AnEmptyTextMakesNamesOfCItself) {
    EXPECT_FALSE(isIdentifier(""));
    EXPECT_EQ(prefixNote(""),
              "Without a text the macros begin with an underscore; C keeps such names for itself.");
}

} // namespace zor
