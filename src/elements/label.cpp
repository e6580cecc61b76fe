// SPDX-License-Identifier: MIT
#include "elements/label.h"

#include <utility>

namespace zor {

Frame::Frame(Form& owner, std::string name, std::string caption)
    : Element(owner, std::move(name)) {
    setCaption(std::move(caption));
}

void Frame::setBordered(bool border) {
    if (std::exchange(hasBorder, border) != border) {
        changed.emit();
    }
}

bool Frame::click() {
    return act({GestureKind::Click}, [this] {
        if (onClick) {
            onClick();
        }
    });
}

Swatch::Swatch(Form& owner, std::string name, Colour colour)
    : Element(owner, std::move(name)) {
    setBackground(colour);
}

Lamp::Lamp(Form& owner, std::string name, std::string caption)
    : Element(owner, std::move(name)) {
    setCaption(std::move(caption));
    setEnabled(false);
}

void Lamp::paint(bool lit, const Swatch& colour) {
    isLit = lit;
    setBackground(colour.background());
    setEnabled(lit);
    changed.emit();
}

void Lamp::light(bool lit, std::optional<Colour> colour) {
    isLit = lit;
    setBackground(colour);
    changed.emit();
}

} // namespace zor
