// SPDX-License-Identifier: MIT
#include "elements/tab_strip.h"

#include <utility>

namespace zor {

TabStrip::TabStrip(Form& owner, std::string name, std::vector<std::string> titles)
    : Element(owner, std::move(name))
    , pageTitles(std::move(titles)) {}

void TabStrip::turn(int page) {
    if (std::exchange(current, page) == page) {
        return;
    }
    changed.emit();
    if (onTurn) {
        onTurn();
    }
}

bool TabStrip::choosePosition(int page) {
    if (page < 1 || static_cast<std::size_t>(page) > pageTitles.size()) {
        return false;
    }
    return act({.kind = GestureKind::TurnPage, .first = static_cast<double>(page)},
               [this, page] { turn(page); });
}

} // namespace zor
