// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_text.h"
#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/spoken.h"
#include "elements/plot.h"

#include <QBuffer>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QImage>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace zor {

namespace {

/// A picture is so much finer than the screen, so that it can be printed.
constexpr int pictureScale = 2;
constexpr QSize smallestPicture(720, 240);
/// Between what stands beside one another.
constexpr int gap = 6;
constexpr int tickLength = 4;
constexpr int markSize = 8;
/// So many points the cursor goes with Shift.
constexpr int cursorStride = 10;

QString numberText(double value) {
    return QString::number(value, 'g', 10);
}

QString captionOf(const PlotAxis& axis) {
    return toQt(axis.text());
}

/// Draws a plot into a rectangle: title, axes, then the values, from the palette's own colours.
class PlotPainter {
  public:
    PlotPainter(QPainter& target, const Plot& shownPlot, const QRect& room, const QPalette& colours)
        : painter(target)
        , plot(shownPlot)
        , palette(colours)
        , soft(roles(colours).softText)
        , line(colours.color(QPalette::Link))
        , metrics(target.fontMetrics())
        , whole(room) {
        yMost = std::clamp(whole.height() / (metrics.height() * 2), 2, 8);
        yTicks = plot.yTicks(yMost);
        yRange = plot.yRange(yMost);
        layOut();
    }

    void draw() {
        painter.setRenderHint(QPainter::Antialiasing, false);
        drawTitle();
        drawAxes();
        painter.save();
        painter.setClipRect(area.adjusted(0, -markSize, 1, 1));
        if (plot.traits().style == Plot::Style::Bars) {
            drawBars();
        } else {
            drawLine();
        }
        if (!plot.traits().gapCaption.empty()) {
            drawGaps();
        }
        drawUprights();
        painter.restore();
        painter.setPen(roles(palette).edge);
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(area);
    }

    /// The values' own rectangle.
    [[nodiscard]] const QRect& values() const { return area; }
    [[nodiscard]] double valueAt(int x) const {
        double place = area.width() > 0 ? (x - area.left()) / static_cast<double>(area.width()) : 0;
        return Plot::valueAt(place, xRange, plot.traits().x.scale);
    }
    [[nodiscard]] double xOf(double value) const {
        return area.left() + Plot::share(value, xRange, plot.traits().x.scale) * area.width();
    }

  private:
    void layOut() {
        int left = 0;
        for (const PlotTick& tick : yTicks) {
            left = std::max(left, metrics.horizontalAdvance(toQt(tick.text)));
        }
        // Title and the upright axis' text above, the marks' numbers and the other axis' text below.
        int above = 2 * metrics.height() + gap + markSize;
        int below = 2 * metrics.height() + gap + tickLength;
        area = whole.adjusted(left + tickLength + gap, above,
                              -metrics.horizontalAdvance(QLatin1Char('0')) * 2, -below);
        int widest = 1;
        // Two rounds: fewer marks may need less room each.
        xMost = 12;
        for (int round = 0; round < 2; ++round) {
            for (const PlotTick& tick : plot.xTicks(xMost)) {
                widest = std::max(widest, metrics.horizontalAdvance(toQt(tick.text)));
            }
            xMost = std::clamp(area.width() / (widest * 2), 2, 12);
        }
        xTicks = plot.xTicks(xMost);
        xRange = plot.xRange(xMost);
    }

    void drawTitle() {
        QRect row(whole.left(), whole.top(), whole.width(), metrics.height());
        painter.setPen(palette.color(QPalette::WindowText));
        painter.drawText(row, Qt::AlignLeft | Qt::AlignVCenter, toQt(plot.text()));
        const std::string& gapCaption = plot.traits().gapCaption;
        if (!gapCaption.empty()) {
            int left = row.left() + metrics.horizontalAdvance(toQt(plot.text())) + 3 * gap;
            drawMark(left + markSize / 2.0, row.bottom() - 1.0, row.top() + 3.0);
            painter.setPen(soft);
            painter.drawText(row.adjusted(left - row.left() + markSize + gap, 0, 0, 0),
                             Qt::AlignLeft | Qt::AlignVCenter, toQt(gapCaption));
        }
        painter.setPen(soft);
        painter.drawText(row.translated(0, metrics.height() + 1), Qt::AlignLeft | Qt::AlignVCenter,
                         captionOf(plot.traits().y));
        painter.drawText(
            QRect(area.left(), whole.bottom() - metrics.height(), area.width(), metrics.height()),
            Qt::AlignHCenter | Qt::AlignVCenter, captionOf(plot.traits().x));
    }

