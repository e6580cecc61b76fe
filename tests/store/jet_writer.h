// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zor::testing {

/// Makes small Jet 4 databases, as former versions of the program kept their registers: pages of 4 KiB, each
/// table with a page of definition and a page of rows, no index.
class JetWriter {
  public:
    enum class Kind : std::uint8_t { Boolean = 1, Long = 4, Text = 10 };
    struct Column {
        std::string name;
        Kind kind;
    };
    /// A value as text; a truth value is "1" or "0"; nothing is null.
    using Row = std::vector<std::optional<std::string>>;

    void addTable(std::string name, std::vector<Column> columns, std::vector<Row> rows);
    [[nodiscard]] std::string bytes() const;

  private:
    struct Table {
        std::string name;
        std::vector<Column> columns;
        std::vector<Row> rows;
    };
    std::vector<Table> tables;
};

} // namespace zor::testing
