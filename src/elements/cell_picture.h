// SPDX-License-Identifier: MIT
#pragma once

#include "elements/element.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zor {

/// A picture of a memory: rows of small cells, each of one kind that a view tells apart by pattern and
/// colour. One cell may be picked, and a mark may show how far a run through the memory has come.
class CellPicture : public Element {
  public:
    enum class Cell : std::uint8_t {
        /// Nothing is meant to stand there.
        Absent,
        /// As an erased memory has it.
        Empty,
        /// Padding.
        Zero,
        Written,
        /// What is there and what should be are not the same.
        Differs,
    };

    CellPicture(Form& owner, std::string name, std::size_t rowCount, std::size_t columnCount);

    [[nodiscard]] std::size_t rows() const { return cells.size() / ownColumns; }
    [[nodiscard]] std::size_t columns() const { return ownColumns; }
    /// Row by row.
    [[nodiscard]] const std::vector<Cell>& contents() const { return cells; }
    /// Cells that are not given are Absent; those too many are left out.
    void setContents(std::vector<Cell> contents);

    [[nodiscard]] std::optional<std::size_t> picked() const { return pickedCell; }
    /// Picks a cell, or none; no action runs.
    void pick(std::optional<std::size_t> cell);

    /// How many cells a run has passed; nothing while none runs.
    [[nodiscard]] std::optional<std::size_t> passed() const { return passedCells; }
    void setPassed(std::optional<std::size_t> cellCount);

    /// How many cells are of that kind, the picked cell and the mark: what a reader without eyes is told.
    [[nodiscard]] std::string text() const override;

    /// The user clicks a cell.
    bool clickCell(std::size_t cell);

    /// What a pointer resting on a cell is told.
    std::function<std::string(std::size_t)> explain;
    std::function<void(std::size_t)> onCell;

  private:
    std::size_t ownColumns;
    std::vector<Cell> cells;
    std::optional<std::size_t> pickedCell;
    std::optional<std::size_t> passedCells;
};

} // namespace zor
