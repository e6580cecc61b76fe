// SPDX-License-Identifier: MIT
#include "views_of_test.h"

#include "desktop/pick_row.h"
#include "desktop/start_page.h"
#include "desktop/widgets/colours.h"
#include "shell/start_advice.h"

#include <gtest/gtest.h>

#include <QFile>
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

/// A row that comes shows itself, and then the page is laid out anew.
void comeToRest() {
    for (int round = 0; round < 3; ++round) {
        QCoreApplication::processEvents();
    }
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
    bool canBeStarted = false;
    program.window.startPage().offerDemo([&] {
        ++started;
        return canBeStarted;
    });
    ASSERT_TRUE(demo->isVisible());
    QTest::mouseClick(demo, Qt::LeftButton);
    EXPECT_EQ(started, 1);
    // It was not there; it may be the next time.
    ASSERT_TRUE(demo->isVisible());
    canBeStarted = true;
    QTest::mouseClick(demo, Qt::LeftButton);
    EXPECT_EQ(started, 2);
    EXPECT_FALSE(demo->isVisible());
}

TEST(StartPage, OffersTheDemoOnlyWhileNoBoardIsThereOrSought) {
    Program program;
    program.start();
    QPushButton* demo = buttonOf(program, "Start the &demo");
    program.window.startPage().offerDemo([] { return true; });
    ASSERT_TRUE(demo->isVisible());
    QTest::mouseClick(buttonOf(program, "&Connect"), Qt::LeftButton);
    QTest::qWait(150);
    ASSERT_TRUE(labelTexts(program.window.startPage()).contains("Searching for boards."));
    EXPECT_FALSE(demo->isVisible());
    program.loop.runUntil([&program] { return program.main.linkBar.Connect.enabled(); });
    EXPECT_TRUE(demo->isVisible());
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

TEST(StartPage, OffersTheLastFilesWithTheirChips) {
    Program program;
    QString folder = program.folder.path();
    std::string saved;
    {
        Program other;
        saved = startWithPanel(other, "OpalV2").savedConfiguration();
    }
    QFile file(folder + "/meter & lamp.tc");
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(saved.data(), static_cast<qint64>(saved.size()));
    file.close();
    program.start();
    StartPage& page = program.window.startPage();
    EXPECT_EQ(buttonOf(program, "meter & lamp.tc"), nullptr);
    RecentFiles& recent = program.main.bench().recentFiles;
    recent.use((folder + "/notes.txt").toStdString());
    recent.use((folder + "/gone.rc").toStdString());
    recent.use(file.fileName().toStdString());
    comeToRest();
    EXPECT_EQ(buttonOf(program, "notes.txt"), nullptr);
    EXPECT_EQ(clippedTexts(page), QStringList());
    QPushButton* gone = buttonOf(program, "gone.rc");
    ASSERT_NE(gone, nullptr);
    EXPECT_TRUE(gone->accessibleName().startsWith("gone.rc KT2100  "));
    QTest::mouseClick(gone, Qt::LeftButton);
    EXPECT_EQ(program.dialogs.boxes.size(), 1U);
    EXPECT_EQ(recent.all().size(), 2U);
    program.desk.find("AmberV1")->userClose();
    QCoreApplication::processEvents();
    deleteWhatHasGone();
    QPushButton* row = buttonOf(program, "meter & lamp.tc");
    ASSERT_NE(row, nullptr);
    EXPECT_TRUE(row->isVisible());
    QTest::mouseClick(row, Qt::LeftButton);
    EXPECT_TRUE(program.desk.find("OpalV2")->isOpen());
    EXPECT_TRUE(program.desk.find("OpalV2")->document().starts_with("meter & lamp.tc"));
}

TEST(StartPage, OffersFewerFilesInASmallWindow) {
    Program program;
    program.start();
    program.window.startPage().offerDemo([] { return true; });
    for (int number = 1; number <= 6; ++number) {
        program.main.bench().recentFiles.use("/a/long/way/to/the/bench/of/somebody/file number " +
                                             std::to_string(number) + ".tc");
    }
    for (auto [size, files] : {std::pair(QSize(1276, 740), StartPage::mostFiles),
                               std::pair(QSize(800, 600), StartPage::fewFiles)}) {
        program.window.resize(size);
        comeToRest();
        deleteWhatHasGone();
        StartPage& page = program.window.startPage();
        int shown = 0;
        for (auto* button : page.findChildren<QPushButton*>()) {
            shown += button->text().startsWith("file number") ? 1 : 0;
        }
        EXPECT_EQ(shown, files) << size.width();
        EXPECT_EQ(clippedTexts(page), QStringList()) << size.width();
        EXPECT_LE(page.geometry().right(), program.window.area().viewport()->width()) << size.width();
        EXPECT_LE(page.geometry().bottom(), program.window.area().viewport()->height()) << size.width();
    }
}

TEST(StartPage, CutsNothingThatThereIsRoomFor) {
    Program program;
    program.start();
    program.window.startPage().offerDemo([] { return true; });
    const QString name = "KT3101_meter_hall_north_868.300MHz.lrc";
    program.main.bench().recentFiles.use("/a/long/way/to/the/bench/of/somebody/" + name.toStdString());
    program.main.bench().recentFiles.use("/a/short.tc");
    for (QSize size : {QSize(800, 600), QSize(1276, 740), QSize(1900, 1000)}) {
        SCOPED_TRACE(size.width());
        program.window.resize(size);
        comeToRest();
        deleteWhatHasGone();
        for (QPushButton* button : program.window.startPage().findChildren<QPushButton*>()) {
            const auto* row = dynamic_cast<const PickRow*>(button);
            if (row == nullptr) {
                continue;
            }
            if (row->text().startsWith("KT") && row->text() != name) {
                EXPECT_EQ(row->shownName(), row->text());
                EXPECT_TRUE(row->shownRemark().endsWith("MHz") || row->shownRemark().endsWith("low power"))
                    << qPrintable(row->shownRemark());
            } else {
                EXPECT_TRUE(row->shownName() == row->text() || size.width() == 800)
                    << qPrintable(row->shownName());
                EXPECT_TRUE(row->shownRemark().startsWith(row->text() == name ? "KT3101" : "KT1100"))
                    << qPrintable(row->shownRemark());
            }
        }
    }
}

} // namespace zor
