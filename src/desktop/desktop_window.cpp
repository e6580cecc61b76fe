// SPDX-License-Identifier: MIT
#include "desktop/desktop_window.h"

#include "desktop/adapters/qt_text.h"
#include "desktop/start_page.h"
#include "desktop/views/registry.h"
#include "desktop/views/views.h"
#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/spoken.h"
#include "shell/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QLayout>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMimeData>
#include <QMouseEvent>
#include <QShortcut>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace zor {

namespace {

/// A window at an edge takes room from the panels; below this there is none to spare, in pixels.
constexpr QSize dockingRoom(1600, 900);

} // namespace

DesktopWindow::DesktopWindow(MainWindow& mainForm, Screens screens)
    : main(mainForm)
    , mdi(new QMdiArea)
    , ownGeometry(mainForm, *this, std::move(screens)) {
    speakOfOwnWidgets();
    setObjectName(QStringLiteral("main"));
    setCentralWidget(mdi);
    mdi->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mdi->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mdi->viewport()->installEventFilter(this);
    start = new StartPage(main, *mdi->viewport());
    connect(mdi, &QMdiArea::subWindowActivated, this, [this](const QMdiSubWindow* window) {
        // None is told while a dialog or another program has the screen's focus; that changes nothing here.
        Form* form = window == nullptr ? nullptr : main.desk().find(fromQt(window->objectName()));
        if (form != nullptr && form->isOpen() && !form->inFront()) {
            form->userActivate();
        }
    });
    buildMenus(*menuBar(), main);
    addMainBars(*this, main);
    QWidget* notice = label(main.Notice);
    Binding::of(notice)->follow(main.Notice.changed,
                                [this, notice] { announce(*notice, toQt(main.Notice.caption())); });
    statusBar()->addWidget(notice, 1);
    statusBar()->addPermanentWidget(label(main.kept.KeptOffer));
    statusBar()->addPermanentWidget(button(main.kept.KeptBring));
    statusBar()->addPermanentWidget(button(main.kept.KeptDismiss));
    statusBar()->addPermanentWidget(list(main.menu.edit.Steps, 30));
    statusBar()->addPermanentWidget(button(main.Undo));
    statusBar()->addPermanentWidget(button(main.linkBar.Reconnect));
    setAcceptDrops(true);
    colourArea();
    // A floating window is a window of its own, where the keys count too.
    new QShortcut(
        QKeySequence(Qt::Key_F6), this, [this] { changePane(); }, Qt::ApplicationShortcut);
    new QShortcut(
        QKeySequence(Qt::SHIFT | Qt::Key_F6), this, [this] { changeFloating(); }, Qt::ApplicationShortcut);

    Desk& desk = main.desk();
    subscriptions.push_back(desk.opened.subscribe([this](Form& form) { open(form); }));
    subscriptions.push_back(desk.removed.subscribe([this](Form& form) { remove(form); }));
    subscriptions.push_back(main.changed.subscribe([this] { follow(); }));
    subscriptions.push_back(main.closed.subscribe([this] {
        ownGeometry.keep();
        QCoreApplication::exit();
    }));
    follow();
    showStartPageSoon();
}

DesktopWindow::~DesktopWindow() {
    subscriptions.clear();
    openings.clear();
    dockable.clear();
    docks.clear();
    windows.clear();
}

FormWindow* DesktopWindow::windowOf(const Form& form) const {
    auto window = windows.find(&form);
    return window == windows.end() ? nullptr : window->second.get();
}

DockWindow* DesktopWindow::dockOf(const Form& form) const {
    auto window = docks.find(&form);
    return window == docks.end() ? nullptr : window->second.get();
}

void DesktopWindow::open(Form& form) {
    if (&form == &main || windows.contains(&form) || docks.contains(&form)) {
        // Its own subscription to the form shows it.
        return;
    }
    const View* view = findView(form.name());
    if (view == nullptr) {
        qWarning("No view is registered for the window %s.", form.name().c_str());
        return;
    }
    makeWindow(form);
    if (view->docking != nullptr) {
        // The list that says where stands in the window that is taken away.
        dockable.emplace(&form, form.changed.subscribe([this] {
            QMetaObject::invokeMethod(
                this, [this] { placeDocks(); }, Qt::QueuedConnection);
        }));
    }
    openings[&form] = form.changed.subscribe([this] { showStartPageSoon(); });
    showStartPageSoon();
}

void DesktopWindow::makeWindow(Form& form) {
    const View* view = findView(form.name());
    if (dockArea(form)) {
        docks.emplace(&form, std::make_unique<DockWindow>(form, view->make(form), *view->docking, *this));
    } else {
        windows.emplace(&form, std::make_unique<FormWindow>(form, view->make(form), view->frame, *mdi));
    }
}

std::optional<Qt::DockWidgetArea> DesktopWindow::dockArea(const Form& form) const {
    const View* view = findView(form.name());
    bool room = width() >= dockingRoom.width() && height() >= dockingRoom.height();
    return view->docking != nullptr && room ? view->docking->area(form) : std::nullopt;
}

void DesktopWindow::placeDocks() {
    for (const auto& [form, subscription] : dockable) {
        const DockWindow* dock = dockOf(*form);
        std::optional<Qt::DockWidgetArea> now = dock == nullptr ? std::nullopt : std::optional(dock->area());
        if (!form->isOpen() || now == dockArea(*form)) {
            continue;
        }
        windows.erase(form);
        docks.erase(form);
        // What comes up inside has the room that the edge took.
        layout()->activate();
        makeWindow(*form);
        if (FormWindow* inner = windowOf(*form)) {
            inner->follow();
        } else if (QMdiSubWindow* seen = innerInFront()) {
            // The toolkit leaves none active where one went away.
            mdi->setActiveSubWindow(seen);
        }
    }
    giveFrontBack();
}

