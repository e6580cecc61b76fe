// SPDX-License-Identifier: MIT
#include "utilities/power_supply.h"

#include <gtest/gtest.h>

#include <string>

namespace zor {

namespace {

/// 100 received characters with two bytes where an answer to "AD" has them.
std::string tail(const std::string& high, const std::string& low) {
    std::string last100(100, '.');
    last100.replace(67, 2, high);
    last100.replace(83, 2, low);
    return last100;
}

} // namespace

TEST(ConverterReading, TakesTheHighByteFromPosition68AndTheLowOneFrom84) {
    EXPECT_EQ(converterReading(tail("03", "FF")), 1023);
    EXPECT_EQ(converterReading(tail("03", "CE")), 974);
    EXPECT_EQ(converterReading(tail("00", "00")), 0);
    EXPECT_EQ(converterReading(tail("02", "0a")), 522);
}

TEST(ConverterReading, KeepsTenBits) {
    EXPECT_EQ(converterReading(tail("FF", "FE")), 1022);
}

TEST(ConverterReading, IsNothingWithoutTwoBytesInTheirPlaces) {
    EXPECT_EQ(converterReading(""), std::nullopt);
    EXPECT_EQ(converterReading(tail("3 ", "FF")), std::nullopt);
    EXPECT_EQ(converterReading(tail("03", "xx")), std::nullopt);
    EXPECT_EQ(converterReading(tail("03", "FF").substr(0, 84)), std::nullopt);
    EXPECT_EQ(converterReading(tail("03", "FF").substr(0, 85)), 1023);
}

} // namespace zor
