// SPDX-License-Identifier: MIT
#pragma once

#include "elements/plot.h"

#include <QColor>
#include <QFontMetrics>
#include <QRect>

#include <vector>

class QPainter;
class QPalette;
class QPen;
class QString;

namespace zor {

/// Draws a plot into a rectangle: title, axes, then the values, from the palette's own colours.
class PlotPainter {
  public:
    PlotPainter(QPainter& target, const Plot& shownPlot, const QRect& room, const QPalette& colours);

    void draw();

    /// The values' own rectangle.
    [[nodiscard]] const QRect& values() const { return area; }
    [[nodiscard]] double valueAt(int x) const;
    [[nodiscard]] double xOf(double value) const;

  private:
    void layOut();

    void drawTitle();

    void drawAxes();

    void drawLine();

    void drawBars();

    void drawGaps();

    /// The marks with their letters, and the cursor in dashes.
    void drawUprights();

    void drawUpright(double value, const QPen& pen, const QString& text);

    /// A triangle that points down, on a line: seen without its colour too.
    void drawMark(double x, double bottom, double top);

    [[nodiscard]] double yOf(double value) const;

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

} // namespace zor
