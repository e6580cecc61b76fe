// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/form_geometry.h"
#include "elements/form.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <vector>

class QMdiArea;
class QMdiSubWindow;
class QScrollArea;

namespace zor {

/// One form's window on the screen: an inner window of the main window, or a dialog over it for a modal form.
///
/// It follows the form (open or not, title, place, size, focus) and tells it what the user does to the
/// window. When the form goes, letGo() parts the two; the widgets are deleted once no event of theirs is
/// being handled any more.
class FormWindow : public QObject {
  public:
    enum class Frame { Titled, Bare };

    /// @param content  the view's widgets; the window owns them from now on
    FormWindow(Form& shownForm, QWidget* content, Frame frame, QMdiArea& area);
    ~FormWindow() override;

    /// The inner window or dialog.
    [[nodiscard]] QWidget& shell() const { return *outer; }
    [[nodiscard]] QWidget& content() const { return *inner; }

    /// Shows or hides the window, whichever the form says.
    void follow();
    /// Takes the window out of the main one, or brings it back; a panel, a dialog and the greeting stay.
    void setFloating(bool floats);
    [[nodiscard]] bool isFloating() const;
    [[nodiscard]] bool canFloat() const;
    void letGo();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void makeInner(QMdiArea& area, Frame frame);
    void makeDialog(QWidget& parent);
    void makeFloating();
    /// The new shell in the old one's place.
    void changeShell(const std::function<void()>& make);
    void activate();
    void hearFocus();
    void showFocus();
    void tellPlace();
    void tellExtent();
    /// Lets the program move or size the window, and tells the form where it stands then.
    void adjust(void (FormGeometry::*how)());
    void hearOuter(QEvent& event);

    Form* form;
    QPointer<QWidget> outer;
    QPointer<QWidget> inner;
    QPointer<QScrollArea> scroller;
    QMdiArea& mdi;
    Frame ownFrame;
    FormGeometry geometry;
    std::vector<Subscription> subscriptions;
    /// The program moves the window; what the toolkit tells of it is not the user's doing.
    bool following = false;
};

} // namespace zor
