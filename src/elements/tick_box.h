// SPDX-License-Identifier: MIT
#pragma once

#include "elements/element.h"

namespace zor {

/// A box that is ticked or not. A tick that does not change runs no action, whoever sets it.
class TickBox : public Element {
  public:
    TickBox(Form& owner, std::string name, std::string caption = {}, bool ticked = false);

    [[nodiscard]] bool ticked() const { return isTicked; }
    /// Sets it and runs its action, as a user's click would.
    void setTicked(bool ticked);
    /// Sets it; no action runs.
    void putTicked(bool ticked);

    bool click() override;
    bool tick(bool ticked) override;

    std::function<void()> onChange;

  private:
    bool isTicked;
};

} // namespace zor
