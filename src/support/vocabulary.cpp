// SPDX-License-Identifier: MIT
#include "support/vocabulary.h"

#include "support/letters.h"
#include "support/numbers.h"

#include <algorithm>
#include <array>

namespace zor {

namespace {

/// What stands behind the command's word.
enum class Argument {
    None,
    /// One digit 0 to 7.
    Line,
    /// Hexadecimal digits, at most so many as a supply code has.
    SupplyCode,
    /// Which line the modulation goes to.
    Digit,
    /// Two, four hexadecimal digits, blanks allowed in front.
    Byte,
    Word,
    /// Bytes of one or two digits, commas between.
    Bytes,
    /// Decimal.
    Count,
    /// Codes of a packet reception.
    Codes,
};

/// What the answer carries in front of its prompt.
enum class Value { None, Byte, Word, Level, Bytes, Converter };

struct Command {
    std::string_view word;
    Argument argument;
    std::string_view meaning;
    Value value = Value::None;
};

// The longer word stands before one that it begins with.
constexpr std::array<Command, 39> commands = {{
    {"i", Argument::None, "identify the firmware"},
    {"V", Argument::SupplyCode, "set the supply of the radio board"},
    {"A1", Argument::None, "measure in the high current range"},
    {"A0", Argument::None, "measure in the low current range"},
    {"AD", Argument::None, "read the current converter", Value::Converter},
    {"H", Argument::Line, "drive line high"},
    {"L", Argument::Line, "drive line low"},
    {"Z", Argument::Line, "release line"},
    {"X0", Argument::None, "data line to the external connector"},
    {"X1", Argument::None, "data line internal"},
    {"X2", Argument::None, "enter Data mode"},
    {"y0", Argument::Digit, "modulation line low"},
    {"y1", Argument::Digit, "modulation line high"},
    {"y2", Argument::Digit, "start the PN 15 sequence"},
    {"y3", Argument::Digit, "stop the PN 15 sequence"},
    {"d2", Argument::None, "start the data line monitor"},
    {"d0", Argument::None, "stop the data line monitor"},
    {"RO", Argument::None, "read the data line", Value::Level},
    {"RI", Argument::None, "read the interrupt line", Value::Level},
    {"ri", Argument::None, "read the interrupt line", Value::Level},
    {"S1", Argument::Byte, "transfer a byte"},
    {"S2", Argument::Word, "transfer a word", Value::Word},
    {"SX", Argument::Bytes, "transfer bytes"},
    {"WS", Argument::Bytes, "write bytes"},
    {"RS", Argument::None, "read a byte", Value::Byte},
    {"RS", Argument::Count, "read bytes", Value::Bytes},
    {"F11,", Argument::Codes, "receive a packet up to its end character or length"},
    {"F12,", Argument::Codes, "receive a packet up to its end character"},
    {"F13,", Argument::Codes, "receive a packet of a length"},
    {"F1,", Argument::Codes, "receive a packet up to its end character or length"},
    {"F2,", Argument::Codes, "receive a packet up to its end character"},
    {"F3,", Argument::Codes, "receive a packet of a length"},
    {"F15", Argument::None, "ask for a pending packet"},
    {"F0", Argument::None, "stop receiving packets"},
    {"T14,", Argument::Bytes, "send a packet"},
    {"T0", Argument::None, "stop sending packets"},
    {"C192", Argument::None, "loader at 19200 bit/s"},
    {"C384", Argument::None, "loader at 38400 bit/s"},
    {"C576", Argument::None, "loader at 57600 bit/s"},
}};

bool isHex(std::string_view text) {
    return std::ranges::all_of(text, isHexDigit);
}

bool isDecimal(std::string_view text) {
    return !text.empty() && std::ranges::all_of(text, isDigit);
}

std::string_view withoutBlanksInFront(std::string_view text) {
    std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

int countOfBytes(std::string_view text) {
    return text.empty() ? 0 : static_cast<int>(std::count(text.begin(), text.end(), ',')) + 1;
}

bool hasForm(std::string_view text, Argument argument) {
    switch (argument) {
    case Argument::None:
        return text.empty();
    case Argument::Line:
        return text.size() == 1 && text[0] >= '0' && text[0] <= '7';
    case Argument::Digit:
        return text == "0" || text == "1";
    case Argument::SupplyCode:
        return !text.empty() && text.size() <= 2 && isHex(text);
    case Argument::Byte:
        return text.size() == 2 && isHex(text);
    case Argument::Word:
        return text.size() == 4 && isHex(text);
    case Argument::Bytes:
        return !text.empty() && std::ranges::all_of(text, [](char c) { return c == ',' || isHexDigit(c); });
    case Argument::Count:
        return isDecimal(text);
    case Argument::Codes:
        return !text.empty() && std::ranges::all_of(text, [](char c) { return c == ',' || isDigit(c); });
    }
    return false;
}

const Command* find(std::string_view line) {
    if (line.empty()) {
        return nullptr;
    }
    auto row = std::find_if(commands.begin(), commands.end(), [line](const Command& command) {
        // Most rows differ in their first letter; every exchange is looked up.
        return line.front() == command.word.front() && line.starts_with(command.word) &&
               hasForm(withoutBlanksInFront(line.substr(command.word.size())), command.argument);
    });
    return row == commands.end() ? nullptr : &*row;
}

/// Lines that have a meaning on every radio test board.
std::string_view lineFunction(std::string_view line) {
    if (line == "L2") {
        return ": select the chip";
    }
    if (line == "H2") {
        return ": deselect the chip";
    }
    if (line == "L3") {
        return ": select the FIFO";
    }
    return line == "H3" ? ": deselect the FIFO" : "";
}

std::string withArgument(const Command& command, std::string_view line, std::string_view text,
                         const WordNaming& nameWord) {
    std::string meaning(command.meaning);
    switch (command.argument) {
    case Argument::None:
    case Argument::Digit:
        break;
    case Argument::Line:
        meaning.insert(meaning.find("line") + 4, " " + std::string(text));
        meaning += lineFunction(line);
        break;
    case Argument::SupplyCode:
        meaning += ", code " + std::string(text);
        break;
    case Argument::Codes:
        meaning += ", " + std::string(text);
        break;
    case Argument::Byte:
    case Argument::Word: {
        std::string name;
        if (nameWord) {
            name = nameWord(*readHex(text), command.argument == Argument::Byte ? 8 : 16);
        }
        return name.empty() ? meaning + " " + std::string(text) : name;
    }
    case Argument::Bytes:
        meaning += ", " + std::to_string(countOfBytes(text));
        break;
    case Argument::Count:
        meaning += ", " + std::string(text);
        break;
    }
    return meaning;
}

/// What stands in front of the prompt: LF CR "OK" LF CR ">", or its error form.
std::string_view inFrontOfPrompt(std::string_view answer) {
    constexpr std::size_t prompt = 7;
    return answer.size() > prompt ? answer.substr(0, answer.size() - prompt) : std::string_view();
}

} // namespace

std::string commandMeaning(std::string_view line, const WordNaming& nameWord) {
    if (line.empty()) {
        return "ask for the prompt";
    }
    const Command* command = find(line);
    if (command == nullptr) {
        return line == "C" ? "start the download" : std::string();
    }
    std::string_view argument = withoutBlanksInFront(line.substr(command->word.size()));
    return withArgument(*command, line, argument, nameWord);
}

std::string answerMeaning(std::string_view line, std::string_view answer) {
    const Command* command = find(line);
    std::string_view said = inFrontOfPrompt(answer);
    // One separator ends a value.
    if (command == nullptr || said.size() < 2) {
        return {};
    }
    std::string_view value = said.substr(0, said.size() - 1);
    auto lastDigits = [&value](std::size_t count) {
        std::string_view digits =
            value.size() < count ? std::string_view() : value.substr(value.size() - count);
        return std::string(isHex(digits) ? digits : std::string_view());
    };
    switch (command->value) {
    case Value::None:
    case Value::Bytes:
    case Value::Converter:
        return {};
    case Value::Byte:
        return lastDigits(2);
    case Value::Word: {
        // Most words are only written; the chip then clocks out zeros.
        std::string word = lastDigits(4);
        return word == "0000" ? std::string() : word;
    }
    case Value::Level: {
        std::size_t digit = value.find_first_of("01");
        return digit == std::string_view::npos ? std::string() : value[digit] == '1' ? "high" : "low";
    }
    }
    return {};
}

} // namespace zor
