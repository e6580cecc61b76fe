// SPDX-License-Identifier: MIT
#include "support/register_table.h"

#include "support/csv.h"
#include "support/letters.h"
#include "support/lines.h"
#include "support/numbers.h"
#include "support/wording.h"

#include <algorithm>
#include <charconv>
#include <map>

namespace zor {

namespace {

constexpr std::size_t chipColumn = 0;
constexpr std::size_t nameColumn = 7;
constexpr std::size_t addressColumn = 8;
constexpr std::size_t firstBitColumn = 17;
constexpr int highestBit = 15;
constexpr std::size_t defaultColumn = 33;
constexpr std::size_t databitsColumn = 34;

/// In the order in which they are written; the bits stand from the highest down.
// clang-format off
constexpr std::string_view columns[] = {
    "Chip", "ProjectNr", "TxFifoSize", "RxFifoSize", "TxFifoAddress", "RxFifoAddress", "nFFS_control",
    "Name", "Address", "Description", "TestReg", "RFReg", "DigitalReg", "MiscReg", "StatusReg", "R", "W",
    "bit15", "bit14", "bit13", "bit12", "bit11", "bit10", "bit9", "bit8",
    "bit7", "bit6", "bit5", "bit4", "bit3", "bit2", "bit1", "bit0",
    "DefaultValue", "Databits",
};
// clang-format on
constexpr std::size_t columnCount = std::size(columns);
constexpr std::size_t needed[] = {chipColumn, nameColumn, addressColumn};

struct Flag {
    std::size_t column;
    bool ListedRegister::*member;
};
constexpr Flag flags[] = {
    {10, &ListedRegister::test},     {11, &ListedRegister::radio},  {12, &ListedRegister::digital},
    {13, &ListedRegister::misc},     {14, &ListedRegister::status}, {15, &ListedRegister::readable},
    {16, &ListedRegister::writable},
};

/// A line of the table, its fields found by the columns' numbers.
class TableRow {
  public:
    TableRow(const CsvRow& ownRow, const std::vector<std::size_t>& ownPlaces)
        : row(ownRow)
        , places(ownPlaces) {}

    [[nodiscard]] std::string text(std::size_t column) const {
        std::size_t place = places[column];
        return place < row.fields.size() ? std::string(trimmed(row.fields[place])) : std::string();
    }

    [[noreturn]] void fail(std::size_t column, const std::string& what) const {
        throw CsvError(row.line, places[column] + 1, std::string(columns[column]) + ": " + what);
    }

    [[nodiscard]] bool truth(std::size_t column) const {
        std::string word = text(column);
        for (std::string_view yes : {"True", "1", "Yes", "-1"}) {
            if (sameText(word, yes)) {
                return true;
            }
        }
        for (std::string_view no : {"", "False", "0", "No"}) {
            if (sameText(word, no)) {
                return false;
            }
        }
        fail(column, inQuotes(word) + " is neither True nor False");
    }

    [[nodiscard]] int number(std::size_t column, int unless, int most) const {
        std::string word = text(column);
        if (word.empty()) {
            return unless;
        }
        int value = 0;
        auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
        if (error != std::errc() || end != word.data() + word.size() || value < 0 || value > most) {
            fail(column, inQuotes(word) + " is no number from 0 to " + std::to_string(most));
        }
        return value;
    }

    /// So many hexadecimal digits; empty for none.
    [[nodiscard]] std::string hex(std::size_t column, std::size_t digits) const {
        std::string word = text(column);
        if (!word.empty() && (word.size() != digits || !readHex(word))) {
            fail(column,
                 inQuotes(word) + " is no value of " + std::to_string(digits) + " hexadecimal digits");
        }
        return word;
    }

    /// Two hexadecimal digits under 80, which the top bit of a transfer leaves to addresses.
    [[nodiscard]] std::string address(std::size_t column) const {
        std::string word = hex(column, 2);
        if (!word.empty() && *readHex(word) > 0x7F) {
            fail(column, inQuotes(word) + " is beyond the last address, 7F");
        }
        return word;
    }

