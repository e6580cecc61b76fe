// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/dock_window.h"
#include "desktop/form_window.h"
#include "desktop/main_geometry.h"
#include "desktop/screen_room.h"
#include "elements/desk.h"

#include <QMainWindow>

#include <map>
#include <memory>
#include <optional>
#include <vector>

class QMdiArea;
class QMdiSubWindow;

namespace zor {

class MainWindow;
class StartPage;

/// The main window on the screen: menus, three bars, the room that the inner windows stand in, and one quiet
/// line at the foot. It makes a window for every form that opens on the desk. Owned by main; the main form
/// must outlive it.
class DesktopWindow : public QMainWindow {
  public:
    explicit DesktopWindow(MainWindow& mainForm, Screens screens = availableScreens);
    ~DesktopWindow() override;

    /// The inner window or dialog of an open form, or nullptr.
    [[nodiscard]] FormWindow* windowOf(const Form& form) const;
    /// Where it stands at an edge of the main window; nullptr if it does not.
    [[nodiscard]] DockWindow* dockOf(const Form& form) const;
    [[nodiscard]] QMdiArea& area() const { return *mdi; }
    /// Shown while no window stands in the area.
    [[nodiscard]] StartPage& startPage() const { return *start; }

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void open(Form& form);
    /// Makes the window, inner or at an edge, that the form wants and there is room for.
    void makeWindow(Form& form);
    /// Looks again where the forms want to stand that may stand at an edge.
    void placeDocks();
    void giveFrontBack();
    /// The inner window that was active last of those on the screen; nullptr if there is none.
    [[nodiscard]] QMdiSubWindow* innerInFront() const;
    [[nodiscard]] std::optional<Qt::DockWidgetArea> dockArea(const Form& form) const;
    void remove(Form& form);
    void follow();
    void tellGeometry();
    void colourArea();
    /// Takes the keyboard from the inner windows to the bars, and back to where it was.
    void changePane();
    /// Takes the window in front out of the main one, or brings it back.
    void changeFloating();
    /// Behind what is going on: windows come and go in the midst of it.
    void showStartPageSoon();

    MainWindow& main;
    QMdiArea* mdi;
    StartPage* start = nullptr;
    std::map<const Form*, std::unique_ptr<FormWindow>> windows;
    std::map<const Form*, std::unique_ptr<DockWindow>> docks;
    /// Those that may stand at an edge.
    std::map<Form*, Subscription> dockable;
    std::map<const Form*, Subscription> openings;
    std::vector<Subscription> subscriptions;
    MainGeometry ownGeometry;
    bool following = false;
    bool startPageIsDue = false;
};

} // namespace zor
