// SPDX-License-Identifier: MIT
// The carrier and packet windows under a real mouse: what leaving them does, and how their table and strip
// take a flood.
#include "program.h"

#include "elements/plot.h"
#include "rftools/amber_v1_rflink.h"
#include "rftools/frm_link.h"
#include "rftools/frm_link_rx.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace zor {

namespace {

class LinkWindows : public testing::Test {
  protected:
    LinkWindows() {
        program.window.resize(1280, 800);
        program.window.show();
        program.start();
    }

    template <class Window>
    Window& open(Tool tool) {
        program.main.bench().tools.open(tool);
        QCoreApplication::processEvents();
        return dynamic_cast<Window&>(*program.main.bench().tools.find(tool));
    }
    QWidget& content(const Form& form) { return program.window.windowOf(form)->content(); }
    QWidget& shell(const Form& form) { return program.window.windowOf(form)->shell(); }
    /// Where no widget takes the click for itself.
    void clickGroundOf(const Form& form) {
        QWidget& ground = content(form);
        QTest::mouseClick(&ground, Qt::LeftButton, {}, QPoint(ground.width() - 2, ground.height() - 2));
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    Program program;
};

} // namespace

TEST_F(LinkWindows, AClickIntoThePanelEndsTheCarrier) {
    program.main.menu.mnuViewTx0.click();
    Form& panel = *program.desk.find("OpalV2");
    auto& link = open<frm_Link>(Tool::frm_Link);
    ASSERT_TRUE(link.inFront());
    auto* manual = content(link).findChild<QCheckBox*>("cb_manual");
    ASSERT_NE(manual, nullptr);
    ASSERT_TRUE(manual->isEnabled());
    QTest::mouseClick(manual, Qt::LeftButton, {}, QPoint(6, manual->height() / 2));
    EXPECT_TRUE(link.cb_manual.ticked());
    EXPECT_TRUE(link.pb_H.enabled());

    clickGroundOf(panel);
    EXPECT_TRUE(panel.inFront());
    EXPECT_FALSE(link.cb_manual.ticked());
    EXPECT_FALSE(manual->isChecked());
    EXPECT_FALSE(link.pb_H.enabled());

    clickGroundOf(link);
    EXPECT_TRUE(link.inFront());
    EXPECT_TRUE(manual->isEnabled());
}

TEST_F(LinkWindows, AMenuLeavesTheCarrierOn) {
    program.main.menu.mnuViewTx0.click();
    auto& link = open<frm_Link>(Tool::frm_Link);
    link.cb_manual.tick(true);
    program.main.menu.mnuViewToolbar.click();
    program.main.menu.mnuHelpAbout.click();
    QCoreApplication::processEvents();
    program.desk.find("frmAbout")->userClose();
    QCoreApplication::processEvents();
    EXPECT_TRUE(link.cb_manual.ticked());
}

TEST_F(LinkWindows, TheSecondWindowOpensBelowTheFirstAndEndsItsMode) {
    program.main.menu.mnuViewTRx.click();
    auto& link = open<frm_Link>(Tool::frm_Link);
    link.cb_manual.tick(true);
    auto& output = open<frm_Link_RX>(Tool::frm_Link_RX);
    QCoreApplication::processEvents();
    EXPECT_FALSE(link.cb_manual.ticked());
    EXPECT_TRUE(output.inFront());
    clickGroundOf(link);
    EXPECT_TRUE(link.inFront());
}

TEST_F(LinkWindows, TheTableAndTheStripStandAFlood) {
    program.main.menu.mnuViewRx.click();
    auto& link = open<AmberV1rflink>(Tool::AmberV1rflink_LB2);
    link.setExtent({9000, 15000});
    auto* table = content(link).findChild<QAbstractItemView*>("Packets");
    ASSERT_NE(table, nullptr);
    const WireTap& tap = program.main.bench().connect->tap;
    for (int number = 1; number <= 6000; ++number) {
        std::string report =
            "\n\rReceived packet: 09 bytes: PKT " + std::to_string(10'000 + number) + "\n\rOK\n\r>";
        tap.bytes.emit({.direction = WireBytes::Direction::FromBoard, .bytes = report});
        if (number % 500 == 0) {
            QCoreApplication::processEvents();
        }
    }
    EXPECT_EQ(table->model()->rowCount(), static_cast<int>(ReceivedPackets::capacity));
    EXPECT_EQ(link.received.PacketLengths.points().size(), PacketLog::window);
    EXPECT_FALSE(link.received.PacketLengths.picture().empty());
}

} // namespace zor
