// SPDX-License-Identifier: MIT
#pragma once

#include "elements/element.h"

#include <vector>

namespace zor {

/// A drop-down list. Its text and its position are kept apart: the text may be one that no entry has, the
/// position is then -1. Every selection runs the action, also of the entry that shows already.
class ListBox : public Element {
  public:
    ListBox(Form& owner, std::string name, std::vector<std::string> entries = {}, std::string text = {});

    [[nodiscard]] std::string text() const override { return shownText; }
    /// From 0; -1 if the text is no entry's.
    [[nodiscard]] int position() const { return selected; }
    [[nodiscard]] const std::vector<std::string>& entries() const { return items; }
    /// The entry's position, -1 if there is none.
    [[nodiscard]] int find(std::string_view entry) const;

    /// Selects an entry (-1 none, with an empty text) and runs the action. A position beyond the list selects
    /// none.
    void select(int newPosition);
    /// Shows a text, with its position if it is an entry's, and runs the action.
    void selectText(std::string text);
    /// The same without the action.
    void putPosition(int newPosition);
    void putText(std::string text);

    /// Replaces the entries and keeps the text; the position follows the text. No action runs.
    void setEntries(std::vector<std::string> newEntries);
    void addEntry(std::string entry);
    void removeEntry(int entryPosition);

    /// A locked list shows its text and takes no choice.
    [[nodiscard]] bool locked() const { return isLocked; }
    void setLocked(bool locked);

    /// Tool tips of single entries; shorter than the list where entries have none.
    [[nodiscard]] const std::vector<std::string>& entryTips() const { return tips; }
    void setEntryTips(std::vector<std::string> newTips);

    /// What a kind of list keeps behind its entries, for putBack.
    [[nodiscard]] virtual std::vector<int> codesBehind() const { return {}; }
    /// Makes the list what it was once: its entries, what it showed, and what stood behind that. No action
    /// runs.
    void putBack(std::vector<std::string> oldEntries, std::string text, int position,
                 const std::vector<int>& codes);

    bool chooseText(std::string_view entry) override;
    bool choosePosition(int entryPosition) override;

    /// Whoever lives by the choice hears of it before the window's own action.
    Signal<> chosen;
    std::function<void()> onChange;

  protected:
    virtual void putCodesBehind(const std::vector<int>&) {}

  private:
    void runAction();

    std::vector<std::string> items;
    std::vector<std::string> tips;
    std::string shownText;
    int selected = -1;
    bool isLocked = false;
};

} // namespace zor
