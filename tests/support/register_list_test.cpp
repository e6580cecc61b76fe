// SPDX-License-Identifier: MIT
#include "support/register_list.h"

#include <gtest/gtest.h>

namespace zor {

TEST(RegisterList, ReadsChipsAndRegisters) {
    RegisterList list = readRegisterList(
        "# a chip\r\n"
        "chip 7 \"Sample \\\"S24\\\"\" \"S24-07\" 64 0 null 3F registers\r\n"
        "\r\n"
        "register 7 0A \"RX_CTRL\" R,W,RF 80 8 \"RXEN BB D2 D1 D0 L1 L0 VDI\" \"The chain\"\n"
        "register 7 30 \"STATUS\" R,Status 00 16 \"FFIT POR\" \"\"   # comment");
    ASSERT_EQ(list.chips.size(), 1u);
    EXPECT_EQ(list.chips[0].id, 7);
    EXPECT_EQ(list.chips[0].name, "Sample \"S24\"");
    EXPECT_EQ(list.chips[0].txFifoSize, "64");
    EXPECT_EQ(list.chips[0].rxFifoSize, "0");
    EXPECT_EQ(list.chips[0].txFifoAddress, std::nullopt);
    EXPECT_EQ(list.chips[0].rxFifoAddress, "3F");
    EXPECT_FALSE(list.chips[0].fifoSelectLine);
    ASSERT_EQ(list.registers.size(), 2u);
    const ListedRegister& control = list.registers[0];
    EXPECT_TRUE(control.readable && control.writable && control.radio);
    EXPECT_FALSE(control.test || control.digital || control.misc || control.status);
    EXPECT_EQ(control.bitNames[7], "RXEN");
    EXPECT_EQ(control.bitNames[0], "VDI");
    EXPECT_EQ(control.bitNames[8], "");
    EXPECT_EQ(control.description, "The chain");
    EXPECT_TRUE(list.registers[1].status);
    EXPECT_EQ(list.registers[1].bitNames[15], "FFIT");
    EXPECT_EQ(list.registers[1].bitNames[13], "");
}

TEST(RegisterList, NamesTheLineThatCannotBeRead) {
    struct Row {
        const char* text;
        std::size_t line;
        const char* what;
    };
    const Row rows[] = {
        {"\nchop 1", 2, "a line begins with chip or register, not \"chop\""},
        {"chip 1 a b 0 0 null null", 1, "a chip has 8 values, not 7"},
        {"chip x a b 0 0 null null line", 1, "\"x\" is no number"},
        {"chip 1 a b 0 0 null null bus", 1, "the way to the FIFOs is line or registers, not \"bus\""},
        {"register 1 0A a RW 00 8 \"\" \"\"", 1, "\"RW\" is no flag of a register"},
        {"register 1 0A a - 00 9 \"\" \"\"", 1, "a register has 8 or 16 bits, not 9"},
        {"register 1 0A a - 00 8 \"1 2 3 4 5 6 7 8 9\" \"\"", 1, "more names than bits"},
        {"register 1 0A \"a - 00 8", 1, "a text has no quotation mark at its end"},
    };
    for (const Row& row : rows) {
        try {
            (void)readRegisterList(row.text);
            FAIL() << row.text;
        } catch (const RegisterListError& error) {
            EXPECT_EQ(error.line, row.line) << row.text;
            EXPECT_STREQ(error.what(), row.what) << row.text;
        }
    }
}

} // namespace zor
