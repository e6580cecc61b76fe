// SPDX-License-Identifier: MIT
#include "rftools/transmit_preview.h"

#include <gtest/gtest.h>

namespace zor {

TEST(TransmitPreview, CountsWhatTheBoardMakesOfTheLine) {
    struct Row {
        const char* line;
        std::size_t bytes;
    };
    for (const Row& row : {Row{"T14,", 0}, Row{"T14,41", 1}, Row{"T14,41,", 1}, Row{"T14,41,4", 2},
                           Row{"T14,41,42,0D", 3}, Row{"T14", 0}}) {
        EXPECT_EQ(bytesOfPacketLine(row.line), row.bytes) << row.line;
    }
}

TEST(TransmitPreview, TellsTheTimeOnTheAirWhereTheRateIsKnown) {
    EXPECT_EQ(transmitPreview("T14,41,0D", 9600.0), "T14,41,0D  2 bytes, 1.7 ms on the air at 9600 bps");
    EXPECT_EQ(transmitPreview("T14,0D", 1000.0), "T14,0D  1 byte, 8 ms on the air at 1000 bps");
    EXPECT_EQ(transmitPreview("T14,", 9600.0), "T14,  0 bytes, 0 ms on the air at 9600 bps");
    EXPECT_EQ(transmitPreview("T14,41", std::nullopt), "T14,41  1 byte");
    EXPECT_EQ(transmitPreview("T14,41", 0.0), "T14,41  1 byte");
}

TEST(TransmitPreview, CutsALongLine) {
    std::string line = "T14,";
    for (int byte = 0; byte < 20; ++byte) {
        line += "55,";
    }
    EXPECT_EQ(transmitPreview(line, std::nullopt), "T14,55,55,55,55,55,55,55,55,55,55,55,55,... 20 bytes");
}

} // namespace zor
