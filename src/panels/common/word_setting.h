// SPDX-License-Identifier: MIT
#pragma once

#include "panels/common/values.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace zor {

class CodeList;
class Element;
class Option;
class TextField;
class TickBox;

/// A setting that stands behind bits of a word, read backwards: its number goes in, and it takes the value
/// that gives just this number, with the action that a user's change would run.
struct WordSetting {
    /// Two rows of the words' tables with the same element are parts of one number.
    const Element* element = nullptr;
    /// What it stands for now.
    std::function<int()> number;
    std::function<bool(int number)> offers;
    /// All that it offers, for a person: "1 to 15".
    std::function<std::string()> offered;
    /// Only for a number that it offers.
    std::function<void(int number)> put;
};

/// Bits of a word's field that hold bits of a setting's number.
struct FieldPart {
    WordSetting setting;
    /// Where they begin in the field, and in the number.
    int fieldLow = 0;
    int settingLow = 0;
    int width = 0;
};

/// A list: the first entry that has the code.
[[nodiscard]] WordSetting listSetting(CodeList& list);
/// A tick: 1 while it is set.
[[nodiscard]] WordSetting tickSetting(TickBox& tick);
/// Options with their codes; one that a panel hides is not offered.
[[nodiscard]] WordSetting optionSetting(std::function<int()> number,
                                        std::vector<std::pair<int, Option*>> options);
/// A typed number.
/// @param textOf  what is typed for a number; nothing for its decimal digits
[[nodiscard]] WordSetting numberSetting(TextField& field, std::function<int()> number,
                                        const std::function<IntegerRange()>& range,
                                        std::function<std::string(int number)> textOf = {});
[[nodiscard]] WordSetting numberSetting(TextField& field, std::function<int()> number, IntegerRange range,
                                        std::function<std::string(int number)> textOf = {});

} // namespace zor
