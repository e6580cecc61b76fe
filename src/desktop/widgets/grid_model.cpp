// SPDX-License-Identifier: MIT
#include "desktop/widgets/grid_model.h"

#include "desktop/adapters/qt_text.h"
#include "desktop/widgets/binding.h"
#include "desktop/widgets/colours.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPalette>
#include <QPersistentModelIndex>
#include <QTimer>
#include <QWidget>

namespace zor {

GridModel::GridModel(Binding& gridBinding)
    : QAbstractTableModel(gridBinding.widget())
    , binding(gridBinding) {
    binding.follow(elementOf<Grid>(binding)->rowsChanged, [this](const GridChange& change) { take(change); });
}

const Grid* GridModel::grid() const {
    return elementOf<Grid>(binding);
}

void GridModel::take(const GridChange& change) {
    using Kind = GridChange::Kind;
    bool before = change.moment == GridChange::Moment::Before;
    isChanging = before;
    int first = static_cast<int>(change.first);
    int last = first + static_cast<int>(change.count) - 1;
    switch (change.kind) {
    case Kind::Replaced:
        before ? beginResetModel() : endResetModel();
        return;
    case Kind::Inserted:
        before ? beginInsertRows({}, first, last) : endInsertRows();
        return;
    case Kind::Removed:
        before ? beginRemoveRows({}, first, last) : endRemoveRows();
        return;
    case Kind::Changed:
        if (!before) {
            Q_EMIT dataChanged(index(first, 0), index(last, columnCount() - 1));
        }
        return;
    }
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || grid() == nullptr ? 0 : static_cast<int>(grid()->rowCount());
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() || grid() == nullptr ? 0 : static_cast<int>(grid()->columns().size());
}

QVariant GridModel::fontOf(const GridColumn& column, CellLook look) const {
    bool strong = look == CellLook::Strong || look == CellLook::Wrong || look == CellLook::Pending;
    if (!column.fixedPitch && !strong) {
        return {};
    }
    QFont font = binding.widget()->font();
    if (column.fixedPitch) {
        QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        fixed.setPointSizeF(font.pointSizeF());
        font = fixed;
    }
    font.setBold(strong);
    return font;
}

QVariant GridModel::inkOf(CellLook look) {
    const RoleColours& colours = roles(QApplication::palette());
    switch (look) {
    case CellLook::Soft:
        return colours.softText;
    case CellLook::Pending:
        return colours.pendingText;
    case CellLook::Wrong:
        return colours.error;
    case CellLook::Mark:
        return colours.reminder;
    case CellLook::Plain:
    case CellLook::Strong:
        return {};
    }
    return {};
}

QVariant GridModel::groundOf(CellLook look) {
    if (look == CellLook::Pending) {
        return roles(QApplication::palette()).pendingBack;
    }
    // A quiet ground: the strong colours are for what can be clicked.
    return look == CellLook::Strong ? QVariant(QApplication::palette().color(QPalette::Midlight))
                                    : QVariant();
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (grid() == nullptr || !index.isValid() || index.row() >= rowCount()) {
        return {};
    }
    const GridCell& cell =
        grid()->cell(static_cast<std::size_t>(index.row()), static_cast<std::size_t>(index.column()));
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
    case Qt::ToolTipRole:
        return toQt(cell.text);
    case Qt::FontRole:
        return fontOf(grid()->columns()[static_cast<std::size_t>(index.column())], cell.look);
    case Qt::ForegroundRole:
        return inkOf(cell.look);
    case Qt::BackgroundRole:
        return groundOf(cell.look);
    default:
        return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || grid() == nullptr || section < 0 || section >= columnCount()) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return toQt(grid()->columns()[static_cast<std::size_t>(section)].caption);
    }
    return role == Qt::TextAlignmentRole ? QVariant(int{Qt::AlignLeft | Qt::AlignVCenter}) : QVariant();
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    if (grid() == nullptr || !index.isValid()) {
        return Qt::NoItemFlags;
    }
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    bool editable =
        grid()->editable(static_cast<std::size_t>(index.row()), static_cast<std::size_t>(index.column()));
    return editable ? flags | Qt::ItemIsEditable : flags;
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || grid() == nullptr || !flags(index).testFlag(Qt::ItemIsEditable)) {
        return false;
    }
    QTimer::singleShot(
        0, this, [this, place = QPersistentModelIndex(index), text = fromQt(value.toString())] {
            if (place.isValid() && grid() != nullptr) {
                binding.gesture([&] {
                    elementOf<Grid>(binding)->editCell(static_cast<std::size_t>(place.row()),
                                                       static_cast<std::size_t>(place.column()), text);
                });
            }
        });
    return true;
}

} // namespace zor
