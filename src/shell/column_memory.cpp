// SPDX-License-Identifier: MIT
#include "shell/column_memory.h"

#include "elements/form.h"
#include "link/bench.h"
#include "shell/settings.h"

namespace zor {

namespace {

constexpr std::chrono::milliseconds restTime{1000};

std::string nameOf(const Grid& grid) {
    return grid.form().name() + "." + grid.name();
}

std::vector<int> widthsOf(const Grid& grid) {
    std::vector<int> widths;
    for (const GridColumn& column : grid.columns()) {
        widths.push_back(column.characters);
    }
    return widths;
}

} // namespace

ColumnMemory::ColumnMemory(Bench& ownBench)
    : bench(ownBench)
    , opened(bench.desk.opened.subscribe([this](Form& form) { attend(form); }))
    , removed(bench.desk.removed.subscribe([this](Form& form) { attended.erase(&form); }))
    , rest(bench.platform.loop, [this] { keep(); }) {}

ColumnMemory::~ColumnMemory() {
    keep();
}

void ColumnMemory::attend(Form& form) {
    if (attended.contains(&form)) {
        return;
    }
    std::vector<Subscription>& subscriptions = attended[&form];
    OwnPreferences preferences = readOwnPreferences(bench.platform);
    for (Element* element : form.elements()) {
        auto* grid = dynamic_cast<Grid*>(element);
        if (grid == nullptr) {
            continue;
        }
        auto known = preferences.columns.find(nameOf(*grid));
        // A grid of another version of the program may have had other columns.
        if (known != preferences.columns.end() && known->second.size() == grid->columns().size()) {
            for (std::size_t column = 0; column < known->second.size(); ++column) {
                grid->setColumnWidth(column, known->second[column]);
            }
        }
        subscriptions.push_back(grid->columnsChanged.subscribe([this, grid] { take(*grid); }));
    }
}

void ColumnMemory::take(const Grid& grid) {
    changed[nameOf(grid)] = widthsOf(grid);
    rest.stop();
    rest.start(restTime);
}

void ColumnMemory::keep() {
    rest.stop();
    if (changed.empty()) {
        return;
    }
    OwnPreferences preferences = readOwnPreferences(bench.platform);
    for (auto& [grid, widths] : changed) {
        preferences.columns[grid] = std::move(widths);
    }
    changed.clear();
    try {
        writeOwnPreferences(bench.platform, preferences);
    } catch (const ToolError&) {
        // They then last as long as the window; nothing but comfort is lost.
    }
}

} // namespace zor
