// SPDX-License-Identifier: MIT
#pragma once

#include "elements/signal.h"

#include <QWidget>

#include <functional>
#include <vector>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace zor {

class MainWindow;

/// What the main window shows while nothing is open in it: how things stand with the board and what to do
/// next, the chips, the files used last, and a way without hardware. All room around and between lets the
/// main window's own gestures through.
class StartPage : public QWidget {
  public:
    StartPage(MainWindow& mainForm, QWidget& area);

    /// Without it the page offers no simulated board; with it only where the advice is so.
    /// @param start  puts one on a port and connects to it; tells whether it could. It is done once.
    void offerDemo(std::function<bool()> start);
    /// In the middle of the area, as far as there is room.
    void fit();
    /// The first time it fills the page.
    void setVisible(bool visible) override;

    /// So many of the last files are offered where there is room, and so many in a small window.
    static constexpr int mostFiles = 4;
    static constexpr int fewFiles = 2;

  protected:
    bool event(QEvent* event) override;

  private:
    void build();
    QWidget* header();
    QWidget* boardGroup();
    QWidget* chipGroups();
    QWidget* demoGroup();
    QWidget* fileGroup();
    void follow();
    void showFiles();
    void showOffers();

    MainWindow& main;
    QLabel* headline = nullptr;
    QLabel* hint = nullptr;
    QPushButton* connectButton = nullptr;
    QWidget* demo = nullptr;
    QWidget* files = nullptr;
    QVBoxLayout* fileRows = nullptr;
    /// Demo and files side by side.
    QWidget* offers = nullptr;
    int filesShown = mostFiles;
    std::function<bool()> startDemo;
    std::vector<Subscription> subscriptions;
};

} // namespace zor
