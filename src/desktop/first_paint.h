// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QObject>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <utility>

namespace zor {

/// Calls back once when a window has been painted for the first time, its children included: the moment from
/// which a user sees it.
class FirstPaint : public QObject {
  public:
    FirstPaint(QWidget& window, std::function<void()> callback)
        : QObject(&window)
        , painted(std::move(callback)) {
        window.installEventFilter(this);
    }

    bool eventFilter(QObject* window, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            window->removeEventFilter(this);
            // The children are painted behind their window, in the same turn.
            QTimer::singleShot(0, this, [this] { painted(); });
        }
        return false;
    }

  private:
    std::function<void()> painted;
};

} // namespace zor
