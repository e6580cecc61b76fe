// SPDX-License-Identifier: MIT
#include "panels/common/linked_number.h"

#include "elements/range.h"
#include "elements/text_field.h"
#include "support/numbers.h"

#include <utility>

namespace zor {

LinkedNumber::LinkedNumber(TextField& ownField, IntegerRange ownRange, Slider* ownSlider, UpDown* arrows)
    : field(ownField)
    , range(ownRange)
    , slider(ownSlider) {
    if (slider != nullptr) {
        following = slider->moved.subscribe([this] { enter(std::to_string(slider->value())); });
    }
    if (arrows != nullptr) {
        arrows->reading = [this] { return roundToInt(numericPrefix(field.text())); };
        arrows->onUp = [this] { step(1); };
        arrows->onDown = [this] { step(-1); };
    }
}

void LinkedNumber::step(int by) {
    // The commit clamps.
    enter(numberText(numericPrefix(field.text()) + by));
}

void LinkedNumber::enter(std::string text) {
    field.setText(std::move(text));
    field.onCommit();
}

int LinkedNumber::commit() {
    number = committedInteger(field.text(), range);
    field.setText(std::to_string(number));
    if (slider != nullptr) {
        slider->putValue(number);
    }
    return number;
}

} // namespace zor
