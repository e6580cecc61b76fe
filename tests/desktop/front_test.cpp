// SPDX-License-Identifier: MIT
#include "program.h"

#include "panels/common/chip_panel.h"
#include "rftools/beryl_rf_link_test.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QTabBar>

namespace zor {

namespace {

/// A transceiver's panel with its link test in front of it, and what the link test hears of losing the front.
struct TwoWindows : Program {
    TwoWindows() {
        start();
        window.activateWindow();
        main.menu.mnuViewTRx.click();
        panel = main.bench().openPanel();
        main.bench().tools.open(Tool::Frm_BerylRfLinkTest);
        tool = static_cast<Frm_BerylRfLinkTest*>(main.bench().tools.find(Tool::Frm_BerylRfLinkTest));
        QCoreApplication::processEvents();
        left = tool->deactivated.subscribe([this] { ++losses; });
    }

    QWidget* widget(Form& form, const char* name) {
        return window.windowOf(form)->content().findChild<QWidget*>(QString::fromLatin1(name));
    }
    void click(Form& form, const char* name) {
        QTest::mouseClick(widget(form, name), Qt::LeftButton);
        QCoreApplication::processEvents();
    }

    ChipPanel* panel;
    Frm_BerylRfLinkTest* tool;
    Subscription left;
    int losses = 0;
};

} // namespace

TEST(Front, AnOpenedToolStandsInFrontOfItsPanel) {
    TwoWindows program;
    EXPECT_TRUE(program.tool->inFront());
    EXPECT_EQ(program.losses, 0);
}

TEST(Front, AClickIntoThePanelTakesItAndAClickIntoTheToolTakesItBack) {
    TwoWindows program;
    program.click(*program.panel, "FreqCenter");
    EXPECT_TRUE(program.panel->inFront());
    EXPECT_EQ(program.losses, 1);
    program.click(*program.tool, "TB_Payload");
    EXPECT_TRUE(program.tool->inFront());
    program.click(*program.tool, "CB_EOP");
    EXPECT_EQ(program.losses, 1);
    program.click(*program.panel, "chb_er");
    EXPECT_EQ(program.losses, 2);
    EXPECT_TRUE(static_cast<TickBox*>(program.panel->find("chb_er"))->ticked());
}

TEST(Front, TheMainWindowsBarsAndDialogsLeaveItWhereItIs) {
    TwoWindows program;
    QTest::mouseClick(program.window.menuBar(), Qt::LeftButton, {}, QPoint(2, 2));
    QCoreApplication::processEvents();
    if (QWidget* popup = QApplication::activePopupWidget()) {
        popup->close();
    }
    program.main.menu.mnuHelpAbout.click();
    QCoreApplication::processEvents();
    ASSERT_NE(program.desk.find("frmAbout"), nullptr);
    program.desk.find("frmAbout")->userClose();
    QCoreApplication::processEvents();
    EXPECT_TRUE(program.tool->inFront());
    EXPECT_EQ(program.losses, 0);
}

TEST(Front, ClosingTheToolGivesItToThePanelWithoutALoss) {
    TwoWindows program;
    program.tool->userClose();
    QCoreApplication::processEvents();
    EXPECT_TRUE(program.panel->inFront());
    EXPECT_EQ(program.losses, 0);
}

} // namespace zor
