// SPDX-License-Identifier: MIT
#pragma once

#include "elements/element.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zor {

/// How a cell of a grid looks beside its text; a view gives each its colours.
enum class CellLook {
    Plain,
    Soft,    ///< said in passing: an item's number, a bit that is 0
    Strong,  ///< stands out: a bit that is 1
    Pending, ///< edited and not sent, or being worked on
    Wrong,   ///< an error
    Mark,    ///< a sign in a column of its own
};

struct GridCell {
    GridCell() = default;
    GridCell(std::string cellText, CellLook cellLook = CellLook::Plain)
        : text(std::move(cellText))
        , look(cellLook) {}

    std::string text;
    CellLook look = CellLook::Plain;

    friend bool operator==(const GridCell&, const GridCell&) = default;
};

using GridRow = std::vector<GridCell>;

struct GridColumn {
    enum class Access { ReadOnly, Editable };

    std::string caption;
    Access access = Access::ReadOnly;
    /// How wide a view makes it, in characters of its font.
    int characters = 8;
    /// Digits and codes, in the fixed-pitch font.
    bool fixedPitch = false;
};

/// What becomes of a grid's rows. A change is told twice, before and behind it, so that a view can say the
/// same to its toolkit; texts of rows that stay are told behind it only.
struct GridChange {
    enum class Kind {
        Replaced, ///< all rows are other ones
        Inserted,
        Removed,
        Changed, ///< told behind it only
    };
    enum class Moment { Before, After };

    Kind kind = Kind::Replaced;
    Moment moment = Moment::After;
    /// From 0; both are 0 where all rows are other ones.
    std::size_t first = 0;
    std::size_t count = 0;
};

/// A table: columns with captions, rows of texts, one row picked at most, some columns with cells that take
/// typing. Rows count from 0.
///
/// It says which rows changed, never "all" for one, so that a table of thousands costs what has changed in
/// it. The picked row goes with its row: rows put in or taken out above it do not move the choice to another.
class Grid : public Element {
  public:
    Grid(Form& owner, std::string name, std::vector<GridColumn> columns);

    [[nodiscard]] const std::vector<GridColumn>& columns() const { return ownColumns; }
    /// The first column of that caption.
    [[nodiscard]] std::optional<std::size_t> column(std::string_view caption) const;
    /// Makes a column wider or narrower; beyond what a screen has it is taken as that.
    void setColumnWidth(std::size_t column, int characters);
    [[nodiscard]] std::size_t rowCount() const { return rows.size(); }
    [[nodiscard]] const GridRow& row(std::size_t position) const { return rows.at(position); }
    [[nodiscard]] const GridCell& cell(std::size_t row, std::size_t column) const {
        return rows.at(row).at(column);
    }

    /// Replaces all rows; none is picked then. Short rows are filled up with empty cells. No action runs.
    void setRows(std::vector<GridRow> newRows);
    void insertRows(std::size_t position, std::vector<GridRow> newRows);
    void removeRows(std::size_t position, std::size_t count);
    void setRow(std::size_t position, GridRow cells);
    void setCell(std::size_t row, std::size_t column, GridCell cell);

    [[nodiscard]] std::optional<std::size_t> picked() const { return pickedRow; }
    /// Picks a row, or none; no action runs.
    void putPicked(std::optional<std::size_t> position);

    [[nodiscard]] bool editable(std::size_t row, std::size_t column) const;

    // The user's door.
    /// Picks a row and runs the action, also on the row that is picked already.
    bool pickRow(std::size_t position);
    /// Types a text into a cell: its row is picked first, then the edit action runs. The cell shows what that
    /// action puts there, not what was typed.
    bool editCell(std::size_t row, std::size_t column, std::string_view text);

    std::function<void()> onPick;
    std::function<void(std::size_t row, std::size_t column, const std::string& text)> onCellEdit;

    Signal<const GridChange&> rowsChanged;
    /// A column is wider or narrower than it was.
    Signal<> columnsChanged;
    /// Another row is picked, or none.
    Signal<> pickChanged;

  private:
    void fit(GridRow& cells) const;
    void tell(GridChange::Kind kind, GridChange::Moment moment, std::size_t first, std::size_t count);

    std::vector<GridColumn> ownColumns;
    std::vector<GridRow> rows;
    std::optional<std::size_t> pickedRow;
};

} // namespace zor
