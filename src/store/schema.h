// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace zor::store {

enum class ColumnKind { Text, Integer, Boolean };

struct Column {
    std::string_view name;
    ColumnKind kind;
};

struct Table {
    std::string_view name;
    /// In the order of the table; one of them is read by its number.
    std::span<const Column> columns;

    /// Upper and lower case alike; nullptr if there is no such column.
    [[nodiscard]] const Column* column(std::string_view columnName) const;
};

/// The two master tables, then the three worktables.
[[nodiscard]] std::span<const Table> tables();
/// Upper and lower case alike; nullptr if there is no such table.
[[nodiscard]] const Table* table(std::string_view tableName);

/// The statement that makes the table.
[[nodiscard]] std::string creation(const Table& table);

} // namespace zor::store
