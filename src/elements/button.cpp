// SPDX-License-Identifier: MIT
#include "elements/button.h"

#include <utility>

namespace zor {

Button::Button(Form& owner, std::string name, std::string caption)
    : Element(owner, std::move(name)) {
    setCaption(std::move(caption));
}

bool Button::click() {
    return act({GestureKind::Click}, [this] {
        if (onClick) {
            onClick();
        }
    });
}

bool Button::doubleClick() {
    // One action around both: what the click gave up is still there for the rest of it.
    return act({GestureKind::DoubleClick}, [this] {
        click();
        secondClick();
    });
}

bool Button::secondClick() {
    return act({GestureKind::SecondClick}, [this] {
        if (onDoubleClick) {
            onDoubleClick();
        }
    });
}

} // namespace zor
