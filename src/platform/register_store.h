// SPDX-License-Identifier: MIT
#pragma once

#include "support/error.h"
#include "support/register_list.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zor {

/// A column's value as text; nothing where the database holds null. A truth value is "True" or "False".
using StoredValue = std::optional<std::string>;

/// Values of some columns of one row, as they stand in the store; they are gone with the row.
using RowView = std::span<const std::optional<std::string_view>>;

/// A failure of the register database.
struct StoreError : ToolError {
    using ToolError::ToolError;
};

/// What a column gets in rows that are added all at once.
struct ColumnOrigin {
    std::string_view column;
    /// The other source's column.
    std::string_view from;
    /// Makes the value out of that column's text, empty for null; without it the value comes as it stands.
    std::string (*made)(std::string_view text) = nullptr;
};

/// The rows that a query gives, in its order, and a place among them. Rows are read when the query is given;
/// what others do to the table later is seen at the next reread. All of it throws StoreError where the store
/// fails; the rows and the place are then as before.
class RecordSource {
  public:
    RecordSource() = default;
    RecordSource(const RecordSource&) = delete;
    RecordSource& operator=(const RecordSource&) = delete;
    virtual ~RecordSource() = default;

    /// Takes another query and reads it. The place is the first row.
    virtual void setQuery(std::string_view sql) = 0;
    virtual void reread() = 0;

    [[nodiscard]] virtual std::size_t count() const = 0;
    virtual void moveFirst() = 0;
    virtual void moveNext() = 0;
    /// The place's number among the rows, from 0; the count past the last row.
    [[nodiscard]] virtual std::size_t position() const = 0;
    virtual void moveTo(std::size_t position) = 0;
    /// Both are so in an empty result.
    [[nodiscard]] virtual bool beforeFirst() const = 0;
    [[nodiscard]] virtual bool pastLast() const = 0;
    /// The number of a column of the table, from 0. Throws StoreError for a column that it does not have.
    [[nodiscard]] virtual std::size_t columnNumber(std::string_view column) const = 0;
    /// Goes to the first row, from the first one on, that fits a criterion: one column, "=" and a value,
    /// which is compared as text, quoted or not, upper and lower case alike. Past the last row if none does.
    virtual void find(std::string_view criterion) = 0;

    // Of the row at the place, which must be one.
    /// By the column's number in the table.
    [[nodiscard]] virtual const StoredValue& value(std::size_t column) const = 0;
    /// Throws StoreError for a column that the table does not have.
    [[nodiscard]] const StoredValue& value(std::string_view column) const {
        return value(columnNumber(column));
    }
    /// The row's own number in its table: two sources over one table call a row by the same.
    [[nodiscard]] virtual std::int64_t key() const = 0;

    using TakeRow = std::function<void(std::int64_t key, RowView values)>;
    /// Hands over these columns of each row of the query, in its order, as the table has them now, without
    /// keeping them; the store must not be used meanwhile. The source's rows and the place stay, but for a
    /// source that was still to read which rows there are: these are they. Throws StoreError for a column
    /// that the table does not have.
    virtual void readEach(std::span<const std::string_view> columns, const TakeRow& take) const = 0;

    /// Begins a row behind the last one; it comes to be when it is saved.
    virtual void addRow() = 0;
    /// Sets a column of the row at the place; it is stored when the row is saved.
    virtual void setValue(std::size_t column, StoredValue value) = 0;
    void setValue(std::string_view column, StoredValue value) {
        setValue(columnNumber(column), std::move(value));
    }
    virtual void save() = 0;
    /// Adds a row for each one of another source of the same store, in its order, and reads itself anew. It
    /// is the same as adding and saving row by row, and costs a quarter of it.
    virtual void addRowsOf(const RecordSource& other, std::span<const ColumnOrigin> columns) = 0;
};

/// The database of registers, open. Its texts are those of the product; what the engine behind it speaks is
/// the store's own affair.
class RegisterStore {
  public:
    RegisterStore() = default;
    RegisterStore(const RegisterStore&) = delete;
    RegisterStore& operator=(const RegisterStore&) = delete;
    virtual ~RegisterStore() = default;

    /// Runs a text that gives no rows. Throws StoreError.
    virtual void run(std::string_view sql) = 0;
    /// When a source reads: its rows with their values with the query; or which rows there are when it is
    /// first asked about them, and the values of all when one is asked for.
    enum class Values { AtOnce, WhenAsked };
    /// A source of its own over this query; the store must outlive it. Throws StoreError.
    [[nodiscard]] virtual std::unique_ptr<RecordSource> select(std::string_view sql, Values values) = 0;
    [[nodiscard]] std::unique_ptr<RecordSource> select(std::string_view sql) {
        return select(sql, Values::AtOnce);
    }

    /// Puts chips with their registers into the master tables, in place of chips of the same names, all or
    /// nothing. A replaced chip keeps its number and place. Throws StoreError.
    virtual void takeList(const RegisterList& list) = 0;

    // Between begin and commit nothing is seen by others, and a program that ends in it leaves the file as it
    // was. Throw StoreError.
    virtual void begin() = 0;
    virtual void commit() = 0;
    virtual void rollback() noexcept = 0;
};

/// Takes everything back that was not committed when it goes.
class [[nodiscard]] StoreTransaction {
  public:
    explicit StoreTransaction(RegisterStore& ownStore)
        : store(ownStore) {
        store.begin();
    }
    StoreTransaction(const StoreTransaction&) = delete;
    StoreTransaction& operator=(const StoreTransaction&) = delete;
    ~StoreTransaction() {
        if (!committed) {
            store.rollback();
        }
    }

    void commit() {
        store.commit();
        committed = true;
    }

  private:
    RegisterStore& store;
    bool committed = false;
};

/// Opens databases of registers.
class RegisterStores {
  public:
    RegisterStores() = default;
    RegisterStores(const RegisterStores&) = delete;
    RegisterStores& operator=(const RegisterStores&) = delete;
    virtual ~RegisterStores() = default;

    /// Throws StoreError if the file is not there, cannot be read and written, or is no database of
    /// registers.
    [[nodiscard]] virtual std::unique_ptr<RegisterStore> open(const std::filesystem::path& file) = 0;
    /// Makes an empty database with all its tables. Throws StoreError.
    virtual void create(const std::filesystem::path& file) = 0;

    /// Whether databases of the older kind can be read here.
    [[nodiscard]] virtual bool readsOlder() const { return false; }
    /// The master tables of a database of the older kind. Throws StoreError for a file that is none, or lacks
    /// a column, and where none can be read.
    [[nodiscard]] virtual RegisterList readOlder(const std::filesystem::path& file) const = 0;

    /// Hears every text that reaches a store, queries and criteria, as the product wrote it.
    std::function<void(std::string_view text)> asked;
};

} // namespace zor
