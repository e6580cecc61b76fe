// SPDX-License-Identifier: MIT
#include "panels/common/word_setting.h"

#include "elements/options.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "panels/common/code_list.h"

#include <algorithm>

namespace zor {

namespace {

std::string codeAndText(int code, const std::string& text) {
    return std::to_string(code) + " " + text;
}

void append(std::string& all, const std::string& one) {
    all += (all.empty() ? "" : ", ") + one;
}

} // namespace

WordSetting listSetting(CodeList& list) {
    return {&list, [&list] { return list.code(); },
            [&list](int code) { return list.rowOfCode(code).has_value(); },
            [&list] {
                std::string all;
                for (std::size_t row = 0; row < list.entries().size(); ++row) {
                    if (std::optional<int> code = list.codeOfRow(row)) {
                        append(all, codeAndText(*code, list.entries()[row]));
                    }
                }
                return all;
            },
            [&list](int code) { list.select(list.rowOfCode(code).value_or(-1)); }};
}

WordSetting tickSetting(TickBox& tick) {
    return {&tick, [&tick] { return tick.ticked() ? 1 : 0; },
            [](int state) { return state == 0 || state == 1; }, [] { return std::string("0, 1"); },
            [&tick](int state) { tick.setTicked(state == 1); }};
}

WordSetting optionSetting(std::function<int()> number, std::vector<std::pair<int, Option*>> options) {
    const Element* first = options.front().second;
    auto find = [options](int code) -> Option* {
        auto found = std::find_if(options.begin(), options.end(), [code](const auto& row) {
            return row.first == code && row.second->visible();
        });
        return found == options.end() ? nullptr : found->second;
    };
    return {first, std::move(number), [find](int code) { return find(code) != nullptr; },
            [options] {
                std::string all;
                for (const auto& [code, option] : options) {
                    if (option->visible()) {
                        append(all, codeAndText(code, option->caption()));
                    }
                }
                return all;
            },
            [find](int code) {
                if (Option* option = find(code)) {
                    option->choose();
                }
            }};
}

WordSetting numberSetting(TextField& field, std::function<int()> number,
                          const std::function<IntegerRange()>& range,
                          std::function<std::string(int number)> textOf) {
    return {&field, std::move(number),
            [range](int value) { return range().minimum <= value && value <= range().maximum; },
            [range] { return std::to_string(range().minimum) + " to " + std::to_string(range().maximum); },
            [&field, textOf = std::move(textOf)](int value) {
                field.setText(textOf ? textOf(value) : std::to_string(value));
                if (field.onCommit) {
                    field.onCommit();
                }
            }};
}

WordSetting numberSetting(TextField& field, std::function<int()> number, IntegerRange range,
                          std::function<std::string(int number)> textOf) {
    return numberSetting(
        field, std::move(number), [range] { return range; }, std::move(textOf));
}

} // namespace zor
