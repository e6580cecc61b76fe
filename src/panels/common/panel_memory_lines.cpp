// SPDX-License-Identifier: MIT
// A panel's memory as lines of a file.
#include "panels/common/panel_memory.h"
#include "support/error.h"
#include "support/numbers.h"
#include "support/record_file.h"

#include <array>
#include <charconv>
#include <string>
#include <system_error>
#include <variant>

namespace zor {

namespace {

/// A text that a line of a file can hold, whatever is in it.
std::string escaped(const std::string& text) {
    std::string line;
    for (char c : text) {
        if (c == '%' || c == '"' || c == '\r' || c == '\n') {
            line += "%" + hexText(static_cast<unsigned char>(c), 2);
        } else {
            line += c;
        }
    }
    return line;
}

std::string unescaped(const std::string& line) {
    std::string text;
    for (std::size_t place = 0; place < line.size(); ++place) {
        if (line[place] == '%' && place + 2 < line.size()) {
            text += static_cast<char>(readHex(line.substr(place + 1, 2)).value_or('?'));
            place += 2;
        } else {
            text += line[place];
        }
    }
    return text;
}

using Texts = std::map<std::string, std::string>;

void writeTexts(RecordWriter& writer, const Texts& texts) {
    writer.integer(static_cast<std::int64_t>(texts.size()));
    for (const auto& [name, text] : texts) {
        writer.text(name);
        writer.text(escaped(text));
    }
}

Texts readTexts(RecordReader& reader) {
    Texts texts;
    for (std::int32_t left = reader.integer(); left > 0; --left) {
        std::string name = reader.text();
        texts[name] = unescaped(reader.text());
    }
    return texts;
}

/// A value with the letter of its kind.
std::string textOf(const KeptValue& value) {
    if (const auto* number = std::get_if<std::int32_t>(&value)) {
        return "i" + std::to_string(*number);
    }
    if (const auto* number = std::get_if<float>(&value)) {
        std::array<char, 32> digits{};
        std::to_chars_result end = std::to_chars(digits.data(), digits.data() + digits.size(), *number);
        return "f" + std::string(digits.data(), end.ptr);
    }
    return "s" + std::get<std::string>(value);
}

template <class Number>
KeptValue numberOf(const std::string& text) {
    Number number{};
    const char* end = text.data() + text.size();
    std::from_chars_result read = std::from_chars(text.data() + 1, end, number);
    if (read.ec != std::errc() || read.ptr != end) {
        throw ToolError(typeMismatch);
    }
    return number;
}

KeptValue valueOf(const std::string& text) {
    switch (text.empty() ? ' ' : text.front()) {
    case 'i':
        return numberOf<std::int32_t>(text);
    case 'f':
        return numberOf<float>(text);
    case 's':
        return text.substr(1);
    default:
        throw ToolError(typeMismatch);
    }
}

} // namespace

PanelMemory::PanelMemory(std::string_view bytes) {
    RecordReader reader{std::string(bytes)};
    calibrationNeeded = reader.boolean();
    statusShown = reader.boolean();
    page = reader.integer();
    file.path = unescaped(reader.text());
    file.content = unescaped(reader.text());
    configuration = unescaped(reader.text());
    settings = readTexts(reader);
    results = readTexts(reader);
    // Runs of earlier versions end here.
    for (std::int32_t left = reader.atEnd() ? 0 : reader.integer(); left > 0; --left) {
        values.push_back(valueOf(unescaped(reader.text())));
    }
    updateNeeded = true;
}

std::string PanelMemory::written() const {
    RecordWriter writer;
    writer.boolean(calibrationNeeded);
    writer.boolean(statusShown);
    writer.integer(page);
    writer.text(escaped(file.path));
    writer.text(escaped(file.content));
    writer.text(escaped(configuration));
    writeTexts(writer, settings);
    writeTexts(writer, results);
    writer.integer(static_cast<std::int64_t>(values.size()));
    for (const KeptValue& value : values) {
        writer.text(escaped(textOf(value)));
    }
    return writer.bytes();
}

} // namespace zor
