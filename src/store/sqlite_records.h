// SPDX-License-Identifier: MIT
#pragma once

#include "platform/register_store.h"
#include "store/translator.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <vector>

namespace zor::store {

void bindValues(SQLite::Statement& statement, const Translation& translation);

/// The rows of one query, held in memory; what is saved goes to the table by the row's key.
class SqliteRecords : public RecordSource {
  public:
    SqliteRecords(SQLite::Database& ownDatabase, std::function<void(std::string_view)> listener)
        : database(ownDatabase)
        , hear(std::move(listener)) {}

    void setQuery(std::string_view sql) override;
    void reread() override;

    [[nodiscard]] std::size_t count() const override { return rows.size(); }
    void moveFirst() override { place = 0; }
    void moveNext() override;
    [[nodiscard]] std::size_t position() const override { return place; }
    void moveTo(std::size_t position) override { place = std::min(position, rows.size()); }
    [[nodiscard]] bool beforeFirst() const override { return rows.empty(); }
    [[nodiscard]] bool pastLast() const override { return place >= rows.size(); }
    void find(std::string_view criterion) override;

    [[nodiscard]] StoredValue value(std::string_view column) const override;
    [[nodiscard]] StoredValue value(std::size_t column) const override;
    [[nodiscard]] std::int64_t key() const override { return rows.at(place).key; }

    void addRow() override;
    void setValue(std::string_view column, StoredValue value) override;
    void save() override;

  private:
    struct Row {
        std::int64_t key = 0;
        std::vector<StoredValue> values;
    };
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

    [[nodiscard]] std::size_t columnNumber(std::string_view column) const;
    void readRows(const Translation& translation);
    SQLite::Statement& savingStatement(bool adds, const std::vector<Change>& made);
    void bindChange(SQLite::Statement& statement, int at, const Change& change) const;

    SQLite::Database& database;
    std::function<void(std::string_view)> hear;
    std::string query;
    const Table* table = nullptr;
    std::vector<Head> heads;
    std::vector<Row> rows;
    std::size_t place = 0;
    bool adding = false;
    std::vector<Change> changes;
    Saving saving;
};

} // namespace zor::store
