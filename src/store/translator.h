// SPDX-License-Identifier: MIT
#pragma once

#include "store/schema.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace zor::store {

/// A text of the product in the words of the engine. Its values are bound, they are in no text.
struct Translation {
    std::string sql;
    using BoundValue = std::variant<std::int64_t, std::string>;
    std::vector<BoundValue> values;
    const Table* table = nullptr;
    /// It gives rows; their keys stand in front of the table's columns.
    bool selects = false;
};

/// The same rows in the same order, by their keys alone.
[[nodiscard]] std::string keysOnly(const Translation& selection);
/// The same rows as they were stored, which costs no sorting.
[[nodiscard]] Translation asStored(Translation selection);
/// The same rows in the same order, of each these expressions in the engine's words.
[[nodiscard]] std::string theseOnly(const Translation& selection, const std::string& expressions);

/// Translates the texts that the product sends to its store:
///
///     delete * from TABLE
///     Select * from TABLE [where COLUMN = VALUE [AND|OR COLUMN = VALUE]...] [order by COLUMN]
///
/// with VALUE a whole number, a text between single quotes, True or False, and every word in upper or lower
/// case. Rows without an order come as they were stored, and so do those that an order leaves equal.
/// Throws StoreError for any other text, and for a table or column that there is not.
[[nodiscard]] Translation translate(std::string_view text);

/// A criterion of a search: one column, "=" and a value, compared as text whether quoted or not.
struct Criterion {
    std::string column;
    std::string value;
};
/// Throws StoreError for a text without a column and "=".
[[nodiscard]] Criterion readCriterion(std::string_view text);

/// What a text or file that is none of this store's is told as.
inline constexpr int notOfThisStore = 1227;

} // namespace zor::store
