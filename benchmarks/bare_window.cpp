// SPDX-License-Identifier: MIT
// The least that a program with a window of this toolkit costs: tools/bench-start measures the product
// against it.
#include <QApplication>
#include <QMainWindow>
#include <QTimer>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("fusion"));
    QMainWindow window;
    window.resize(1280, 800);
    window.show();
    QTimer::singleShot(0, &application, &QApplication::quit);
    return QApplication::exec();
}
