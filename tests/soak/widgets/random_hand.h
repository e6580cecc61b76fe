// SPDX-License-Identifier: MIT
#pragma once

#include "soak/dice.h"

#include <QDir>
#include <QPoint>
#include <QString>

#include <array>
#include <functional>

class QAbstractButton;
class QFileDialog;
class QWidget;
class QWindow;

namespace zor {

class DemoBoard;

/// Somebody with a mouse and a keyboard who does anything to anything that is on the screen, and now and then
/// something to the board. The gestures go to the windows as the system's own do, so that what is covered,
/// disabled or behind a dialog is met as a person meets it. Only file dialogs are treated with care: they get
/// a name in a folder of the run's own, or none.
class RandomHand : private Dice {
  public:
    /// @param folder  where file dialogs are led to
    /// @param log     takes each gesture before it is made
    RandomHand(unsigned seed, QDir folder, DemoBoard& board, std::function<void(const QString&)> log);

    /// One gesture or fault. May come back late, for a dialog that the gesture opens waits in it.
    void act();

  private:
    void inPopup(QWidget& popup);
    void inFileDialog(QFileDialog& dialog);
    void inWindow(QWidget& window);
    void point(QWidget& widget);
    void key(QWidget& window);
    void toInnerWindow(QWidget& window);
    void fault();
    [[nodiscard]] QPoint someWhere(const QWidget& widget);
    [[nodiscard]] QWidget* someWidget(QWidget& window);
    void say(const QString& what);

    QDir files;
    DemoBoard& loadBoard;
    std::function<void(const QString&)> tell;
};

} // namespace zor
