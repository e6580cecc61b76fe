// SPDX-License-Identifier: MIT
#pragma once

#include "elements/element.h"

namespace zor {

/// Something with a caption that acts when it is clicked: a push button, a clickable label or picture.
class Button : public Element {
  public:
    Button(Form& owner, std::string name, std::string caption = {});

    bool click() override;
    /// A mouse sends its click first, and so does this.
    bool doubleClick() override;
    /// The second half of a double click whose first click was told when it came.
    bool secondClick();

    /// Whether a click moves the keyboard focus to it.
    bool takesFocusOnClick = true;
    std::function<void()> onClick;
    std::function<void()> onDoubleClick;
};

} // namespace zor
