// SPDX-License-Identifier: MIT
#include "store/schema.h"

#include "support/letters.h"
#include "support/wording.h"

#include <algorithm>

namespace zor::store {

namespace {

using enum ColumnKind;

// clang-format off
constexpr Column chipColumns[] = {
    {"ChipID",        Integer},
    {"Name",          Text},
    {"ProjectNr",     Text},
    {"TxFifoSize",    Text},
    {"RxFifoSize",    Text},
    {"TxFifoAddress", Text},
    {"RxFifoAddress", Text},
    {"nFFS_control",  Boolean},
};

constexpr Column registerColumns[] = {
    {"ChipID",       Integer},
    {"Name",         Text},
    {"Address",      Text},
    {"Description",  Text},
    {"TestReg",      Boolean},
    {"RFReg",        Boolean},
    {"DigitalReg",   Boolean},
    {"MiscReg",      Boolean},
    {"StatusReg",    Boolean},
    {"R",            Boolean},
    {"W",            Boolean},
    {"bit15",        Text}, {"bit14", Text}, {"bit13", Text}, {"bit12", Text},
    {"bit11",        Text}, {"bit10", Text}, {"bit9",  Text}, {"bit8",  Text},
    {"bit7",         Text}, {"bit6",  Text}, {"bit5",  Text}, {"bit4",  Text},
    {"bit3",         Text}, {"bit2",  Text}, {"bit1",  Text}, {"bit0",  Text},
    {"DefaultValue", Text},
    {"Databits",     Integer},
};

// The value stands second: one reader takes it by that number.
constexpr Column settingColumns[] = {
    {"Name",         Text},
    {"HexValue",     Text},
    {"BinaryValue",  Text},
    {"Address",      Text},
    {"Description",  Text},
    {"TestReg",      Boolean},
    {"RFReg",        Boolean},
    {"DigitalReg",   Boolean},
    {"MiscReg",      Boolean},
    {"StatusReg",    Boolean},
    {"R",            Boolean},
    {"W",            Boolean},
    {"bit7",         Text}, {"bit6",  Text}, {"bit5",  Text}, {"bit4",  Text},
    {"bit3",         Text}, {"bit2",  Text}, {"bit1",  Text}, {"bit0",  Text},
    {"DefaultValue", Text},
};

constexpr Column txColumns[] = {
    {"Item",  Integer},
    {"Hex",   Text},
    {"ASCII", Text},
};

constexpr Column rxColumns[] = {
    {"Item",     Integer},
    {"Hex",      Text},
    {"ASCII",    Text},
    {"Expected", Text},
    {"Error",    Text},
};

constexpr Table allTables[] = {
    {"Chip",     chipColumns},
    {"Register", registerColumns},
    {"Setting",  settingColumns},
    {"TXFIFO",   txColumns},
    {"RXFIFO",   rxColumns},
};
// clang-format on

std::string_view declaration(ColumnKind kind) {
    // Names and addresses are ordered and compared without regard to case.
    return kind == Text ? "TEXT COLLATE NOCASE" : "INTEGER";
}

} // namespace

const Column* Table::column(std::string_view columnName) const {
    auto place = std::ranges::find_if(
        columns, [columnName](const Column& column) { return sameText(column.name, columnName); });
    return place == columns.end() ? nullptr : &*place;
}

std::span<const Table> tables() {
    return allTables;
}

const Table* table(std::string_view tableName) {
    const auto* place = std::ranges::find_if(
        allTables, [tableName](const Table& candidate) { return sameText(candidate.name, tableName); });
    return place == std::end(allTables) ? nullptr : place;
}

std::string creation(const Table& table) {
    std::string sql = "CREATE TABLE " + inQuotes(table.name) + " (";
    std::string_view separator;
    for (const Column& column : table.columns) {
        sql += separator;
        sql += inQuotes(column.name).append(" ").append(declaration(column.kind));
        separator = ", ";
    }
    return sql + ")";
}

} // namespace zor::store
