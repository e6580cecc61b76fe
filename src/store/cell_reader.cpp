// SPDX-License-Identifier: MIT
#include "store/cell_reader.h"

#include <cassert>

namespace zor::store {

namespace {

constexpr std::string_view trueText = "True";
constexpr std::string_view falseText = "False";
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
    auto held = view(column, kind);
    return held ? StoredValue(*held) : std::nullopt;
}

std::optional<std::string_view> CellReader::view(int column, ColumnKind kind) const {
    // There is one thread: the cell is nobody else's while it is asked.
    sqlite3_value* cell = sqlite3_column_value(statement, column);
    if (sqlite3_value_type(cell) == SQLITE_NULL) {
        return std::nullopt;
    }
    if (kind == ColumnKind::Boolean) {
        return sqlite3_value_int64(cell) != 0 ? trueText : falseText;
    }
    // As bytes: a text ends where the engine says, not at a NUL in it. An empty text has no bytes either.
    const auto* bytes = static_cast<const char*>(sqlite3_value_blob(cell));
    return bytes == nullptr ? std::string_view()
                            : std::string_view(bytes, static_cast<std::size_t>(sqlite3_value_bytes(cell)));
}

void CellReader::demand(int result, int wanted) const {
    if (result != wanted) {
        statements.fail(result);
    }
}

} // namespace zor::store
