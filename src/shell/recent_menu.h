// SPDX-License-Identifier: MIT
#pragma once

#include "elements/menu.h"
#include "link/recent_files.h"

#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace zor {

/// The menu of the configuration files used last: ten of all, and behind them a menu a chip with its own ten.
/// Belongs to the main window's menu bar.
class RecentMenu {
  public:
    /// @param parent  the menu that it stands in
    RecentMenu(Form& main, MenuEntry& parent);

    /// Shows these files; a click opens one.
    void show(const RecentFiles& files);

    std::function<void(const std::string& path)> onOpen;

    MenuEntry mnuRecent;

  private:
    /// Entries side by side that show a list of paths.
    struct Rows {
        std::deque<MenuEntry> entries;
        std::vector<std::string> paths;
    };
    struct Chip {
        Chip(Form& main, MenuEntry& parent, const std::string& name, std::string ownKind, std::string chip)
            : kind(std::move(ownKind))
            , menu(main, &parent, name, std::move(chip)) {}

        std::string kind;
        MenuEntry menu;
        Rows rows;
    };
    void makeRows(Form& main, MenuEntry& parent, const std::string& name, Rows& rows);
    static void fill(Rows& rows, std::vector<std::string> paths);

    Rows newest;
    std::deque<Chip> chips;
};

} // namespace zor