  private:
    const CsvRow& row;
    const std::vector<std::size_t>& places;
};

/// Where each column stands in the file; one that is not there stands behind every field.
std::vector<std::size_t> placesOf(const CsvRow& heads) {
    constexpr std::size_t nowhere = static_cast<std::size_t>(-1) / 2;
    std::vector<std::size_t> places(columnCount, nowhere);
    for (std::size_t place = 0; place < heads.fields.size(); ++place) {
        std::string name(trimmed(heads.fields[place]));
        const auto* column = std::ranges::find_if(
            columns, [&name](std::string_view candidate) { return sameText(candidate, name); });
        if (column == std::end(columns)) {
            throw CsvError(heads.line, place + 1, inQuotes(name) + " is no column of the registers' table");
        }
        std::size_t& taken = places[static_cast<std::size_t>(column - std::begin(columns))];
        if (taken != nowhere) {
            throw CsvError(heads.line, place + 1, "the column " + inQuotes(name) + " is there twice");
        }
        taken = place;
    }
    for (std::size_t column : needed) {
        if (places[column] == nowhere) {
            throw CsvError(heads.line, heads.fields.size() + 1,
                           "the column " + inQuotes(columns[column]) + " is missing");
        }
    }
    return places;
}

std::optional<std::string> orNothing(std::string text) {
    return text.empty() ? std::nullopt : std::optional(std::move(text));
}

ListedChip chipOf(const TableRow& row, int id) {
    constexpr int deepest = 32767;
    ListedChip chip;
    chip.id = id;
    chip.name = row.text(chipColumn);
    chip.project = row.text(1);
    chip.txFifoSize = std::to_string(row.number(2, 0, deepest));
    chip.rxFifoSize = std::to_string(row.number(3, 0, deepest));
    chip.txFifoAddress = orNothing(row.address(4));
    chip.rxFifoAddress = orNothing(row.address(5));
    chip.fifoSelectLine = row.truth(6);
    return chip;
}

ListedRegister registerOf(const TableRow& row, int chip) {
    constexpr int statusBits = 16;
    ListedRegister entry;
    entry.chip = chip;
    entry.name = row.text(nameColumn);
    entry.address = row.address(addressColumn);
    if (entry.name.empty()) {
        row.fail(nameColumn, "a register has no name");
    }
    if (entry.address.empty()) {
        row.fail(addressColumn, "a register has no address");
    }
    entry.description = row.text(9);
    for (const Flag& flag : flags) {
        entry.*flag.member = row.truth(flag.column);
    }
    entry.bits = row.number(databitsColumn, entry.status ? statusBits : 8, statusBits);
    if (entry.bits != 8 && entry.bits != statusBits) {
        row.fail(databitsColumn, "a register has 8 or 16 bits");
    }
    for (int bit = highestBit; bit >= 0; --bit) {
        entry.bitNames[static_cast<std::size_t>(bit)] =
            row.text(firstBitColumn + static_cast<std::size_t>(highestBit - bit));
    }
    entry.defaultValue = row.hex(defaultColumn, static_cast<std::size_t>(entry.bits) / 4);
    return entry;
}

std::vector<std::string> fieldsOf(const ListedChip& chip) {
    std::vector<std::string> fields(columnCount);
    fields[0] = chip.name;
    fields[1] = chip.project;
    fields[2] = chip.txFifoSize;
    fields[3] = chip.rxFifoSize;
    fields[4] = chip.txFifoAddress.value_or("");
    fields[5] = chip.rxFifoAddress.value_or("");
    fields[6] = truthText(chip.fifoSelectLine);
    return fields;
}

void addFields(std::vector<std::string>& fields, const ListedRegister& entry) {
    fields[nameColumn] = entry.name;
    fields[addressColumn] = entry.address;
    fields[9] = entry.description;
    for (const Flag& flag : flags) {
        fields[flag.column] = truthText(entry.*flag.member);
    }
    for (int bit = highestBit; bit >= 0; --bit) {
        fields[firstBitColumn + static_cast<std::size_t>(highestBit - bit)] =
            entry.bitNames[static_cast<std::size_t>(bit)];
    }
    fields[defaultColumn] = entry.defaultValue;
    fields[databitsColumn] = std::to_string(entry.bits);
}

} // namespace

std::string registerTable(const RegisterList& list) {
    std::string table = csvLine({std::begin(columns), std::end(columns)});
    for (const ListedChip& chip : list.chips) {
        std::vector<std::string> fields = fieldsOf(chip);
        bool alone = true;
        for (const ListedRegister& entry : list.registers) {
            if (entry.chip == chip.id) {
                addFields(fields, entry);
                table += csvLine(fields);
                alone = false;
            }
        }
        if (alone) {
            table += csvLine(fields);
        }
    }
    return table;
}

RegisterList readRegisterTable(std::string_view text) {
    std::vector<CsvRow> rows = readCsv(text);
    if (rows.empty()) {
        throw CsvError(1, 1, "the file is empty");
    }
    std::vector<std::size_t> places = placesOf(rows.front());
    RegisterList list;
    std::map<std::string, int> ids;
    for (std::size_t at = 1; at < rows.size(); ++at) {
        TableRow row(rows[at], places);
        if (rows[at].fields.size() > rows.front().fields.size()) {
            throw CsvError(rows[at].line, rows.front().fields.size() + 1, "more fields than columns");
        }
        ListedChip chip = chipOf(row, static_cast<int>(ids.size()) + 1);
        if (chip.name.empty()) {
            row.fail(chipColumn, "a register has no chip");
        }
        auto [id, fresh] = ids.emplace(chip.name, chip.id);
        if (fresh) {
            list.chips.push_back(std::move(chip));
        }
        if (!row.text(nameColumn).empty() || !row.text(addressColumn).empty()) {
            list.registers.push_back(registerOf(row, id->second));
        }
    }
    return list;
}

} // namespace zor
