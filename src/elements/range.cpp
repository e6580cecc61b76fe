// SPDX-License-Identifier: MIT
#include "elements/range.h"

#include <algorithm>
#include <utility>

namespace zor {

Ranged::Ranged(Form& owner, std::string name, int minimum, int maximum, int value)
    : Element(owner, std::move(name))
    , lowest(minimum)
    , highest(maximum)
    , current(std::clamp(value, minimum, maximum)) {}

void Ranged::putValue(int value) {
    int held = std::clamp(value, lowest, highest);
    if (std::exchange(current, held) != held) {
        changed.emit();
    }
}

void Ranged::setRange(int minimum, int maximum) {
    lowest = minimum;
    highest = std::max(minimum, maximum);
    current = std::clamp(current, lowest, highest);
    changed.emit();
}

void Slider::setValue(int newValue) {
    int before = value();
    putValue(newValue);
    if (value() == before) {
        return;
    }
    moved.emit();
    if (onChange) {
        onChange();
    }
}

bool Slider::slide(int newValue) {
    return act({.kind = GestureKind::Slide, .first = static_cast<double>(newValue)},
               [this, newValue] { setValue(newValue); });
}

bool UpDown::stepUp() {
    return act({GestureKind::StepUp}, [this] {
        if (onUp) {
            onUp();
        }
    });
}

bool UpDown::stepDown() {
    return act({GestureKind::StepDown}, [this] {
        if (onDown) {
            onDown();
        }
    });
}

} // namespace zor
