// SPDX-License-Identifier: MIT
#include "elements/cell_picture.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zor {

CellPicture::CellPicture(Form& owner, std::string name, std::size_t rowCount, std::size_t columnCount)
    : Element(owner, std::move(name))
    , ownColumns(columnCount)
    , cells(rowCount * columnCount, Cell::Absent) {}

void CellPicture::setContents(std::vector<Cell> contents) {
    contents.resize(cells.size(), Cell::Absent);
    if (cells != contents) {
        cells = std::move(contents);
        changed.emit();
    }
}

void CellPicture::pick(std::optional<std::size_t> cell) {
    if (std::exchange(pickedCell, cell) != cell) {
        changed.emit();
    }
}

void CellPicture::setPassed(std::optional<std::size_t> cellCount) {
    if (std::exchange(passedCells, cellCount) != cellCount) {
        changed.emit();
    }
}

std::string CellPicture::text() const {
    constexpr std::array<std::pair<Cell, const char*>, 4> kinds{{{Cell::Written, "written"},
                                                                 {Cell::Zero, "zero"},
                                                                 {Cell::Empty, "empty"},
                                                                 {Cell::Differs, "different"}}};
    std::string said;
    for (auto [kind, name] : kinds) {
        said += (said.empty() ? "" : ", ") + std::to_string(std::ranges::count(cells, kind)) + " " + name;
    }
    return said;
}

bool CellPicture::clickCell(std::size_t cell) {
    return act({.kind = GestureKind::ClickCell, .first = static_cast<double>(cell)}, [this, cell] {
        if (onCell && cell < cells.size()) {
            onCell(cell);
        }
    });
}

} // namespace zor
