// SPDX-License-Identifier: MIT
#pragma once

#include "elements/grid.h"

#include <QAbstractTableModel>

namespace zor {

class Binding;

/// A grid's rows as the toolkit's views read them. It says what changes as the grid says it, row for row.
class GridModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    /// @param gridBinding  of the view that shows it; without its element the model is empty
    explicit GridModel(Binding& gridBinding);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Types into a cell; the cell shows what the grid makes of it. The grid hears of it once the editor has
    /// gone, since what it does then may wait for the board.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    /// Rows are just coming or going: where the view stands now is none of the user's doing.
    [[nodiscard]] bool changing() const { return isChanging; }

  private:
    [[nodiscard]] const Grid* grid() const;
    [[nodiscard]] QVariant fontOf(const GridColumn& column, CellLook look) const;
    [[nodiscard]] static QVariant inkOf(CellLook look);
    [[nodiscard]] static QVariant groundOf(CellLook look);
    void take(const GridChange& change);

    Binding& binding;
    bool isChanging = false;
};

} // namespace zor
