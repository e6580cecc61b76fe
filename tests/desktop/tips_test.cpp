// SPDX-License-Identifier: MIT
// Whoever stops at a control is told what it is: its tip, or the explanation that stands in for one.
#include "desktop/widgets/binding.h"
#include "views_of_test.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QWidget>

namespace zor {

namespace {

/// A person can point at it and do something with it; captions, frames and notices only say something.
bool isControl(const QWidget& widget) {
    return widget.focusPolicy() != Qt::NoFocus && qobject_cast<const QLabel*>(&widget) == nullptr;
}

QStringList withoutTip(const QWidget& root) {
    QStringList without;
    for (const Binding* binding : root.findChildren<Binding*>()) {
        const QWidget* widget = binding->widget();
        if (widget != nullptr && isControl(*widget) && widget->toolTip().trimmed().isEmpty()) {
            without += name(*binding->element());
        }
    }
    without.removeDuplicates();
    return without;
}

} // namespace

class EveryViewExplained : public testing::TestWithParam<std::string> {};

TEST_P(EveryViewExplained, HasATipForEveryControl) {
    EXPECT_EQ(withoutTip(OpenView(GetParam()).window().content()).join(" ").toStdString(), "");
}

INSTANTIATE_TEST_SUITE_P(Registry, EveryViewExplained, testing::ValuesIn(everyForm()),
                         [](const auto& view) { return view.param; });

TEST(DesktopWindow, HasATipForEveryControlOfItsBars) {
    Program program;
    program.start();
    EXPECT_EQ(withoutTip(program.window).join(" ").toStdString(), "");
}

} // namespace zor
