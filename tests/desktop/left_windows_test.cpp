// SPDX-License-Identifier: MIT
// Windows that receive or key a carrier, left by a real click into another window: what the board is told
// then.
#include "answering_ports.h"
#include "program.h"

#include "link/connect.h"
#include "panels/common/chip_panel.h"
#include "rftools/amber_v1_rflink.h"
#include "rftools/beryl_rf_link_test.h"
#include "rftools/frm_link.h"
#include "rftools/frm_link_rx.h"

#include <gtest/gtest.h>

#include <QMdiArea>
#include <QMdiSubWindow>

namespace zor {

namespace {

using Lines = std::vector<std::string>;

class LeftWindows : public testing::Test {
  protected:
    LeftWindows() {
        program.window.resize(1280, 800);
        program.window.show();
        program.start();
        program.window.activateWindow();
        program.main.bench().connect->open(1, LineSettings{});
        program.main.bench().link.LoadBoardRev = 2;
    }

    template <class Window>
    Window& open(MenuEntry& panel, Tool tool) {
        panel.click();
        program.main.perform([this, tool] { program.main.bench().tools.open(tool); });
        QCoreApplication::processEvents();
        program.ports.takeLines();
        return dynamic_cast<Window&>(*program.main.bench().tools.find(tool));
    }
    void press(const Element& element) {
        auto* widget = program.window.windowOf(element.form())
                           ->content()
                           .findChild<QWidget*>(QString::fromStdString(element.name()));
        ASSERT_NE(widget, nullptr) << element.name();
        QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(6, widget->height() / 2));
        settle();
    }
    /// Presses the panel's title bar, where nothing else takes the press.
    void pressPanel() {
        QWidget& shell = program.window.windowOf(*program.main.bench().openPanel())->shell();
        QTest::mouseClick(&shell, Qt::LeftButton, {}, QPoint(100, 8));
        settle();
        EXPECT_TRUE(program.main.bench().openPanel()->inFront());
    }
    /// Sees the exchanges to their end that the events begin.
    static void settle() {
        for (int turn = 0; turn < 40; ++turn) {
            QCoreApplication::processEvents();
        }
    }
    Lines lines() { return program.ports.takeLines(); }

    ProgramOn<AnsweringPorts> program;
};

} // namespace

TEST_F(LeftWindows, TheTransceiversReceptionEnds) {
    auto& link = open<Frm_BerylRfLinkTest>(program.main.menu.mnuViewTRx, Tool::Frm_BerylRfLinkTest);
    link.TabStrip1.choosePosition(2);
    press(link.PB_Enable);
    EXPECT_EQ(lines(), (Lines{"S2CA80", "H2", "L2", "L0", "RS", "RS", "H2", "F11,13,100,1", "S2CA82"}));
    EXPECT_TRUE(link.receiving());
    pressPanel();
    EXPECT_EQ(lines(), (Lines{"F0", "S2CA80"}));
    EXPECT_FALSE(link.receiving());
}

TEST_F(LeftWindows, TheTransceiversSendingEnds) {
    auto& link = open<Frm_BerylRfLinkTest>(program.main.menu.mnuViewTRx, Tool::Frm_BerylRfLinkTest);
    press(link.PB_Send);
    EXPECT_TRUE(link.sending());
    lines();
    pressPanel();
    EXPECT_EQ(lines(), Lines{"T0"});
    EXPECT_FALSE(link.sending());
    EXPECT_EQ(link.PB_Send.caption(), "&Start Sending");
}

TEST_F(LeftWindows, TheReceiversReceptionEnds) {
    auto& link = open<AmberV1rflink>(program.main.menu.mnuViewRx, Tool::AmberV1rflink_LB2);
    press(link.EnRx);
    EXPECT_TRUE(link.RXActive.lit());
    lines();
    pressPanel();
    EXPECT_EQ(lines(), (Lines{"F0", "S2CE85"}));
    EXPECT_FALSE(link.RXActive.lit());
}

TEST_F(LeftWindows, TheCarrierGoesOffAndTheLineIsReleased) {
    auto& link = open<frm_Link>(program.main.menu.mnuViewTRx, Tool::frm_Link);
    press(link.cb_manual);
    EXPECT_EQ(lines(), (Lines{"S28221", "H3"}));
    press(link.pb_H);
    EXPECT_EQ(lines(), Lines{"y11"});
    pressPanel();
    EXPECT_EQ(lines(), (Lines{"Z3", "S28200", "Z3"}));
    EXPECT_FALSE(link.cb_manual.ticked());
}

TEST_F(LeftWindows, TheMonitorOfTheDataLineStops) {
    auto& output = open<frm_Link_RX>(program.main.menu.mnuViewRx, Tool::frm_Link_RX);
    press(output.cb_MoniEn);
    EXPECT_TRUE(output.cb_MoniEn.ticked());
    lines();
    pressPanel();
    Lines sent = lines();
    ASSERT_FALSE(sent.empty());
    EXPECT_EQ(sent.back(), "d0");
    EXPECT_FALSE(output.cb_MoniEn.ticked());
}

} // namespace zor
