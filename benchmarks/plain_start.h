// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace zor::benchmarks {

/// What the main window has in it at its start, in the toolkit's plain widgets with nothing behind them:
/// menus, bars, status bar and the first window. Not one more of a kind than the program has; a desktop test
/// counts.
inline void fillPlainly(QMainWindow& window) {
    for (int entries : {9, 2, 13, 9, 10, 9, 11, 5}) {
        QMenu* menu = window.menuBar()->addMenu(QStringLiteral("Menu"));
        for (int entry = 0; entry < entries; ++entry) {
            menu->addAction(QStringLiteral("An entry of it"));
        }
    }
    auto* area = new QMdiArea;
    window.setCentralWidget(area);

    auto toolButton = [](int entries) {
        auto* button = new QToolButton;
        button->setText(QStringLiteral("KT110x"));
        if (entries > 0) {
            auto* menu = new QMenu(button);
            for (int entry = 0; entry < entries; ++entry) {
                menu->addAction(QStringLiteral("KT1100"));
            }
            button->setMenu(menu);
        }
        return button;
    };
    QToolBar* chips = window.addToolBar(QStringLiteral("Chips"));
    for (int entries : {4, 2, 3, 0}) {
        chips->addWidget(toolButton(entries));
    }
    QToolBar* link = window.addToolBar(QStringLiteral("Link"));
    link->addWidget(toolButton(0));
    link->addWidget(toolButton(0));
    link->addWidget(new QLineEdit(QStringLiteral("No comm.")));
    link->addWidget(new QLabel(QStringLiteral("Connected Board:")));
    link->addWidget(new QLineEdit(QStringLiteral("not found")));
    link->addWidget(new QComboBox);
    QToolBar* selector = window.addToolBar(QStringLiteral("Data selector"));
    selector->addWidget(new QLabel(QStringLiteral("Data Selector:")));
    selector->addWidget(new QComboBox);
    selector->hide();

    QStatusBar& foot = *window.statusBar();
    foot.addWidget(new QLabel, 1);
    for (const char* caption : {"Bring back", "Dismiss", "Undo", "Reconnect"}) {
        auto* button = new QPushButton(QLatin1String(caption));
        foot.addPermanentWidget(button);
        button->hide();
    }
    auto* steps = new QComboBox;
    foot.addPermanentWidget(steps);
    steps->hide();

    auto* first = new QWidget;
    auto* column = new QVBoxLayout(first);
    column->addStretch(1);
    column->addWidget(new QLabel(QStringLiteral("GUI Version 1.0.0")));
    area->addSubWindow(first)->resize(500, 300);
}

} // namespace zor::benchmarks
