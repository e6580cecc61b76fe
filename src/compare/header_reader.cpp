// SPDX-License-Identifier: MIT
#include "compare/header_reader.h"

#include "headergen/c_names.h"
#include "support/lines.h"
#include "support/numbers.h"

#include <algorithm>
#include <map>

namespace zor {

namespace {

constexpr std::string_view blanks = " \t\r\n\f\v";
constexpr std::string_view crystalMacro = "UPCLKFREQUENCY";
constexpr std::string_view titleMark = "*** Device: ";
constexpr std::string_view revisionMark = " rev:";
constexpr std::string_view commandEnd = "_CMD";

std::string_view withoutBlanks(std::string_view text) {
    return trimmed(text, blanks);
}

/// A line of C as the preprocessor sees it: without comments, continued lines in one.
struct SourceLine {
    int number = 1;
    std::string code;
    /// As it stands, for what the title says.
    std::string raw;
};

/// Cuts a text into such lines.
class Lines {
  public:
    explicit Lines(std::string_view ownText)
        : text(ownText) {
        while (next < text.size()) {
            step();
        }
        lines.push_back(line);
    }

    std::vector<SourceLine> lines;

  private:
    enum class In { Code, Quotes, LineComment, BlockComment };

    [[nodiscard]] bool at(std::string_view part) const { return text.substr(next).starts_with(part); }
    void endLine() {
        lines.push_back(std::move(line));
        line = {++number, {}, {}};
    }

    void step() {
        char c = text[next];
        bool lineEnd = c == '\n' || (c == '\r' && !at("\r\n"));
        if (lineEnd) {
            ++next;
            if (in != In::BlockComment) {
                in = In::Code;
            }
            endLine();
            return;
        }
        line.raw += c;
        switch (in) {
        case In::Code:
            inCode(c);
            return;
        case In::Quotes:
            line.code += c;
            in = c == '"' ? In::Code : In::Quotes;
            break;
        case In::BlockComment:
            if (at("*/")) {
                ++next;
                line.raw += '/';
                in = In::Code;
            }
            break;
        case In::LineComment:
            break;
        }
        ++next;
    }

    void inCode(char c) {
        std::size_t taken = 1;
        if (at("/*")) {
            in = In::BlockComment;
            line.code += ' ';
            line.raw += '*';
            taken = 2;
        } else if (at("//")) {
            in = In::LineComment;
        } else if (at("\\\n") || at("\\\r\n")) {
            // The next line goes on where this one ends.
            taken = at("\\\n") ? 2 : 3;
            line.code += ' ';
            ++number;
        } else {
            line.code += c;
            in = c == '"' ? In::Quotes : In::Code;
        }
        next += taken;
    }

    std::string_view text;
    std::size_t next = 0;
    int number = 1;
    SourceLine line;
    In in = In::Code;
};

/// An integer constant of C: hexadecimal, binary, octal or decimal, with its suffixes.
std::optional<std::uint32_t> readConstant(std::string_view text) {
    text = withoutBlanks(text);
    while (!text.empty() && (text.back() == ';' || text.back() == ',')) {
        text = withoutBlanks(text.substr(0, text.size() - 1));
    }
    while (text.size() > 2 && text.front() == '(' && text.back() == ')') {
        text = withoutBlanks(text.substr(1, text.size() - 2));
    }
    while (!text.empty() && std::string_view("uUlL").find(text.back()) != std::string_view::npos) {
        text.remove_suffix(1);
    }
    unsigned base = 10;
    if (text.starts_with("0x") || text.starts_with("0X")) {
        base = 16;
        text.remove_prefix(2);
    } else if (text.starts_with("0b") || text.starts_with("0B")) {
        base = 2;
        text.remove_prefix(2);
    } else if (text.size() > 1 && text.front() == '0') {
        base = 8;
    }
    std::uint64_t value = 0;
    for (char c : text) {
        std::optional<std::uint32_t> digit = readHex(std::string_view(&c, 1));
        if (!digit || *digit >= base) {
            return std::nullopt;
        }
        value = value * base + *digit;
        if (value > 0xFFFFFFFFU) {
            return std::nullopt;
        }
    }
    return text.empty() ? std::nullopt : std::optional(static_cast<std::uint32_t>(value));
}

/// Where a command's name ends in a definition's body, if it stands there as a macro's name or its end.
std::optional<std::size_t> endOfName(std::string_view body, std::string_view command) {
    for (std::size_t at = body.find(command); at != std::string_view::npos; at = body.find(command, at + 1)) {
        std::size_t end = at + command.size();
        bool begins = at == 0 || body[at - 1] == '_';
        bool ends = end == body.size() || std::string_view(" \t=:").find(body[end]) != std::string_view::npos;
        if (begins && ends) {
            return end;
        }
    }
    return std::nullopt;
}

class HeaderReader {
  public:
    explicit HeaderReader(const HeaderVocabulary& ownVocabulary)
        : vocabulary(ownVocabulary) {}

