// SPDX-License-Identifier: MIT
// The picture of a memory. A cell's kind shows by its pattern, and by colour besides.
#include "desktop/adapters/qt_text.h"
#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/memory_picture.h"
#include "desktop/widgets/spoken.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace zor {

namespace {

using Cell = CellPicture::Cell;

void drawCell(QPainter& painter, const QRectF& box, Cell kind, const QPalette& palette) {
    const RoleColours& colours = roles(palette);
    painter.setPen(Qt::NoPen);
    switch (kind) {
    case Cell::Absent:
        painter.setBrush(colours.edge);
        painter.drawRect(QRectF(box.center() - QPointF(0.5, 0.5), QSizeF(1, 1)));
        break;
    case Cell::Empty:
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(colours.edge, 1));
        painter.drawRect(box.adjusted(0.5, 0.5, -0.5, -0.5));
        break;
    case Cell::Zero: {
        // Hatched, not only paler: in dark a pale cell is hardly told from an empty one.
        QColor line = colours.edge;
        painter.setBrush(QBrush(line, Qt::Dense6Pattern));
        painter.drawRect(box);
        break;
    }
    case Cell::Written:
        painter.setBrush(colours.softText);
        painter.drawRect(box);
        break;
    case Cell::Differs:
        painter.setBrush(colours.lit);
        painter.drawRect(box);
        painter.setPen(QPen(QColor(0x1a, 0x1c, 0x1f), 1.2));
        painter.drawLine(box.topLeft(), box.bottomRight());
        painter.drawLine(box.bottomLeft(), box.topRight());
        break;
    }
}

QFont rulerFont(QFont font) {
    font.setPointSizeF(font.pointSizeF() * 0.85);
    return font;
}

/// What the ruler above takes up, down to the first cell.
int rulerRoom(const QFont& font) {
    return QFontMetrics(rulerFont(font)).height() + 4;
}

class CellPictureView : public QWidget, public Spoken {
  public:
    CellPictureView(CellPicture& element, double ownRowHeight)
        : rows(static_cast<int>(element.rows()))
        , columns(static_cast<int>(element.columns()))
        , rowHeight(ownRowHeight) {
        setFocusPolicy(Qt::StrongFocus);
        setMouseTracking(true);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
        binding = new Binding(element, *this);
        binding->followFocus();
        binding->onDraw([this] {
            setAccessibleName(toQt(elementOf<CellPicture>(*binding)->text()));
            update();
        });
    }

    [[nodiscard]] QAccessible::Role spokenRole() const override { return QAccessible::Graphic; }

    [[nodiscard]] QSize sizeHint() const override {
        return {left() + columns * cellWidth() + 2,
                top() + static_cast<int>(std::ceil(rows * rowHeight)) + 2};
    }
    [[nodiscard]] QSize minimumSizeHint() const override {
        return {sizeHint().width(), top() + rows * 5 + 2};
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        auto* element = elementOf<CellPicture>(*binding);
        if (element == nullptr) {
            return;
        }
        QPainter painter(this);
        drawRulers(painter);
        painter.setPen(QPen(hasFocus() ? palette().color(QPalette::Highlight) : roles(palette()).edge, 1));
        painter.setBrush(palette().color(QPalette::Base));
        painter.drawRect(QRectF(left() - 2, top() - 2, columns * cellWidth() + 3, rows * cellHeight() + 3));
        for (std::size_t cell = 0; cell < element->contents().size(); ++cell) {
            drawCell(painter, boxOf(cell), element->contents()[cell], palette());
        }
        drawMarks(painter, *element);
    }

    bool event(QEvent* event) override {
        if (event->type() == QEvent::ToolTip) {
            auto* help = static_cast<QHelpEvent*>(event);
            auto* element = elementOf<CellPicture>(*binding);
            if (element != nullptr && element->explain) {
                QToolTip::showText(help->globalPos(), toQt(element->explain(cellAt(help->pos()))), this);
            }
            return true;
        }
        return QWidget::event(event);
    }

    void mousePressEvent(QMouseEvent* event) override {
        std::size_t cell = cellAt(event->pos());
        binding->gesture([&] { elementOf<CellPicture>(*binding)->clickCell(cell); });
    }

    void keyPressEvent(QKeyEvent* event) override {
        auto* element = elementOf<CellPicture>(*binding);
        int step = event->key() == Qt::Key_Left    ? -1
                   : event->key() == Qt::Key_Right ? 1
                   : event->key() == Qt::Key_Up    ? -columns
                   : event->key() == Qt::Key_Down  ? columns
                                                   : 0;
        if (element == nullptr || step == 0) {
            QWidget::keyPressEvent(event);
            return;
        }
        int now = element->picked() ? static_cast<int>(*element->picked()) : 0;
        int next = std::clamp(now + step, 0, rows * columns - 1);
        binding->gesture([&] { element->clickCell(static_cast<std::size_t>(next)); });
    }

