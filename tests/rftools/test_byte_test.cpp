// SPDX-License-Identifier: MIT
#include "rftools/test_byte.h"

#include <gtest/gtest.h>

namespace zor {

TEST(TestByte, TellsItsBitsFromTheTop) {
    std::vector<ByteField> fields = {
        {7, 7, "Switch", {"off", "on"}}, {6, 4, "Mode", {"first", "second"}}, {3, 0, "Data", {}}};
    EXPECT_EQ(explained(0x9A, fields), "7 Switch 1 = on\n6:4 Mode 001 = second\n3:0 Data 1010");
    // A value behind the last meaning has none.
    EXPECT_EQ(explained(0x70, fields), "7 Switch 0 = off\n6:4 Mode 111\n3:0 Data 0000");
    EXPECT_EQ(explained(0x70, {}), "");
}

} // namespace zor
