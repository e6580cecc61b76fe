// SPDX-License-Identifier: MIT
#include "store/translator.h"

#include "platform/register_store.h"
#include "support/letters.h"
#include "support/wording.h"

#include <charconv>
#include <optional>

namespace zor::store {

namespace {

/// A word of the product's texts and what the engine calls it. The rest of a text is names and values.
struct Word {
    std::string_view own;
    std::string_view engine;
};

// clang-format off
constexpr Word verbs[] = {
    {"delete * from", "DELETE FROM"},
    {"Select * from", "SELECT rowid, * FROM"},
};
constexpr Word joints[] = {
    {"AND", " AND "},
    {"OR",  " OR "},
};
constexpr std::pair<std::string_view, std::int64_t> truths[] = {
    {"True",  1},
    {"False", 0},
};
// clang-format on
constexpr std::string_view orderedBy = " ORDER BY ";
constexpr std::string_view storedOrder = "rowid";
constexpr std::string_view allColumns = "SELECT rowid, *";

bool blank(char c) {
    return c == ' ';
}

bool partOfName(char c) {
    return isLetter(c) || isDigit(c) || c == '_';
}

/// Walks through a text word by word.
class Reader {
  public:
    explicit Reader(std::string_view whole)
        : text(whole)
        , rest(whole) {
        skipBlanks();
    }

    [[noreturn]] void fail() const {
        throw StoreError(notOfThisStore, "The store does not know \"" + std::string(text) + "\"");
    }

    [[nodiscard]] bool atEnd() const { return rest.empty(); }

    /// Takes these words, one blank or more between them.
    bool take(std::string_view words) {
        std::string_view before = rest;
        while (!words.empty()) {
            std::size_t length = std::min(words.find(' '), words.size());
            if (!sameText(word(), words.substr(0, length))) {
                rest = before;
                return false;
            }
            advance(length);
            words.remove_prefix(std::min(length + 1, words.size()));
        }
        return true;
    }

    std::string_view name() {
        std::string_view found = word();
        if (found.empty() || !partOfName(found.front())) {
            fail();
        }
        advance(found.size());
        return found;
    }

    std::optional<std::string> quoted() {
        if (!rest.starts_with('\'')) {
            return std::nullopt;
        }
        std::size_t end = rest.find('\'', 1);
        if (end == std::string_view::npos) {
            fail();
        }
        std::string content(rest.substr(1, end - 1));
        advance(end + 1);
        return content;
    }

    std::optional<std::int64_t> number() {
        std::int64_t value = 0;
        auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), value);
        auto length = static_cast<std::size_t>(end - rest.data());
        if (error != std::errc() || (length < rest.size() && partOfName(rest[length]))) {
            return std::nullopt;
        }
        advance(length);
        return value;
    }

  private:
    /// A run of letters, digits and underlines, or one other character.
    [[nodiscard]] std::string_view word() const {
        std::size_t length = 0;
        while (length < rest.size() && partOfName(rest[length])) {
            ++length;
        }
        return rest.substr(0, length == 0 && !rest.empty() ? 1 : length);
    }

    void advance(std::size_t characters) {
        rest.remove_prefix(characters);
        skipBlanks();
    }

    void skipBlanks() {
        while (!rest.empty() && blank(rest.front())) {
            rest.remove_prefix(1);
        }
    }

    std::string_view text;
    std::string_view rest;
};

template <std::size_t count>
const Word* takeOneOf(Reader& reader, const Word (&words)[count]) {
    for (const Word& word : words) {
        if (reader.take(word.own)) {
            return &word;
        }
    }
    return nullptr;
}

std::string columnName(Reader& reader, const Table& table) {
    const Column* column = table.column(reader.name());
    if (column == nullptr) {
        reader.fail();
    }
    return inQuotes(column->name);
}

void translateValue(Reader& reader, Translation& translation) {
    if (auto text = reader.quoted()) {
        translation.values.emplace_back(std::move(*text));
        return;
    }
    for (auto [word, value] : truths) {
        if (reader.take(word)) {
            translation.values.emplace_back(value);
            return;
        }
    }
    auto number = reader.number();
    if (!number) {
        reader.fail();
    }
    translation.values.emplace_back(*number);
}

void translateCondition(Reader& reader, Translation& translation) {
    translation.sql += " WHERE ";
    const Word* joint = nullptr;
    do {
        translation.sql += columnName(reader, *translation.table);
        if (!reader.take("=")) {
            reader.fail();
        }
        translation.sql += " = ?";
        translateValue(reader, translation);
        joint = takeOneOf(reader, joints);
        translation.sql += joint == nullptr ? "" : joint->engine;
    } while (joint != nullptr);
}

} // namespace

std::string keysOnly(const Translation& selection) {
    return theseOnly(selection, std::string(storedOrder));
}

Translation asStored(Translation selection) {
    // Its values stand in no text: these words are in it once.
    selection.sql.resize(selection.sql.find(orderedBy) + orderedBy.size());
    selection.sql += storedOrder;
    return selection;
}

std::string theseOnly(const Translation& selection, const std::string& expressions) {
    return "SELECT " + expressions + selection.sql.substr(allColumns.size());
}

Translation translate(std::string_view text) {
    Reader reader(text);
    Translation translation;
    const Word* verb = takeOneOf(reader, verbs);
    if (verb == nullptr) {
        reader.fail();
    }
    translation.selects = verb == &verbs[1];
    translation.table = table(reader.name());
    if (translation.table == nullptr) {
        reader.fail();
    }
    translation.sql = std::string(verb->engine) + " " + inQuotes(translation.table->name);
    if (translation.selects) {
        if (reader.take("where")) {
            translateCondition(reader, translation);
        }
        translation.sql += orderedBy;
        if (reader.take("order by")) {
            translation.sql += columnName(reader, *translation.table) + ", ";
        }
        translation.sql += storedOrder;
    }
    if (!reader.atEnd()) {
        reader.fail();
    }
    return translation;
}

Criterion readCriterion(std::string_view text) {
    Reader reader(text);
    Criterion criterion;
    criterion.column = reader.name();
    if (!reader.take("=")) {
        reader.fail();
    }
    // The value is all that is left: one without quotes may be anything, also nothing.
    std::string_view value = text.substr(text.find('=') + 1);
    while (value.starts_with(' ')) {
        value.remove_prefix(1);
    }
    if (value.size() >= 2 && value.starts_with('\'') && value.ends_with('\'')) {
        value = value.substr(1, value.size() - 2);
    }
    criterion.value = value;
    return criterion;
}

} // namespace zor::store
