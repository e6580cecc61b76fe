// SPDX-License-Identifier: MIT
#include "eeprom/eeprom_naming.h"

#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

namespace zor::testing {

TEST(EepromNaming, NamesInstructionsWithTheirAddresses) {
    VirtualBench bench;
    EepromNaming naming(bench.shared());
    EXPECT_EQ(naming.meaningOf("S106"), "EEPROM: allow the next write");
    EXPECT_EQ(naming.meaningOf("S104"), "EEPROM: forbid writes");
    EXPECT_EQ(naming.meaningOf("S20500"), "EEPROM: read the status");
    EXPECT_EQ(naming.meaningOf("SX02,01,F0,AA,BB"), "EEPROM: write 2 bytes from 01F0 on");
    EXPECT_EQ(naming.meaningOf("SX02,00,10,AA"), "EEPROM: write 1 byte from 0010 on");
    EXPECT_EQ(naming.meaningOf("SX02,00"), "");
    EXPECT_EQ(naming.meaningOf("V64"), "");
}

TEST(EepromNaming, CountsTheAddressOnWhileTheDeviceStaysSelected) {
    VirtualBench bench;
    EepromNaming naming(bench.shared());
    EXPECT_EQ(naming.meaningOf("RS16"), "");
    EXPECT_EQ(naming.meaningOf("L2"), "drive line 2 low: select the EEPROM");
    EXPECT_EQ(naming.meaningOf("WS03,00,F0"), "EEPROM: read from 00F0 on");
    EXPECT_EQ(naming.meaningOf("RS16"), "EEPROM: 16 bytes from 00F0 on");
    EXPECT_EQ(naming.meaningOf("RS16"), "EEPROM: 16 bytes from 0100 on");
    EXPECT_EQ(naming.meaningOf("H2"), "drive line 2 high: deselect the EEPROM");
    EXPECT_EQ(naming.meaningOf("RS16"), "");
}

} // namespace zor::testing
