// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zor {

// Comma separated values: a line a row, fields between commas. A field with a comma, a quotation mark or a
// line end in it stands in quotation marks, a mark inside it is doubled.

/// A field as it stands in a file.
[[nodiscard]] std::string csvField(const std::string& text);
/// The same in quotation marks whatever it holds.
[[nodiscard]] std::string csvQuoted(const std::string& text);
/// A row with its line end, CR LF.
[[nodiscard]] std::string csvLine(const std::vector<std::string>& fields);

/// What cannot be read, and where.
struct CsvError : std::runtime_error {
    CsvError(std::size_t failedLine, std::size_t failedColumn, const std::string& what)
        : std::runtime_error(what)
        , line(failedLine)
        , column(failedColumn) {}
    /// Both from 1; the column counts fields.
    std::size_t line;
    std::size_t column;
};

struct CsvRow {
    /// Where it begins, from 1; a quoted field may run over several lines.
    std::size_t line = 0;
    std::vector<std::string> fields;
};

/// The rows of a file. Lines may end with CR LF or either alone; empty ones are no rows; a byte order mark in
/// front is dropped. Throws CsvError for a quoted field that does not end, or has more behind its end.
[[nodiscard]] std::vector<CsvRow> readCsv(std::string_view text);

} // namespace zor
