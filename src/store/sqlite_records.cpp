// SPDX-License-Identifier: MIT
#include "store/sqlite_records.h"

#include "store/sqlite_error.h"

#include <sqlite3.h>

#include <algorithm>
#include <cassert>
#include <unordered_map>
#include <utility>

namespace zor::store {

namespace {

constexpr const char* trueText = "True";
constexpr const char* falseText = "False";

/// A statement that is read cell by cell. The binding makes a shared object of each cell, which costs as much
/// as all else of reading it; whole tables are read by this instead.
class CellReader {
  public:
    /// Throws SQLite::Exception.
    CellReader(SQLite::Database& ownDatabase, const std::string& sql)
        : database(ownDatabase) {
        demand(sqlite3_prepare_v2(database.getHandle(), sql.c_str(), static_cast<int>(sql.size()), &statement,
                                  nullptr),
               SQLITE_OK);
    }
    CellReader(const CellReader&) = delete;
    CellReader& operator=(const CellReader&) = delete;
    ~CellReader() { sqlite3_finalize(statement); }

    /// The values must outlive the reading.
    void bind(const Translation& translation) {
        int at = 0;
        for (const auto& value : translation.values) {
            ++at;
            if (const auto* number = std::get_if<std::int64_t>(&value)) {
                demand(sqlite3_bind_int64(statement, at, *number), SQLITE_OK);
            } else {
                const auto& text = std::get<std::string>(value);
                demand(sqlite3_bind_text(statement, at, text.data(), static_cast<int>(text.size()),
                                         SQLITE_STATIC),
                       SQLITE_OK);
            }
        }
    }

    bool next() {
        int result = sqlite3_step(statement);
        if (result == SQLITE_DONE) {
            return false;
        }
        demand(result, SQLITE_ROW);
        return true;
    }

    [[nodiscard]] int count() const { return sqlite3_column_count(statement); }
    [[nodiscard]] std::string name(int column) const { return sqlite3_column_name(statement, column); }
    [[nodiscard]] std::int64_t key() const { return sqlite3_column_int64(statement, 0); }

    [[nodiscard]] StoredValue value(int column, ColumnKind kind) const {
        if (sqlite3_column_type(statement, column) == SQLITE_NULL) {
            return std::nullopt;
        }
        if (kind == ColumnKind::Boolean) {
            return sqlite3_column_int64(statement, column) != 0 ? trueText : falseText;
        }
        // As bytes: a text ends where the engine says, not at a NUL in it.
        const void* bytes = sqlite3_column_blob(statement, column);
        auto length = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
        return std::string(static_cast<const char*>(bytes), bytes == nullptr ? 0 : length);
    }

  private:
    void demand(int result, int wanted) const {
        if (result != wanted) {
            throw SQLite::Exception(database.getHandle(), result);
        }
    }

    SQLite::Database& database;
    sqlite3_stmt* statement = nullptr;
};

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
    read(translation);
    query = sql;
}

void SqliteRecords::reread() {
    hear(query);
    read(translate(query));
}

void SqliteRecords::read(const Translation& translation) {
    if (reads == RegisterStore::Values::AtOnce) {
        readRows(translation);
    } else {
        readKeys(translation);
    }
    valuesWait = reads == RegisterStore::Values::WhenAsked;
    if (std::exchange(table, translation.table) != translation.table) {
        saving = {};
    }
    place = 0;
    adding = false;
    changes.clear();
}

void SqliteRecords::readKeys(const Translation& translation) {
    std::vector<std::int64_t> newKeys;
    throughStore([&] {
        CellReader reader(database, keysOnly(translation));
        reader.bind(translation);
        while (reader.next()) {
            newKeys.push_back(reader.key());
        }
    });
    keys = std::move(newKeys);
    values.clear();
    heads.clear();
    for (const Column& column : translation.table->columns) {
        heads.push_back({std::string(column.name), column.kind});
    }
}

void SqliteRecords::readRows(const Translation& translation) {
    std::vector<Head> newHeads;
    std::vector<std::int64_t> newKeys;
    std::vector<StoredValue> newValues;
    throughStore([&] {
        CellReader reader(database, translation.sql);
        reader.bind(translation);
        // The key stands in front of the table's own columns.
        for (int at = 1; at < reader.count(); ++at) {
            std::string name = reader.name(at);
            const Column* column = translation.table->column(name);
            newHeads.push_back({std::move(name), column == nullptr ? ColumnKind::Text : column->kind});
        }
        while (reader.next()) {
            newKeys.push_back(reader.key());
            int at = 0;
            for (const Head& head : newHeads) {
                newValues.push_back(reader.value(++at, head.kind));
            }
        }
    });
    heads = std::move(newHeads);
    keys = std::move(newKeys);
    values = std::move(newValues);
}

void SqliteRecords::demandValues() const {
    if (!valuesWait) {
        return;
    }
    SqliteRecords now(database, RegisterStore::Values::AtOnce, {});
    now.readRows(translate(query));
    std::unordered_map<std::int64_t, std::size_t> rowOf;
    for (std::size_t row = 0; row < now.keys.size(); ++row) {
        rowOf.emplace(now.keys[row], row);
    }
    std::vector<StoredValue> found(keys.size() * heads.size());
    for (std::size_t row = 0; row < keys.size(); ++row) {
        auto there = rowOf.find(keys[row]);
        // What another program took out meanwhile has nothing but its place.
        for (std::size_t column = 0; there != rowOf.end() && column < heads.size(); ++column) {
            found[placeOf(row, column)] =
                now.values[now.placeOf(there->second, now.columnNumber(heads[column].name))];
        }
    }
    values = std::move(found);
    valuesWait = false;
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
    demandValues();
    for (place = 0; place < keys.size(); ++place) {
        if (const StoredValue& held = values[placeOf(place, column)]; held && sameText(*held, wanted.value)) {
            return;
        }
    }
}

std::size_t SqliteRecords::columnNumber(std::string_view column) const {
    auto head =
        std::ranges::find_if(heads, [column](const Head& held) { return sameText(held.name, column); });
    if (head == heads.end()) {
        throw StoreError(notOfThisStore, "There is no column " + std::string(column));
    }
    return static_cast<std::size_t>(head - heads.begin());
}

const StoredValue& SqliteRecords::value(std::size_t column) const {
    assert(column < heads.size() && "there is no such column");
    demandValues();
    return values.at(placeOf(place, column));
}

void SqliteRecords::addRow() {
    adding = true;
    changes.clear();
}

void SqliteRecords::setValue(std::size_t column, StoredValue value) {
    changes.push_back({column, std::move(value)});
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
        // It lives until the statement has run.
        statement.bindNoCopy(at, *change.value);
    }
}

void SqliteRecords::save() {
    assert((adding || !pastLast()) && "there is no row to save");
    demandValues();
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
                statement.bind(++at, keys[place]);
            }
            statement.exec();
        });
    }
    if (adds) {
        keys.push_back(database.getLastInsertRowid());
        values.resize(keys.size() * heads.size());
        place = keys.size() - 1;
    }
    for (Change& change : made) {
        values[placeOf(place, change.column)] = std::move(change.value);
    }
}

} // namespace zor::store
