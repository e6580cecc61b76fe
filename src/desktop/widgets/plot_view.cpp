// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_text.h"
#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/plot_painter.h"
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
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace zor {

namespace {

/// A picture is so much finer than the screen, so that it can be printed.
constexpr int pictureScale = 2;
constexpr QSize smallestPicture(720, 240);
/// So many points the cursor goes with Shift.
constexpr int cursorStride = 10;

QString numberText(double value) {
    return QString::number(value, 'g', 10);
}

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
