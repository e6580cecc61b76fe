// SPDX-License-Identifier: MIT
#pragma once

#include "elements/element.h"

#include <vector>

namespace zor {

class Option;

/// Options of which at most one is chosen. Outlives none of its options.
class OptionGroup {
  public:
    /// The chosen option, or nullptr.
    [[nodiscard]] Option* chosen() const { return current; }
    [[nodiscard]] const std::vector<Option*>& options() const { return members; }

  private:
    friend class Option;

    std::vector<Option*> members;
    Option* current = nullptr;
};

/// One choice of a group. Choosing runs its action each time, also when it is the chosen one already.
class Option : public Element {
  public:
    Option(Form& owner, OptionGroup& ownGroup, std::string name, std::string caption = {});

    [[nodiscard]] bool chosen() const { return group.current == this; }
    [[nodiscard]] OptionGroup& ownGroup() const { return group; }
    /// Chooses it and runs its action.
    void choose();
    /// Chooses it; no action runs.
    void putChosen();
    /// Takes the choice away; the group may be left with none. No action runs.
    void unchoose();

    bool click() override;

    std::function<void()> onChoose;

  private:
    OptionGroup& group;
};

} // namespace zor
