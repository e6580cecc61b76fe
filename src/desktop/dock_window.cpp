// SPDX-License-Identifier: MIT
#include "desktop/dock_window.h"

#include "desktop/adapters/qt_text.h"
#include "desktop/widgets/colours.h"

#include <QAbstractButton>
#include <QEvent>
#include <QHBoxLayout>
#include <QMainWindow>
#include <QPainter>

namespace zor {

namespace {

// What it takes of the main window at first, in pixels; the user drags its edge.
constexpr int heightAtBottom = 260;
constexpr int widthAtRight = 620;
constexpr int titleInset = 8;

/// The cross of an inner window's title bar.
class CloseSign : public QAbstractButton {
  public:
    explicit CloseSign(QWidget& bar)
        : QAbstractButton(&bar) {
        setToolTip(QStringLiteral("Close"));
        setAccessibleName(QStringLiteral("Close"));
        setFocusPolicy(Qt::NoFocus);
    }
    [[nodiscard]] QSize sizeHint() const override {
        int side = fontMetrics().height() + 4;
        return {side, side};
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QColor ink = palette().color(QPalette::WindowText);
        if (underMouse()) {
            QColor ground = ink;
            ground.setAlphaF(0.15F);
            painter.fillRect(rect(), ground);
        }
        painter.setPen(QPen(ink, 1.4));
        double inset = width() * 0.32;
        QRectF arm = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
        painter.drawLine(arm.topLeft(), arm.bottomRight());
        painter.drawLine(arm.topRight(), arm.bottomLeft());
    }
};

/// As flat as an inner window's; taken by it the window is dragged to another edge.
class DockTitle : public QWidget {
  public:
    explicit DockTitle(QDockWidget& window)
        : dock(window) {
        auto* sign = new CloseSign(*this);
        connect(sign, &QAbstractButton::clicked, &dock, &QWidget::close);
        auto* line = new QHBoxLayout(this);
        line->setContentsMargins(titleInset, 2, titleInset / 2, 2);
        line->addStretch(1);
        line->addWidget(sign);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), roles(palette()).titleBar);
        QFont bold = font();
        bold.setBold(true);
        painter.setFont(bold);
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(rect().adjusted(titleInset, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                         dock.windowTitle());
    }

  private:
    QDockWidget& dock;
};

} // namespace

DockWindow::DockWindow(Form& shownForm, QWidget* content, const Docking& formsDocking,
                       QMainWindow& mainWindow)
    : form(&shownForm)
    , docking(formsDocking)
    , outer(new QDockWidget(&mainWindow))
    , ownArea(docking.area(shownForm).value_or(Qt::BottomDockWidgetArea)) {
    outer->setObjectName(toQt(form->name()));
    outer->setAllowedAreas(Qt::BottomDockWidgetArea | Qt::RightDockWidgetArea);
    outer->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
    outer->setTitleBarWidget(new DockTitle(*outer));
    outer->setWidget(content);
    outer->installEventFilter(this);
    mainWindow.addDockWidget(ownArea, outer);
    bool atBottom = ownArea == Qt::BottomDockWidgetArea;
    mainWindow.resizeDocks({outer}, {atBottom ? heightAtBottom : widthAtRight},
                           atBottom ? Qt::Vertical : Qt::Horizontal);
    connect(outer, &QDockWidget::dockLocationChanged, this, [this](Qt::DockWidgetArea area) {
        if (area != ownArea && form->isOpen()) {
            ownArea = area;
            docking.moved(*form, area);
        }
    });
    subscriptions.push_back(form->changed.subscribe([this] { follow(); }));
    subscriptions.push_back(form->raised.subscribe([this] { outer->raise(); }));
    follow();
}

DockWindow::~DockWindow() {
    subscriptions.clear();
    if (outer) {
        // A widget of it may be at work just now.
        outer->disconnect(this);
        outer->removeEventFilter(this);
        outer->hide();
        outer->deleteLater();
    }
}

void DockWindow::follow() {
    outer->setWindowTitle(toQt(form->title()));
    if (outer->isHidden() == form->isOpen()) {
        outer->setVisible(form->isOpen());
    }
}

bool DockWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == outer && event->type() == QEvent::Close) {
        // The form decides, and hides the window itself.
        event->ignore();
        form->userClose();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace zor
