// SPDX-License-Identifier: MIT
#pragma once

#include "elements/form.h"

#include <QRect>

#include <functional>
#include <vector>

class QWidget;

namespace zor {

class MainWindow;

/// What the screens have room for; without any the main window is as large as its form says, and neither
/// looks up nor keeps where it was.
using Screens = std::function<std::vector<QRect>()>;

/// Where the main window stands and how large it is: opened where and as large as it was, moved and sized as
/// the program says, and what the window manager makes of it is followed, never fought. Belongs to the
/// window, which sees to it that what the program does here is not taken for the user's doing.
class MainGeometry {
  public:
    MainGeometry(MainWindow& mainForm, QWidget& itsWindow, Screens screens);

    /// At the opening: where and as large as it was, as far as a screen has room.
    void open();
    /// What the program has changed; what the window manager made of the window stays.
    void follow();
    /// Once the frame is known: the whole window is on a screen.
    void settle();
    [[nodiscard]] bool isSettled() const { return settled; }
    /// Tells the form where the window is and how large.
    void tell();
    /// For the next start.
    void keep() const;

  private:
    MainWindow& main;
    QWidget& window;
    Screens screenRooms;
    /// What the form and the window agree on.
    Place knownPlace;
    Extent knownExtent;
    bool settled = false;
};

} // namespace zor
