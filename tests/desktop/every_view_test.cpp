// SPDX-License-Identifier: MIT
#include "desktop/widgets/binding.h"
#include "views_of_test.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QSlider>
#include <QTabBar>

namespace zor {

class EveryView : public testing::TestWithParam<std::string> {};

TEST_P(EveryView, ShowsEveryElementOfItsForm) {
    OpenView view(GetParam());
    FormWindow& window = view.window();
    EXPECT_TRUE(window.shell().isVisible());
    EXPECT_EQ(unseenElements(view.form(), window.content()), QStringList());
    EXPECT_EQ(wronglyHidden(window.content()), QStringList());
    view.form().userClose();
    // A window that is made anew at each opening has gone altogether.
    Form* left = view.program.desk.find(GetParam());
    EXPECT_TRUE(left == nullptr || !left->isOpen());
}

INSTANTIATE_TEST_SUITE_P(Registry, EveryView, testing::ValuesIn(everyForm()),
                         [](const auto& view) { return view.param; });

/// The elements that the tab key visits one after the other, back to the first; a stop that belongs to no
/// element goes by its class.
QStringList tabWalk() {
    QStringList visited;
    while (QWidget* focus = QApplication::focusWidget()) {
        const Binding* binding = Binding::of(focus);
        QString stop = binding != nullptr ? name(*binding->element()) : focus->metaObject()->className();
        if (visited.contains(stop)) {
            break;
        }
        visited += stop;
        QTest::keyClick(focus, Qt::Key_Tab);
    }
    return visited;
}

/// The elements of a window that a person could work with just now.
QStringList workable(const QWidget& content) {
    QStringList names;
    for (const Binding* binding : content.findChildren<Binding*>()) {
        const QWidget* widget = binding->widget();
        if (widget == nullptr || !widget->isVisible() || !widget->isEnabled()) {
            continue;
        }
        const auto* field = qobject_cast<const QLineEdit*>(widget);
        bool works = (field != nullptr && !field->isReadOnly()) ||
                     qobject_cast<const QAbstractButton*>(widget) != nullptr ||
                     qobject_cast<const QComboBox*>(widget) != nullptr ||
                     qobject_cast<const QSlider*>(widget) != nullptr ||
                     qobject_cast<const QTabBar*>(widget) != nullptr;
        if (works && !names.contains(name(*binding->element()))) {
            names += name(*binding->element());
        }
    }
    return names;
}

TEST_P(EveryView, IsWalkedWithTheTabKeyAlone) {
    Program program;
    program.start();
    std::unique_ptr<Form> own;
    openForm(program, GetParam(), own);
    FormWindow& window = *program.window.windowOf(*program.desk.find(GetParam()));
    window.shell().window()->activateWindow();
    QCoreApplication::processEvents();
    QStringList all = workable(window.content());
    QStringList visited = tabWalk();
    for (const QString& element : all) {
        EXPECT_TRUE(visited.contains(element))
            << qPrintable(element) << " of " << qPrintable(visited.join(" "));
    }
    for (const QString& stop : visited) {
        // A window with nothing to work with has the keyboard itself.
        EXPECT_TRUE(all.isEmpty() || !stop.startsWith("Q"))
            << "a stop without an element: " << qPrintable(stop);
    }
}

TEST(DesktopWindow, ShowsEveryElementOfTheMainForm) {
    Program program;
    program.start();
    // A menu gets its entries when it comes into sight: that of a chip's last files with the first of them.
    for (Element* element : program.main.elements()) {
        if (auto* entry = dynamic_cast<MenuEntry*>(element); entry != nullptr && !entry->children().empty()) {
            entry->setVisible(true);
        }
    }
    EXPECT_EQ(unseenElements(program.main, program.window), QStringList());
    EXPECT_EQ(wronglyHidden(program.window), QStringList());
}

} // namespace zor
