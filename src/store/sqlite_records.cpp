// SPDX-License-Identifier: MIT
#include "store/sqlite_records.h"

#include "store/sqlite_error.h"
#include "support/letters.h"
#include "support/wording.h"

#include <algorithm>
#include <cassert>
#include <unordered_map>
#include <utility>

namespace zor::store {

namespace {

constexpr std::string_view trueText = "True";
constexpr std::size_t usualRows = 128;

/// The function of the engine's that makes a value out of another column's.
constexpr const char* makingFunction = "zor_made";
constexpr const char* originKind = "ColumnOrigin";

extern "C" void makeValue(sqlite3_context* context, int /*count*/, sqlite3_value** arguments) {
    const auto* origin = static_cast<const ColumnOrigin*>(sqlite3_value_pointer(arguments[1], originKind));
    const auto* bytes = static_cast<const char*>(sqlite3_value_blob(arguments[0]));
    auto length = static_cast<std::size_t>(sqlite3_value_bytes(arguments[0]));
    std::string made = origin->made(bytes == nullptr ? std::string_view() : std::string_view(bytes, length));
    sqlite3_result_text(context, made.data(), static_cast<int>(made.size()), SQLITE_TRANSIENT);
}

} // namespace

void offerMaking(SQLite::Database& database) {
    int result = sqlite3_create_function_v2(database.getHandle(), makingFunction, 2, SQLITE_UTF8, nullptr,
                                            makeValue, nullptr, nullptr, nullptr);
    if (result != SQLITE_OK) {
        throw SQLite::Exception(database.getHandle(), result);
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
    bool later = reads == RegisterStore::Values::WhenAsked;
    if (later) {
        // A table or column that is not there is found now.
        throughStore([&] { (void)statements.prepared(keysOnly(translation)); });
        keys.clear();
        values.clear();
        heads.clear();
        for (const Column& column : translation.table->columns) {
            heads.push_back({std::string(column.name), column.kind});
        }
    } else {
        readRows(translation);
    }
    keysWait = later;
    valuesWait = later;
    if (std::exchange(table, translation.table) != translation.table) {
        saving = {};
    }
    place = 0;
    adding = false;
    changes.clear();
}

const std::vector<std::int64_t>& SqliteRecords::rowKeys() const {
    if (keysWait) {
        std::vector<std::int64_t> found;
        throughStore([&] {
            Translation translation = translate(query);
            CellReader reader(statements, keysOnly(translation), translation.values);
            while (reader.next()) {
                found.push_back(reader.key());
            }
        });
        keys = std::move(found);
        keysWait = false;
    }
    return keys;
}

void SqliteRecords::readEach(std::span<const std::string_view> columns, const TakeRow& take) const {
    std::string wanted = "rowid";
    std::vector<ColumnKind> kinds;
    for (std::string_view name : columns) {
        const Head& head = heads[columnNumber(name)];
        wanted += ", " + inQuotes(head.name);
        kinds.push_back(head.kind);
    }
    std::vector<std::int64_t> found;
    std::vector<std::optional<std::string_view>> row(kinds.size());
    throughStore([&] {
        Translation translation = translate(query);
        CellReader reader(statements, theseOnly(translation, wanted), translation.values);
        while (reader.next()) {
            for (std::size_t at = 0; at < row.size(); ++at) {
                row[at] = reader.view(static_cast<int>(at) + 1, kinds[at]);
            }
            take(found.emplace_back(reader.key()), row);
        }
    });
    if (std::exchange(keysWait, false)) {
        keys = std::move(found);
    }
}

void SqliteRecords::readRows(const Translation& translation) {
    std::vector<Head> newHeads;
    std::vector<std::int64_t> newKeys;
    std::vector<StoredValue> newValues;
    throughStore([&] {
        CellReader reader(statements, translation.sql, translation.values);
        // The columns are those of the table as it is when the first row comes.
        bool more = reader.next();
        // The key stands in front of the table's own columns.
        for (int at = 1; at < reader.count(); ++at) {
            std::string name = reader.name(at);
            const Column* column = translation.table->column(name);
            newHeads.push_back({std::move(name), column == nullptr ? ColumnKind::Text : column->kind});
        }
        // Most tables have fewer rows than that, and those with more have few columns.
        newValues.reserve(newHeads.size() * usualRows);
        for (; more; more = reader.next()) {
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
    if (!valuesWait || rowKeys().empty()) {
        return;
    }
    SqliteRecords now(database, statements, RegisterStore::Values::AtOnce, {});
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

void SqliteRecords::addRowsOf(const RecordSource& other, std::span<const ColumnOrigin> columns) {
    const auto& source = dynamic_cast<const SqliteRecords&>(other);
    Translation taken = translate(source.query);
    // Registers mostly stand in the order of their addresses, and to sort whole rows takes a third of all.
    if (std::ranges::is_sorted(source.rowKeys())) {
        taken = asStored(std::move(taken));
    }
    std::string into;
    std::string from;
    std::vector<const ColumnOrigin*> made;
    for (const ColumnOrigin& column : columns) {
        const Head& head = heads[columnNumber(column.column)];
        into += (into.empty() ? "" : ", ") + inQuotes(head.name);
        std::string origin = inQuotes(column.from);
        if (column.made != nullptr) {
            made.push_back(&column);
            origin.insert(0, "(").insert(0, makingFunction).append(", ?)");
        } else if (head.kind == ColumnKind::Boolean) {
            // Other programs have other numbers for true; queries ask for ours.
            origin += " <> 0";
        }
        from += (from.empty() ? "" : ", ") + origin;
    }
    throughStore([&] {
        CellReader insert(
            statements, "INSERT INTO " + inQuotes(table->name) + " (" + into + ") " + theseOnly(taken, from),
            {});
        int at = 0;
        for (const ColumnOrigin* column : made) {
            insert.bindPointer(++at, column, originKind);
        }
        for (const auto& value : taken.values) {
            insert.bind(++at, value);
        }
        (void)insert.next();
    });
    read(translate(query));
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
    std::string name = inQuotes(table->name);
    std::string columns;
    std::string marks;
    std::string differences;
    saving = {adds, {}, {}};
    for (const Change& change : made) {
        saving.columns.push_back(change.column);
        std::string column = inQuotes(heads[change.column].name);
        std::string mark = "?" + std::to_string(saving.columns.size());
        const char* comma = columns.empty() ? "" : ", ";
        columns += comma + column + (adds ? "" : " = " + mark);
        marks += comma + mark;
        differences.append(differences.empty() ? "" : " OR ")
            .append(column)
            .append(" COLLATE BINARY IS NOT ")
            .append(mark);
    }
    // A row that holds the values already is not written again.
    std::string statement = adds ? "INSERT INTO " + name + " (" + columns + ") VALUES (" + marks + ")"
                                 : "UPDATE " + name + " SET " + columns + " WHERE rowid = ?" +
                                       std::to_string(saving.columns.size() + 1) + " AND (" + differences +
                                       ")";
    saving.statement.emplace(database, statement);
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
    std::vector<Change> made = std::exchange(changes, {});
    bool adds = std::exchange(adding, false);
    if (adds) {
        demandValues();
    }
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
    if (valuesWait) {
        // They come with what was saved.
        return;
    }
    for (Change& change : made) {
        values[placeOf(place, change.column)] = std::move(change.value);
    }
}

} // namespace zor::store
