// SPDX-License-Identifier: MIT
// The wire log at an edge of the main window.
#include "program.h"

#include "utilities/wire_log.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QDockWidget>
#include <QMdiArea>
#include <QMdiSubWindow>

#include <algorithm>

namespace zor {

namespace {

struct Docks : Program {
    Docks() {
        start();
        resizeMain(QSize(1800, 1000));
    }
    void resizeMain(QSize size) {
        window.resize(size);
        QCoreApplication::processEvents();
    }
    WireLog& open() {
        main.perform([this] { main.bench().tools.open(Tool::frm_WireLog); });
        QCoreApplication::processEvents();
        return dynamic_cast<WireLog&>(*desk.find("frm_WireLog"));
    }
    void choose(WireLog& log, const char* place) {
        log.Dock.chooseText(place);
        QCoreApplication::processEvents();
    }
};

} // namespace

TEST(Docking, TheLogStandsWhereItsListSays) {
    Docks program;
    WireLog& log = program.open();
    EXPECT_NE(program.window.windowOf(log), nullptr);
    program.choose(log, "Bottom");
    ASSERT_NE(program.window.dockOf(log), nullptr);
    EXPECT_EQ(program.window.windowOf(log), nullptr);
    QDockWidget& dock = program.window.dockOf(log)->shell();
    EXPECT_TRUE(dock.isVisible());
    EXPECT_EQ(program.window.dockWidgetArea(&dock), Qt::BottomDockWidgetArea);
    EXPECT_EQ(dock.windowTitle(), "Wire Log");
    program.choose(log, "Right");
    EXPECT_EQ(program.window.dockWidgetArea(&program.window.dockOf(log)->shell()), Qt::RightDockWidgetArea);
    program.choose(log, "Window");
    EXPECT_EQ(program.window.dockOf(log), nullptr);
    ASSERT_NE(program.window.windowOf(log), nullptr);
    EXPECT_TRUE(program.window.windowOf(log)->shell().isVisible());
}

TEST(Docking, AChoiceInTheListItselfTakesItsWindowAwaySafely) {
    Docks program;
    WireLog& log = program.open();
    auto* list = program.window.windowOf(log)->content().findChild<QComboBox*>("Dock");
    ASSERT_NE(list, nullptr);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(log.Dock.text(), "Bottom");
    EXPECT_NE(program.window.dockOf(log), nullptr);
}

TEST(Docking, TheLogIsRememberedThereAndClosesLikeAnyWindow) {
    Docks program;
    program.choose(program.open(), "Bottom");
    auto& log = dynamic_cast<WireLog&>(*program.desk.find("frm_WireLog"));
    auto& shell = program.window.dockOf(log)->shell();
    QTest::mouseClick(shell.titleBarWidget()->findChild<QAbstractButton*>(), Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_EQ(program.desk.find("frm_WireLog"), nullptr);
    EXPECT_TRUE(program.window.findChildren<QDockWidget*>().isEmpty() ||
                !program.window.findChildren<QDockWidget*>().front()->isVisible());
    WireLog& again = program.open();
    EXPECT_EQ(again.Dock.text(), "Bottom");
    EXPECT_NE(program.window.dockOf(again), nullptr);
}

TEST(Docking, AMainWindowWithoutRoomKeepsTheLogInside) {
    Docks program;
    WireLog& log = program.open();
    program.choose(log, "Bottom");
    program.resizeMain(QSize(1280, 800));
    EXPECT_EQ(program.window.dockOf(log), nullptr);
    EXPECT_NE(program.window.windowOf(log), nullptr);
    EXPECT_EQ(log.Dock.text(), "Bottom");
    program.resizeMain(QSize(1600, 900));
    EXPECT_NE(program.window.dockOf(log), nullptr);
}

TEST(Docking, ALogThatLosesItsEdgeHasAllOfItsSizeInside) {
    Docks program;
    WireLog& log = program.open();
    QSize own = program.window.windowOf(log)->shell().size();
    for (const char* edge : {"Right", "Bottom"}) {
        SCOPED_TRACE(edge);
        program.choose(log, edge);
        ASSERT_NE(program.window.dockOf(log), nullptr);
        program.resizeMain(QSize(1200, 800));
        FormWindow* inside = program.window.windowOf(log);
        ASSERT_NE(inside, nullptr);
        EXPECT_EQ(inside->shell().width(), std::min(own.width(), program.window.area().viewport()->width()));
        EXPECT_GE(inside->shell().height(), own.height());
        for (const char* name : {"Dock", "Clear", "Copy", "Save"}) {
            const auto* widget = inside->content().findChild<QWidget*>(name);
            EXPECT_EQ(widget->visibleRegion().boundingRect(), widget->rect()) << name;
        }
        EXPECT_TRUE(program.window.area().viewport()->rect().contains(inside->shell().geometry()));
        program.resizeMain(QSize(1800, 1000));
    }
}

TEST(Docking, TheWindowBesideTheLogIsTheOneInFront) {
    Docks program;
    WireLog& log = program.open();
    program.choose(log, "Bottom");
    program.main.perform([&] { program.main.bench().tools.open(Tool::Terminal); });
    QCoreApplication::processEvents();
    Form& terminal = *program.desk.find("Terminal");
    EXPECT_TRUE(terminal.inFront());
    EXPECT_EQ(program.window.area().activeSubWindow(), &program.window.windowOf(terminal)->shell());
    log.show();
    QCoreApplication::processEvents();
    log.Filter.edit("x");
    program.choose(log, "Window");
    program.choose(log, "Right");
    EXPECT_TRUE(terminal.inFront());
    EXPECT_EQ(program.window.area().activeSubWindow(), &program.window.windowOf(terminal)->shell());
}

} // namespace zor
