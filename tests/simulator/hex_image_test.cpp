// SPDX-License-Identifier: MIT
#include "simulator/hex_image.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zor::sim {

using testing::ElementsAre;
using testing::Pair;

TEST(HexImage, ReadsARecord) {
    HexRecord record = readRecord(":0300300002337A1E");
    EXPECT_EQ(record.fault, RecordFault::none);
    EXPECT_EQ(record.address, 0x0030);
    EXPECT_EQ(record.type, RecordType::data);
    EXPECT_THAT(record.data, ElementsAre(0x02, 0x33, 0x7A));
    EXPECT_EQ(readRecord(":00000001FF").type, RecordType::end);
    EXPECT_EQ(readRecord(":020000040001F9").type, RecordType::linearAddress);
    EXPECT_EQ(readRecord(":0300300002337a1e").fault, RecordFault::none) << "digits of either case";
}

TEST(HexImage, NamesWhatIsWrongWithARecord) {
    struct Row {
        const char* text;
        RecordFault fault;
    };
    const Row rows[] = {
        {"", RecordFault::digits},
        {":", RecordFault::digits},
        {"0300300002337A1E", RecordFault::digits},
        {":0300300002337A1", RecordFault::digits},
        {":03x0300002337A1E", RecordFault::digits},
        {":0300300002337A1E ", RecordFault::digits},
        {":000000FF", RecordFault::length},
        {":0400300002337A1E", RecordFault::length},
        {":0200300002337A1F", RecordFault::length},
        {":0300300002337A1F", RecordFault::sum},
        {":00000006FA", RecordFault::type},
        {":0100000155A9", RecordFault::type},
        {":03000004000102F6", RecordFault::type},
        {":0200000300FBFF", RecordFault::sum},
        {":0200000300FB00", RecordFault::type},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(readRecord(row.text).fault, row.fault) << row.text;
    }
}

TEST(HexImage, ASegmentIsSixteenTimesItsNumberAndWrapsInside) {
    HexImage image;
    image.take(readRecord(":020000021200EA"));
    image.take(readRecord(":02FFFF00AABB9B"));
    EXPECT_THAT(image.bytes(), ElementsAre(Pair(0x12000, 0xBB), Pair(0x21FFF, 0xAA)));
}

TEST(HexImage, ALinearAddressIsTheUpperHalf) {
    HexImage image;
    image.take(readRecord(":02000004FFFFFC"));
    image.take(readRecord(":0112340055"
                          "64"));
    EXPECT_THAT(image.bytes(), ElementsAre(Pair(0xFFFF1234U, 0x55)));
    image.take(readRecord(":020000040000FA"));
    image.take(readRecord(":0112340056"
                          "63"));
    EXPECT_THAT(image.bytes(), ElementsAre(Pair(0x1234U, 0x56), Pair(0xFFFF1234U, 0x55)));
}

TEST(HexImage, StartAddressesAndTheEndWriteNothing) {
    HexImage image;
    image.take(readRecord(":0400000500000000F7"));
    image.take(readRecord(":0400000300003800C1"));
    image.take(readRecord(":00000001FF"));
    EXPECT_TRUE(image.bytes().empty());
    EXPECT_EQ(imageText(image), "");
}

TEST(HexImage, TheTextHasALineForEachRun) {
    HexImage image;
    image.take(readRecord(":03000E00AABBCCBE"));
    image.take(readRecord(":0100200011CE"));
    EXPECT_EQ(imageText(image), "00000E: AA BB\n000010: CC\n000020: 11\n");
}

} // namespace zor::sim
