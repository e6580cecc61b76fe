// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace zor {

/// Writes records of the product's text files: one value a line, lines ended by CR LF.
class RecordWriter {
  public:
    /// A text between double quotation marks, as it stands; one that holds such a mark or a line end itself
    /// does not read back whole.
    void text(std::string_view value);
    /// #TRUE# or #FALSE#.
    void boolean(bool value);
    /// Decimal digits with a sign if negative.
    void integer(std::int64_t value);
    /// A position, written as a single-precision number.
    void position(float value);

    [[nodiscard]] const std::string& bytes() const { return content; }

  private:
    void line(std::string_view value);

    std::string content;
};

/// Reads the same records value by value. Every read throws ToolError: inputPastEnd behind the last record,
/// typeMismatch for a record of another form, overflow for a number beyond 32 bits.
///
/// A text stands in quotation marks and ends at the second; blanks around a value do not count; a value ends
/// at its line's end (CR LF, or either alone).
class RecordReader {
  public:
    explicit RecordReader(std::string bytes)
        : content(std::move(bytes)) {}

    [[nodiscard]] std::string text();
    /// Whether the next record is this text; one of another form is not. Throws inputPastEnd alone.
    [[nodiscard]] bool isText(std::string_view expected);
    /// Whether the next line is this text in its marks and nothing else, not even a blank before or behind
    /// it. Throws inputPastEnd alone.
    [[nodiscard]] bool isExactly(std::string_view expected);
    [[nodiscard]] bool boolean();
    /// A whole number that fits 32 bits; a fraction is rounded, ties to even.
    [[nodiscard]] std::int32_t integer();

    [[nodiscard]] bool atEnd() const { return next >= content.size(); }

  private:
    /// The next line without its end.
    std::string_view line();
    /// The next line without its end and outer blanks.
    std::string_view record();

    std::string content;
    std::size_t next = 0;
};

} // namespace zor
