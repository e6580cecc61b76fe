// SPDX-License-Identifier: MIT
#include "support/csv.h"

#include <algorithm>

namespace zor {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// Walks through a file field by field.
class CsvReader {
  public:
    explicit CsvReader(std::string_view text)
        : rest(text) {}

    [[nodiscard]] bool atEnd() const { return rest.empty(); }

    CsvRow row() {
        CsvRow read{line, {}};
        do {
            read.fields.push_back(field(read.fields.size() + 1));
        } while (take(','));
        takeLineEnd();
        return read;
    }

  private:
    std::string field(std::size_t column) {
        if (take('"')) {
            return quoted(column);
        }
        std::size_t length = std::min(rest.find_first_of(",\r\n"), rest.size());
        std::string content(rest.substr(0, length));
        if (std::size_t mark = content.find('"'); mark != std::string::npos) {
            throw CsvError(line, column, "a quotation mark inside a field that does not begin with one");
        }
        rest.remove_prefix(length);
        return content;
    }

    std::string quoted(std::size_t column) {
        const std::size_t begun = line;
        std::string content;
        while (!rest.empty()) {
            if (take('"')) {
                if (!take('"')) {
                    if (!rest.empty() && rest.find_first_of(",\r\n") != 0) {
                        throw CsvError(line, column, "more behind the closing quotation mark");
                    }
                    return content;
                }
                content += '"';
                continue;
            }
            // A line's end counts once, however it is written.
            line += rest.front() == '\n' || (rest.front() == '\r' && !rest.starts_with("\r\n")) ? 1 : 0;
            content += rest.front();
            rest.remove_prefix(1);
        }
        throw CsvError(begun, column, "a quotation mark is never closed");
    }

    bool take(char expected) {
        bool is = rest.starts_with(expected);
        rest.remove_prefix(is ? 1 : 0);
        return is;
    }

    void takeLineEnd() {
        bool carriage = take('\r');
        bool feed = take('\n');
        line += carriage || feed ? 1 : 0;
    }

    std::string_view rest;
    std::size_t line = 1;
};

} // namespace

std::string csvQuoted(const std::string& text) {
    std::string field = "\"";
    for (char c : text) {
        field += c;
        if (c == '"') {
            field += c;
        }
    }
    return field + '"';
}

std::string csvField(const std::string& text) {
    return text.find_first_of(",\"\r\n") == std::string::npos ? text : csvQuoted(text);
}

std::string csvLine(const std::vector<std::string>& fields) {
    std::string line;
    for (const std::string& field : fields) {
        line += (&field == &fields.front() ? "" : ",") + csvField(field);
    }
    return line + "\r\n";
}

std::vector<CsvRow> readCsv(std::string_view text) {
    if (text.starts_with(byteOrderMark)) {
        text.remove_prefix(byteOrderMark.size());
    }
    std::vector<CsvRow> rows;
    for (CsvReader reader(text); !reader.atEnd();) {
        CsvRow row = reader.row();
        if (row.fields.size() > 1 || !row.fields.front().empty()) {
            rows.push_back(std::move(row));
        }
    }
    return rows;
}

} // namespace zor
