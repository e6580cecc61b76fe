// SPDX-License-Identifier: MIT
#include "support/record_file.h"

#include "support/error.h"
#include "support/lines.h"
#include "support/numbers.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace zor {

namespace {} // namespace

void RecordWriter::line(std::string_view value) {
    content += value;
    content += "\r\n";
}

void RecordWriter::text(std::string_view value) {
    content += '"';
    content += value;
    content += "\"\r\n";
}

void RecordWriter::boolean(bool value) {
    line(value ? "#TRUE#" : "#FALSE#");
}

void RecordWriter::integer(std::int64_t value) {
    line(std::to_string(value));
}

void RecordWriter::position(float value) {
    line(numberText(value));
}

std::string_view RecordReader::line() {
    if (atEnd()) {
        throw ToolError(inputPastEnd);
    }
    std::string_view rest(content);
    rest.remove_prefix(next);
    std::size_t end = rest.find_first_of("\r\n");
    if (end == std::string_view::npos) {
        next = content.size();
        return rest;
    }
    std::size_t behind = end + 1;
    if (rest[end] == '\r' && behind < rest.size() && rest[behind] == '\n') {
        ++behind;
    }
    next += behind;
    return rest.substr(0, end);
}

std::string_view RecordReader::record() {
    return trimmed(line());
}

bool RecordReader::isText(std::string_view expected) {
    try {
        return text() == expected;
    } catch (const ToolError& error) {
        if (error.number() == typeMismatch) {
            return false;
        }
        throw;
    }
}

bool RecordReader::isExactly(std::string_view expected) {
    std::string_view found = line();
    return found.size() == expected.size() + 2 && found.front() == '"' && found.back() == '"' &&
           found.substr(1, expected.size()) == expected;
}

std::string RecordReader::text() {
    std::string_view value = record();
    if (value.empty() || value.front() != '"') {
        // A bare number or truth value is another form; a text record always opens with its mark.
        throw ToolError(typeMismatch);
    }
    value.remove_prefix(1);
    std::size_t closing = value.find('"');
    if (closing == std::string_view::npos) {
        throw ToolError(typeMismatch);
    }
    return std::string(value.substr(0, closing));
}

bool RecordReader::boolean() {
    std::string_view value = record();
    if (value == "#TRUE#") {
        return true;
    }
    if (value == "#FALSE#") {
        return false;
    }
    throw ToolError(typeMismatch);
}

std::int32_t RecordReader::integer() {
    std::string_view value = record();
    std::string_view digits = value;
    if (!digits.empty() && (digits.front() == '-' || digits.front() == '+')) {
        digits.remove_prefix(1);
    }
    if (digits.empty() || digits.find_first_not_of("0123456789.") != std::string_view::npos) {
        throw ToolError(typeMismatch);
    }
    std::optional<double> number = readNumericPrefix(value);
    if (!number || digits.find('.') != digits.rfind('.')) {
        throw ToolError(typeMismatch);
    }
    double rounded = roundTiesEven(*number);
    if (rounded < std::numeric_limits<std::int32_t>::min() ||
        rounded > std::numeric_limits<std::int32_t>::max()) {
        throw ToolError(overflow);
    }
    return static_cast<std::int32_t>(rounded);
}

} // namespace zor
