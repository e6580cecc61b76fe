// SPDX-License-Identifier: MIT
#include "store/cell_reader.h"

#include <cassert>

namespace zor::store {

namespace {

constexpr const char* trueText = "True";
constexpr const char* falseText = "False";
/// More texts than the product has.
constexpr std::size_t mostKept = 100;

} // namespace

sqlite3_stmt* Statements::prepared(const std::string& sql) {
    auto place = kept.find(sql);
    if (place == kept.end()) {
        if (kept.size() >= mostKept) {
            kept.clear();
        }
        sqlite3_stmt* statement = nullptr;
        int result = sqlite3_prepare_v2(database.getHandle(), sql.c_str(), static_cast<int>(sql.size()),
                                        &statement, nullptr);
        if (result != SQLITE_OK) {
            fail(result);
        }
        place = kept.emplace(sql, statement).first;
    }
    assert(sqlite3_stmt_busy(place->second.get()) == 0 && "the statement is being read");
    return place->second.get();
}

void Statements::fail(int result) const {
    throw SQLite::Exception(database.getHandle(), result);
}

CellReader::CellReader(Statements& ownStatements, const std::string& sql, std::span<const BoundValue> values)
    : statements(ownStatements)
    , statement(statements.prepared(sql)) {
    int at = 0;
    for (const BoundValue& value : values) {
        bind(++at, value);
    }
}

CellReader::~CellReader() {
    // What failed was told by the step that failed.
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
}

void CellReader::bind(int position, const BoundValue& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value)) {
        demand(sqlite3_bind_int64(statement, position, *number), SQLITE_OK);
    } else {
        const auto& text = std::get<std::string>(value);
        demand(
            sqlite3_bind_text(statement, position, text.data(), static_cast<int>(text.size()), SQLITE_STATIC),
            SQLITE_OK);
    }
}

void CellReader::bindPointer(int position, const void* pointed, const char* kind) {
    // The engine hands it back as it got it and writes nothing through it.
    demand(sqlite3_bind_pointer(statement, position, const_cast<void*>(pointed), kind, nullptr), SQLITE_OK);
}

bool CellReader::next() {
    int result = sqlite3_step(statement);
    if (result == SQLITE_DONE) {
        return false;
    }
    demand(result, SQLITE_ROW);
    return true;
}

StoredValue CellReader::value(int column, ColumnKind kind) const {
    if (kind == ColumnKind::Boolean) {
        if (sqlite3_column_type(statement, column) == SQLITE_NULL) {
            return std::nullopt;
        }
        return sqlite3_column_int64(statement, column) != 0 ? trueText : falseText;
    }
    // As bytes: a text ends where the engine says, not at a NUL in it. An empty text has no bytes either.
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
    if (bytes == nullptr) {
        return sqlite3_column_type(statement, column) == SQLITE_NULL ? StoredValue() : StoredValue("");
    }
    return std::string(bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
}

void CellReader::demand(int result, int wanted) const {
    if (result != wanted) {
        statements.fail(result);
    }
}

} // namespace zor::store
