// SPDX-License-Identifier: MIT
#include "store/jet_writer.h"

#include <array>
#include <numeric>
#include <stdexcept>
#include <utility>

namespace zor::testing {

namespace {

constexpr std::size_t pageSize = 4096;
constexpr std::size_t mapsPage = 1;
/// Where every such database has its table of tables.
constexpr std::size_t catalogPage = 2;
constexpr std::uint8_t oleKind = 11;
constexpr std::string_view compressedText = "\xFF\xFE";

/// What a column definition needs to know of a column, beyond the kinds that a caller may choose.
struct ColumnPlace {
    std::string name;
    std::uint8_t kind;
    bool fixed;
    std::size_t fixedOffset = 0;
    std::size_t variableNumber = 0;
};

void put(std::string& bytes, std::size_t at, std::uint32_t value, int size) {
    for (int byte = 0; byte < size; ++byte) {
        bytes.at(at + static_cast<std::size_t>(byte)) = static_cast<char>(value >> 8 * byte & 0xFF);
    }
}

std::string number(std::uint32_t value, int size) {
    std::string bytes(static_cast<std::size_t>(size), '\0');
    put(bytes, 0, value, size);
    return bytes;
}

std::vector<ColumnPlace> placesOf(const std::vector<JetWriter::Column>& columns) {
    std::vector<ColumnPlace> places;
    std::size_t offset = 0;
    std::size_t variables = 0;
    for (const JetWriter::Column& column : columns) {
        ColumnPlace place{column.name, static_cast<std::uint8_t>(column.kind),
                          column.kind != JetWriter::Kind::Text, offset, variables};
        offset += column.kind == JetWriter::Kind::Long ? 4 : 0;
        variables += place.fixed ? 0 : 1;
        places.push_back(place);
    }
    return places;
}

/// The file's head is enciphered with a key that all files share; zeros stand under it here.
std::string enciphered(std::size_t length) {
    constexpr std::array<std::uint8_t, 4> key = {0xC7, 0xDA, 0x39, 0x6B};
    std::array<std::uint8_t, 256> state{};
    std::iota(state.begin(), state.end(), std::uint8_t{0});
    std::uint8_t other = 0;
    for (std::size_t at = 0; at < state.size(); ++at) {
        other = static_cast<std::uint8_t>(other + state[at] + key[at % key.size()]);
        std::swap(state[at], state[other]);
    }
    std::string stream;
    other = 0;
    for (std::size_t at = 1; at <= length; ++at) {
        other = static_cast<std::uint8_t>(other + state[at % 256]);
        std::swap(state[at % 256], state[other]);
        stream += static_cast<char>(state[static_cast<std::uint8_t>(state[at % 256] + state[other])]);
    }
    return stream;
}

std::string headPage() {
    std::string page(pageSize, '\0');
    page.replace(0, 4, std::string("\0\1\0\0", 4));
    page.replace(4, 15, "Standard Jet DB");
    page[0x14] = 1;
    constexpr std::size_t secret = 128;
    page.replace(0x18, secret, enciphered(secret));
    return page;
}

std::string dataPage(std::size_t owner, const std::vector<std::string>& rows) {
    std::string page(pageSize, '\0');
    page[0] = 1;
    page[1] = 1;
    put(page, 4, static_cast<std::uint32_t>(owner), 4);
    put(page, 12, static_cast<std::uint32_t>(rows.size()), 2);
    std::size_t end = pageSize;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        std::size_t head = 14 + 2 * rows.size();
        if (rows[row].size() + head > end) {
            throw std::length_error("the rows do not fit a page");
        }
        end -= rows[row].size();
        page.replace(end, rows[row].size(), rows[row]);
        put(page, 14 + 2 * row, static_cast<std::uint32_t>(end), 2);
    }
    return page;
}

/// Which pages a table has: of a stretch that begins at page 0, a bit a page.
std::string usageMap(std::size_t page) {
    std::string map(5 + 64, '\0');
    map.at(5 + page / 8) = static_cast<char>(1u << page % 8);
    return map;
}

std::string definitionPage(const std::vector<ColumnPlace>& columns, std::size_t mapRow, std::size_t rows) {
    std::string page(pageSize, '\0');
    std::size_t variables = 0;
    for (const ColumnPlace& column : columns) {
        variables += column.fixed ? 0 : 1;
    }
    page[0] = 2;
    page[1] = 1;
    page[40] = 'N';
    put(page, 16, static_cast<std::uint32_t>(rows), 4);
    put(page, 43, static_cast<std::uint32_t>(variables), 2);
    put(page, 45, static_cast<std::uint32_t>(columns.size()), 2);
    auto map = static_cast<std::uint32_t>(mapsPage << 8 | mapRow);
    put(page, 55, map, 4);
    put(page, 59, map, 4);
    std::size_t at = 63;
    for (std::size_t number = 0; number < columns.size(); ++number, at += 25) {
        const ColumnPlace& column = columns[number];
        page[at] = static_cast<char>(column.kind);
        put(page, at + 5, static_cast<std::uint32_t>(number), 2);
        put(page, at + 7, static_cast<std::uint32_t>(column.variableNumber), 2);
        put(page, at + 9, static_cast<std::uint32_t>(number), 2);
        page[at + 15] = static_cast<char>(column.fixed ? 3 : 2);
        put(page, at + 21, static_cast<std::uint32_t>(column.fixedOffset), 2);
        put(page, at + 23, column.fixed ? 4 : 510, 2);
    }
    for (const ColumnPlace& column : columns) {
        put(page, at, static_cast<std::uint32_t>(2 * column.name.size()), 2);
        at += 2;
        for (char c : column.name) {
            page.at(at) = c;
            at += 2;
        }
    }
    put(page, 8, static_cast<std::uint32_t>(at), 4);
    return page;
}

std::string rowBytes(const std::vector<ColumnPlace>& columns, const JetWriter::Row& values) {
    std::string fixed;
    std::string variable;
    std::vector<std::size_t> ends;
    std::string nulls((columns.size() + 7) / 8, '\0');
    for (std::size_t at = 0; at < columns.size(); ++at) {
        const std::optional<std::string>& value = values.at(at);
        bool isBoolean = columns[at].kind == static_cast<std::uint8_t>(JetWriter::Kind::Boolean);
        if (isBoolean ? value == "1" : value.has_value()) {
            nulls[at / 8] = static_cast<char>(nulls[at / 8] | 1 << at % 8);
        }
        if (!columns[at].fixed) {
            ends.push_back(variable.size());
            variable += value ? std::string(compressedText) + *value : std::string();
        } else if (!isBoolean) {
            fixed += number(value ? static_cast<std::uint32_t>(std::stoul(*value)) : 0, 4);
        }
    }
    const std::size_t begin = 2 + fixed.size();
    std::string row = number(static_cast<std::uint32_t>(columns.size()), 2) + fixed + variable;
    row += number(static_cast<std::uint32_t>(begin + variable.size()), 2);
    for (std::size_t at = ends.size(); at-- > 0;) {
        row += number(static_cast<std::uint32_t>(begin + ends[at]), 2);
    }
    return row + number(static_cast<std::uint32_t>(ends.size()), 2) + nulls;
}

} // namespace

