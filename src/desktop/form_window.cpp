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
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zor {

namespace {

int pixels(Twips length) {
    return static_cast<int>(std::lround(length / twipsPerPixel));
}

Twips twips(int length) {
    return static_cast<Twips>(length) * twipsPerPixel;
}

/// How much of a window's upper edge has to be in sight for a mouse to take hold of it, in pixels.
constexpr int grip = 64;

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
    , ownFrame(frame) {
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
    subscriptions.push_back(form->changed.subscribe([this] { follow(); }));
    subscriptions.push_back(form->raised.subscribe([this] {
        outer->raise();
        if (auto* window = qobject_cast<QMdiSubWindow*>(outer)) {
            mdi.setActiveSubWindow(window);
        } else {
            outer->activateWindow();
        }
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
    outer->setObjectName(toQt(form->name()));
    outer->setWindowTitle(toQt(form->title()));
    outer->installEventFilter(this);
    old->hide();
    old->deleteLater();
    bool inside = qobject_cast<QMdiSubWindow*>(outer) != nullptr;
    outer->resize(size + (inside ? decoration()
                                 : QSize(0, outer->sizeHint().height() - scroller->sizeHint().height())));
    outer->move(inside ? mdi.viewport()->mapFromGlobal(place) : place);
    scroller->show();
    outer->show();
    bringWithinReach();
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

void FormWindow::findPlace() {
    if (form->isPlaced() || qobject_cast<QMdiSubWindow*>(outer) == nullptr) {
        return;
    }
    constexpr int panelCounts = 8;
    std::vector<Covered> others;
    for (const QMdiSubWindow* other : mdi.subWindowList()) {
        if (other != outer && other->isVisible()) {
            const Form* its = form->desk().find(fromQt(other->objectName()));
            bool isPanel = dynamic_cast<const ChipPanel*>(its) != nullptr;
            others.push_back({other->geometry(), isPanel ? panelCounts : 1});
        }
    }
    outer->move(freePlace(outer->size(), mdi.viewport()->size(), others));
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
    QSize wanted(pixels(form->extent().width), pixels(form->extent().height));
    bool resizes = form->isOpen() && wanted != outer->size();
    if (opens || resizes) {
        // A size of the form's own making leaves room for what has just come up in it.
        fitContent();
    }
    putGeometry();
    if (opens) {
        findPlace();
    }
    if (opens || resizes) {
        // Where a small window found room a larger one may not have it.
        bringWithinReach();
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
        if (auto* window = qobject_cast<QMdiSubWindow*>(outer)) {
            mdi.setActiveSubWindow(window);
        }
    }
    showFocus();
}

QSize FormWindow::decoration() const {
    if (qobject_cast<QMdiSubWindow*>(outer) == nullptr) {
        return {0, 0};
    }
    QSize frame = outer->sizeHint() - scroller->sizeHint();
    return frame.expandedTo({0, 0});
}

QSize FormWindow::neededSize() const {
    if (inner->layout() != nullptr) {
        // What was just shown or hidden counts at once.
        inner->layout()->activate();
    }
    QSize needed = inner->sizeHint().expandedTo(inner->minimumSizeHint()) + decoration();
    QSize room = withinMainWindow(needed);
    if (room.height() < needed.height()) {
        // The bar that it is then scrolled by shall not take width from it.
        room = withinMainWindow(room + QSize(scroller->verticalScrollBar()->sizeHint().width(), 0));
    }
    return room;
}

QSize FormWindow::withinMainWindow(QSize size) const {
    if (qobject_cast<QMdiSubWindow*>(outer) == nullptr) {
        return size;
    }
    return size.boundedTo(mdi.viewport()->size().expandedTo({320, 240}));
}

/// The form says how large it likes to be; its content says how large it must be, and the main window how
/// large it can be.
void FormWindow::fitContent() {
    if (form->sizing() == Form::Sizing::ByContent) {
        return;
    }
    QSize wanted(pixels(form->extent().width), pixels(form->extent().height));
    QSize size = withinMainWindow(form->hasUsersExtent() ? wanted : wanted.expandedTo(neededSize()));
    if (size != wanted) {
        form->setExtent({twips(size.height()), twips(size.width())});
    }
}

void FormWindow::putGeometry() {
    QSize size = form->sizing() == Form::Sizing::ByContent
                     ? neededSize()
                     : QSize(pixels(form->extent().width), pixels(form->extent().height));
    if (!size.isEmpty() && outer->size() != size) {
        outer->resize(size);
    }
    if (!form->isPlaced()) {
        // The toolkit may choose.
        return;
    }
    QPoint place(pixels(form->place().left), pixels(form->place().top));
    if (qobject_cast<QMdiSubWindow*>(outer) == nullptr) {
        // A dialog's place counts from the main window's corner, as an inner window's does.
        place = mdi.window()->mapToGlobal(place);
    }
    if (outer->pos() != place) {
        outer->move(place);
    }
}

/// A workspace of a larger screen may have put it where nobody could take hold of it.
void FormWindow::bringWithinReach() {
    if (qobject_cast<QMdiSubWindow*>(outer) == nullptr) {
        return;
    }
    QSize room = mdi.viewport()->size().expandedTo({320, 240});
    QPoint place(std::clamp(outer->x(), std::min(0, grip - outer->width()), room.width() - grip),
                 std::clamp(outer->y(), 0, room.height() - grip));
    bool asItLikes = form->sizing() == Form::Sizing::OfWindow && !form->hasUsersExtent();
    bool inSight = QRect(QPoint(), room).contains(outer->geometry());
    if (place != outer->pos() || (asItLikes && !inSight)) {
        // Out of reach there, or grown past the edge with the font: all of it comes into view.
        outer->move(std::clamp(place.x(), 0, std::max(0, room.width() - outer->width())),
                    std::clamp(place.y(), 0, std::max(0, room.height() - outer->height())));
    }
}

void FormWindow::tellPlace() {
    if (form == nullptr || following || !outer->isVisible()) {
        return;
    }
    QPoint place = outer->pos();
    if (qobject_cast<QMdiSubWindow*>(outer) == nullptr) {
        place = mdi.window()->mapFromGlobal(place);
    }
    if (QPoint(pixels(form->place().left), pixels(form->place().top)) != place) {
        // A size that came with the move is yet to be told.
        following = true;
        form->userMove({twips(place.y()), twips(place.x())});
        following = false;
    }
}

void FormWindow::tellExtent() {
    if (form == nullptr || following || !outer->isVisible() || form->sizing() == Form::Sizing::ByContent) {
        return;
    }
    QSize size = outer->size();
    if (QSize(pixels(form->extent().width), pixels(form->extent().height)) != size) {
        form->userResize({twips(size.height()), twips(size.width())});
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

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
    if (form == nullptr) {
        return false;
    }
    if (watched == outer) {
        switch (event->type()) {
        case QEvent::Close:
            // The form decides, and hides the window itself.
            event->ignore();
            form->userClose();
            return true;
        case QEvent::Move:
            tellPlace();
            break;
        case QEvent::Resize:
            tellExtent();
            break;
        default:
            break;
        }
        return false;
    }
    if (event->type() == QEvent::MouseButtonPress) {
        // It may end the form, and this window with it.
        form->userClick();
        return false;
    }
    if (event->type() == QEvent::LayoutRequest && form->sizing() == Form::Sizing::ByContent &&
        outer->isVisible() && !following) {
        // A text grew, or something came up: the window follows before it would have to scroll.
        following = true;
        putGeometry();
        following = false;
    }
    return false;
}

} // namespace zor
