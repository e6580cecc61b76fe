// SPDX-License-Identifier: MIT
// The chip that comes with the program: what a user sees first, and what the simulated board carries.
#include "host/files.h"
#include "support/register_list.h"

#include <gtest/gtest.h>

#include <set>

namespace zor {

namespace {

RegisterList shipped() {
    return readRegisterList(readFile(ZOR_REGISTERS_FILE));
}

} // namespace

TEST(StartDatabase, HasOneChipWithFifosAndRegistersOfAllClasses) {
    RegisterList list = shipped();
    ASSERT_EQ(list.chips.size(), 1u);
    EXPECT_EQ(list.chips[0].txFifoSize, "64");
    EXPECT_TRUE(list.chips[0].txFifoAddress && list.chips[0].rxFifoAddress);
    int radio = 0, test = 0, digital = 0, misc = 0, status = 0, readOnly = 0, writeOnly = 0;
    for (const ListedRegister& entry : list.registers) {
        radio += entry.radio;
        test += entry.test;
        digital += entry.digital;
        misc += entry.misc;
        status += entry.status;
        readOnly += entry.readable && !entry.writable && !entry.status;
        writeOnly += entry.writable && !entry.readable;
    }
    EXPECT_GE(list.registers.size(), 40u);
    EXPECT_EQ(status, 2);
    for (int count : {radio, test, digital, misc, readOnly, writeOnly}) {
        EXPECT_GT(count, 1);
    }
}

TEST(StartDatabase, EveryRegisterHasAnAddressOfItsOwnAndAValueAndNamesThatFit) {
    std::set<std::string> addresses;
    for (const ListedRegister& entry : shipped().registers) {
        EXPECT_TRUE(addresses.insert(entry.address).second) << entry.address;
        EXPECT_EQ(entry.address.size(), 2u);
        EXPECT_TRUE(entry.address.front() >= '0' && entry.address.front() <= '7') << entry.address;
        EXPECT_EQ(entry.defaultValue.size(), entry.bits == 8 ? 2u : 4u) << entry.name;
        EXPECT_EQ(entry.status, entry.bits == 16) << entry.name;
        EXPECT_TRUE(entry.status || entry.radio || entry.test || entry.digital || entry.misc) << entry.name;
        EXPECT_FALSE(entry.description.empty()) << entry.name;
        for (int bit = 0; bit < entry.bits; ++bit) {
            EXPECT_FALSE(entry.bitNames[static_cast<std::size_t>(bit)].empty()) << entry.name;
        }
    }
}

} // namespace zor