QMdiSubWindow* DesktopWindow::innerInFront() const {
    QList<QMdiSubWindow*> inner = mdi->subWindowList(QMdiArea::ActivationHistoryOrder);
    auto seen = std::find_if(inner.rbegin(), inner.rend(),
                             [](const QMdiSubWindow* window) { return !window->isHidden(); });
    return seen == inner.rend() ? nullptr : *seen;
}

/// A window at an edge works beside the others: the one that the user sees in front is in front.
void DesktopWindow::giveFrontBack() {
    const QMdiSubWindow* inner = innerInFront();
    Form* front = main.desk().front();
    Form* seen = inner == nullptr ? nullptr : main.desk().find(fromQt(inner->objectName()));
    if (front != nullptr && docks.contains(front) && seen != nullptr && seen->isOpen()) {
        seen->userActivate();
    }
}

void DesktopWindow::remove(Form& form) {
    dockable.erase(&form);
    docks.erase(&form);
    openings.erase(&form);
    windows.erase(&form);
    showStartPageSoon();
}

void DesktopWindow::showStartPageSoon() {
    if (start == nullptr || std::exchange(startPageIsDue, true)) {
        return;
    }
    QTimer::singleShot(0, this, [this] {
        startPageIsDue = false;
        bool empty = std::none_of(windows.begin(), windows.end(), [](const auto& entry) {
            return entry.first->isOpen() && qobject_cast<QMdiSubWindow*>(&entry.second->shell()) != nullptr;
        });
        start->setVisible(empty);
        colourArea();
    });
}

void DesktopWindow::follow() {
    if (std::exchange(following, true)) {
        return;
    }
    setWindowTitle(toQt(main.title()));
    if (isHidden() && main.isOpen()) {
        ownGeometry.open();
    } else {
        ownGeometry.follow();
    }
    if (isHidden() == main.isOpen()) {
        setVisible(main.isOpen());
    }
    following = false;
    tellGeometry();
}

void DesktopWindow::tellGeometry() {
    if (!following && isVisible() && !isMinimized()) {
        // What the form makes of it is known here already.
        following = true;
        ownGeometry.tell();
        following = false;
    }
}

void DesktopWindow::closeEvent(QCloseEvent* event) {
    // The form decides; it ends the program if it closes.
    event->ignore();
    main.userClose();
}

void DesktopWindow::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    tellGeometry();
}

void DesktopWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    tellGeometry();
    placeDocks();
}

void DesktopWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && mdi != nullptr) {
        colourArea();
    }
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && !ownGeometry.isSettled()) {
        // Behind the window manager's own word on the frame.
        QTimer::singleShot(0, this, [this] { ownGeometry.settle(); });
    }
}

/// A file of a chip, dragged here from the desktop.
void DesktopWindow::dragEnterEvent(QDragEnterEvent* event) {
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.size() == 1 && urls.constFirst().isLocalFile() && main.acceptsUser()) {
        event->acceptProposedAction();
    }
}

void DesktopWindow::dropEvent(QDropEvent* event) {
    std::string path = fromQt(event->mimeData()->urls().constFirst().toLocalFile());
    event->acceptProposedAction();
    // Behind the drop: what the loading asks or says must not hold up the program that the file comes from.
    QTimer::singleShot(0, this, [this, path] {
        if (main.acceptsUser()) {
            main.perform([this, &path] { main.openFile(path); });
        }
    });
}

/// The room behind the inner windows lies a shade deeper than they do; the start page stands on the window's
/// own.
void DesktopWindow::colourArea() {
    QColor window = palette().color(QPalette::Window);
    if (start != nullptr && start->isVisibleTo(this)) {
        mdi->setBackground(window);
        return;
    }
    mdi->setBackground(schemeOf(palette()) == Scheme::Dark ? window.darker(130) : window.darker(108));
}

void DesktopWindow::changePane() {
    QWidget* focus = QApplication::focusWidget();
    bool inside = focus != nullptr && mdi->isAncestorOf(focus);
    QMdiSubWindow* inner = mdi->currentSubWindow();
    if (!inside && inner != nullptr && isActiveWindow()) {
        QWidget* last = inner->focusWidget();
        (last != nullptr ? last : inner)->setFocus(Qt::TabFocusReason);
        return;
    }
    for (QToolBar* bar : findChildren<QToolBar*>()) {
        for (QAction* action : bar->actions()) {
            QWidget* widget = bar->widgetForAction(action);
            if (widget->isVisible() && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus) != 0) {
                // From a floating window too.
                activateWindow();
                widget->setFocus(Qt::TabFocusReason);
                return;
            }
        }
    }
}

void DesktopWindow::changeFloating() {
    Form* front = main.desk().front();
    FormWindow* window = front == nullptr ? nullptr : windowOf(*front);
    if (window != nullptr) {
        window->setFloating(!window->isFloating());
    }
}

bool DesktopWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == mdi->viewport()) {
        if (event->type() == QEvent::Resize) {
            start->fit();
        }
        if (event->type() == QEvent::MouseButtonPress) {
            main.userClick();
        } else if (event->type() == QEvent::MouseButtonDblClick) {
            // The first press was told when it came.
            main.userSecondClick();
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

} // namespace zor
