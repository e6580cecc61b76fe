// SPDX-License-Identifier: MIT
#include "elements/grid.h"

#include <algorithm>
#include <cassert>
#include <iterator>
#include <utility>

namespace zor {

using Kind = GridChange::Kind;
using Moment = GridChange::Moment;

Grid::Grid(Form& owner, std::string name, std::vector<GridColumn> columns)
    : Element(owner, std::move(name))
    , ownColumns(std::move(columns)) {}

std::optional<std::size_t> Grid::column(std::string_view caption) const {
    auto place = std::ranges::find(ownColumns, caption, &GridColumn::caption);
    if (place == ownColumns.end()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(place - ownColumns.begin());
}

void Grid::setColumnWidth(std::size_t column, int characters) {
    constexpr int widest = 500;
    int width = std::clamp(characters, 1, widest);
    if (std::exchange(ownColumns.at(column).characters, width) != width) {
        columnsChanged.emit();
    }
}

void Grid::fit(GridRow& cells) const {
    assert(cells.size() <= ownColumns.size() && "a row has more cells than the grid has columns");
    cells.resize(ownColumns.size());
}

void Grid::tell(Kind kind, Moment moment, std::size_t first, std::size_t count) {
    rowsChanged.emit({kind, moment, first, count});
}

void Grid::setRows(std::vector<GridRow> newRows) {
    for (GridRow& cells : newRows) {
        fit(cells);
    }
    tell(Kind::Replaced, Moment::Before, 0, 0);
    rows = std::move(newRows);
    bool wasPicked = std::exchange(pickedRow, std::nullopt).has_value();
    tell(Kind::Replaced, Moment::After, 0, 0);
    if (wasPicked) {
        pickChanged.emit();
    }
}

void Grid::insertRows(std::size_t position, std::vector<GridRow> newRows) {
    assert(position <= rows.size());
    if (newRows.empty()) {
        return;
    }
    for (GridRow& cells : newRows) {
        fit(cells);
    }
    std::size_t count = newRows.size();
    tell(Kind::Inserted, Moment::Before, position, count);
    rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(position),
                std::make_move_iterator(newRows.begin()), std::make_move_iterator(newRows.end()));
    if (pickedRow && *pickedRow >= position) {
        *pickedRow += count;
    }
    tell(Kind::Inserted, Moment::After, position, count);
}

void Grid::removeRows(std::size_t position, std::size_t count) {
    assert(position + count <= rows.size());
    if (count == 0) {
        return;
    }
    tell(Kind::Removed, Moment::Before, position, count);
    auto first = rows.begin() + static_cast<std::ptrdiff_t>(position);
    rows.erase(first, first + static_cast<std::ptrdiff_t>(count));
    bool lost = false;
    if (pickedRow && *pickedRow >= position) {
        lost = *pickedRow < position + count;
        pickedRow = lost ? std::nullopt : std::optional(*pickedRow - count);
    }
    tell(Kind::Removed, Moment::After, position, count);
    if (lost) {
        pickChanged.emit();
    }
}

void Grid::setRow(std::size_t position, GridRow cells) {
    fit(cells);
    if (rows.at(position) != cells) {
        rows[position] = std::move(cells);
        tell(Kind::Changed, Moment::After, position, 1);
    }
}

void Grid::setCell(std::size_t row, std::size_t column, GridCell cell) {
    GridCell& held = rows.at(row).at(column);
    if (held != cell) {
        held = std::move(cell);
        tell(Kind::Changed, Moment::After, row, 1);
    }
}

void Grid::putPicked(std::optional<std::size_t> position) {
    assert(!position || *position < rows.size());
    if (std::exchange(pickedRow, position) != position) {
        pickChanged.emit();
    }
}

bool Grid::editable(std::size_t row, std::size_t column) const {
    return row < rows.size() && column < ownColumns.size() &&
           ownColumns[column].access == GridColumn::Access::Editable;
}

bool Grid::pickRow(std::size_t position) {
    if (position >= rows.size()) {
        return false;
    }
    return act({.kind = GestureKind::PickRow, .first = static_cast<double>(position)}, [this, position] {
        putPicked(position);
        if (onPick) {
            onPick();
        }
    });
}

bool Grid::editCell(std::size_t row, std::size_t column, std::string_view text) {
    if (!editable(row, column)) {
        return false;
    }
    Gesture gesture{GestureKind::EditCell, text, static_cast<double>(row), static_cast<double>(column)};
    return act(gesture, [&] {
        if (pickedRow != row) {
            pickRow(row);
        }
        // What picking the row did may have changed the table.
        if (onCellEdit && editable(row, column)) {
            onCellEdit(row, column, std::string(text));
        }
    });
}

} // namespace zor
