// SPDX-License-Identifier: MIT
#pragma once

#include "elements/desk.h"
#include "elements/menu.h"

#include <deque>
#include <map>
#include <vector>

namespace zor {

/// The menu of the open windows inside the main one, in the order of their making; the one in front bears the
/// tick. Belongs to the main window's menu bar.
class WindowMenu {
  public:
    explicit WindowMenu(Form& main);

    /// A window came, went, or came to the front.
    Signal<> changed;

    MenuEntry mnuWindow;
    /// So many have a key of their own, Ctrl and their number.
    static constexpr std::size_t most = 9;
    std::deque<MenuEntry> entries;

  private:
    void watch(Form& form);
    void refresh();

    Desk& desk;
    std::vector<Form*> shown;
    std::map<const Form*, std::vector<Subscription>> forms;
    Subscription opening;
    Subscription removing;
};

} // namespace zor
