// SPDX-License-Identifier: MIT
#include "simulator/command_arguments.h"

#include "support/letters.h"
#include "support/numbers.h"

#include <algorithm>
#include <charconv>

namespace zor::sim {

namespace {

bool isHex(std::string_view text, std::size_t fewest, std::size_t most) {
    return text.size() >= fewest && text.size() <= most && readHex(text).has_value();
}

bool isNumber(std::string_view text, std::size_t least, std::size_t greatest) {
    bool digits = !text.empty() && text.size() <= 3 && std::ranges::all_of(text, isDigit);
    return digits && numberOf(text) >= least && numberOf(text) <= greatest;
}

std::vector<std::string_view> fieldsOf(std::string_view list) {
    std::vector<std::string_view> fields;
    for (std::size_t comma = list.find(','); comma != std::string_view::npos; comma = list.find(',')) {
        fields.push_back(list.substr(0, comma));
        list.remove_prefix(comma + 1);
    }
    fields.push_back(list);
    return fields;
}

} // namespace

std::string_view withoutBlanks(std::string_view argument) {
    while (argument.starts_with(' ')) {
        argument.remove_prefix(1);
    }
    while (argument.ends_with(' ')) {
        argument.remove_suffix(1);
    }
    return argument;
}

bool hasForm(std::string_view argument, ArgumentForm form) {
    switch (form) {
    case ArgumentForm::none:
        return argument.empty();
    case ArgumentForm::outputLine:
        return argument.size() == 1 && isNumber(argument, 0, 7);
    case ArgumentForm::zeroOrOne:
        return argument == "0" || argument == "1";
    case ArgumentForm::supplyCode:
        return isHex(argument, 1, 2) && byteOf(argument) != 0xFF;
    case ArgumentForm::byte:
        return isHex(argument, 2, 2);
    case ArgumentForm::word:
        return isHex(argument, 4, 4);
    case ArgumentForm::byteList: {
        auto fields = fieldsOf(argument);
        return !fields.front().empty() && std::ranges::all_of(fields, [](std::string_view field) {
            return field.empty() || isHex(field, 1, 2);
        });
    }
    case ArgumentForm::numberList:
        return std::ranges::all_of(fieldsOf(argument),
                                   [](std::string_view field) { return isNumber(field, 0, 255); });
    case ArgumentForm::optionalCount:
        return argument.empty() || isNumber(argument, 1, 255);
    }
    return false;
}

std::uint8_t byteOf(std::string_view hex) {
    return static_cast<std::uint8_t>(readHex(hex).value_or(0));
}

std::size_t numberOf(std::string_view decimal) {
    std::size_t value = 0;
    std::from_chars(decimal.data(), decimal.data() + decimal.size(), value);
    return value;
}

std::vector<std::uint8_t> bytesOf(std::string_view list) {
    std::vector<std::uint8_t> bytes;
    for (std::string_view field : fieldsOf(list)) {
        if (!field.empty()) {
            bytes.push_back(byteOf(field));
        }
    }
    return bytes;
}

std::vector<std::size_t> numbersOf(std::string_view list) {
    std::vector<std::size_t> numbers;
    for (std::string_view field : fieldsOf(list)) {
        numbers.push_back(numberOf(field));
    }
    return numbers;
}

std::optional<int> readNumber(std::string_view text, int least, int greatest) {
    int value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    bool good =
        error == std::errc() && end == text.data() + text.size() && value >= least && value <= greatest;
    return good ? std::optional(value) : std::nullopt;
}

} // namespace zor::sim
