// SPDX-License-Identifier: MIT
#include "store/sqlite_records.h"

#include "store/sqlite_error.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace zor::store {

namespace {

constexpr const char* trueText = "True";
constexpr const char* falseText = "False";

StoredValue valueOf(const SQLite::Column& column, ColumnKind kind) {
    if (column.isNull()) {
        return std::nullopt;
    }
    if (kind == ColumnKind::Boolean) {
        return column.getInt64() != 0 ? trueText : falseText;
    }
    return column.getString();
}

} // namespace

void bindValues(SQLite::Statement& statement, const Translation& translation) {
    int at = 0;
    for (const auto& value : translation.values) {
        ++at;
        std::visit([&](const auto& held) { statement.bind(at, held); }, value);
    }
}

void SqliteRecords::setQuery(std::string_view sql) {
    Translation translation = translate(sql);
    if (!translation.selects) {
        throw StoreError(notOfThisStore, "\"" + std::string(sql) + "\" gives no rows");
    }
    hear(sql);
    readRows(translation);
    query = sql;
}

void SqliteRecords::reread() {
    hear(query);
    readRows(translate(query));
}

void SqliteRecords::readRows(const Translation& translation) {
    std::vector<Head> newHeads;
    std::vector<Row> newRows;
    throughStore([&] {
        SQLite::Statement statement(database, translation.sql);
        bindValues(statement, translation);
        // The key stands in front of the table's own columns.
        for (int at = 1; at < statement.getColumnCount(); ++at) {
            std::string name = statement.getColumnName(at);
            const Column* column = translation.table->column(name);
            newHeads.push_back({std::move(name), column == nullptr ? ColumnKind::Text : column->kind});
        }
        while (statement.executeStep()) {
            Row row{statement.getColumn(0).getInt64(), {}};
            row.values.reserve(newHeads.size());
            for (std::size_t at = 0; at < newHeads.size(); ++at) {
                row.values.push_back(
                    valueOf(statement.getColumn(static_cast<int>(at) + 1), newHeads[at].kind));
            }
            newRows.push_back(std::move(row));
        }
    });
    if (std::exchange(table, translation.table) != translation.table) {
        saving = {};
    }
    heads = std::move(newHeads);
    rows = std::move(newRows);
    place = 0;
    adding = false;
    changes.clear();
}

void SqliteRecords::moveNext() {
    if (!pastLast()) {
        ++place;
    }
}

void SqliteRecords::find(std::string_view criterion) {
    hear(criterion);
    Criterion wanted = readCriterion(criterion);
    std::size_t column = columnNumber(wanted.column);
    auto fits = [&](const Row& row) {
        const StoredValue& held = row.values[column];
        return held && sameText(*held, wanted.value);
    };
    place = static_cast<std::size_t>(std::ranges::find_if(rows, fits) - rows.begin());
}

std::size_t SqliteRecords::columnNumber(std::string_view column) const {
    auto head =
        std::ranges::find_if(heads, [column](const Head& held) { return sameText(held.name, column); });
    if (head == heads.end()) {
        throw StoreError(notOfThisStore, "There is no column " + std::string(column));
    }
    return static_cast<std::size_t>(head - heads.begin());
}

StoredValue SqliteRecords::value(std::string_view column) const {
    return value(columnNumber(column));
}

StoredValue SqliteRecords::value(std::size_t column) const {
    return rows.at(place).values.at(column);
}

void SqliteRecords::addRow() {
    adding = true;
    changes.clear();
}

void SqliteRecords::setValue(std::string_view column, StoredValue value) {
    changes.push_back({columnNumber(column), std::move(value)});
}

SQLite::Statement& SqliteRecords::savingStatement(bool adds, const std::vector<Change>& made) {
    if (saving.statement && saving.adds == adds &&
        std::ranges::equal(saving.columns, made, {}, {}, &Change::column)) {
        saving.statement->reset();
        return *saving.statement;
    }
    std::string name = "\"" + std::string(table->name) + "\"";
    std::string columns;
    std::string marks;
    saving = {adds, {}, {}};
    for (const Change& change : made) {
        saving.columns.push_back(change.column);
        columns += (columns.empty() ? "\"" : ", \"") + heads[change.column].name + (adds ? "\"" : "\" = ?");
        marks += marks.empty() ? "?" : ", ?";
    }
    saving.statement.emplace(database,
                             adds ? "INSERT INTO " + name + " (" + columns + ") VALUES (" + marks + ")"
                                  : "UPDATE " + name + " SET " + columns + " WHERE rowid = ?");
    return *saving.statement;
}

void SqliteRecords::bindChange(SQLite::Statement& statement, int at, const Change& change) const {
    if (!change.value) {
        statement.bind(at);
    } else if (heads[change.column].kind == ColumnKind::Boolean) {
        statement.bind(at, sameText(*change.value, trueText) ? 1 : 0);
    } else {
        statement.bind(at, *change.value);
    }
}

void SqliteRecords::save() {
    assert((adding || !pastLast()) && "there is no row to save");
    std::vector<Change> made = std::exchange(changes, {});
    bool adds = std::exchange(adding, false);
    if (!made.empty()) {
        throughStore([&] {
            SQLite::Statement& statement = savingStatement(adds, made);
            int at = 0;
            for (const Change& change : made) {
                bindChange(statement, ++at, change);
            }
            if (!adds) {
                statement.bind(++at, rows[place].key);
            }
            statement.exec();
        });
    }
    if (adds) {
        rows.push_back({database.getLastInsertRowid(), std::vector<StoredValue>(heads.size())});
        place = rows.size() - 1;
    }
    for (Change& change : made) {
        rows[place].values[change.column] = std::move(change.value);
    }
}

} // namespace zor::store
