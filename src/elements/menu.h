// SPDX-License-Identifier: MIT
#pragma once

#include "elements/element.h"

#include <vector>

namespace zor {

/// A menu, or an entry of one. An entry with children opens a menu of its own.
class MenuEntry : public Element {
  public:
    /// @param parent  the menu it stands in; nullptr for a menu of the bar
    MenuEntry(Form& owner, MenuEntry* parent, std::string name, std::string caption);

    [[nodiscard]] const std::vector<MenuEntry*>& children() const { return entries; }
    [[nodiscard]] bool checked() const { return isChecked; }
    void setChecked(bool checked);

    /// A line stands between the entry before and this one.
    [[nodiscard]] bool beginsSection() const { return isSectionsFirst; }
    void setBeginsSection(bool begins) { isSectionsFirst = begins; }

    bool click() override;

    std::function<void()> onClick;

  private:
    std::vector<MenuEntry*> entries;
    bool isChecked = false;
    bool isSectionsFirst = false;
};

/// A tool bar.
class Bar : public Element {
  public:
    Bar(Form& owner, std::string name)
        : Element(owner, std::move(name)) {}
};

/// One entry of a bar button's drop-down list.
struct DropDownEntry {
    std::string key;
    std::string caption;
    bool enabled = true;
};

/// A tool bar button that stays down while its window is open; it may have a drop-down list.
class BarButton : public Element {
  public:
    BarButton(Form& owner, Bar& bar, std::string name, std::string caption);

    [[nodiscard]] bool pressed() const { return isPressed; }
    void setPressed(bool pressed);
    [[nodiscard]] const std::vector<DropDownEntry>& entries() const { return dropDown; }
    void setEntries(std::vector<DropDownEntry> entries);

    bool click() override;
    /// Chooses a drop-down entry by its key.
    bool chooseText(std::string_view key) override;

    std::function<void()> onClick;
    std::function<void(const std::string& key)> onChoose;
    /// The user has to choose from the list before a click can do anything: a view drops the list down.
    Signal<> choiceNeeded;

  private:
    std::vector<DropDownEntry> dropDown;
    bool isPressed = false;
};

} // namespace zor
