// SPDX-License-Identifier: MIT
#include "views_of_test.h"

#include "desktop/inner_window.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>

namespace zor {

namespace {

/// The panel of the KT1100 and the supply tool over a main window of that size.
struct PanelAndTool {
    explicit PanelAndTool(const QSize& size) {
        program.start();
        program.window.resize(size);
        program.main.menu.mnuViewTx0.click();
        program.main.bench().tools.open(Tool::frm_PowerSupply);
        program.window.activateWindow();
        QCoreApplication::processEvents();
    }
    FormWindow& window(const char* form) { return *program.window.windowOf(*program.desk.find(form)); }
    FormWindow& panel() { return window("OpalV2"); }
    FormWindow& tool() { return window("frm_PowerSupply"); }
    QAbstractButton* sign(FormWindow& of) {
        return of.shell().findChild<QAbstractButton*>("FloatSign", Qt::FindDirectChildrenOnly);
    }
    Program program;
};

} // namespace

TEST(FreePlace, IsWhereLeastIsCovered) {
    struct Row {
        const char* what;
        QSize size;
        std::vector<Covered> others;
        QPoint place;
    };
    QSize room(1000, 700);
    for (const Row& row : {
             Row{"an empty room", {300, 200}, {}, {0, 0}},
             Row{"right of it", {300, 200}, {{{0, 0, 600, 500}, 8}}, {600, 0}},
             Row{"below it", {300, 200}, {{{0, 0, 900, 500}, 8}}, {0, 500}},
             Row{"beside two", {300, 200}, {{{0, 0, 600, 700}, 8}, {{600, 0, 300, 200}, 1}}, {600, 200}},
             Row{"over another rather than over the panel",
                 {300, 600},
                 {{{0, 0, 700, 700}, 8}, {{700, 0, 300, 700}, 1}},
                 {700, 0}},
             Row{"larger than the room", {2000, 900}, {{{0, 0, 600, 500}, 8}}, {0, 0}},
         }) {
        EXPECT_EQ(freePlace(row.size, room, row.others), row.place) << row.what;
    }
}

TEST(InnerWindow, AToolOpensWhereThePanelIsNot) {
    PanelAndTool bench({1900, 1000});
    EXPECT_FALSE(bench.panel().shell().geometry().intersects(bench.tool().shell().geometry()));
    EXPECT_TRUE(bench.program.window.area().viewport()->rect().contains(bench.tool().shell().geometry()));
    // The core knows the place.
    EXPECT_EQ(bench.program.desk.find("frm_PowerSupply")->place().left,
              static_cast<Twips>(bench.tool().shell().x() * 15));
}

/// On a screen where every place covers something of the panel.
class ToolOverPanel : public testing::TestWithParam<std::string> {};

TEST_P(ToolOverPanel, OpensWhereNoButtonOfThePanelIs) {
    Program program;
    ChipPanel& panel = startWithPanel(program, GetParam());
    program.window.resize(1272, 740);
    QCoreApplication::processEvents();
    program.main.bench().tools.open(Tool::frm_PowerSupply);
    QCoreApplication::processEvents();
    QRect tool = program.window.windowOf(*program.desk.find("frm_PowerSupply"))->shell().geometry();
    QWidget& room = *program.window.area().viewport();
    EXPECT_TRUE(room.rect().contains(tool));
    for (const auto* button : program.window.windowOf(panel)->shell().findChildren<QPushButton*>()) {
        QRect place(button->mapTo(&room, QPoint()), button->size());
        EXPECT_FALSE(button->isVisible() && place.intersects(tool)) << button->objectName().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Registry, ToolOverPanel, testing::ValuesIn([] {
                             std::vector<std::string> panels;
                             for (const PanelRow& row : panelRows()) {
                                 panels.emplace_back(row.name);
                             }
                             return panels;
                         }()),
                         [](const auto& row) { return row.param; });

TEST(InnerWindow, APlaceOfItsOwnIsKept) {
    Program program;
    program.start();
    program.main.menu.mnuViewTx0.click();
    Form& terminal = program.main.bench().tools.create(Tool::Terminal);
    terminal.setPlace({150, 300});
    terminal.show();
    EXPECT_EQ(program.window.windowOf(terminal)->shell().pos(), QPoint(20, 10));
}

TEST(InnerWindow, AClickOnThePanelDoesNotBuryTheTool) {
    PanelAndTool bench({1000, 700});
    QMdiArea& area = bench.program.window.area();
    area.setActiveSubWindow(qobject_cast<QMdiSubWindow*>(&bench.panel().shell()));
    QCoreApplication::processEvents();
    EXPECT_TRUE(bench.program.desk.find("OpalV2")->inFront());
    const QObjectList& stacked = area.viewport()->children();
    EXPECT_GT(stacked.indexOf(&bench.tool().shell()), stacked.indexOf(&bench.panel().shell()));
}

TEST(InnerWindow, ASignTakesAToolOutAndBack) {
    PanelAndTool bench({1000, 700});
    Form& form = *bench.program.desk.find("frm_PowerSupply");
    int left = 0;
    Subscription leaving = form.deactivated.subscribe([&] { ++left; });
    ASSERT_NE(bench.sign(bench.tool()), nullptr);
    // A panel stays inside.
    EXPECT_EQ(bench.sign(bench.panel()), nullptr);
    QTest::mouseClick(bench.sign(bench.tool()), Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_TRUE(bench.tool().isFloating());
    // What makes a window manager keep it above the main window.
    EXPECT_EQ(bench.tool().shell().windowType(), Qt::Dialog);
    EXPECT_EQ(bench.tool().shell().parentWidget(), bench.program.window.area().window());
    EXPECT_TRUE(bench.tool().shell().isWindow());
    EXPECT_TRUE(bench.tool().shell().isVisible());
    EXPECT_EQ(bench.tool().shell().windowTitle(), "Power Supply Settings");
    EXPECT_TRUE(form.isOpen());
    EXPECT_TRUE(form.inFront());
    EXPECT_EQ(left, 0);
    auto* voltage = bench.tool().content().findChild<QLineEdit*>("Voltage");
    EXPECT_TRUE(voltage->isVisible());
    voltage->selectAll();
    QTest::keyClicks(voltage, "3.1");
    EXPECT_EQ(dynamic_cast<TextField&>(*form.find("Voltage")).text(), "3.1");
    auto* back = bench.tool().shell().findChild<QAbstractButton*>("FloatSign");
    ASSERT_NE(back, nullptr);
    QTest::mouseClick(back, Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_FALSE(bench.tool().isFloating());
    EXPECT_NE(qobject_cast<QMdiSubWindow*>(&bench.tool().shell()), nullptr);
    EXPECT_TRUE(bench.tool().shell().isVisible());
    EXPECT_EQ(voltage->text(), "3.1");
    EXPECT_TRUE(form.inFront());
    deleteWhatHasGone();
    EXPECT_EQ(bench.program.window.area().subWindowList().size(), 2);
}

TEST(InnerWindow, AKeyTakesTheToolInFrontOutAndBack) {
    PanelAndTool bench({1000, 700});
    bench.tool().content().findChild<QLineEdit*>("Voltage")->setFocus();
    QTest::keyClick(&bench.program.window, Qt::Key_F6, Qt::ShiftModifier);
    QCoreApplication::processEvents();
    EXPECT_TRUE(bench.tool().isFloating());
    QTest::keyClick(&bench.tool().shell(), Qt::Key_F6, Qt::ShiftModifier);
    QCoreApplication::processEvents();
    EXPECT_FALSE(bench.tool().isFloating());
    // It does nothing to a panel.
    bench.program.window.area().setActiveSubWindow(qobject_cast<QMdiSubWindow*>(&bench.panel().shell()));
    QCoreApplication::processEvents();
    QTest::keyClick(&bench.program.window, Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_FALSE(bench.panel().isFloating());
}

TEST(InnerWindow, AFloatingWindowClosesAsAnyOther) {
    PanelAndTool bench({1000, 700});
    bench.tool().setFloating(true);
    QCoreApplication::processEvents();
    bench.tool().shell().close();
    deleteWhatHasGone();
    EXPECT_EQ(bench.program.desk.find("frm_PowerSupply"), nullptr);
    bench.program.main.bench().tools.open(Tool::frm_PowerSupply);
    EXPECT_FALSE(bench.tool().isFloating());
    bench.tool().setFloating(true);
    // The panel's own end takes its supply tool along, wherever it stands.
    bench.program.desk.find("OpalV2")->userClose();
    EXPECT_EQ(bench.program.desk.find("frm_PowerSupply"), nullptr);
    deleteWhatHasGone();
}

TEST(InnerWindow, TheKeyboardBringsThePanelToTheFrontBehindAFloatingTool) {
    PanelAndTool bench({1000, 700});
    bench.tool().setFloating(true);
    bench.tool().content().findChild<QLineEdit*>("Voltage")->setFocus();
    QCoreApplication::processEvents();
    ASSERT_TRUE(bench.program.desk.find("frm_PowerSupply")->inFront());
    bench.program.window.activateWindow();
    bench.panel().content().findChild<QLineEdit*>("FreqCenter")->setFocus();
    QCoreApplication::processEvents();
    EXPECT_TRUE(bench.program.desk.find("OpalV2")->inFront());
}

} // namespace zor
