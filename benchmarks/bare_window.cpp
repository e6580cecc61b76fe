// SPDX-License-Identifier: MIT
// The least that a program with a window of this toolkit costs, empty or filled with plain widgets:
// tools/benchmark-start measures the product against it.
#include "plain_start.h"

#include "desktop/first_paint.h"

#include <QApplication>
#include <QMainWindow>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("fusion"));
    QMainWindow window;
    if (QApplication::arguments().contains(QStringLiteral("--filled"))) {
        zor::benchmarks::fillPlainly(window);
    }
    window.resize(1280, 800);
    window.show();
    new zor::FirstPaint(window, [] { QApplication::quit(); });
    return QApplication::exec();
}
