// SPDX-License-Identifier: MIT
#include "desktop/widgets/plot_painter.h"

#include "desktop/adapters/qt_text.h"
#include "desktop/widgets/colours.h"

#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPen>

#include <algorithm>
#include <string>
#include <utility>

namespace zor {

namespace {

/// Between what stands beside one another.
constexpr int gap = 6;
constexpr int tickLength = 4;
constexpr int markSize = 8;

QString captionOf(const PlotAxis& axis) {
    return toQt(axis.text());
}

} // namespace

PlotPainter::PlotPainter(QPainter& target, const Plot& shownPlot, const QRect& room, const QPalette& colours)
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

void PlotPainter::draw() {
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

double PlotPainter::valueAt(int x) const {
    double place = area.width() > 0 ? (x - area.left()) / static_cast<double>(area.width()) : 0;
    return Plot::valueAt(place, xRange, plot.traits().x.scale);
}

double PlotPainter::xOf(double value) const {
    return area.left() + Plot::share(value, xRange, plot.traits().x.scale) * area.width();
}

void PlotPainter::layOut() {
    int left = 0;
    for (const PlotTick& tick : yTicks) {
        left = std::max(left, metrics.horizontalAdvance(toQt(tick.text)));
    }
    // Title and the upright axis' text above, the marks' numbers and the other axis' text below.
    int above = 2 * metrics.height() + gap + markSize;
    int below = 2 * metrics.height() + gap + tickLength;
    area = whole.adjusted(left + tickLength + gap, above, -metrics.horizontalAdvance(QLatin1Char('0')) * 2,
                          -below);
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

void PlotPainter::drawTitle() {
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
    painter.drawText(QRect(area.left(), whole.bottom() - metrics.height(), area.width(), metrics.height()),
                     Qt::AlignHCenter | Qt::AlignVCenter, captionOf(plot.traits().x));
}

void PlotPainter::drawAxes() {
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
        painter.drawText(QRectF(left, area.bottom() + tickLength, width, metrics.height()), Qt::AlignCenter,
                         text);
    }
}

void PlotPainter::drawLine() {
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

void PlotPainter::drawBars() {
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

void PlotPainter::drawGaps() {
    for (const PlotPoint& point : plot.points()) {
        if (!point.y) {
            drawMark(xOf(point.x), area.bottom(), area.top() - markSize);
        }
    }
}

void PlotPainter::drawUprights() {
    QColor ink = palette.color(QPalette::WindowText);
    for (const PlotMark& mark : plot.marks()) {
        drawUpright(mark.x, QPen(ink, 1), toQt(mark.caption));
    }
    if (plot.cursor()) {
        drawUpright(*plot.cursor(), QPen(ink, 1, Qt::DashLine), {});
    }
}

void PlotPainter::drawUpright(double value, const QPen& pen, const QString& text) {
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

void PlotPainter::drawMark(double x, double bottom, double top) {
    QColor colour = roles(palette).error;
    painter.setPen(colour);
    painter.drawLine(QPointF(x, top + markSize), QPointF(x, bottom));
    painter.setBrush(colour);
    double half = markSize / 2.0;
    painter.drawPolygon(
        QPolygonF({QPointF(x - half, top), QPointF(x + half, top), QPointF(x, top + markSize)}));
}

double PlotPainter::yOf(double value) const {
    return area.bottom() - Plot::share(value, yRange, plot.traits().y.scale) * area.height();
}

} // namespace zor
