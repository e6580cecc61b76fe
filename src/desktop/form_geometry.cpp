// SPDX-License-Identifier: MIT
#include "desktop/form_geometry.h"

#include "desktop/adapters/qt_text.h"
#include "desktop/inner_window.h"
#include "desktop/twips.h"
#include "elements/desk.h"
#include "panels/common/chip_panel.h"

#include <QLayout>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>
#include <vector>

namespace zor {

namespace {

/// How much of a window's upper edge has to be in sight for a mouse to take hold of it, in pixels.
constexpr int grip = 64;
/// The main window is taken to have this room at least, in pixels; there are scroll bars for the rest.
constexpr QSize leastRoom(320, 240);

/// A panel is what the other windows are for, and its buttons are what a hand goes to while they are open.
void coverPanel(std::vector<Covered>& covered, const QMdiSubWindow& panel) {
    constexpr int panelCounts = 8;
    constexpr int buttonCounts = 40;
    covered.push_back({panel.geometry(), panelCounts});
    for (const auto* button : panel.findChildren<QPushButton*>()) {
        if (button->isVisible()) {
            QPoint corner = panel.pos() + button->mapTo(&panel, QPoint());
            covered.push_back({QRect(corner, button->size()), buttonCounts});
        }
    }
}

} // namespace

FormGeometry::FormGeometry(Form& shownForm, QWidget& content, QScrollArea& itsScroller, QMdiArea& area)
    : form(shownForm)
    , inner(content)
    , scroller(itsScroller)
    , mdi(area) {}

void FormGeometry::setShell(QWidget& shell) {
    outer = &shell;
    way.reset();
}

bool FormGeometry::isInner() const {
    return qobject_cast<const QMdiSubWindow*>(outer) != nullptr;
}

bool FormGeometry::isAsItLikes() const {
    return form.sizing() == Form::Sizing::OfWindow && !form.hasUsersExtent();
}

void FormGeometry::open() {
    way.reset();
    fitContent();
    putGeometry();
    findPlace();
    bringWithinReach();
}

bool FormGeometry::follow() {
    QSize before = outer->size();
    bool differs = form.isOpen() && pixels(form.extent()) != before;
    if (differs) {
        // A size of the form's own making leaves room for what has just come up in it.
        fitContent();
    }
    putGeometry();
    if (form.isOpen() && outer->size() != before) {
        makeWay(before);
    }
    return differs;
}

void FormGeometry::followRoom() {
    if (form.sizing() != Form::Sizing::ByContent || !isInner()) {
        return;
    }
    // The area's own scroll bars come and go with the window's size, and take room themselves.
    constexpr int mostTurns = 3;
    QSize known;
    for (int turn = 0; turn < mostTurns && known != room(); ++turn) {
        known = room();
        followContent();
    }
}

void FormGeometry::followContent() {
    if (form.sizing() != Form::Sizing::ByContent) {
        return;
    }
    QSize before = outer->size();
    putGeometry();
    if (outer->size() != before) {
        makeWay(before);
    }
}

void FormGeometry::findPlace() {
    if (form.isPlaced() || !isInner()) {
        return;
    }
    std::vector<Covered> others;
    for (const QMdiSubWindow* other : mdi.subWindowList()) {
        if (other != outer && other->isVisible()) {
            const Form* its = form.desk().find(fromQt(other->objectName()));
            if (dynamic_cast<const ChipPanel*>(its) != nullptr) {
                coverPanel(others, *other);
            } else {
                others.push_back({other->geometry(), 1});
            }
        }
    }
    outer->move(freePlace(outer->size(), mdi.viewport()->size(), others));
}

QSize FormGeometry::decoration() const {
    if (!isInner()) {
        return {0, 0};
    }
    QSize frame = outer->sizeHint() - scroller.sizeHint();
    return frame.expandedTo({0, 0});
}

QSize FormGeometry::neededSize() const {
    if (inner.layout() != nullptr) {
        // What was just shown or hidden counts at once.
        inner.layout()->activate();
    }
    QSize needed = inner.sizeHint().expandedTo(inner.minimumSizeHint()) + decoration();
    QSize given = withinMainWindow(needed);
    // The bar that it is then scrolled by shall not take room from it, for that would bring the other bar.
    int barWidth = given.height() < needed.height() ? scroller.verticalScrollBar()->sizeHint().width() : 0;
    int barHeight = given.width() < needed.width() ? scroller.horizontalScrollBar()->sizeHint().height() : 0;
    given = withinMainWindow(given + QSize(barWidth, barHeight));
    return given;
}

QSize FormGeometry::room() const {
    return mdi.viewport()->size().expandedTo(leastRoom);
}

QSize FormGeometry::withinMainWindow(const QSize& size) const {
    return isInner() ? size.boundedTo(room()) : size;
}

/// The form says how large it likes to be; its content says how large it must be, and the main window how
/// large it can be.
void FormGeometry::fitContent() {
    if (form.sizing() == Form::Sizing::ByContent) {
        return;
    }
    QSize wanted = pixels(form.extent());
    QSize size = withinMainWindow(form.hasUsersExtent() ? wanted : wanted.expandedTo(neededSize()));
    if (size != wanted) {
        form.setExtent({twips(size.height()), twips(size.width())});
    }
}

void FormGeometry::putGeometry() {
    QSize size = form.sizing() == Form::Sizing::ByContent ? neededSize() : pixels(form.extent());
    if (!size.isEmpty() && outer->size() != size) {
        outer->resize(size);
    }
    if (!form.isPlaced()) {
        // The toolkit may choose.
        return;
    }
    QPoint place(pixels(form.place().left), pixels(form.place().top));
    if (!isInner()) {
        // A dialog's place counts from the main window's corner, as an inner window's does.
        place = mdi.window()->mapToGlobal(place);
    }
    if (outer->pos() != place) {
        outer->move(place);
    }
}

QPoint FormGeometry::inSight(const QPoint& place) const {
    return {std::clamp(place.x(), 0, std::max(0, room().width() - outer->width())),
            std::clamp(place.y(), 0, std::max(0, room().height() - outer->height()))};
}

QPoint FormGeometry::withinReach(const QPoint& place) const {
    return {std::clamp(place.x(), std::min(0, grip - outer->width()), room().width() - grip),
            std::clamp(place.y(), 0, room().height() - grip)};
}

void FormGeometry::bringWithinReach() {
    if (!isInner()) {
        return;
    }
    QPoint place = withinReach(outer->pos());
    bool isInSight = QRect(QPoint(), room()).contains(outer->geometry());
    if (place != outer->pos() || (isAsItLikes() && !isInSight)) {
        // Out of reach there, or grown past the edge with the font: all of it comes into view.
        outer->move(inSight(place));
    }
}

/// Where a small window found room a larger one may not have it: it comes into sight, and goes back as it
/// shrinks, unless somebody has moved it in between. One that its user has left half out of sight stays so.
void FormGeometry::makeWay(const QSize& before) {
    if (!isInner()) {
        return;
    }
    if (way && way->madeWayTo != outer->pos()) {
        way.reset();
    }
    bool hasGrown = outer->width() > before.width() || outer->height() > before.height();
    bool wasInSight = QRect(QPoint(), room()).contains(QRect(outer->pos(), before));
    if (way || (hasGrown && (wasInSight || isAsItLikes()))) {
        QPoint home = way ? way->home : outer->pos();
        QPoint place = inSight(home);
        way = place == home ? std::nullopt : std::optional(Way{home, place});
        outer->move(place);
    }
    outer->move(withinReach(outer->pos()));
}

void FormGeometry::tellPlace() {
    QPoint place = outer->pos();
    if (!isInner()) {
        place = mdi.window()->mapFromGlobal(place);
    }
    if (QPoint(pixels(form.place().left), pixels(form.place().top)) != place) {
        form.userMove({twips(place.y()), twips(place.x())});
    }
}

void FormGeometry::tellExtent() {
    if (form.sizing() == Form::Sizing::ByContent) {
        return;
    }
    QSize size = outer->size();
    if (pixels(form.extent()) != size) {
        form.userResize({twips(size.height()), twips(size.width())});
    }
}

} // namespace zor