  private:
    [[nodiscard]] int left() const {
        return QFontMetrics(rulerFont(font())).horizontalAdvance(QStringLiteral("000")) + 8;
    }
    [[nodiscard]] int top() const { return rulerRoom(font()); }
    [[nodiscard]] int cellWidth() const {
        return std::max(10, fontMetrics().horizontalAdvance(u'0') * 3 / 2);
    }
    [[nodiscard]] double cellHeight() const {
        return std::clamp((height() - top() - 2) / static_cast<double>(rows), 4.0, rowHeight);
    }
    [[nodiscard]] QRectF boxOf(std::size_t cell) const {
        int row = static_cast<int>(cell) / columns;
        int column = static_cast<int>(cell) % columns;
        return {left() + column * cellWidth() + 0.5, top() + row * cellHeight() + 0.5, cellWidth() - 1.5,
                cellHeight() - 1.5};
    }
    /// The nearest one: the cells are small.
    [[nodiscard]] std::size_t cellAt(const QPoint& place) const {
        int column = std::clamp((place.x() - left()) / cellWidth(), 0, columns - 1);
        int row = std::clamp(static_cast<int>((place.y() - top()) / cellHeight()), 0, rows - 1);
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
               static_cast<std::size_t>(column);
    }

    void drawRulers(QPainter& painter) const {
        constexpr int rowsBetween = 8;
        constexpr int columnsBetween = 4;
        painter.setFont(rulerFont(font()));
        painter.setPen(roles(palette()).softText);
        int line = painter.fontMetrics().height();
        for (int column = 0; column < columns; column += columnsBetween) {
            painter.drawText(QRectF(left() + column * cellWidth(), 0, 4 * cellWidth(), line),
                             Qt::AlignLeft | Qt::AlignVCenter, QString::number(column, 16).toUpper());
        }
        for (int row = 0; row < rows; row += rowsBetween) {
            painter.drawText(QRectF(0, top() + (row + 0.5) * cellHeight() - line / 2.0, left() - 6, line),
                             Qt::AlignRight | Qt::AlignVCenter,
                             QStringLiteral("%1").arg(row * columns, 3, 16, QLatin1Char('0')).toUpper());
        }
    }

    void drawMarks(QPainter& painter, const CellPicture& element) const {
        painter.setBrush(Qt::NoBrush);
        if (element.picked()) {
            painter.setPen(QPen(palette().color(QPalette::Text), 2));
            painter.drawRect(boxOf(*element.picked()).adjusted(-1, -1, 1, 1));
        }
        if (element.passed() && *element.passed() < element.contents().size()) {
            std::size_t row = *element.passed() / element.columns();
            double y = top() + static_cast<double>(row) * cellHeight();
            painter.setPen(QPen(roles(palette()).reminder, 2, Qt::DashLine));
            painter.drawLine(QPointF(left() - 2, y), QPointF(left() + columns * cellWidth(), y));
        }
    }

    int rows;
    int columns;
    /// With room enough, in pixels.
    double rowHeight;
    Binding* binding = nullptr;
};

/// The places of the bytes in a text of fixed pitch below it.
class ByteRuler : public QWidget {
  public:
    explicit ByteRuler(const QPlainTextEdit& lines)
        : text(&lines) {
        // The first line of the text is level with the first row of cells.
        int aboveFirstLine = text->frameWidth() + static_cast<int>(text->document()->documentMargin());
        setFixedHeight(rulerRoom(font()) - aboveFirstLine);
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        constexpr int bytesOfALine = 32;
        constexpr int bytesBetween = 4;
        QPainter painter(this);
        painter.setFont(rulerFont(font()));
        painter.setPen(roles(palette()).softText);
        double advance = 3 * QFontMetricsF(text->font()).horizontalAdvance(QLatin1Char('0'));
        double begin = text->frameWidth() + text->document()->documentMargin();
        for (int byte = 0; byte < bytesOfALine; byte += bytesBetween) {
            painter.drawText(QRectF(begin + byte * advance, 0, 4 * advance, height()),
                             Qt::AlignLeft | Qt::AlignTop,
                             QStringLiteral("%1").arg(byte, 2, 16, QLatin1Char('0')).toUpper());
        }
    }

  private:
    const QPlainTextEdit* text;
};

/// One cell with what it means beside it.
class CellSample : public QWidget {
  public:
    CellSample(Cell sampleKind, QString sampleMeaning)
        : kind(sampleKind)
        , meaning(std::move(sampleMeaning)) {
        setAccessibleName(meaning);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }

    [[nodiscard]] QSize sizeHint() const override {
        return {cellRoom + fontMetrics().horizontalAdvance(meaning) + 2, fontMetrics().height()};
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        drawCell(painter, QRectF(0.5, (height() - 9) / 2.0, 13, 9), kind, palette());
        painter.setPen(roles(palette()).softText);
        painter.setBrush(Qt::NoBrush);
        painter.drawText(rect().adjusted(cellRoom, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, meaning);
    }

  private:
    static constexpr int cellRoom = 19;
    Cell kind;
    QString meaning;
};

} // namespace

QWidget* cellPicture(CellPicture& element, double rowHeight) {
    return new CellPictureView(element, rowHeight);
}

QWidget* byteRuler(const QPlainTextEdit& text) {
    return new ByteRuler(text);
}

QWidget* cellSample(CellPicture::Cell kind, const QString& meaning) {
    return new CellSample(kind, meaning);
}

} // namespace zor
