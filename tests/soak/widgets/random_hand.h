// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QPoint>
#include <QString>

#include <array>
#include <functional>
#include <random>

class QAbstractButton;
class QFileDialog;
class QWidget;
class QWindow;

namespace zor {

class DemoBoard;

/// Somebody with a mouse and a keyboard who does anything to anything that is on the screen, and now and then
/// something to the board. The gestures go to the windows as the system's own do, so that what is covered,
/// disabled or behind a dialog is met as a person meets it. Only file dialogs are treated with care: they get
/// a name in a folder of the session's own, or none.
class RandomHand {
  public:
    /// @param folder  where file dialogs are led to
    /// @param log     takes each gesture before it is made
    RandomHand(unsigned seed, QDir folder, DemoBoard& board, std::function<void(const QString&)> log);

    /// One gesture or fault. May come back late, for a dialog that the gesture opens waits in it.
    void act();

  private:
    int upTo(int highest);
    bool oneIn(int times) { return upTo(times - 1) == 0; }
    template <class Choices>
    const auto& oneOf(const Choices& choices) {
        return choices[static_cast<std::size_t>(upTo(static_cast<int>(std::size(choices)) - 1))];
    }

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

    std::mt19937 random;
    QDir files;
    DemoBoard& loadBoard;
    std::function<void(const QString&)> tell;
};

} // namespace zor