    HeaderContent read(std::string_view text) {
        for (const SourceLine& line : Lines(text).lines) {
            takeTitle(line);
            takeCode(line);
        }
        if (content.macros.empty()) {
            throw HeaderFault("No macro of the chip stands in the text.");
        }
        return std::move(content);
    }

  private:
    [[noreturn]] static void fail(int line, const std::string& what) {
        throw HeaderFault("Line " + std::to_string(line) + ": " + what);
    }

    void takeTitle(const SourceLine& line) {
        std::size_t mark = line.raw.find(titleMark);
        if (mark == std::string::npos || !content.revision.empty()) {
            return;
        }
        std::string_view said = std::string_view(line.raw).substr(mark + titleMark.size());
        // Tabs and the closing stars end the line; an editor may have made blanks of the tabs.
        said = withoutBlanks(said.substr(0, std::min(said.find('\t'), said.find("***"))));
        std::size_t revision = said.find(revisionMark);
        takeDevice(said.substr(0, revision), line.number);
        if (revision != std::string_view::npos) {
            content.revision = withoutBlanks(said.substr(revision + revisionMark.size()));
        }
    }

    bool takeDevice(std::string_view name, int line) {
        const auto& devices = vocabulary.devices;
        if (std::find(devices.begin(), devices.end(), name) == devices.end()) {
            return false;
        }
        if (content.device.empty()) {
            content.device = name;
            content.deviceLine = line;
        } else if (content.device != name) {
            fail(line, std::string(name) + ", but line " + std::to_string(content.deviceLine) + " says " +
                           content.device + ".");
        }
        return true;
    }

    void takeCode(const SourceLine& line) {
        std::string_view body = withoutBlanks(line.code);
        bool defines = body.starts_with('#');
        if (defines) {
            constexpr std::string_view define = "define";
            body = withoutBlanks(body.substr(1));
            if (!body.starts_with(define)) {
                return;
            }
            body = withoutBlanks(body.substr(define.size()));
            if (takeDevice(body, line.number)) {
                return;
            }
        }
        for (const std::string& command : vocabulary.commands) {
            if (std::optional<std::size_t> end = endOfName(body, command)) {
                takeMacro(command, body.substr(0, *end - command.size()), body.substr(*end), line.number);
                return;
            }
        }
        if (body.starts_with(crystalMacro)) {
            takeMacro(std::string(crystalMacro), {}, body.substr(crystalMacro.size()), line.number);
        } else if (defines) {
            std::string_view name = body.substr(0, body.find_first_of(blanks));
            if (name.ends_with(commandEnd)) {
                content.foreign.emplace_back(name);
            }
        }
    }

    void takeMacro(const std::string& command, std::string_view prefix, std::string_view rest, int line) {
        rest = withoutBlanks(rest);
        if (!rest.empty() && (rest.front() == '=' || rest.front() == ':')) {
            rest = withoutBlanks(rest.substr(1));
        }
        std::optional<std::uint32_t> value = readConstant(rest);
        if (!value) {
            // The prefix is what a user typed, even blanks; only one that is a name makes this a macro for
            // sure.
            if (prefix.empty() || isIdentifier(prefix)) {
                fail(line,
                     command + (rest.empty() ? " has no value." : " has no number: " + std::string(rest)));
            }
            return;
        }
        auto [first, isFirst] = lineOf.emplace(command, line);
        if (!isFirst) {
            fail(line, command + " stands a second time, the first time in line " +
                           std::to_string(first->second) + ".");
        }
        HeaderContent::Macro macro{command, *value, line};
        if (command == crystalMacro) {
            content.crystal = std::move(macro);
        } else {
            content.macros.push_back(std::move(macro));
        }
    }

    const HeaderVocabulary& vocabulary;
    HeaderContent content;
    std::map<std::string, int> lineOf;
};

} // namespace

HeaderContent readHeader(std::string_view text, const HeaderVocabulary& vocabulary) {
    return HeaderReader(vocabulary).read(text);
}

std::optional<WrittenWord> readWrittenWord(std::string_view text) {
    WrittenWord word;
    text = withoutBlanks(text);
    if (text.size() > 2 && (text.front() == 'S' || text.front() == 's') &&
        (text[1] == '1' || text[1] == '2')) {
        word.bits = text[1] == '1' ? 8 : 16;
        text.remove_prefix(2);
    }
    if (text.starts_with("0x") || text.starts_with("0X")) {
        text.remove_prefix(2);
    }
    std::optional<std::uint32_t> value = readHex(text);
    if (!value) {
        return std::nullopt;
    }
    word.value = *value;
    return word;
}

} // namespace zor
