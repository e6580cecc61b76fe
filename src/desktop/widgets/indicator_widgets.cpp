// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_text.h"
#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/spoken.h"

#include <QPainter>
#include <QProgressBar>

#include <utility>

namespace zor {

namespace {

/// A round lamp with its caption: filled and edged when lit, a hollow circle when dark.
class LampView : public QWidget, public Spoken {
  public:
    QString caption;
    bool lit = false;

    [[nodiscard]] QSize sizeHint() const override {
        int text = caption.isEmpty() ? 0 : gap + fontMetrics().horizontalAdvance(caption);
        return {circle() + text + 2, std::max(circle(), fontMetrics().height()) + 2};
    }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    [[nodiscard]] QAccessible::Role spokenRole() const override { return QAccessible::Indicator; }
    [[nodiscard]] QString spokenValue() const override {
        return lit ? QStringLiteral("lit") : QStringLiteral("dark");
    }
    [[nodiscard]] bool spokenOn() const override { return lit; }

  protected:
    void paintEvent(QPaintEvent*) override {
        const RoleColours& colours = roles(palette());
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        double top = (height() - circle()) / 2.0;
        painter.setPen(QPen(lit ? colours.litEdge : colours.darkEdge, 1.4));
        painter.setBrush(lit ? QBrush(colours.lit) : QBrush(Qt::NoBrush));
        painter.drawEllipse(QRectF(1, top + 1, circle() - 2, circle() - 2));
        painter.setPen(lit ? palette().color(QPalette::Active, QPalette::WindowText) : colours.softText);
        painter.drawText(rect().adjusted(circle() + gap, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, caption);
    }

  private:
    [[nodiscard]] int circle() const { return fontMetrics().ascent() + 2; }

    static constexpr int gap = 5;
};

} // namespace

QWidget* lamp(Lamp& element) {
    auto* view = new LampView;
    auto* binding = new Binding(element, *view);
    // Lamps have one shape and one colour, whatever colour the product keeps for a state.
    binding->setBackgroundShown(false);
    view->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    binding->onDraw([binding, view] {
        const auto& held = *elementOf<Lamp>(*binding);
        view->caption = toQt(held.caption());
        if (!view->caption.isEmpty()) {
            view->setAccessibleName(view->caption);
        }
        if (std::exchange(view->lit, held.lit()) != view->lit) {
            tellSpokenValue(*view);
        }
        view->updateGeometry();
        view->update();
    });
    return view;
}

QWidget* lampSample(Swatch& element, bool lit, const QString& meaning) {
    auto* view = new LampView;
    view->caption = meaning;
    view->lit = lit;
    auto* binding = new Binding(element, *view);
    binding->setBackgroundShown(false);
    view->setAccessibleName(meaning);
    view->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    return view;
}

QWidget* swatch(Swatch& element) {
    auto* patch = new QFrame;
    patch->setFrameShape(QFrame::Box);
    patch->setFixedSize(14, 14);
    new Binding(element, *patch);
    return patch;
}

QWidget* progress(Progress& element) {
    auto* bar = new QProgressBar;
    bar->setTextVisible(true);
    auto* binding = new Binding(element, *bar);
    binding->onDraw([binding, bar] {
        const auto& held = *elementOf<Progress>(*binding);
        bar->setRange(held.minimum(), held.maximum());
        bar->setValue(held.value());
    });
    return bar;
}

} // namespace zor
