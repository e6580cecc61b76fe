// SPDX-License-Identifier: MIT
#include "desktop/main_geometry.h"

#include "desktop/screen_room.h"
#include "desktop/twips.h"
#include "shell/main_window.h"
#include "shell/window_memory.h"

#include <QMargins>
#include <QWidget>

#include <optional>
#include <utility>

namespace zor {

namespace {

/// Of an ordinary window manager, until the real frame is known.
constexpr QMargins likelyFrame(4, 36, 4, 4);

constexpr Qt::WindowStates byOthers = Qt::WindowMaximized | Qt::WindowFullScreen | Qt::WindowMinimized;

} // namespace

MainGeometry::MainGeometry(MainWindow& mainForm, QWidget& itsWindow, Screens screens)
    : main(mainForm)
    , window(itsWindow)
    , screenRooms(std::move(screens)) {}

void MainGeometry::open() {
    std::vector<QRect> screens = screenRooms();
    auto memory = screens.empty() ? std::optional<WindowMemory>() : readWindowMemory(main.bench().platform);
    if (memory) {
        window.setGeometry(
            withinScreens({memory->left, memory->top, memory->width, memory->height}, screens, likelyFrame));
        if (memory->maximized) {
            window.setWindowState(window.windowState() | Qt::WindowMaximized);
        }
    } else {
        // Where it goes the first time is the window manager's business.
        QPoint corner = screens.empty() ? QPoint() : screens.front().topLeft();
        window.resize(withinScreens({corner, pixels(main.extent())}, screens, likelyFrame).size());
    }
    knownPlace = main.place();
    knownExtent = main.extent();
}

void MainGeometry::follow() {
    if (main.extent() != knownExtent) {
        knownExtent = main.extent();
        window.resize(pixels(knownExtent));
    }
    if (main.isPlaced() && main.place() != knownPlace) {
        knownPlace = main.place();
        window.move(pixels(knownPlace.left), pixels(knownPlace.top));
    }
}

void MainGeometry::settle() {
    if (std::exchange(settled, true) || (window.windowState() & byOthers) != 0) {
        return;
    }
    QRect inside = window.geometry();
    QRect outside = window.frameGeometry();
    QMargins frame(inside.left() - outside.left(), inside.top() - outside.top(),
                   outside.right() - inside.right(), outside.bottom() - inside.bottom());
    QRect fitting = withinScreens(inside, screenRooms(), frame);
    if (fitting.size() != inside.size()) {
        window.setGeometry(fitting);
    }
}

void MainGeometry::tell() {
    main.userMove({twips(window.y()), twips(window.x())});
    main.userResize({twips(window.height()), twips(window.width())});
    knownPlace = main.place();
    knownExtent = main.extent();
}

void MainGeometry::keep() const {
    if (screenRooms().empty()) {
        return;
    }
    bool normal = (window.windowState() & byOthers) == 0;
    QRect place = normal ? window.geometry() : window.normalGeometry();
    try {
        writeWindowMemory(main.bench().platform, {.left = place.x(),
                                                  .top = place.y(),
                                                  .width = place.width(),
                                                  .height = place.height(),
                                                  .maximized = window.isMaximized()});
    } catch (const ToolError&) {
        // The next start opens as the first one does; nothing else is lost.
    }
}

} // namespace zor
