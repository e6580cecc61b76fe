// SPDX-License-Identifier: MIT
#pragma once

#include <QMdiSubWindow>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <functional>
#include <vector>

class QToolButton;

namespace zor {

/// A window inside the main one, with a sign left of its cross that takes it out.
class InnerWindow : public QMdiSubWindow {
  public:
    enum class Leaves { Never, ByItsSign };

    explicit InnerWindow(Leaves leaves);

    std::function<void()> onLeave;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void putSign();

    QToolButton* sign = nullptr;
};

/// The same content as a window of its own beside the main one, above which it stays.
class FloatingWindow : public QWidget {
  public:
    FloatingWindow(QWidget& mainWindow, QWidget& content);

    std::function<void()> onReturn;
};

/// What a new window would cover, and how much that matters.
struct Covered {
    QRect place;
    int weight = 1;
};
/// Where a window of that size covers least, wholly inside the room if it is no larger; of equal places the
/// one that is farther up, then farther left.
[[nodiscard]] QPoint freePlace(const QSize& size, const QSize& room, const std::vector<Covered>& others);

} // namespace zor
