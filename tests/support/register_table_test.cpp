// SPDX-License-Identifier: MIT
#include "support/register_table.h"

#include "support/csv.h"

#include <gtest/gtest.h>

namespace zor {

namespace {

constexpr const char* list = R"(
chip 1 "One" "P1" 64 32 3E 3F registers
chip 2 "Bare, \"small\"" "" 0 0 null null line
register 1 0A "RX_CTRL" R,W,RF,Digital 80 8 "RXEN BB - - - - LNA0 VDI" "Receiver, on and off"
register 1 30 "STATUS" R,Status,Test,Misc 4225 16 "FFIT POR - - - - - - - - - - - - - OF0" ""
)";

struct Failure {
    const char* text;
    const char* told;
};

// clang-format off
constexpr Failure failures[] = {
    {"",                                           "1:1 the file is empty"},
    {"Chip,Name,Adress\n",                         "1:3 \"Adress\" is no column of the registers' table"},
    {"Chip,Name,name,Address\n",                   "1:3 the column \"name\" is there twice"},
    {"Chip,Name\n",                                "1:3 the column \"Address\" is missing"},
    {"Chip,Name,Address\nA,R,0A\nA,,0B\n",         "3:2 Name: a register has no name"},
    {"Chip,Name,Address\nA,R,\n",                  "2:3 Address: a register has no address"},
    {"Chip,Name,Address\n,R,01\n",                 "2:1 Chip: a register has no chip"},
    {"Chip,Name,Address\nA,R,1\n",                 "2:3 Address: \"1\" is no value of 2 hexadecimal digits"},
    {"Chip,Name,Address\nA,R,80\n",                "2:3 Address: \"80\" is beyond the last address, 7F"},
    {"Chip,Name,Address\nA,R,01,x\n",              "2:4 more fields than columns"},
    {"Address,Chip,Name,DefaultValue\n01,A,R,5G\n", "2:4 DefaultValue: \"5G\" is no value of 2 hexadecimal digits"},
    {"Chip,Name,Address,Databits,DefaultValue\nA,R,01,16,5F\n",
                                                   "2:5 DefaultValue: \"5F\" is no value of 4 hexadecimal digits"},
    {"Chip,Name,Address,Databits\nA,R,01,9\n",     "2:4 Databits: a register has 8 or 16 bits"},
    {"Chip,Name,Address,R\nA,R,01,perhaps\n",      "2:4 R: \"perhaps\" is neither True nor False"},
    {"Chip,Name,Address,TxFifoSize\nA,R,01,-1\n",  "2:4 TxFifoSize: \"-1\" is no number from 0 to 32767"},
    {"Chip,Name,Address\nA,\"R,01\n",              "2:2 a quotation mark is never closed"},
};
// clang-format on

std::string failureOf(std::string_view text) {
    try {
        (void)readRegisterTable(text);
    } catch (const CsvError& error) {
        return std::to_string(error.line) + ":" + std::to_string(error.column) + " " + error.what();
    }
    return "none";
}

} // namespace

TEST(RegisterTable, ReadsBackWhatItWrites) {
    RegisterList written = readRegisterList(list);
    std::string table = registerTable(written);
    RegisterList read = readRegisterTable(table);
    EXPECT_EQ(registerTable(read), table);
    ASSERT_EQ(read.chips.size(), 2u);
    EXPECT_EQ(read.chips[0].name, "One");
    EXPECT_EQ(read.chips[0].rxFifoSize, "32");
    EXPECT_EQ(read.chips[0].txFifoAddress, "3E");
    EXPECT_EQ(read.chips[1].name, "Bare, \"small\"");
    EXPECT_EQ(read.chips[1].rxFifoAddress, std::nullopt);
    EXPECT_TRUE(read.chips[1].fifoSelectLine);
    ASSERT_EQ(read.registers.size(), 2u);
    EXPECT_EQ(read.registers[0].description, "Receiver, on and off");
    EXPECT_EQ(read.registers[0].bitNames[7], "RXEN");
    EXPECT_TRUE(read.registers[0].writable && read.registers[0].radio && read.registers[0].digital);
    EXPECT_FALSE(read.registers[0].test || read.registers[0].status);
    EXPECT_EQ(read.registers[1].bits, 16);
    EXPECT_EQ(read.registers[1].defaultValue, "4225");
    EXPECT_EQ(read.registers[1].bitNames[15], "FFIT");
}

TEST(RegisterTable, TakesColumnsInAnyOrderAndLeavesOutWhatIsMissing) {
    RegisterList read = readRegisterTable("address,w,NAME,chip\n0a, true ,A,X\n0b,0,B,Y\n0c,1,C,X\n");
    ASSERT_EQ(read.chips.size(), 2u);
    EXPECT_EQ(read.chips[0].txFifoSize, "0");
    ASSERT_EQ(read.registers.size(), 3u);
    EXPECT_TRUE(read.registers[0].writable);
    EXPECT_FALSE(read.registers[1].writable);
    EXPECT_EQ(read.registers[2].chip, read.registers[0].chip);
    EXPECT_EQ(read.registers[0].bits, 8);
    EXPECT_EQ(read.registers[0].defaultValue, "");
}

TEST(RegisterTable, NamesLineAndColumnOfWhatCannotBeARegister) {
    for (const Failure& row : failures) {
        EXPECT_EQ(failureOf(row.text), row.told) << row.text;
    }
}

} // namespace zor
