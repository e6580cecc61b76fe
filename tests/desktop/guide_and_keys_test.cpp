// SPDX-License-Identifier: MIT
// The guide inside the program, the keys that work wherever the focus is, files that are dropped on the
// window.
#include "program.h"

#include "desktop/demo_tour.h"
#include "host/files.h"
#include "panels/common/chip_panel.h"
#include "utilities/guide.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QClipboard>
#include <QDropEvent>
#include <QFile>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextCursor>
#include <QToolButton>
#include <QUrl>

namespace zor {

namespace {

/// A program with a guide of its own, long enough to scroll.
struct GuideProgram : Program {
    GuideProgram() {
        std::string text =
            "# User guide\n\n## First steps\n\nSee [files](files.md).\n\n![a picture](p.png)\n\n";
        for (int line = 0; line < 80; ++line) {
            text += "Some words to fill the page, paragraph " + std::to_string(line) + ".\n\n";
        }
        text += "## The pages\n\nA needle stands here, and [the terminal](guide/terminal.md).\n";
        std::filesystem::path documents = folder.path().toStdString();
        writeFileWhole(documents / "user-guide.md", text);
        writeFileWhole(documents / "files.md", "# Files\n\n## The forms\n");
        std::filesystem::create_directory(documents / "guide");
        writeFileWhole(documents / "guide" / "terminal.md",
                       "# Terminal\n\nA thimble, not a haystack.\n\n![a picture](../p.png)\n");
        QPixmap picture(2000, 500);
        picture.fill(Qt::red);
        picture.save(folder.filePath("p.png"));
        platform.documentFolder = documents;
        start();
        window.activateWindow();
    }
    QTextBrowser& page() {
        return *window.windowOf(*desk.find("frm_Guide"))->content().findChild<QTextBrowser*>("Page");
    }
    /// What stands in the first line of the page that is in sight.
    QString top() { return page().cursorForPosition(QPoint(4, 6)).block().text(); }
};

void press(QWidget& window, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* focus = QApplication::focusWidget();
    QTest::keyClick(focus != nullptr ? focus : &window, static_cast<Qt::Key>(key), modifiers);
    QCoreApplication::processEvents();
}

} // namespace

TEST(GuideWindow, OpensByItsKeyAtWhatItSaysOfTheWindowInFront) {
    GuideProgram program;
    program.main.menu.mnutoolsTerminal.click();
    QCoreApplication::processEvents();
    press(program.window, Qt::Key_F1);
    ASSERT_NE(program.desk.find("frm_Guide"), nullptr);
    EXPECT_EQ(program.top(), "Terminal");
    QVariant picture = program.page().document()->resource(QTextDocument::ImageResource, QUrl("../p.png"));
    EXPECT_GT(picture.value<QPixmap>().width(), 100);
}

TEST(GuideWindow, ShowsItsPicturesNoWiderThanItself) {
    GuideProgram program;
    program.main.menu.mnuHelpSWguide.click();
    QCoreApplication::processEvents();
    EXPECT_EQ(program.top(), "User guide");
    EXPECT_EQ(program.page().horizontalScrollBar()->maximum(), 0);
    EXPECT_GT(program.page().verticalScrollBar()->maximum(), 0);
    QVariant picture = program.page().document()->resource(QTextDocument::ImageResource, QUrl("p.png"));
    EXPECT_GT(picture.value<QPixmap>().width(), 100);
    EXPECT_LE(picture.value<QPixmap>().width(), program.page().viewport()->width());
}

TEST(GuideWindow, FindsATextAndFollowsALink) {
    GuideProgram program;
    program.main.menu.mnuHelpSWguide.click();
    QCoreApplication::processEvents();
    QWidget& content = program.window.windowOf(*program.desk.find("frm_Guide"))->content();
    auto* search = content.findChild<QLineEdit*>("Search");
    search->setFocus();
    QTest::keyClicks(search, "needle\r");
    EXPECT_EQ(program.page().textCursor().selectedText(), "needle");
    EXPECT_GT(program.page().verticalScrollBar()->value(), 0);
    // The only one there is: the search goes round the end to it again.
    QTest::mouseClick(content.findChild<QPushButton*>("FindNext"), Qt::LeftButton);
    EXPECT_EQ(program.page().textCursor().selectedText(), "needle");
    auto* guide = static_cast<Guide*>(program.desk.find("frm_Guide"));
    search->setFocus();
    search->selectAll();
    QTest::keyClicks(search, "nowhere\r");
    EXPECT_EQ(guide->Found.caption(), "Nowhere in the guide.");
    EXPECT_EQ(program.page().textCursor().block().text(), "User guide");
    search->setFocus();
    search->selectAll();
    QTest::keyClicks(search, "haystack\r");
    EXPECT_EQ(program.page().textCursor().selectedText(), "haystack");
    EXPECT_EQ(guide->Contents.text(), "Terminal");
    // Backwards it is found from the end of the page round to it again.
    QTest::mouseClick(content.findChild<QPushButton*>("FindPrevious"), Qt::LeftButton);
    EXPECT_EQ(program.page().textCursor().selectedText(), "haystack");
    guide->Back.click();
    QCoreApplication::processEvents();
    Q_EMIT program.page().anchorClicked(QUrl("files.md"));
    QCoreApplication::processEvents();
    EXPECT_EQ(program.top(), "Files");
    EXPECT_TRUE(guide->Back.enabled());
}

TEST(Keys, DoWhatThePanelsButtonsDoWhereverTheFocusIs) {
    Program program;
    program.start();
    program.window.activateWindow();
    program.main.menu.mnuViewTx0.click();
    ChipPanel* panel = program.main.bench().openPanel();
    QWidget& content = program.window.windowOf(*panel)->content();
    auto* frequency = content.findChild<QLineEdit*>("FreqCenter");
    frequency->setFocus();
    frequency->selectAll();
    QTest::keyClicks(frequency, "311");
    press(program.window, Qt::Key_F5);
    EXPECT_EQ(panel->Freqw.text(), "A190");
    ASSERT_EQ(program.dialogs.boxes.size(), 1U);
    EXPECT_EQ(program.dialogs.boxes.back().text,
              "Commport not available, please open commport. Control words were not updated.");
    program.main.menu.mnutoolsTerminal.click();
    QCoreApplication::processEvents();
    press(program.window, Qt::Key_F7);
    ASSERT_EQ(program.dialogs.boxes.size(), 2U);
    EXPECT_EQ(program.dialogs.boxes.back().text, "Commport not available, Loadboard not connected!");
    EXPECT_TRUE(panel->inFront());
    press(program.window, Qt::Key_L, Qt::ControlModifier);
    EXPECT_NE(program.desk.find("frm_WireLog"), nullptr);
    press(program.window, Qt::Key_1, Qt::ControlModifier);
    Form* front = program.desk.front();
    press(program.window, Qt::Key_2, Qt::ControlModifier);
    EXPECT_NE(program.desk.front(), front);
    press(program.window, Qt::Key_F9);
    EXPECT_FALSE(program.main.linkBar.Connect.enabled());
}

TEST(Keys, CountInAFloatingToolToo) {
    GuideProgram program;
    program.main.menu.mnuViewTx0.click();
    program.main.menu.mnutoolsTerminal.click();
    QCoreApplication::processEvents();
    ChipPanel* panel = program.main.bench().openPanel();
    auto floating = [&]() -> QWidget& {
        Form& terminal = *program.desk.find("Terminal");
        FormWindow& window = *program.window.windowOf(terminal);
        window.setFloating(true);
        // As somebody comes back to it from the main window.
        program.window.activateWindow();
        QCoreApplication::processEvents();
        window.shell().activateWindow();
        window.content().findChild<QWidget*>("Text1")->setFocus();
        QCoreApplication::processEvents();
        EXPECT_TRUE(window.shell().isActiveWindow());
        EXPECT_TRUE(terminal.inFront());
        return window.shell();
    };
    press(floating(), Qt::Key_F5);
    ASSERT_EQ(program.dialogs.boxes.size(), 1U);
    EXPECT_EQ(program.dialogs.boxes.back().text,
              "Commport not available, please open commport. Control words were not updated.");
    press(floating(), Qt::Key_F7);
    ASSERT_EQ(program.dialogs.boxes.size(), 2U);
    press(floating(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(program.dialogs.requests, 1);
    press(floating(), Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(program.dialogs.requests, 2);
    // A window that a key brings to the front has the keyboard too.
    press(floating(), Qt::Key_1, Qt::ControlModifier);
    EXPECT_TRUE(panel->inFront());
    EXPECT_TRUE(program.window.isActiveWindow());
    press(floating(), Qt::Key_L, Qt::ControlModifier);
    EXPECT_NE(program.desk.find("frm_WireLog"), nullptr);
    program.desk.find("Terminal")->userActivate();
    press(floating(), Qt::Key_F1);
    ASSERT_NE(program.desk.find("frm_Guide"), nullptr);
    EXPECT_EQ(program.top(), "Terminal");
    press(floating(), Qt::Key_F6);
    EXPECT_TRUE(program.window.isActiveWindow());
    EXPECT_FALSE(program.window.area().isAncestorOf(QApplication::focusWidget()));
    press(floating(), Qt::Key_F9);
    EXPECT_FALSE(program.main.linkBar.Connect.enabled());
}

TEST(Keys, CloseTheFloatingWindowInFrontAndNotTheInnerOneBehindIt) {
    Program program;
    program.start();
    program.main.menu.mnuViewTx0.click();
    program.main.menu.mnutoolsTerminal.click();
    QCoreApplication::processEvents();
    QWidget& terminal = [&]() -> QWidget& {
        FormWindow& window = *program.window.windowOf(*program.desk.find("Terminal"));
        window.setFloating(true);
        window.content().findChild<QWidget*>("Text1")->setFocus();
        return window.shell();
    }();
    QCoreApplication::processEvents();
    QTest::keySequence(&terminal, QKeySequence(QKeySequence::Close));
    QCoreApplication::processEvents();
    EXPECT_EQ(program.desk.find("Terminal"), nullptr);
    EXPECT_NE(program.main.bench().openPanel(), nullptr);
    EXPECT_TRUE(program.main.bench().openPanel()->isOpen());
}

TEST(Keys, AreTheTextFieldsOwnInAFloatingTool) {
    Program program;
    program.start();
    program.main.menu.mnuViewTx0.click();
    ChipPanel* panel = program.main.bench().openPanel();
    panel->FreqCenter.type("311");
    program.main.menu.mnutoolsWireLog.click();
    QCoreApplication::processEvents();
    FormWindow& window = *program.window.windowOf(*program.desk.find("frm_WireLog"));
    window.setFloating(true);
    auto* text = window.content().findChild<QLineEdit*>("Filter");
    text->setFocus();
    QCoreApplication::processEvents();
    QTest::keyClicks(text, "RI");
    press(window.shell(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(text->text(), "");
    EXPECT_EQ(panel->FreqCenter.text(), "311");
}

TEST(Keys, AreNotHeardBehindADialog) {
    Program program;
    program.start();
    program.main.menu.mnuViewTx0.click();
    program.main.menu.mnutoolsTerminal.click();
    QCoreApplication::processEvents();
    program.window.windowOf(*program.desk.find("Terminal"))->setFloating(true);
    program.main.menu.mnuFilePreferences.click();
    QCoreApplication::processEvents();
    Form* dialog = program.desk.modalForm();
    ASSERT_NE(dialog, nullptr);
    QWidget& shell = program.window.windowOf(*dialog)->shell();
    shell.activateWindow();
    QCoreApplication::processEvents();
    press(shell, Qt::Key_F5);
    press(shell, Qt::Key_L, Qt::ControlModifier);
    press(shell, Qt::Key_F9);
    EXPECT_TRUE(program.dialogs.boxes.empty());
    EXPECT_EQ(program.desk.find("frm_WireLog"), nullptr);
    EXPECT_TRUE(program.main.linkBar.Connect.enabled());
}

TEST(Keys, StandInTipsAndMenus) {
    Program program;
    program.start();
    program.main.menu.mnuViewTx0.click();
    QWidget& content = program.window.windowOf(*program.main.bench().openPanel())->content();
    EXPECT_EQ(content.findChild<QWidget*>("Update")->toolTip(), "Sends all control words to the chip (F5)");
    EXPECT_EQ(content.findChild<QWidget*>("ConfSave")->toolTip(), "Save current configuration (Ctrl+S)");
    EXPECT_EQ(program.window.findChild<QToolButton*>("Connect")->toolTip(), "Connect (F9)");
    EXPECT_EQ(program.window.findChild<QAction*>("mnuPanelUpdate")->shortcut(), QKeySequence(Qt::Key_F5));
    EXPECT_EQ(program.window.findChild<QAction*>("mnuWindow(1)")->shortcut(),
              QKeySequence(Qt::CTRL | Qt::Key_1));
}

TEST(Words, AreCopiedAllAtOnceFromTheirColumnsMenu) {
    Program program;
    program.start();
    program.main.menu.mnuViewTx0.click();
    QWidget& content = program.window.windowOf(*program.main.bench().openPanel())->content();
    auto* copy = content.findChild<QAction*>("CopyWords");
    ASSERT_NE(copy, nullptr);
    auto* column = qobject_cast<QWidget*>(copy->parent());
    ASSERT_NE(column, nullptr);
    EXPECT_EQ(column->contextMenuPolicy(), Qt::ActionsContextMenu);
    EXPECT_TRUE(column->isAncestorOf(content.findChild<QWidget*>("Freqw")));
    // A word has a menu of its own, with the column's entries behind its own.
    EXPECT_EQ(content.findChild<QWidget*>("Freqw")->contextMenuPolicy(), Qt::ActionsContextMenu);
    EXPECT_EQ(content.findChild<QWidget*>("Freqw")->actions().size(), 4);
    copy->trigger();
    EXPECT_EQ(program.main.Notice.caption(), "Copied 6 words");
}

TEST(DroppedFiles, OpenTheirChipsPanel) {
    Program program;
    program.start();
    program.main.menu.mnuViewTx1.click();
    ChipPanel* jade = program.main.bench().openPanel();
    jade->FreqCenter.type("434.2");
    std::string content = jade->savedConfiguration();
    std::string path = program.folder.filePath("lab.tc1").toStdString();
    writeFileWhole(path, content);
    program.main.menu.mnuViewTx0.click();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(program.folder.filePath("lab.tc1"))});
    QDragEnterEvent enter(QPoint(300, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&program.window, &enter);
    ASSERT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(300, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&program.window, &drop);
    QCoreApplication::processEvents();
    ASSERT_NE(program.main.bench().openPanel(), nullptr);
    EXPECT_EQ(program.main.bench().openPanel()->name(), "JadeV1");
    EXPECT_EQ(program.main.bench().openPanel()->FreqCenter.text(), "434.2");
    QMimeData words;
    words.setText("no file");
    QDragEnterEvent other(QPoint(300, 300), Qt::CopyAction, &words, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&program.window, &other);
    EXPECT_FALSE(other.isAccepted());
}

TEST(LastReading, StaysGreyedUntilTheNewOneIsThere) {
    Program program;
    program.start();
    program.main.bench().link.LoadBoardRev = 2;
    program.main.menu.mnuViewTx0.click();
    program.main.bench().tools.open(Tool::frm_PowerSupply);
    Form& supply = *program.main.bench().tools.find(Tool::frm_PowerSupply);
    auto* current = program.window.windowOf(supply)->content().findChild<QLineEdit*>("Current");
    auto& element = static_cast<TextField&>(*supply.find("Current"));
    element.setText("12.3");
    element.setPlaceholder("12.3");
    element.setText("");
    EXPECT_EQ(current->text(), "");
    EXPECT_EQ(current->placeholderText(), "12.3");
}

TEST(DemoTour, KnowsBeforehandWhereItCannotWrite) {
    QTemporaryDir folder;
    EXPECT_TRUE(DemoTour::canWriteTo(QDir(folder.filePath("new/pictures"))));
    EXPECT_TRUE(QDir(folder.filePath("new/pictures")).isEmpty());
    QFile(folder.filePath("file")).open(QIODevice::WriteOnly);
    EXPECT_FALSE(DemoTour::canWriteTo(QDir(folder.filePath("file/pictures"))));
}

} // namespace zor
