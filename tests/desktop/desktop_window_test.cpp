// SPDX-License-Identifier: MIT
#include "views_of_test.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QTabBar>
#include <QToolBar>
#include <QToolButton>

namespace zor {

TEST(DesktopWindow, TheKeyboardGoesToTheBarsAndBack) {
    Program program;
    program.start();
    program.main.bench().tools.open(Tool::frm_PowerSupply);
    Form* form = program.desk.find("frm_PowerSupply");
    program.window.activateWindow();
    auto* voltage = program.window.windowOf(*form)->content().findChild<QLineEdit*>("Voltage");
    voltage->setFocus();
    QTest::keyClick(&program.window, Qt::Key_F6);
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "TX");
    QTest::keyClick(&program.window, Qt::Key_F6);
    EXPECT_TRUE(voltage->hasFocus());
}

TEST(DesktopWindow, TheKeyboardGoesFromWindowToWindowAndClosesOne) {
    Program program;
    startWithTwoTools(program);
    QMdiArea& area = program.window.area();
    ASSERT_NE(area.activeSubWindow(), nullptr);
    QString first = area.activeSubWindow()->windowTitle();
    QTest::keyClick(area.activeSubWindow(), Qt::Key_Tab, Qt::ControlModifier);
    QTest::keyRelease(area.activeSubWindow(), Qt::Key_Control);
    EXPECT_NE(area.activeSubWindow()->windowTitle(), first);
    QTest::keyClick(area.activeSubWindow(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(program.desk.find("Terminal"), nullptr);
}

TEST(DesktopWindow, TheMenusHaveTheirKeys) {
    Program program;
    program.start();
    QStringList captions;
    for (const QAction* menu : program.window.menuBar()->actions()) {
        captions += menu->text();
    }
    EXPECT_EQ(captions, (QStringList{"&File", "&Edit", "&View", "&Panel", "&Tools", "&Window", "&Help"}));
}

TEST(DesktopWindow, AMenuEntryOpensAWindowInsideTheMainOne) {
    Program program;
    program.start();
    deleteWhatHasGone();
    QAction* terminal = action(program, "mnutoolsTerminal");
    ASSERT_NE(terminal, nullptr);
    terminal->trigger();
    Form* form = program.desk.find("Terminal");
    ASSERT_NE(form, nullptr);
    auto windows = program.window.area().subWindowList();
    ASSERT_EQ(windows.size(), 1);
    EXPECT_EQ(windows.front()->windowTitle(), "Terminal");
    windows.front()->close();
    EXPECT_EQ(program.desk.find("Terminal"), nullptr);
    deleteWhatHasGone();
    EXPECT_TRUE(program.window.area().subWindowList().isEmpty());
}

TEST(DesktopWindow, AModalFormIsADialogThatEscapeCloses) {
    Program program;
    program.start();
    program.main.menu.mnuHelpAbout.click();
    Form* about = program.desk.find("frmAbout");
    ASSERT_NE(about, nullptr);
    auto& dialog = dynamic_cast<QDialog&>(program.window.windowOf(*about)->shell());
    EXPECT_TRUE(dialog.isModal());
    EXPECT_FALSE(program.main.menu.mnutoolsTerminal.click());
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_EQ(program.desk.find("frmAbout"), nullptr);
    EXPECT_TRUE(program.main.menu.mnutoolsTerminal.click());
}

TEST(DesktopWindow, ItsOwnButtonClosesAWindowWithoutHarm) {
    Program program;
    program.start();
    program.main.menu.mnuHelpProducts.click();
    Form* products = program.desk.find("Products");
    auto* ok = program.window.windowOf(*products)->content().findChild<QPushButton*>("cmdOK");
    ASSERT_NE(ok, nullptr);
    QTest::mouseClick(ok, Qt::LeftButton);
    EXPECT_EQ(program.desk.find("Products"), nullptr);
    deleteWhatHasGone();
}

TEST(DesktopWindow, TheToolBarsFollowTheirElements) {
    Program program;
    program.start();
    auto* chips = program.window.findChild<QToolBar*>("Toolbar1");
    auto* data = program.window.findChild<QToolBar*>("Toolbar3");
    ASSERT_NE(chips, nullptr);
    ASSERT_NE(data, nullptr);
    EXPECT_TRUE(chips->isVisible());
    EXPECT_FALSE(data->isVisible());
    action(program, "mnuViewToolbar")->trigger();
    EXPECT_FALSE(chips->isVisible());
    EXPECT_FALSE(action(program, "mnuViewToolbar")->isChecked());
    program.main.linkBar.Toolbar3.setVisible(true);
    EXPECT_TRUE(data->isVisible());
    EXPECT_TRUE(program.window.findChild<QWidget*>("CB_Mode")->isVisible());
    EXPECT_TRUE(program.window.findChild<QWidget*>("Text1")->isVisible());
    auto* connect = program.window.findChild<QToolButton*>("Connect");
    ASSERT_NE(connect, nullptr);
    QTest::mouseClick(connect, Qt::LeftButton);
    EXPECT_EQ(program.main.linkBar.LoadboardList.text(), "Not found");
    QTest::qWait(150);
    EXPECT_EQ(program.main.linkBar.LoadboardList.text(), "searching");
    EXPECT_FALSE(connect->isEnabled());
    EXPECT_FALSE(connect->isChecked());
}

TEST(DesktopWindow, ADoubleClickOnTheEmptyAreaBeginsTheFactoryGesture) {
    Program program;
    program.start();
    QWidget* ground = program.window.area().viewport();
    QTest::mouseClick(ground, Qt::LeftButton, {}, QPoint(600, 500));
    QTest::mouseDClick(ground, Qt::LeftButton, {}, QPoint(600, 500));
    EXPECT_EQ(program.window.windowTitle(), "Ortolan Radio Bench System.");
    QTest::mouseDClick(ground, Qt::LeftButton, {}, QPoint(600, 500));
    EXPECT_TRUE(QTest::qWaitFor([&] { return program.main.menu.mnuAdv.visible(); }, 2000));
    EXPECT_TRUE(action(program, "mnuAdv")->isVisible());
    EXPECT_EQ(program.window.windowTitle(), "Ortolan Radio Bench System");
}

TEST(DesktopWindow, TheSplashGoesWhenItIsClicked) {
    Program program;
    program.main.start();
    Form* splash = program.desk.find("frm_Splash");
    ASSERT_NE(splash, nullptr);
    QWidget& content = program.window.windowOf(*splash)->content();
    QTest::mouseClick(content.findChild<QWidget*>("Picture1"), Qt::LeftButton);
    EXPECT_EQ(program.desk.find("frm_Splash"), nullptr);
    EXPECT_FALSE(program.main.bench().windows.SplashOn);
}

TEST(DesktopWindow, ClosingTheMainWindowLeavesTheLoop) {
    Program program;
    program.start();
    program.main.menu.mnutoolsTerminal.click();
    program.window.close();
    EXPECT_TRUE(program.loop.leaving());
    EXPECT_FALSE(program.window.isVisible());
}

TEST(DesktopWindow, AFieldKeepsItsFocusAndIsCommittedWhenAnotherTakesIt) {
    Program program;
    program.start();
    program.main.bench().tools.open(Tool::frm_PowerSupply);
    Form* form = program.desk.find("frm_PowerSupply");
    QWidget& content = program.window.windowOf(*form)->content();
    program.window.activateWindow();
    auto* voltage = content.findChild<QLineEdit*>("Voltage");
    voltage->setFocus();
    EXPECT_EQ(form->focusedElement(), form->find("Voltage"));
    content.findChild<QPushButton*>("PB_Voltage")->setFocus();
    EXPECT_EQ(form->focusedElement(), form->find("PB_Voltage"));
    form->setFocus(form->find("Voltage"));
    EXPECT_TRUE(voltage->hasFocus());
}

TEST(DesktopWindow, TurningAPageKeepsTheWindowsSize) {
    Program program;
    program.start();
    program.main.menu.mnuFilePreferences.click();
    Form* form = program.desk.find("Preferences");
    ASSERT_NE(form, nullptr);
    FormWindow& window = *program.window.windowOf(*form);
    auto* strip = window.content().findChild<QTabBar*>("TabStrip1");
    ASSERT_NE(strip, nullptr);
    QSize size = window.content().minimumSizeHint();
    auto* field = window.content().findChild<QWidget*>("ComNr_min");
    auto* tick = window.content().findChild<QWidget*>("EnLB_FWload");
    EXPECT_TRUE(field->isVisible());
    EXPECT_FALSE(tick->isVisible());
    strip->setCurrentIndex(2);
    EXPECT_FALSE(field->isVisible());
    EXPECT_TRUE(tick->isVisible());
    EXPECT_EQ(window.content().minimumSizeHint(), size);
    EXPECT_TRUE(form->find("Frame_pref_tabs(2)")->visible());
}

} // namespace zor
