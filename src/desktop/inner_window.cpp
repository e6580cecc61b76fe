// SPDX-License-Identifier: MIT
#include "desktop/inner_window.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QShortcut>
#include <QStyle>
#include <QStyleOption>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <optional>

namespace zor {

namespace {

/// A small window with an arrow out of it, or back into it; drawn in the palette's ink.
class FloatSign : public QToolButton {
  public:
    enum class Way { Out, Back };

    FloatSign(Way arrowsWay, const QString& name)
        : way(arrowsWay) {
        setObjectName(QStringLiteral("FloatSign"));
        setAutoRaise(true);
        // The keyboard has a key of its own for it.
        setFocusPolicy(Qt::NoFocus);
        setAccessibleName(name);
        setToolTip(name + QStringLiteral(" (Shift+F6)"));
    }

    [[nodiscard]] QSize sizeHint() const override {
        int side = fontMetrics().height() + 6;
        return {side, side};
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QColor ink = palette().color(QPalette::Active, QPalette::WindowText);
        if (underMouse()) {
            QColor ground = ink;
            ground.setAlphaF(0.15F);
            painter.fillRect(rect(), ground);
        }
        double side = std::min(width(), height());
        painter.translate((width() - side) / 2, (height() - side) / 2);
        painter.scale(side / 20, side / 20);
        painter.setPen(QPen(ink, 1.4));
        painter.drawPolyline(
            std::array{QPointF(9, 5), QPointF(5, 5), QPointF(5, 15), QPointF(15, 15), QPointF(15, 11)}.data(),
            5);
        painter.drawLine(QPointF(9, 11), QPointF(15, 5));
        std::array<QPointF, 3> head = way == Way::Out
                                          ? std::array{QPointF(11, 5), QPointF(15, 5), QPointF(15, 9)}
                                          : std::array{QPointF(9, 7), QPointF(9, 11), QPointF(13, 11)};
        painter.drawPolyline(head.data(), static_cast<int>(head.size()));
    }

  private:
    Way way;
};

} // namespace

InnerWindow::InnerWindow(Leaves leaves) {
    if (leaves == Leaves::Never) {
        return;
    }
    sign = new FloatSign(FloatSign::Way::Out, QStringLiteral("Take out of the main window"));
    sign->setParent(this);
    // Behind the click: the window that the sign stands on goes by it.
    connect(
        sign, &QToolButton::clicked, this,
        [this] {
            if (onLeave) {
                onLeave();
            }
        },
        Qt::QueuedConnection);
    putSign();
}

void InnerWindow::resizeEvent(QResizeEvent* event) {
    QMdiSubWindow::resizeEvent(event);
    putSign();
}

void InnerWindow::changeEvent(QEvent* event) {
    QMdiSubWindow::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        putSign();
    }
}

void InnerWindow::putSign() {
    if (sign == nullptr) {
        return;
    }
    QStyleOptionTitleBar bar;
    bar.initFrom(this);
    bar.titleBarFlags = windowFlags();
    int frame = style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, &bar, this);
    int height = style()->pixelMetric(QStyle::PM_TitleBarHeight, &bar, this);
    int side = std::min(sign->sizeHint().height(), height);
    // The cross has a square at the end of the bar.
    sign->setGeometry(width() - frame - height - side, frame + (height - side) / 2, side, side);
    sign->raise();
}

FloatingWindow::FloatingWindow(QWidget& mainWindow, QWidget& content)
    // Of a dialog's kind, for window managers keep that above its main window whichever is in front.
    : QWidget(&mainWindow, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                               Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint) {
    auto* back = new FloatSign(FloatSign::Way::Back, QStringLiteral("Back into the main window"));
    connect(
        back, &QToolButton::clicked, this,
        [this] {
            if (onReturn) {
                onReturn();
            }
        },
        Qt::QueuedConnection);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 2, 2, 0);
    row->addStretch(1);
    row->addWidget(back);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(row);
    layout->addWidget(&content, 1);
    // The key that closes an inner window.
    new QShortcut(QKeySequence(QKeySequence::Close), this, [this] { close(); });
}

QPoint freePlace(const QSize& size, const QSize& room, const std::vector<Covered>& others) {
    auto inside = [](int at, int length, int limit) {
        return std::clamp(at, 0, std::max(0, limit - length));
    };
    std::vector<int> columns{0, inside(room.width(), size.width(), room.width())};
    std::vector<int> rows{0, inside(room.height(), size.height(), room.height())};
    for (const Covered& other : others) {
        columns.push_back(inside(other.place.right() + 1, size.width(), room.width()));
        rows.push_back(inside(other.place.bottom() + 1, size.height(), room.height()));
    }
    std::sort(columns.begin(), columns.end());
    std::sort(rows.begin(), rows.end());
    QPoint best;
    std::optional<qint64> least;
    for (int top : rows) {
        for (int left : columns) {
            qint64 cost = 0;
            for (const Covered& other : others) {
                QRect common = other.place.intersected(QRect(QPoint(left, top), size));
                cost += qint64{common.width()} * common.height() * other.weight;
            }
            if (!least || cost < *least) {
                least = cost;
                best = QPoint(left, top);
            }
        }
    }
    return best;
}

} // namespace zor