    void drawAxes() {
        painter.fillRect(area, palette.color(QPalette::Base));
        QColor grid = palette.color(QPalette::Midlight);
        for (const PlotTick& tick : yTicks) {
            double y = yOf(tick.at);
            painter.setPen(grid);
            painter.drawLine(QPointF(area.left(), y), QPointF(area.right(), y));
            painter.setPen(soft);
            painter.drawLine(QPointF(area.left() - tickLength, y), QPointF(area.left(), y));
            painter.drawText(QRectF(whole.left(), y - metrics.height() / 2.0,
                                    area.left() - tickLength - gap / 2.0 - whole.left(), metrics.height()),
                             Qt::AlignRight | Qt::AlignVCenter, toQt(tick.text));
        }
        painter.setPen(soft);
        for (const PlotTick& tick : xTicks) {
            double x = xOf(tick.at);
            painter.drawLine(QPointF(x, area.bottom()), QPointF(x, area.bottom() + tickLength));
            QString text = toQt(tick.text);
            double width = metrics.horizontalAdvance(text) + 2;
            double left = std::clamp(x - width / 2, static_cast<double>(whole.left()), whole.right() - width);
            painter.drawText(QRectF(left, area.bottom() + tickLength, width, metrics.height()),
                             Qt::AlignCenter, text);
        }
    }

    void drawLine() {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(line, 1.5));
        painter.setBrush(line);
        QPainterPath path;
        bool broken = true;
        QPointF last;
        std::size_t run = 0;
        auto endRun = [&] {
            // A value between two gaps has no neighbour to be joined with.
            if (run == 1) {
                painter.drawEllipse(last, 1.5, 1.5);
            }
            run = 0;
            broken = true;
        };
        for (const PlotPoint& point : plot.points()) {
            if (!point.y) {
                endRun();
                continue;
            }
            last = {xOf(point.x), yOf(*point.y)};
            if (std::exchange(broken, false)) {
                path.moveTo(last);
            } else {
                path.lineTo(last);
            }
            ++run;
        }
        endRun();
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(path);
        painter.setRenderHint(QPainter::Antialiasing, false);
    }

    void drawBars() {
        painter.setPen(Qt::NoPen);
        for (const PlotPoint& point : plot.points()) {
            if (!point.y) {
                continue;
            }
            double left = xOf(point.x - 0.5);
            double right = xOf(point.x + 0.5);
            // A line of ground between neighbours, where there is room for one.
            double width = right - left >= 3 ? right - left - 1 : right - left;
            painter.fillRect(QRectF(left, yOf(*point.y), width, area.bottom() + 1 - yOf(*point.y)), line);
        }
    }

    void drawGaps() {
        for (const PlotPoint& point : plot.points()) {
            if (!point.y) {
                drawMark(xOf(point.x), area.bottom(), area.top() - markSize);
            }
        }
    }

    /// The marks with their letters, and the cursor in dashes.
    void drawUprights() {
        QColor ink = palette.color(QPalette::WindowText);
        for (const PlotMark& mark : plot.marks()) {
            drawUpright(mark.x, QPen(ink, 1), toQt(mark.caption));
        }
        if (plot.cursor()) {
            drawUpright(*plot.cursor(), QPen(ink, 1, Qt::DashLine), {});
        }
    }

    void drawUpright(double value, const QPen& pen, const QString& text) {
        if (value < xRange.low || value > xRange.high) {
            return;
        }
        double x = xOf(value);
        painter.setPen(pen);
        painter.drawLine(QPointF(x, area.top()), QPointF(x, area.bottom()));
        if (text.isEmpty()) {
            return;
        }
        // Beside the line, on the side that has the room.
        double width = metrics.horizontalAdvance(text) + gap;
        double left = x + width <= area.right() ? x : x - width;
        painter.drawText(QRectF(left, area.top() + 1.0, width, metrics.height()), Qt::AlignCenter, text);
    }

    /// A triangle that points down, on a line: seen without its colour too.
    void drawMark(double x, double bottom, double top) {
        QColor colour = roles(palette).error;
        painter.setPen(colour);
        painter.drawLine(QPointF(x, top + markSize), QPointF(x, bottom));
        painter.setBrush(colour);
        double half = markSize / 2.0;
        painter.drawPolygon(
            QPolygonF({QPointF(x - half, top), QPointF(x + half, top), QPointF(x, top + markSize)}));
    }

    [[nodiscard]] double yOf(double value) const {
        return area.bottom() - Plot::share(value, yRange, plot.traits().y.scale) * area.height();
    }

    QPainter& painter;
    const Plot& plot;
    const QPalette& palette;
    QColor soft;
    QColor line;
    QFontMetrics metrics;
    QRect whole;
    QRect area;
    int xMost = 2;
    int yMost = 2;
    std::vector<PlotTick> xTicks;
    std::vector<PlotTick> yTicks;
    PlotRange xRange;
    PlotRange yRange;
};

class PlotView : public QWidget, public Spoken {
  public:
    PlotView(Plot& element, int columnCount, int lineCount)
        : columns(columnCount)
        , rows(lineCount)
        , binding(new Binding(element, *this)) {
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        // The keyboard reaches its menu.
        setFocusPolicy(Qt::StrongFocus);
        binding->onDraw([this] {
            setAccessibleName(toQt(plot()->text()));
            update();
        });
        element.picture = [view = QPointer<PlotView>(this)] { return view ? view->png() : std::string(); };
    }

