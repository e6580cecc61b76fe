// SPDX-License-Identifier: MIT
#include "support/register_list.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace zor {

namespace {

/// What is wrong with a line, before it is known which one it is.
struct BadLine : std::runtime_error {
    using std::runtime_error::runtime_error;
};

std::string quotedWord(std::string_view& line) {
    std::string word;
    line.remove_prefix(1);
    while (!line.empty() && line.front() != '"') {
        // A backslash stands before a quotation mark or another backslash of the text itself.
        if (line.front() == '\\' && line.size() > 1) {
            line.remove_prefix(1);
        }
        word += line.front();
        line.remove_prefix(1);
    }
    if (line.empty()) {
        throw BadLine("a text has no quotation mark at its end");
    }
    line.remove_prefix(1);
    return word;
}

std::vector<std::string> wordsOf(std::string_view line) {
    std::vector<std::string> words;
    while (!line.empty()) {
        if (line.front() == ' ' || line.front() == '\t') {
            line.remove_prefix(1);
        } else if (line.front() == '#' && (line.size() == 1 || line[1] == ' ')) {
            break;
        } else if (line.front() == '"') {
            words.push_back(quotedWord(line));
        } else {
            std::size_t length = std::min(line.find_first_of(" \t"), line.size());
            words.emplace_back(line.substr(0, length));
            line.remove_prefix(length);
        }
    }
    return words;
}

int numberOf(const std::string& word) {
    int value = 0;
    auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (error != std::errc() || end != word.data() + word.size() || value < 0) {
        throw BadLine("\"" + word + "\" is no number");
    }
    return value;
}

std::optional<std::string> orNull(const std::string& word) {
    return word == "null" ? std::nullopt : std::optional(word);
}

ListedChip chipOf(const std::vector<std::string>& words) {
    if (words[8] != "line" && words[8] != "registers") {
        throw BadLine("the way to the FIFOs is line or registers, not \"" + words[8] + "\"");
    }
    return {numberOf(words[1]), words[2],         words[3],         words[4],
            words[5],           orNull(words[6]), orNull(words[7]), words[8] == "line"};
}

struct Flag {
    std::string_view name;
    bool ListedRegister::*member;
};

// clang-format off
constexpr Flag flags[] = {
    {"R",       &ListedRegister::readable},
    {"W",       &ListedRegister::writable},
    {"RF",      &ListedRegister::radio},
    {"Test",    &ListedRegister::test},
    {"Digital", &ListedRegister::digital},
    {"Misc",    &ListedRegister::misc},
    {"Status",  &ListedRegister::status},
};
// clang-format on

void setFlags(ListedRegister& entry, std::string_view list) {
    if (list == "-") {
        return;
    }
    for (bool more = true; more;) {
        std::size_t comma = list.find(',');
        std::string_view name = list.substr(0, comma);
        const Flag* flag = std::ranges::find(flags, name, &Flag::name);
        if (flag == std::end(flags)) {
            throw BadLine("\"" + std::string(name) + "\" is no flag of a register");
        }
        entry.*flag->member = true;
        more = comma != std::string_view::npos;
        list.remove_prefix(more ? comma + 1 : list.size());
    }
}

void setBitNames(ListedRegister& entry, const std::string& list) {
    std::vector<std::string> names = wordsOf(list);
    if (names.size() > static_cast<std::size_t>(entry.bits)) {
        throw BadLine("more names than bits");
    }
    auto bit = static_cast<std::size_t>(entry.bits);
    for (std::string& name : names) {
        entry.bitNames[--bit] = std::move(name);
    }
}

ListedRegister registerOf(const std::vector<std::string>& words) {
    ListedRegister entry;
    entry.chip = numberOf(words[1]);
    entry.address = words[2];
    entry.name = words[3];
    setFlags(entry, words[4]);
    entry.defaultValue = words[5];
    entry.bits = numberOf(words[6]);
    if (entry.bits != 8 && entry.bits != 16) {
        throw BadLine("a register has 8 or 16 bits, not " + words[6]);
    }
    setBitNames(entry, words[7]);
    entry.description = words[8];
    return entry;
}

constexpr std::size_t wordsOfALine = 9;

void readLine(RegisterList& list, std::string_view line) {
    std::vector<std::string> words = wordsOf(line);
    if (words.empty()) {
        return;
    }
    if (words[0] != "chip" && words[0] != "register") {
        throw BadLine("a line begins with chip or register, not \"" + words[0] + "\"");
    }
    if (words.size() != wordsOfALine) {
        throw BadLine("a " + words[0] + " has " + std::to_string(wordsOfALine - 1) + " values, not " +
                      std::to_string(words.size() - 1));
    }
    if (words[0] == "chip") {
        list.chips.push_back(chipOf(words));
    } else {
        list.registers.push_back(registerOf(words));
    }
}

} // namespace

RegisterList readRegisterList(std::string_view text) {
    RegisterList list;
    std::size_t number = 0;
    while (!text.empty()) {
        std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        ++number;
        try {
            readLine(list, line);
        } catch (const BadLine& bad) {
            throw RegisterListError(number, bad.what());
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return list;
}

} // namespace zor
