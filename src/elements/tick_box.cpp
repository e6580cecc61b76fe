// SPDX-License-Identifier: MIT
#include "elements/tick_box.h"

#include <utility>

namespace zor {

TickBox::TickBox(Form& owner, std::string name, std::string caption, bool ticked)
    : Element(owner, std::move(name))
    , isTicked(ticked) {
    setCaption(std::move(caption));
}

void TickBox::putTicked(bool ticked) {
    if (std::exchange(isTicked, ticked) != ticked) {
        changed.emit();
    }
}

void TickBox::setTicked(bool ticked) {
    if (isTicked == ticked) {
        return;
    }
    putTicked(ticked);
    if (onChange) {
        onChange();
    }
}

bool TickBox::click() {
    return tick(!isTicked);
}

bool TickBox::tick(bool ticked) {
    return act({.kind = GestureKind::Tick, .first = ticked ? 1.0 : 0.0},
               [this, ticked] { setTicked(ticked); });
}

} // namespace zor
