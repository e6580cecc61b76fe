// SPDX-License-Identifier: MIT
#pragma once

#include "platform/register_store.h"
#include "store/cell_reader.h"
#include "store/translator.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <vector>

namespace zor::store {

/// Gives a database what `addRowsOf` needs of it. Throws SQLite::Exception.
void offerMaking(SQLite::Database& database);

/// The rows of one query, held in memory; what is saved goes to the table by the row's key.
class SqliteRecords : public RecordSource {
  public:
    using RecordSource::setValue;
    using RecordSource::value;

    SqliteRecords(SQLite::Database& ownDatabase, Statements& ownStatements, RegisterStore::Values readsValues,
                  std::function<void(std::string_view)> listener)
        : database(ownDatabase)
        , statements(ownStatements)
        , reads(readsValues)
        , hear(std::move(listener)) {}

    void setQuery(std::string_view sql) override;
    void reread() override;

    [[nodiscard]] std::size_t count() const override { return rowKeys().size(); }
    void moveFirst() override { place = 0; }
    void moveNext() override;
    [[nodiscard]] std::size_t position() const override { return place; }
    void moveTo(std::size_t position) override { place = std::min(position, rowKeys().size()); }
    [[nodiscard]] bool beforeFirst() const override { return rowKeys().empty(); }
    [[nodiscard]] bool pastLast() const override { return place >= rowKeys().size(); }
    [[nodiscard]] std::size_t columnNumber(std::string_view column) const override;
    void find(std::string_view criterion) override;

    [[nodiscard]] const StoredValue& value(std::size_t column) const override;
    [[nodiscard]] std::int64_t key() const override { return rowKeys().at(place); }
    void readEach(std::span<const std::string_view> columns, const TakeRow& take) const override;

    void addRow() override;
    void setValue(std::size_t column, StoredValue value) override;
    void save() override;
    void addRowsOf(const RecordSource& other, std::span<const ColumnOrigin> columns) override;

  private:
    struct Change {
        std::size_t column;
        StoredValue value;
    };
    /// A statement that saves these columns; the next row mostly saves the same ones.
    struct Saving {
        bool adds = false;
        std::vector<std::size_t> columns;
        std::optional<SQLite::Statement> statement;
    };
    struct Head {
        std::string name;
        ColumnKind kind = ColumnKind::Text;
    };

    void read(const Translation& translation);
    /// The rows that there are, read now if that was left until somebody asks.
    [[nodiscard]] const std::vector<std::int64_t>& rowKeys() const;
    void readRows(const Translation& translation);
    /// Reads the values of the rows that there are, if that was left until they are asked for.
    void demandValues() const;
    [[nodiscard]] std::size_t placeOf(std::size_t row, std::size_t column) const {
        return row * heads.size() + column;
    }
    SQLite::Statement& savingStatement(bool adds, const std::vector<Change>& made);
    void bindChange(SQLite::Statement& statement, int at, const Change& change) const;

    SQLite::Database& database;
    Statements& statements;
    RegisterStore::Values reads;
    std::function<void(std::string_view)> hear;
    std::string query;
    const Table* table = nullptr;
    std::vector<Head> heads;
    mutable std::vector<std::int64_t> keys;
    mutable bool keysWait = false;
    /// Row by row, as many as there are heads; nothing yet while they wait to be asked for.
    mutable std::vector<StoredValue> values;
    mutable bool valuesWait = false;
    std::size_t place = 0;
    bool adding = false;
    std::vector<Change> changes;
    Saving saving;
};

} // namespace zor::store
