// SPDX-License-Identifier: MIT
#include "elements/button.h"

#include <utility>

namespace zor {

Button::Button(Form& owner, std::string name, std::string caption)
    : Element(owner, std::move(name)) {
    setCaption(std::move(caption));
}

bool Button::click() {
    return act([this] {
        if (onClick) {
            onClick();
        }
    });
}

bool Button::doubleClick() {
    if (!click()) {
        return false;
    }
    // What the click did may have taken the button away.
    act([this] {
        if (onDoubleClick) {
            onDoubleClick();
        }
    });
    return true;
}

} // namespace zor
