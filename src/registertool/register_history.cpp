// SPDX-License-Identifier: MIT
// What of the register tool can be undone: the registers' values in the table, and one that is being edited.
// What the chip was sent, and what it said, stays as it is.
#include "registertool/cell_values.h"
#include "registertool/spi.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace zor {

namespace {

/// "0F=A5" a line.
std::vector<std::pair<std::string, std::string>> valuesIn(const std::string& text) {
    std::vector<std::pair<std::string, std::string>> values;
    std::size_t begin = 0;
    for (std::size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n', begin)) {
        std::size_t sign = text.find('=', begin);
        values.emplace_back(text.substr(begin, sign - begin), text.substr(sign + 1, end - sign - 1));
        begin = end + 1;
    }
    return values;
}

} // namespace

std::string RegisterEditor::keptValues() const {
    std::string text;
    for (const Setting& setting : tool.table.rows()) {
        text += setting.Address + "=" + setting.HexValue + "\n";
    }
    return text;
}

void RegisterEditor::putValues(const std::string& text) {
    auto values = valuesIn(text);
    if (!tool.store || values.size() != tool.table.rows().size()) {
        return;
    }
    StoreTransaction transaction(*tool.store);
    for (std::size_t row = 0; row < values.size(); ++row) {
        const auto& [address, value] = values[row];
        if (tool.table.rows()[row].HexValue != value) {
            tool.table.storeValue(row, value);
            copyValue(address, value);
            tool.macros.copyValue(address, value);
        }
    }
    transaction.commit();
}

std::string RegisterEditor::keptEdit() const {
    return HexValue.background() == editedColour ? Address.text() + "=" + HexValue.text() + "\n"
                                                 : std::string();
}

void RegisterEditor::putEdit(const std::string& text) {
    auto edited = valuesIn(text);
    if (!edited.empty()) {
        const auto& [address, value] = edited.front();
        if (Address.text() != address) {
            findAgain(address, Editor::Follows);
        }
        HexValue.setText(value);
        HexValue_Change();
        HexValue.setBackground(editedColour);
    } else if (HexValue.background() == editedColour) {
        const Setting* setting = tool.table.at(Address.text());
        setValue(setting == nullptr ? std::string() : setting->HexValue);
    }
}

bool SPI::isSetting(const Element& element) const {
    return &element == &editor.SettingsDataGrid || &element == &editor.HexValue;
}

ElementState SPI::takeElement(const Element& element, Aspects /*aspects*/) const {
    ElementState state;
    state.text = &element == &editor.HexValue ? editor.keptEdit() : editor.keptValues();
    return state;
}

void SPI::putElement(Element& element, const ElementState& state, Aspects /*aspects*/) {
    guarded([&] {
        if (&element == &editor.HexValue) {
            editor.putEdit(state.text);
        } else {
            editor.putValues(state.text);
        }
    });
}

std::string SPI::changeName(const Element& element, const ElementState& before,
                            const ElementState& after) const {
    auto was = valuesIn(before.text);
    auto is = valuesIn(after.text);
    if (&element == &editor.HexValue) {
        return is.empty() ? "Value of " + was.front().first + " dropped"
                          : "Value of " + is.front().first + ": " + is.front().second;
    }
    std::size_t count = 0;
    std::string name;
    for (std::size_t row = 0; row < std::min(was.size(), is.size()); ++row) {
        if (was[row] != is[row] && count++ == 0) {
            name = "Register " + is[row].first + " " + was[row].second + " -> " + is[row].second;
        }
    }
    return count == 1 ? name : std::to_string(count) + " registers";
}

} // namespace zor
