// SPDX-License-Identifier: MIT
#pragma once

#include "elements/element.h"

#include <vector>

namespace zor {

/// A strip of titled pages, one of them turned up. Its form shows the page's frame.
class TabStrip : public Element {
  public:
    TabStrip(Form& owner, std::string name, std::vector<std::string> titles);

    [[nodiscard]] const std::vector<std::string>& titles() const { return pageTitles; }
    /// From 1.
    [[nodiscard]] int page() const { return current; }
    /// Turns a page up and runs the action if it is another one.
    void turn(int page);

    /// The user turns a page up; false for a page that is not there.
    bool choosePosition(int page) override;
    [[nodiscard]] std::string text() const override {
        return pageTitles[static_cast<std::size_t>(current - 1)];
    }

    std::function<void()> onTurn;

  private:
    std::vector<std::string> pageTitles;
    int current = 1;
};

} // namespace zor
