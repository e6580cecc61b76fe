// SPDX-License-Identifier: MIT
// Statements that are kept prepared, and read cell by cell.
#pragma once

#include "platform/register_store.h"
#include "store/schema.h"
#include "store/translator.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace zor::store {

/// The statements of a database that were prepared: the same few texts come again and again, and to prepare
/// one costs as much as to read thirty rows.
class Statements {
  public:
    explicit Statements(SQLite::Database& ownDatabase)
        : database(ownDatabase) {}

    /// The statement of a text, which nobody else is reading. Throws SQLite::Exception.
    [[nodiscard]] sqlite3_stmt* prepared(const std::string& sql);
    /// Throws SQLite::Exception with the engine's last failure.
    [[noreturn]] void fail(int result) const;

  private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };

    SQLite::Database& database;
    std::map<std::string, std::unique_ptr<sqlite3_stmt, Finalize>> kept;
};

/// One run of a statement. The binding makes a shared object of each cell, which costs as much as all else of
/// reading it; whole tables are read by this instead. What is bound must outlive the run.
class CellReader {
  public:
    using BoundValue = Translation::BoundValue;

    /// Throws SQLite::Exception, as all of it does.
    CellReader(Statements& ownStatements, const std::string& sql, std::span<const BoundValue> values);
    CellReader(const CellReader&) = delete;
    CellReader& operator=(const CellReader&) = delete;
    ~CellReader();

    void bind(int position, const BoundValue& value);
    /// @param kind  what it points to, as the function that gets it asks for it
    void bindPointer(int position, const void* pointed, const char* kind);

    bool next();

    [[nodiscard]] int count() const { return sqlite3_column_count(statement); }
    [[nodiscard]] std::string name(int column) const { return sqlite3_column_name(statement, column); }
    /// The first column.
    [[nodiscard]] std::int64_t key() const { return sqlite3_column_int64(statement, 0); }
    [[nodiscard]] StoredValue value(int column, ColumnKind kind) const;
    /// The same, until the next row.
    [[nodiscard]] std::optional<std::string_view> view(int column, ColumnKind kind) const;

  private:
    void demand(int result, int wanted) const;

    Statements& statements;
    sqlite3_stmt* statement;
};

} // namespace zor::store
