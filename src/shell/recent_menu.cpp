// SPDX-License-Identifier: MIT
#include "shell/recent_menu.h"

#include "shell/panel_table.h"
#include "support/file_name.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace zor {

namespace {

/// "&1 lab.tc (/home/me/radio)": a mark for the keyboard, the name, where it lies.
std::string captionOf(std::size_t number, const std::string& path) {
    std::filesystem::path file = pathOf(path);
    std::string text = nameOf(file.filename()) + " (" + nameOf(file.parent_path()) + ")";
    std::string caption = number < 10 ? "&" + std::to_string(number) + " " : std::string();
    for (char c : text) {
        // A name's own sign is no mark.
        caption += c == '&' ? "&&" : std::string(1, c);
    }
    return caption;
}

std::string chipOfPanel(std::string_view panel) {
    const std::vector<PanelChoice>& choices = panelChoices();
    return std::find_if(choices.begin(), choices.end(),
                        [panel](const PanelChoice& choice) { return choice.panel == panel; })
        ->caption;
}

} // namespace

RecentMenu::RecentMenu(Form& main, MenuEntry& parent)
    : mnuRecent(main, &parent, "mnuRecent", "Recent files") {
    makeRows(main, mnuRecent, "mnuRecent", newest);
    for (const PanelRow& row : panelRows()) {
        std::string name = std::string("mnuRecent_") + row.fileKind;
        Chip& chip = chips.emplace_back(main, mnuRecent, name, row.fileKind, chipOfPanel(row.name));
        makeRows(main, chip.menu, name, chip.rows);
    }
    chips.front().menu.setBeginsSection(true);
    mnuRecent.setEnabled(false);
}

void RecentMenu::makeRows(Form& main, MenuEntry& parent, const std::string& name, Rows& rows) {
    for (std::size_t row = 0; row < RecentFiles::most; ++row) {
        MenuEntry& entry =
            rows.entries.emplace_back(main, &parent, name + "(" + std::to_string(row + 1) + ")", "");
        entry.setVisible(false);
        entry.onClick = [this, &rows, row] {
            // The list moves when the file is used.
            std::string path = rows.paths[row];
            if (onOpen) {
                onOpen(path);
            }
        };
    }
}

void RecentMenu::fill(Rows& rows, std::vector<std::string> paths) {
    paths.resize(std::min(paths.size(), RecentFiles::most));
    rows.paths = std::move(paths);
    for (std::size_t row = 0; row < rows.entries.size(); ++row) {
        bool used = row < rows.paths.size();
        rows.entries[row].setVisible(used);
        if (used) {
            rows.entries[row].setCaption(captionOf(row + 1, rows.paths[row]));
        }
    }
}

void RecentMenu::show(const RecentFiles& files) {
    fill(newest, files.all());
    for (Chip& chip : chips) {
        fill(chip.rows, files.ofKind(chip.kind));
        chip.menu.setVisible(!chip.rows.paths.empty());
    }
    mnuRecent.setEnabled(!files.all().empty());
}

} // namespace zor