    [[nodiscard]] QAccessible::Role spokenRole() const override { return QAccessible::Chart; }

    [[nodiscard]] QSize sizeHint() const override {
        return {fontMetrics().horizontalAdvance(QLatin1Char('0')) * columns, fontMetrics().height() * rows};
    }
    [[nodiscard]] QSize minimumSizeHint() const override {
        return {fontMetrics().horizontalAdvance(QLatin1Char('0')) * std::min(columns, 40),
                fontMetrics().height() * std::min(rows, 8)};
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        if (plot() == nullptr) {
            return;
        }
        QPainter painter(this);
        PlotPainter(painter, *plot(), rect().adjusted(1, 1, -2, -2), palette()).draw();
        if (hasFocus()) {
            painter.setPen(QPen(roles(palette()).edge, 1, Qt::DotLine));
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(rect().adjusted(0, 0, -1, -1));
        }
    }

    bool event(QEvent* event) override {
        if (event->type() == QEvent::ToolTip) {
            tellNearest(*static_cast<QHelpEvent*>(event));
            return true;
        }
        return QWidget::event(event);
    }

    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton) {
            takeCursor(event->pos());
        }
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        if ((event->buttons() & Qt::LeftButton) != 0) {
            takeCursor(event->pos());
        }
    }
    void keyPressEvent(QKeyEvent* event) override {
        int step = event->key() == Qt::Key_Left ? -1 : event->key() == Qt::Key_Right ? 1 : 0;
        if (step == 0 || plot() == nullptr || !plot()->onCursor) {
            QWidget::keyPressEvent(event);
            return;
        }
        if ((event->modifiers() & Qt::ShiftModifier) != 0) {
            step *= cursorStride;
        }
        binding->gesture([this, step] { plot()->stepCursor(step); });
    }

    void contextMenuEvent(QContextMenuEvent* event) override {
        QMenu menu(this);
        menu.addAction(QStringLiteral("Copy &Picture"), this,
                       [this] { QGuiApplication::clipboard()->setImage(image()); });
        menu.addAction(QStringLiteral("Copy &Values"), this, [this] {
            if (plot() != nullptr) {
                QGuiApplication::clipboard()->setText(toQt(plot()->csv()));
            }
        });
        menu.exec(event->globalPos());
    }

  private:
    [[nodiscard]] Plot* plot() const { return elementOf<Plot>(*binding); }

    /// Looks at where things lie on the screen now.
    template <class Look>
    void withPlaces(Look look) {
        QImage none(1, 1, QImage::Format_ARGB32);
        QPainter measure(&none);
        measure.setFont(font());
        look(PlotPainter(measure, *plot(), rect().adjusted(1, 1, -2, -2), palette()));
    }

    void takeCursor(QPoint at) {
        if (plot() == nullptr || !plot()->onCursor) {
            return;
        }
        double value = 0;
        withPlaces([&](const PlotPainter& places) { value = places.valueAt(at.x()); });
        binding->gesture([this, value] { plot()->placeCursor(value); });
    }

    void tellNearest(const QHelpEvent& event) {
        if (plot() != nullptr && !plot()->points().empty()) {
            withPlaces([&](const PlotPainter& places) { tellNearest(event, places); });
        }
    }

    void tellNearest(const QHelpEvent& event, const PlotPainter& places) {
        if (!places.values().contains(event.pos())) {
            QToolTip::hideText();
            return;
        }
        auto nearest = std::min_element(plot()->points().begin(), plot()->points().end(),
                                        [&](const PlotPoint& a, const PlotPoint& b) {
                                            return std::abs(places.xOf(a.x) - event.pos().x()) <
                                                   std::abs(places.xOf(b.x) - event.pos().x());
                                        });
        const Plot::Traits& traits = plot()->traits();
        QString value = nearest->y
                            ? (numberText(*nearest->y) + QLatin1Char(' ') + toQt(traits.y.unit)).trimmed()
                            : toQt(traits.gapCaption.empty() ? "no value" : traits.gapCaption);
        QToolTip::showText(event.globalPos(),
                           toQt(traits.x.caption) + QLatin1Char(' ') + numberText(nearest->x) +
                               QStringLiteral(": ") + value,
                           this);
    }

    [[nodiscard]] QImage image() const {
        QSize size = this->size().expandedTo(smallestPicture);
        QImage picture(size * pictureScale, QImage::Format_RGB32);
        picture.setDevicePixelRatio(pictureScale);
        picture.fill(palette().color(QPalette::Window));
        if (plot() != nullptr) {
            QPainter painter(&picture);
            painter.setFont(font());
            PlotPainter(painter, *plot(), QRect(QPoint(0, 0), size).adjusted(8, 8, -8, -8), palette()).draw();
        }
        return picture;
    }

    [[nodiscard]] std::string png() const {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        image().save(&buffer, "PNG");
        return bytes.toStdString();
    }

    int columns;
    int rows;
    Binding* binding;
};

} // namespace

QWidget* plot(Plot& element, int columns, int lines) {
    return new PlotView(element, columns, lines);
}

} // namespace zor
