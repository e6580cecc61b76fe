// SPDX-License-Identifier: MIT
#include "transcript/transcript.h"

#include "support/letters.h"
#include "support/numbers.h"

#include <array>
#include <cstdint>
#include <utility>

namespace zor::transcript {

namespace {

constexpr std::array<std::pair<char, char>, 5> escapes = {
    {{'r', '\r'}, {'n', '\n'}, {'t', '\t'}, {'"', '"'}, {'\\', '\\'}}};

bool blank(char c) {
    return c == ' ' || c == '\t';
}

/// Reads what stands behind a backslash.
/// @param at  behind the backslash; ends behind the escape
char escaped(std::string_view line, std::size_t& at) {
    char letter = at < line.size() ? line[at++] : '\0';
    for (auto [name, meaning] : escapes) {
        if (letter == name) {
            return meaning;
        }
    }
    int high = letter == 'x' && at + 1 < line.size() ? hexDigit(line[at]) : -1;
    int low = high >= 0 ? hexDigit(line[at + 1]) : -1;
    if (low < 0) {
        throw Failure("unknown escape in a quoted text");
    }
    at += 2;
    return static_cast<char>(high * 16 + low);
}

Token quotedToken(std::string_view line, std::size_t& at) {
    Token token{{}, true};
    ++at;
    while (at < line.size() && line[at] != '"') {
        char c = line[at++];
        token.text += c == '\\' ? escaped(line, at) : c;
    }
    if (at == line.size()) {
        throw Failure("quoted text without an end");
    }
    ++at;
    if (at < line.size() && !blank(line[at])) {
        throw Failure("no blank behind a quoted text");
    }
    return token;
}

bool beginsComment(std::string_view line, std::size_t at) {
    return line[at] == '#' && (at + 1 == line.size() || blank(line[at + 1]));
}

/// Statements whose text stands in lines of its own up to `end`.
bool takesBlock(const std::vector<Token>& tokens) {
    if (tokens.empty() || tokens[0].quoted) {
        return false;
    }
    return (tokens.size() == 2 && (tokens[0].text == "file" || tokens[0].text == "content")) ||
           (tokens.size() == 1 && tokens[0].text == "database");
}

std::string_view nextLine(std::string_view text, std::size_t& at) {
    std::size_t end = std::min(text.find('\n', at), text.size());
    std::string_view line = text.substr(at, end - at);
    at = end + 1;
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    return line;
}

} // namespace

std::vector<Token> tokensOf(std::string_view line) {
    std::vector<Token> tokens;
    std::size_t at = 0;
    while (at < line.size()) {
        if (blank(line[at])) {
            ++at;
        } else if (beginsComment(line, at)) {
            break;
        } else if (line[at] == '"') {
            tokens.push_back(quotedToken(line, at));
        } else {
            std::size_t begin = at;
            while (at < line.size() && !blank(line[at])) {
                if (line[at] == '"') {
                    throw Failure("a quote inside a bare word");
                }
                ++at;
            }
            tokens.push_back({std::string(line.substr(begin, at - begin)), false});
        }
    }
    return tokens;
}

std::vector<Statement> readTranscript(std::string_view text) {
    std::vector<Statement> statements;
    int number = 0;
    for (std::size_t at = 0; at < text.size();) {
        std::string_view line = nextLine(text, at);
        Statement statement{++number, {}, {}};
        try {
            statement.tokens = tokensOf(line);
        } catch (const Failure& failure) {
            throw LineFailure(number, failure.what());
        }
        if (takesBlock(statement.tokens)) {
            bool ended = false;
            while (at < text.size() && !ended) {
                std::string_view inner = nextLine(text, at);
                ++number;
                ended = inner == "end";
                if (!ended) {
                    statement.block.emplace_back(inner);
                }
            }
            if (!ended) {
                throw LineFailure(statement.line, "lines without an end");
            }
        }
        if (!statement.tokens.empty()) {
            statements.push_back(std::move(statement));
        }
    }
    return statements;
}

std::string asQuoted(std::string_view text) {
    std::string shown = "\"";
    for (char c : text) {
        bool done = false;
        for (auto [name, meaning] : escapes) {
            if (c == meaning) {
                shown += '\\';
                shown += name;
                done = true;
            }
        }
        if (!done && static_cast<unsigned char>(c) < 0x20) {
            std::string digits = hexText(static_cast<std::uint32_t>(c));
            shown += "\\x" + std::string(digits.size() < 2 ? "0" : "") + digits;
        } else if (!done) {
            shown += c;
        }
    }
    return shown + '"';
}

} // namespace zor::transcript
