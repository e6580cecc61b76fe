// SPDX-License-Identifier: MIT
// Phases over time: two rounds of them, each as high as it stands, with what they are in words above.
#include "desktop/adapters/qt_text.h"
#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/spoken.h"
#include "elements/timeline.h"

#include <QPainter>

#include <algorithm>

namespace zor {

namespace {

constexpr int rounds = 2;
constexpr int tickLength = 4;
/// The shortest phase is still seen.
constexpr double leastWidth = 2;

class TimelineView : public QWidget, public Spoken {
  public:
    explicit TimelineView(Timeline& element)
        : binding(new Binding(element, *this)) {
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        binding->onDraw([this] {
            setAccessibleName(toQt(line()->text()));
            update();
        });
    }

    [[nodiscard]] QAccessible::Role spokenRole() const override { return QAccessible::Chart; }
    [[nodiscard]] QSize sizeHint() const override {
        return {fontMetrics().averageCharWidth() * 60, fontMetrics().height() * 5};
    }
    [[nodiscard]] QSize minimumSizeHint() const override {
        return {fontMetrics().averageCharWidth() * 30, sizeHint().height()};
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        if (line() == nullptr || line()->phases().empty()) {
            return;
        }
        QPainter painter(this);
        int text = fontMetrics().height();
        painter.setPen(roles(palette()).softText);
        painter.drawText(QRect(0, 0, width(), text), Qt::AlignLeft | Qt::AlignVCenter, toQt(line()->text()));
        QRectF area(0.5, text + 4, width() - 1, height() - 2 * text - 4 - tickLength - 2);
        painter.fillRect(area, palette().color(QPalette::Base));
        double x = area.left();
        double period = line()->period();
        for (int round = 0; round < (period > 0 ? rounds : 1); ++round) {
            for (const TimelinePhase& phase : line()->phases()) {
                double share = period > 0 ? phase.seconds / period / rounds : 1;
                double width = std::min(std::max(leastWidth, share * area.width()), area.right() - x);
                drawPhase(painter, QRectF(x, area.top(), width, area.height()), phase);
                x += width;
            }
        }
        painter.setPen(roles(palette()).edge);
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(area);
        drawTimes(painter, area, period);
    }

  private:
    [[nodiscard]] Timeline* line() const { return elementOf<Timeline>(*binding); }

    void drawPhase(QPainter& painter, const QRectF& room, const TimelinePhase& phase) const {
        QRectF bar = room;
        bar.setTop(room.bottom() - std::max(2.0, phase.level * (room.height() - 2)));
        QColor fill = palette().color(QPalette::Link);
        painter.fillRect(bar, fill);
        QString caption = toQt(phase.caption);
        int needed = fontMetrics().horizontalAdvance(caption) + 12;
        if (needed > room.width()) {
            return;
        }
        // On the bar where it is high enough, above it else.
        bool inside = bar.height() > fontMetrics().height() + 2;
        QRectF place = inside ? bar : QRectF(room.left(), room.top(), room.width(), bar.top() - room.top());
        painter.setPen(inside ? readableOn(fill) : palette().color(QPalette::Text));
        painter.drawText(place, Qt::AlignCenter, caption);
    }

    void drawTimes(QPainter& painter, const QRectF& area, double period) const {
        painter.setPen(roles(palette()).softText);
        for (int round = 0; period > 0 && round <= rounds; ++round) {
            double x = area.left() + area.width() * round / rounds;
            painter.drawLine(QPointF(x, area.bottom()), QPointF(x, area.bottom() + tickLength));
            QString text =
                round == 0 ? QStringLiteral("0") : toQt(durationText(period * static_cast<double>(round)));
            double width = fontMetrics().horizontalAdvance(text) + 2;
            double left = std::clamp(x - width / 2, area.left(), std::max(area.left(), area.right() - width));
            painter.drawText(QRectF(left, area.bottom() + tickLength, width, fontMetrics().height()),
                             Qt::AlignCenter, text);
        }
    }

    Binding* binding;
};

} // namespace

QWidget* timeline(Timeline& element) {
    return new TimelineView(element);
}

} // namespace zor
