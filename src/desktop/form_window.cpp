// SPDX-License-Identifier: MIT
#include "desktop/form_window.h"

#include "desktop/adapters/qt_text.h"
#include "desktop/inner_window.h"
#include "desktop/widgets/binding.h"
#include "panels/common/chip_panel.h"

#include <QApplication>
#include <QDialog>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <utility>

namespace zor {

namespace {

/// Escape asks to close, as the window's own button does.
class FormDialog : public QDialog {
  public:
    using QDialog::QDialog;
    void reject() override { close(); }
};

} // namespace

FormWindow::FormWindow(Form& shownForm, QWidget* content, Frame frame, QMdiArea& area)
    : form(&shownForm)
    , inner(content)
    , scroller(new QScrollArea)
    , mdi(area)
    , ownFrame(frame)
    , geometry(shownForm, *content, *scroller, area) {
    // Larger fonts make a window scroll rather than clip.
    scroller->setWidgetResizable(true);
    scroller->setFrameShape(QFrame::NoFrame);
    // It scrolls to what the tab key reaches, and is no stop of its own.
    scroller->setFocusPolicy(Qt::NoFocus);
    scroller->setWidget(content);
    if (form->kind() == Form::Kind::Modal) {
        makeDialog(*area.window());
    } else {
        makeInner(area, frame);
    }
    geometry.setShell(*outer);
    outer->setObjectName(toQt(form->name()));
    outer->installEventFilter(this);
    hearFocus();
    // Told behind the press that activates the window: what the form in front does as it is left may wait for
    // the board, and the release must not come before the press.
    connect(
        &mdi, &QMdiArea::subWindowActivated, this,
        [this](const QMdiSubWindow* window) {
            if (form != nullptr && window != nullptr && window == outer && window == mdi.activeSubWindow()) {
                form->userActivate();
            }
        },
        Qt::QueuedConnection);
    inner->installEventFilter(this);
    mdi.viewport()->installEventFilter(this);
    subscriptions.push_back(form->changed.subscribe([this] { follow(); }));
    subscriptions.push_back(form->raised.subscribe([this] {
        outer->raise();
        activate();
    }));
}

FormWindow::~FormWindow() {
    letGo();
}

void FormWindow::makeInner(QMdiArea& area, Frame frame) {
    bool isTool = dynamic_cast<const ChipPanel*>(form) == nullptr;
    auto* window = new InnerWindow(isTool && frame == Frame::Titled ? InnerWindow::Leaves::ByItsSign
                                                                    : InnerWindow::Leaves::Never);
    window->onLeave = [this] { setFloating(true); };
    window->setWidget(scroller);
    // Named flags alone: a system menu would bring the toolkit's icon into the title bar.
    Qt::WindowFlags flags = Qt::SubWindow | Qt::CustomizeWindowHint;
    flags |=
        frame == Frame::Titled ? Qt::WindowTitleHint | Qt::WindowCloseButtonHint : Qt::FramelessWindowHint;
    if (isTool) {
        // A click on the panel does not bury what works with it.
        flags |= Qt::WindowStaysOnTopHint;
    }
    area.addSubWindow(window, flags);
    window->setAttribute(Qt::WA_DeleteOnClose, false);
    window->hide();
    outer = window;
}

void FormWindow::makeDialog(QWidget& parent) {
    auto* dialog = new FormDialog(&parent);
    dialog->setWindowModality(Qt::WindowModal);
    dialog->setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto* layout = new QVBoxLayout(dialog);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(scroller);
    outer = dialog;
}

void FormWindow::makeFloating() {
    auto* window = new FloatingWindow(*mdi.window(), *scroller);
    window->onReturn = [this] { setFloating(false); };
    outer = window;
}

bool FormWindow::canFloat() const {
    return form != nullptr && form->kind() == Form::Kind::Window && ownFrame == Frame::Titled &&
           dynamic_cast<const ChipPanel*>(form) == nullptr;
}

bool FormWindow::isFloating() const {
    return dynamic_cast<const FloatingWindow*>(outer.data()) != nullptr;
}

void FormWindow::setFloating(bool floats) {
    if (!canFloat() || floats == isFloating() || !form->isOpen()) {
        return;
    }
    changeShell([this, floats] { floats ? makeFloating() : makeInner(mdi, ownFrame); });
}

void FormWindow::changeShell(const std::function<void()>& make) {
    // The window stays the one in front, so nobody is told that another came there.
    QSignalBlocker quiet(&mdi);
    following = true;
    QPointer<QWidget> old = outer;
    QPoint place = old->mapToGlobal(QPoint());
    QSize size = scroller->size();
    old->removeEventFilter(this);
    if (auto* inside = qobject_cast<QMdiSubWindow*>(old)) {
        inside->setWidget(nullptr);
    } else {
        scroller->setParent(nullptr);
    }
    make();
    geometry.setShell(*outer);
    outer->setObjectName(toQt(form->name()));
    outer->setWindowTitle(toQt(form->title()));
    outer->installEventFilter(this);
    old->hide();
    old->deleteLater();
    bool inside = qobject_cast<QMdiSubWindow*>(outer) != nullptr;
    outer->resize(size + (inside ? geometry.decoration()
                                 : QSize(0, outer->sizeHint().height() - scroller->sizeHint().height())));
    outer->move(inside ? mdi.viewport()->mapFromGlobal(place) : place);
    scroller->show();
    outer->show();
    geometry.bringWithinReach();
    if (inside) {
        mdi.setActiveSubWindow(static_cast<QMdiSubWindow*>(outer.data()));
    } else {
        outer->activateWindow();
    }
    following = false;
    tellPlace();
    tellExtent();
    showFocus();
    form->changed.emit();
}

/// The keyboard came from another window of the desktop into this one: the area inside the main window, which
/// knows its own windows alone, does not tell of that.
void FormWindow::hearFocus() {
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget* before, const QWidget* now) {
        bool fromElsewhere = now != nullptr && (before == nullptr || before->window() != now->window());
        if (form != nullptr && outer && fromElsewhere && outer->isAncestorOf(now) && form->isOpen() &&
            !form->inFront()) {
            form->userActivate();
        }
    });
}

