// SPDX-License-Identifier: MIT
#pragma once

#include "elements/form.h"

#include <QPoint>
#include <QPointer>
#include <QSize>
#include <QWidget>

#include <optional>

class QMdiArea;
class QScrollArea;

namespace zor {

/// Where a form's window stands and how large it is: what the form says, what the content needs and what the
/// main window has room for, brought together. Belongs to the form's window, which sees to it that what the
/// program does here is not taken for the user's doing.
class FormGeometry {
  public:
    FormGeometry(Form& shownForm, QWidget& content, QScrollArea& itsScroller, QMdiArea& area);

    /// The inner window, dialog or floating window that the content stands in from now on.
    void setShell(QWidget& shell);

    /// Brings a window that comes up to its size and place: where the form says, else where the panel and
    /// the other windows are not; within reach in any case.
    void open();
    /// Brings an open window to the size and place that the form says, and into sight when it has grown.
    /// @return whether the form's size was another than the window's
    bool follow();
    /// The room in the main window has changed; who is as large as his content takes as much of it as he can.
    void followRoom();
    /// The content wants another size.
    void followContent();
    /// A workspace of a larger screen may have put it where nobody could take hold of it.
    void bringWithinReach();
    /// What frame and title bar add to the content of an inner window.
    [[nodiscard]] QSize decoration() const;

    /// Tell the form what has become of its window, if that is news.
    void tellPlace();
    void tellExtent();

  private:
    [[nodiscard]] bool isInner() const;
    /// Nobody but the program has sized it.
    [[nodiscard]] bool isAsItLikes() const;
    void findPlace();
    void putGeometry();
    void fitContent();
    void makeWay(const QSize& before);
    /// What the content needs, as far as the main window has room.
    [[nodiscard]] QSize neededSize() const;
    /// No larger than the room in the main window.
    [[nodiscard]] QSize withinMainWindow(const QSize& size) const;
    [[nodiscard]] QSize room() const;
    /// The nearest place at which all of the window is in sight.
    [[nodiscard]] QPoint inSight(const QPoint& place) const;
    /// The nearest place at which a mouse can take hold of it.
    [[nodiscard]] QPoint withinReach(const QPoint& place) const;

    Form& form;
    QWidget& inner;
    QScrollArea& scroller;
    QMdiArea& mdi;
    QPointer<QWidget> outer;

    /// A window that had to make way when it grew: where it belongs, and where it went.
    struct Way {
        QPoint home;
        QPoint madeWayTo;
    };
    std::optional<Way> way;
};

} // namespace zor
