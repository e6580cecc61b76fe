// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/adapters/qt_loop.h"
#include "elements/desk.h"
#include "elements/form.h"

#include <QCoreApplication>
#include <QWidget>

#include <functional>
#include <memory>

namespace zor {

/// A window of the core with what a test puts on it.
struct DeskOfTest {
    QtLoop loop;
    Desk desk{loop};
};

/// Shows a bound widget as a window of its own and gives it the focus.
inline void showAlone(QWidget& widget) {
    widget.show();
    widget.activateWindow();
    widget.setFocus();
    QCoreApplication::processEvents();
}

} // namespace zor