void FormWindow::letGo() {
    subscriptions.clear();
    form = nullptr;
    if (outer) {
        outer->removeEventFilter(this);
        outer->hide();
        outer->deleteLater();
        outer = nullptr;
    }
}

void FormWindow::follow() {
    if (form == nullptr || std::exchange(following, true)) {
        return;
    }
    QString document = toQt(form->document());
    outer->setWindowTitle(toQt(form->title()) +
                          (document.isEmpty() ? document : QLatin1String(" - ") + document));
    bool opens = form->isOpen() && outer->isHidden();
    bool resizes = false;
    if (opens) {
        geometry.open();
    } else {
        resizes = geometry.follow();
    }
    if (outer->isHidden() == form->isOpen()) {
        outer->setVisible(form->isOpen());
    }
    following = false;
    if (opens || resizes) {
        tellPlace();
    }
    if (opens) {
        tellExtent();
        if (qobject_cast<QMdiSubWindow*>(outer) != nullptr) {
            activate();
        }
    }
    showFocus();
}

/// What comes to the front has the keyboard, wherever that was.
void FormWindow::activate() {
    auto* window = qobject_cast<QMdiSubWindow*>(outer);
    if (window == nullptr) {
        outer->activateWindow();
        return;
    }
    mdi.setActiveSubWindow(window);
    if (dynamic_cast<FloatingWindow*>(QApplication::activeWindow()) != nullptr) {
        mdi.window()->activateWindow();
    }
}

void FormWindow::tellPlace() {
    if (form != nullptr && outer->isVisible() && !std::exchange(following, true)) {
        // A size that came with the move is yet to be told.
        geometry.tellPlace();
        following = false;
    }
}

void FormWindow::tellExtent() {
    if (form != nullptr && outer->isVisible() && !following) {
        geometry.tellExtent();
    }
}

void FormWindow::adjust(void (FormGeometry::*how)()) {
    if (!following && outer->isVisible()) {
        following = true;
        (geometry.*how)();
        following = false;
        tellPlace();
    }
}

void FormWindow::showFocus() {
    Element* focused = form == nullptr ? nullptr : form->focusedElement();
    if (focused == nullptr) {
        return;
    }
    auto* widget = inner->findChild<QWidget*>(toQt(focused->name()));
    if (widget != nullptr && !widget->hasFocus()) {
        widget->setFocus();
    }
}

void FormWindow::hearOuter(QEvent& event) {
    if (event.type() == QEvent::Move) {
        tellPlace();
    } else if (event.type() == QEvent::Resize) {
        tellExtent();
    }
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
    if (form == nullptr) {
        return false;
    }
    if (watched == outer) {
        if (event->type() == QEvent::Close) {
            // The form decides, and hides the window itself.
            event->ignore();
            form->userClose();
            return true;
        }
        hearOuter(*event);
    } else if (watched == mdi.viewport()) {
        if (event->type() == QEvent::Resize) {
            adjust(&FormGeometry::followRoom);
        }
    } else if (event->type() == QEvent::MouseButtonPress) {
        // It may end the form, and this window with it.
        form->userClick();
    } else if (event->type() == QEvent::LayoutRequest) {
        // A text grew, or something came up: the window follows before it would have to scroll.
        adjust(&FormGeometry::followContent);
    }
    return false;
}

} // namespace zor
