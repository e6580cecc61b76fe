// SPDX-License-Identifier: MIT
#include "elements/element.h"

#include "elements/desk.h"
#include "elements/form.h"

#include <utility>

namespace zor {

Element::Element(Form& elementOwner, std::string name)
    : owner(elementOwner)
    , elementName(std::move(name)) {
    owner.add(*this);
}

Element::~Element() {
    owner.remove(*this);
}

void Element::setVisible(bool visible) {
    if (std::exchange(isVisible, visible) != visible) {
        changed.emit();
    }
}

void Element::setEnabled(bool enabled) {
    if (std::exchange(isEnabled, enabled) != enabled) {
        changed.emit();
    }
}

void Element::setCaption(std::string text) {
    if (captionText != text) {
        captionText = std::move(text);
        changed.emit();
    }
}

void Element::setTip(std::string text) {
    if (tipText != text) {
        tipText = std::move(text);
        changed.emit();
    }
}

void Element::setHint(std::string text) {
    if (hintText != text) {
        hintText = std::move(text);
        changed.emit();
    }
}

void Element::setShortcut(std::string keys) {
    if (shortcutText != keys) {
        shortcutText = std::move(keys);
        changed.emit();
    }
}

void Element::setBackground(std::optional<Colour> colour) {
    if (backgroundColour != colour) {
        backgroundColour = colour;
        changed.emit();
    }
}

bool Element::shown() const {
    return isVisible && (containerElement == nullptr || containerElement->shown());
}

bool Element::active() const {
    return isEnabled && (containerElement == nullptr || containerElement->active());
}

bool Element::usable() const {
    return shown() && active() && owner.acceptsUser();
}

bool Element::focused() const {
    return owner.focusedElement() == this;
}

bool Element::takeFocus() {
    return act({GestureKind::TakeFocus}, [this] { owner.setFocus(this); });
}

bool Element::leave() {
    return act({GestureKind::Leave}, [this] {
        if (focused()) {
            owner.setFocus(nullptr);
        } else if (onLeave) {
            onLeave();
        }
    });
}

bool Element::act(const Gesture& gesture, const std::function<void()>& action) {
    if (!usable()) {
        return false;
    }
    carryOut(gesture, action);
    return true;
}

void Element::carryOut(Gesture gesture, const std::function<void()>& action) {
    gesture.form = &owner;
    gesture.element = this;
    owner.desk().carryOut(gesture, action);
}

} // namespace zor