void JetWriter::addTable(std::string name, std::vector<Column> columns, std::vector<Row> rows) {
    tables.push_back({std::move(name), std::move(columns), std::move(rows)});
}

std::string JetWriter::bytes() const {
    // The catalog's own tables, and two pages for each of the others.
    std::vector<ColumnPlace> catalog =
        placesOf({{"Id", Kind::Long}, {"Type", Kind::Long}, {"Flags", Kind::Long}, {"Name", Kind::Text}});
    catalog.push_back({"LvProp", oleKind, false, 0, 1});
    std::vector<std::string> maps = {usageMap(catalogPage + 1)};
    std::vector<std::string> entries;
    std::string pages;
    std::size_t page = catalogPage + 2;
    for (const Table& table : tables) {
        std::vector<ColumnPlace> columns = placesOf(table.columns);
        std::vector<std::string> rows;
        for (const Row& row : table.rows) {
            rows.push_back(rowBytes(columns, row));
        }
        pages += definitionPage(columns, maps.size(), rows.size()) + dataPage(page, rows);
        entries.push_back(rowBytes(catalog, {std::to_string(page), "1", "0", table.name, std::nullopt}));
        maps.push_back(usageMap(page + 1));
        page += 2;
    }
    return headPage() + dataPage(0, maps) + definitionPage(catalog, 0, entries.size()) +
           dataPage(catalogPage, entries) + pages;
}

} // namespace zor::testing
