// SPDX-License-Identifier: MIT
#include "elements/list_box.h"

#include <algorithm>
#include <utility>

namespace zor {

ListBox::ListBox(Form& owner, std::string name, std::vector<std::string> entries, std::string text)
    : Element(owner, std::move(name))
    , items(std::move(entries)) {
    putText(std::move(text));
}

int ListBox::find(std::string_view entry) const {
    auto place = std::find(items.begin(), items.end(), entry);
    return place == items.end() ? -1 : static_cast<int>(place - items.begin());
}

void ListBox::putPosition(int newPosition) {
    bool inside = newPosition >= 0 && static_cast<std::size_t>(newPosition) < items.size();
    selected = inside ? newPosition : -1;
    shownText = inside ? items[static_cast<std::size_t>(newPosition)] : std::string();
    changed.emit();
}

void ListBox::putText(std::string text) {
    selected = find(text);
    shownText = std::move(text);
    changed.emit();
}

void ListBox::runAction() {
    chosen.emit();
    if (onChange) {
        onChange();
    }
}

void ListBox::select(int newPosition) {
    putPosition(newPosition);
    runAction();
}

void ListBox::selectText(std::string text) {
    putText(std::move(text));
    runAction();
}

void ListBox::setEntries(std::vector<std::string> newEntries) {
    items = std::move(newEntries);
    selected = find(shownText);
    changed.emit();
}

void ListBox::addEntry(std::string entry) {
    items.push_back(std::move(entry));
    changed.emit();
}

void ListBox::removeEntry(int entryPosition) {
    if (entryPosition < 0 || static_cast<std::size_t>(entryPosition) >= items.size()) {
        return;
    }
    items.erase(items.begin() + entryPosition);
    if (static_cast<std::size_t>(entryPosition) < tips.size()) {
        tips.erase(tips.begin() + entryPosition);
    }
    if (selected == entryPosition) {
        selected = -1;
    } else if (selected > entryPosition) {
        --selected;
    }
    changed.emit();
}

void ListBox::setLocked(bool locked) {
    if (std::exchange(isLocked, locked) != locked) {
        changed.emit();
    }
}

void ListBox::setEntryTips(std::vector<std::string> newTips) {
    tips = std::move(newTips);
    changed.emit();
}

void ListBox::putBack(std::vector<std::string> oldEntries, std::string text, int oldPosition,
                      const std::vector<int>& codes) {
    items = std::move(oldEntries);
    shownText = std::move(text);
    selected = oldPosition;
    putCodesBehind(codes);
    changed.emit();
}

bool ListBox::chooseText(std::string_view entry) {
    return choosePosition(find(entry));
}

bool ListBox::choosePosition(int entryPosition) {
    if (isLocked || entryPosition < 0 || static_cast<std::size_t>(entryPosition) >= items.size()) {
        return false;
    }
    // The action may change the entries.
    std::string entry = items[static_cast<std::size_t>(entryPosition)];
    Gesture gesture{GestureKind::ChooseEntry, entry, static_cast<double>(entryPosition)};
    return act(gesture, [this, entryPosition] { select(entryPosition); });
}

} // namespace zor
