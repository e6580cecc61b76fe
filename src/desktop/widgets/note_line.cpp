// SPDX-License-Identifier: MIT
#include "desktop/widgets/note_line.h"

#include "desktop/adapters/qt_text.h"
#include "desktop/widgets/colours.h"

#include <QPainter>

namespace zor {

namespace {

class NoteLine : public QWidget {
  public:
    NoteLine(Button& element, int columnCount, Tone noteTone, Qt::Alignment noteAlignment)
        : columns(columnCount)
        , tone(noteTone)
        , alignment(noteAlignment) {
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        auto* binding = new Binding(element, *this);
        binding->onDraw([this, binding] {
            text = toQt(binding->element()->caption());
            setAccessibleName(text);
            QString tip = toQt(binding->element()->tip());
            setToolTip(fits() || text.isEmpty() ? tip : text);
            update();
        });
    }

    [[nodiscard]] QSize sizeHint() const override {
        return {fontMetrics().averageCharWidth() * columns, fontMetrics().height()};
    }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const RoleColours& colours = roles(palette());
        painter.setPen(tone == Tone::Reminder ? colours.reminder : colours.softText);
        painter.drawText(rect(), int(alignment | Qt::AlignVCenter),
                         fontMetrics().elidedText(text, Qt::ElideRight, width()));
    }

  private:
    [[nodiscard]] bool fits() const { return fontMetrics().horizontalAdvance(text) <= width(); }

    int columns;
    Tone tone;
    Qt::Alignment alignment;
    QString text;
};

} // namespace

QWidget* noteLine(Button& element, int columns, Tone tone, Qt::Alignment alignment) {
    return new NoteLine(element, columns, tone, alignment);
}

} // namespace zor
