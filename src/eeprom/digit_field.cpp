// SPDX-License-Identifier: MIT
#include "eeprom/digit_field.h"

#include <utility>

namespace zor {

DigitField::DigitField(Form& owner, std::string name, std::string text)
    : TextField(owner, std::move(name), std::move(text))
    , before(TextField::text()) {
    onEdit = [this] { filter(); };
}

void DigitField::put(std::string text) {
    before = text;
    setText(std::move(text));
}

void DigitField::filter() {
    if (filtered) {
        CaretText left = filteredDigits(before, {text(), cursor()});
        if (left.text.empty() && !text().empty()) {
            left.text = emptied;
        }
        if (left.text != text()) {
            setText(left.text);
            setCursor(left.caret);
        }
    }
    before = text();
    if (onDigits) {
        onDigits();
    }
}

} // namespace zor
