// SPDX-License-Identifier: MIT
#include "desktop/pick_row.h"

#include "desktop/widgets/colours.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace zor {

namespace {

constexpr int inset = 6;

int widest(const QFontMetrics& metrics, const QStringList& texts) {
    int width = 0;
    for (const QString& text : texts) {
        width = std::max(width, metrics.horizontalAdvance(text));
    }
    return width;
}

} // namespace

PickRow::PickRow(const QString& fullName, const QString& remarkText, PickColumns listsColumns)
    : name(fullName)
    , remark(remarkText)
    , columns(std::move(listsColumns)) {
    setText(fullName);
    setAccessibleName(fullName + QLatin1Char(' ') + remarkText);
    setFlat(true);
    setAutoDefault(false);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QString PickRow::shownName() const {
    return QFontMetrics(bold()).elidedText(name, Qt::ElideMiddle, nameWidth() - gap());
}

QString PickRow::shownRemark() const {
    return fontMetrics().elidedText(remark, Qt::ElideRight, width() - 2 * inset - nameWidth());
}

QSize PickRow::sizeHint() const {
    return {inset * 2 + usualNameWidth() + fontMetrics().horizontalAdvance(remark),
            fontMetrics().height() + 14};
}

QSize PickRow::minimumSizeHint() const {
    return {2 * inset + leastNameWidth(), sizeHint().height()};
}

void PickRow::paintEvent(QPaintEvent*) {
    const RoleColours& colours = roles(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    bool picked = isEnabled() && (underMouse() || hasFocus());
    if (picked) {
        painter.setPen(QPen(hasFocus() ? colours.accent : colours.edge, 1));
        painter.setBrush(colours.pickedRow);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    }
    QColor greyed = palette().color(QPalette::Disabled, QPalette::ButtonText);
    painter.setFont(bold());
    // Links are the accent, in the dark a lighter one.
    painter.setPen(isEnabled() ? colours.logBlue : greyed);
    painter.drawText(rect().adjusted(inset, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, shownName());
    painter.setFont(font());
    painter.setPen(isEnabled() ? colours.softText : greyed);
    painter.drawText(rect().adjusted(inset + nameWidth(), 0, -inset, 0), Qt::AlignVCenter | Qt::AlignLeft,
                     shownRemark());
}

QFont PickRow::bold() const {
    QFont own = font();
    own.setBold(true);
    return own;
}

int PickRow::gap() const {
    return fontMetrics().averageCharWidth();
}

int PickRow::usualNameWidth() const {
    return fontMetrics().averageCharWidth() * columns.characters;
}

int PickRow::wholeNameWidth() const {
    return widest(QFontMetrics(bold()), columns.names) + gap();
}

int PickRow::leastNameWidth() const {
    return std::min(usualNameWidth(), wholeNameWidth());
}

int PickRow::nameWidth() const {
    int left = width() - 2 * inset - widest(fontMetrics(), columns.remarks);
    return std::clamp(left, leastNameWidth(), std::max(usualNameWidth(), wholeNameWidth()));
}

} // namespace zor
