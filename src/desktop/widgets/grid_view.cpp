// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_text.h"
#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/grid_model.h"

#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>

namespace zor {

namespace {

constexpr int leastRows = 3;
constexpr int captionSpace = 5;
/// Beside a column's characters, in pixels.
constexpr int columnRoom = 8;

/// A picked row's texts keep their own inks: a sign stays a sign.
class KeepsInk : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        QVariant ink = index.data(Qt::ForegroundRole);
        if (ink.isValid()) {
            option->palette.setColor(QPalette::HighlightedText, ink.value<QColor>());
        }
    }
};

/// Rows of one line, one row picked at most, the last column as wide as there is room.
class GridView : public QTableView {
  public:
    GridView(Grid& element, int lineCount)
        : lines(lineCount) {
        verticalHeader()->hide();
        setShowGrid(false);
        setAlternatingRowColors(true);
        setWordWrap(false);
        setTabKeyNavigation(false);
        setItemDelegate(new KeepsInk(this));
        setSelectionBehavior(QAbstractItemView::SelectRows);
        setSelectionMode(QAbstractItemView::SingleSelection);
        setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
        horizontalHeader()->setStretchLastSection(true);
        horizontalHeader()->setHighlightSections(false);

        binding = new Binding(element, *this);
        binding->followFocus();
        model = new GridModel(*binding);
        setModel(model);
        connect(selectionModel(), &QItemSelectionModel::currentRowChanged, binding,
                [this](const QModelIndex& current) { pick(current.row()); });
        binding->follow(element.rowsChanged, [this](const GridChange& change) {
            if (change.moment == GridChange::Moment::After) {
                showPicked();
            }
        });
        binding->follow(element.pickChanged, [this] { showPicked(); });
        binding->onDraw([this] { showPicked(); });
        fitColumns();
        binding->follow(element.columnsChanged, [this] { fitColumns(); });
        connect(horizontalHeader(), &QHeaderView::sectionResized, binding,
                [this](int column, int, int width) { takeWidth(column, width); });
        tintPicked();
    }

    [[nodiscard]] QSize sizeHint() const override {
        int width = 2 * frameWidth() + style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
        for (const GridColumn& column : elementOf<Grid>(*binding)->columns()) {
            width += columnWidthOf(column);
        }
        return {width, heightOf(lines)};
    }
    [[nodiscard]] QSize minimumSizeHint() const override { return {width() / 4, heightOf(leastRows)}; }

  protected:
    void changeEvent(QEvent* event) override {
        QTableView::changeEvent(event);
        if (event->type() == QEvent::FontChange) {
            fitColumns();
        } else if (event->type() == QEvent::PaletteChange && !tinting) {
            tintPicked();
        }
    }

    void focusInEvent(QFocusEvent* event) override {
        // Where no row is the current one the toolkit takes the first; a user did not ask for that either.
        showing = true;
        QTableView::focusInEvent(event);
        showing = false;
        if (!elementOf<Grid>(*binding)->picked()) {
            selectionModel()->clear();
        }
    }

  private:
    [[nodiscard]] int rowHeightWanted() const { return fontMetrics().height() + 4; }
    [[nodiscard]] int heightOf(int rowCount) const {
        return horizontalHeader()->sizeHint().height() + rowHeightWanted() * rowCount + 2 * frameWidth();
    }
    [[nodiscard]] int columnWidthOf(const GridColumn& column) const {
        return fontMetrics().horizontalAdvance(QLatin1Char('0')) * (column.characters + 1) + columnRoom;
    }

    /// A user drags a column's edge. The last column is as wide as there is room, whoever asks.
    void takeWidth(int column, int width) {
        auto& grid = *elementOf<Grid>(*binding);
        if (fitting || column == model->columnCount({}) - 1) {
            return;
        }
        fitting = true;
        int character = fontMetrics().horizontalAdvance(QLatin1Char('0'));
        grid.setColumnWidth(static_cast<std::size_t>(column),
                            (width - columnRoom + character / 2) / character - 1);
        fitting = false;
    }

    void fitColumns() {
        if (fitting) {
            return;
        }
        fitting = true;
        verticalHeader()->setMinimumSectionSize(rowHeightWanted());
        verticalHeader()->setDefaultSectionSize(rowHeightWanted());
        horizontalHeader()->setMinimumSectionSize(fontMetrics().horizontalAdvance(QLatin1Char('0')));
        const std::vector<GridColumn>& columns = elementOf<Grid>(*binding)->columns();
        for (std::size_t column = 0; column < columns.size(); ++column) {
            setColumnWidth(static_cast<int>(column), columnWidthOf(columns[column]));
        }
        fitting = false;
    }

    /// A picked row is told quietly: its texts keep their colours.
    void tintPicked() {
        tinting = true;
        QPalette colours = palette();
        colours.setColor(QPalette::Highlight, roles(colours).pickedRow);
        colours.setColor(QPalette::HighlightedText, colours.color(QPalette::Text));
        setPalette(colours);
        tinting = false;
    }

    void pick(int row) {
        // Where the picked row goes, the toolkit moves on to its neighbour; a user did not ask for that.
        if (row >= 0 && !showing && !model->changing()) {
            binding->gesture([&] { elementOf<Grid>(*binding)->pickRow(static_cast<std::size_t>(row)); });
        }
    }

    void showPicked() {
        std::optional<std::size_t> picked = elementOf<Grid>(*binding)->picked();
        int row = picked ? static_cast<int>(*picked) : -1;
        if (currentIndex().row() == row) {
            return;
        }
        showing = true;
        if (row < 0) {
            selectionModel()->clear();
        } else {
            selectRow(row);
        }
        showing = false;
    }

    int lines;
    Binding* binding;
    GridModel* model = nullptr;
    bool showing = false;
    bool tinting = false;
    /// The view itself sets widths, or passes one on.
    bool fitting = false;
};

} // namespace

QWidget* gridView(Grid& element, int lines) {
    return new GridView(element, lines);
}

QWidget* captionedGrid(Grid& element, int lines) {
    auto* whole = new QWidget;
    auto* layout = new QVBoxLayout(whole);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(captionSpace);
    auto* caption = new QLabel;
    caption->setTextFormat(Qt::PlainText);
    layout->addWidget(caption);
    auto* view = new GridView(element, lines);
    layout->addWidget(view, 1);
    Binding* binding = Binding::of(view);
    binding->addCompanion(*caption);
    auto show = [binding, caption] { caption->setText(toQt(binding->element()->caption())); };
    binding->follow(element.changed, show);
    show();
    return whole;
}

} // namespace zor
