// SPDX-License-Identifier: MIT
#pragma once

#include "elements/form.h"

#include <QDockWidget>
#include <QObject>
#include <QPointer>

#include <optional>
#include <vector>

class QMainWindow;

namespace zor {

/// How a form that may stand at an edge of the main window says where.
struct Docking {
    /// Nothing while it wants to be an inner window.
    std::optional<Qt::DockWidgetArea> (*area)(const Form& form);
    /// The user dragged it to another edge.
    void (*moved)(Form& form, Qt::DockWidgetArea area);
};

/// One form's window at the main window's bottom or right edge. It follows the form and tells it what the
/// user does to the window, as an inner window does; its place and size are the main window's affair.
class DockWindow : public QObject {
  public:
    /// @param content  the view's widgets; the window owns them from now on
    DockWindow(Form& shownForm, QWidget* content, const Docking& formsDocking, QMainWindow& mainWindow);
    ~DockWindow() override;

    [[nodiscard]] QDockWidget& shell() const { return *outer; }
    [[nodiscard]] Qt::DockWidgetArea area() const { return ownArea; }

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void follow();

    Form* form;
    const Docking& docking;
    QPointer<QDockWidget> outer;
    Qt::DockWidgetArea ownArea;
    std::vector<Subscription> subscriptions;
};

} // namespace zor
