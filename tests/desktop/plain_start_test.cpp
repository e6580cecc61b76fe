// SPDX-License-Identifier: MIT
#include "plain_start.h"

#include "views_of_test.h"

#include <gtest/gtest.h>

#include <QAction>

namespace zor {

namespace {

template <class Kind>
void expectNoMoreOf(const QMainWindow& plain, const QMainWindow& own) {
    EXPECT_LE(plain.findChildren<Kind*>().size(), own.findChildren<Kind*>().size())
        << Kind::staticMetaObject.className();
}

} // namespace

// What the start is measured against must not be more than what it shows.
TEST(PlainStart, HoldsNoMoreOfAnyKindThanTheMainWindow) {
    Program program;
    QMainWindow plain;
    benchmarks::fillPlainly(plain);
    expectNoMoreOf<QMenu>(plain, program.window);
    expectNoMoreOf<QAction>(plain, program.window);
    expectNoMoreOf<QToolBar>(plain, program.window);
    expectNoMoreOf<QToolButton>(plain, program.window);
    expectNoMoreOf<QLineEdit>(plain, program.window);
    expectNoMoreOf<QComboBox>(plain, program.window);
    expectNoMoreOf<QPushButton>(plain, program.window);
    expectNoMoreOf<QLabel>(plain, program.window);
    expectNoMoreOf<QMdiArea>(plain, program.window);
    EXPECT_EQ(plain.findChildren<QMdiSubWindow*>().size(), 1) << "the window that greets";
}

} // namespace zor
