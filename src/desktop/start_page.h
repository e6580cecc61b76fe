// SPDX-License-Identifier: MIT
#pragma once

#include "elements/signal.h"

#include <QWidget>

#include <functional>
#include <vector>

class QLabel;
class QPushButton;

namespace zor {

class MainWindow;

/// What the main window shows while nothing is open in it: how things stand with the board and what to do
/// next, the chips, and a way without hardware. All room around and between lets the main window's own
/// gestures through.
class StartPage : public QWidget {
  public:
    StartPage(MainWindow& mainForm, QWidget& area);

    /// Puts a simulated board on a port; without it the page offers none.
    void offerDemo(std::function<void()> start);
    /// In the middle of the area, as far as there is room.
    void fit();

  private:
    QWidget* header();
    QWidget* boardGroup();
    QWidget* chipGroups();
    QWidget* demoGroup();
    void follow();

    MainWindow& main;
    QLabel* headline = nullptr;
    QLabel* hint = nullptr;
    QPushButton* connectButton = nullptr;
    QWidget* demo = nullptr;
    std::function<void()> startDemo;
    std::vector<Subscription> subscriptions;
};

} // namespace zor
