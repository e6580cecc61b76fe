// SPDX-License-Identifier: MIT
#include "elements/menu.h"

#include <algorithm>
#include <utility>

namespace zor {

MenuEntry::MenuEntry(Form& owner, MenuEntry* parent, std::string name, std::string caption)
    : Element(owner, std::move(name)) {
    setCaption(std::move(caption));
    setContainer(parent);
    if (parent != nullptr) {
        parent->entries.push_back(this);
    }
}

void MenuEntry::setChecked(bool checked) {
    if (std::exchange(isChecked, checked) != checked) {
        changed.emit();
    }
}

bool MenuEntry::click() {
    return act({GestureKind::Click}, [this] {
        if (onClick) {
            onClick();
        }
    });
}

BarButton::BarButton(Form& owner, Bar& bar, std::string name, std::string caption)
    : Element(owner, std::move(name)) {
    setCaption(std::move(caption));
    setContainer(&bar);
}

void BarButton::setPressed(bool pressed) {
    if (std::exchange(isPressed, pressed) != pressed) {
        changed.emit();
    }
}

void BarButton::setEntries(std::vector<DropDownEntry> entries) {
    dropDown = std::move(entries);
    changed.emit();
}

bool BarButton::click() {
    return act({GestureKind::Click}, [this] {
        if (onClick) {
            onClick();
        }
    });
}

bool BarButton::chooseText(std::string_view key) {
    auto entry = std::find_if(dropDown.begin(), dropDown.end(),
                              [key](const DropDownEntry& candidate) { return candidate.key == key; });
    if (entry == dropDown.end() || !entry->enabled) {
        return false;
    }
    return act({GestureKind::ChooseKey, key}, [this, chosen = entry->key] {
        if (onChoose) {
            onChoose(chosen);
        }
    });
}

} // namespace zor
