// SPDX-License-Identifier: MIT
#include "views_of_test.h"

#include "desktop/start_page.h"
#include "desktop/widgets/colours.h"
#include "shell/start_advice.h"

#include <gtest/gtest.h>

#include <QMdiArea>
#include <QPushButton>

#include <map>
#include <string>

namespace zor {

namespace {

QPushButton* buttonOf(const Program& program, const QString& caption) {
    for (auto* button : program.window.startPage().findChildren<QPushButton*>()) {
        if (button->text() == caption) {
            return button;
        }
    }
    return nullptr;
}

} // namespace

TEST(StartPage, IsThereWhileNoWindowIs) {
    Program program;
    program.start();
    StartPage& page = program.window.startPage();
    EXPECT_TRUE(page.isVisible());
    program.main.menu.mnutoolsTerminal.click();
    QCoreApplication::processEvents();
    EXPECT_FALSE(page.isVisible());
    program.main.menu.mnuViewTx0.click();
    program.desk.find("Terminal")->userClose();
    QCoreApplication::processEvents();
    EXPECT_FALSE(page.isVisible());
    // A panel that is only hidden.
    program.main.menu.mnuViewTx0.click();
    QCoreApplication::processEvents();
    EXPECT_TRUE(page.isVisible());
}

TEST(StartPage, OffersEveryChipAndOpensItsPanel) {
    for (const PanelChoice& choice : panelChoices()) {
        SCOPED_TRACE(choice.caption);
        Program program;
        program.start();
        QPushButton* row = buttonOf(program, choice.caption);
        ASSERT_NE(row, nullptr);
        EXPECT_NE(row->focusPolicy() & Qt::TabFocus, 0);
        QTest::mouseClick(row, Qt::LeftButton);
        Form* panel = program.desk.find(choice.panel);
        ASSERT_NE(panel, nullptr);
        EXPECT_TRUE(panel->isOpen());
        EXPECT_TRUE(panel->title().starts_with(std::string(choice.caption) + " ")) << panel->title();
    }
}

TEST(StartPage, TellsTheBandsOfTheChipsTables) {
    std::map<std::string, std::string> bands;
    for (const PanelChoice& choice : panelChoices()) {
        bands[choice.caption] = bandsOf(choice);
    }
    EXPECT_EQ(bands, (std::map<std::string, std::string>{{"KT1100", "315, 433, 868, 915 MHz"},
                                                         {"KT1100B", "315 MHz, low power"},
                                                         {"KT1101", "433, 868, 915 MHz"},
                                                         {"KT1102", "433, 868, 915 MHz"},
                                                         {"KT2100", "315, 433, 868, 915 MHz"},
                                                         {"KT2102", "315, 433, 868, 915 MHz"},
                                                         {"KT3100", "315, 433, 868, 915 MHz"},
                                                         {"KT3100B", "315 MHz, low power"},
                                                         {"KT3101", "315, 433, 868, 915 MHz"}}));
}

TEST(StartPage, SaysHowTheBoardStandsAndWhatToDoNext) {
    Program program;
    program.start();
    EXPECT_EQ(startAdvice(program.main).headline, "No board is connected.");
    QPushButton* connect = buttonOf(program, "&Connect");
    ASSERT_NE(connect, nullptr);
    EXPECT_TRUE(connect->isVisible());
    EXPECT_TRUE(labelTexts(program.window.startPage()).contains("No board is connected."));
    EXPECT_TRUE(buttonOf(program, "KT1100")->isEnabled());
    QTest::mouseClick(connect, Qt::LeftButton);
    QTest::qWait(150);
    EXPECT_TRUE(labelTexts(program.window.startPage()).contains("Searching for boards."));
    EXPECT_FALSE(connect->isVisible());
    EXPECT_FALSE(buttonOf(program, "KT1100")->isEnabled());
}

TEST(StartPage, OffersTheDemoOnlyWhereThereIsOneToStart) {
    Program program;
    program.start();
    QPushButton* demo = buttonOf(program, "Start the &demo");
    EXPECT_FALSE(demo->isVisible());
    int started = 0;
    program.window.startPage().offerDemo([&] { ++started; });
    ASSERT_TRUE(demo->isVisible());
    QTest::mouseClick(demo, Qt::LeftButton);
    EXPECT_EQ(started, 1);
    EXPECT_FALSE(demo->isVisible());
}

TEST(StartPage, LetsTheDoubleClickThrough) {
    Program program;
    program.start();
    StartPage& page = program.window.startPage();
    QTest::mouseDClick(page.windowHandle() != nullptr ? page.window()->windowHandle()
                                                      : program.window.windowHandle(),
                       Qt::LeftButton, {}, page.mapTo(&program.window, QPoint(2, 2)));
    EXPECT_EQ(program.window.windowTitle(), "Ortolan Radio Bench System.");
}

TEST(StartPage, FitsASmallWindowAndClipsNothing) {
    Program program;
    program.start();
    for (QSize size : {QSize(800, 600), QSize(1276, 740), QSize(1900, 1000)}) {
        program.window.resize(size);
        QCoreApplication::processEvents();
        StartPage& page = program.window.startPage();
        EXPECT_EQ(clippedTexts(page), QStringList()) << size.width();
        EXPECT_LE(page.geometry().right(), program.window.area().viewport()->width()) << size.width();
    }
}

} // namespace zor
