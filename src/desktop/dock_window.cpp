// SPDX-License-Identifier: MIT
#include "desktop/dock_window.h"

#include "desktop/adapters/qt_text.h"

#include <QEvent>
#include <QMainWindow>

namespace zor {

namespace {

// What it takes of the main window at first, in pixels; the user drags its edge.
constexpr int heightAtBottom = 260;
constexpr int widthAtRight = 620;

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
