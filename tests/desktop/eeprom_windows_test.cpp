// SPDX-License-Identifier: MIT
// The EEPROM tools' windows: where they open, and that picture and text of a memory go together.
#include "program.h"

#include "eeprom/ecet.h"
#include "eeprom/eeprom.h"

#include <gtest/gtest.h>

#include <QMdiArea>
#include <QPlainTextEdit>
#include <QTextBlock>

namespace zor {

namespace {

struct ProgrammerWindow : Program {
    ProgrammerWindow() {
        start();
        window.resize(1280, 800);
        main.menu.mnutoolsEEPROM.click();
        tool = dynamic_cast<Eeprom*>(desk.find("eeprom"));
        tool->EditorWindow.click();
        QCoreApplication::processEvents();
        QWidget& content = window.windowOf(*tool)->content();
        text = content.findChild<QPlainTextEdit*>(QStringLiteral("WorkSheet"));
        picture = content.findChild<QWidget*>(QStringLiteral("MemoryPicture"));
    }
    void show(const std::string& image) {
        tool->takeImage(image);
        QCoreApplication::processEvents();
    }
    /// The middle of a line of the text, from 0, in the picture's own measure.
    [[nodiscard]] int middleOf(int line) const {
        QTextCursor cursor(text->document()->findBlockByNumber(line));
        QPoint middle = text->cursorRect(cursor).center();
        return picture->mapFromGlobal(text->viewport()->mapToGlobal(middle)).y();
    }

    Eeprom* tool;
    QPlainTextEdit* text;
    QWidget* picture;
};

} // namespace

TEST(EepromWindows, EditorAndCommandEditorStandSideBySideInASmallMainWindow) {
    Program program;
    program.start();
    program.window.resize(1280, 800);
    program.main.menu.mnuViewTx0.click();
    program.main.menu.mnutoolsECET.click();
    auto& editor = dynamic_cast<ECET&>(*program.desk.find("ECET"));
    editor.tab(0).PB_CmdSequence.click();
    QCoreApplication::processEvents();
    QRect content = program.window.windowOf(editor)->shell().geometry();
    QRect commands = program.window.windowOf(editor.commands())->shell().geometry();
    EXPECT_EQ(content.topLeft(), QPoint(0, 0));
    EXPECT_EQ(commands.topLeft(), QPoint(content.right() + 1, 0));
    EXPECT_TRUE(program.window.area().viewport()->rect().contains(content.united(commands)));
}

TEST(EepromWindows, AClickBesideALineOfTheTextPicksAByteOfThatLine) {
    ProgrammerWindow program;
    program.show(shownImage(std::string(2 * eepromBytes, '5')));
    for (int line : {0, 1, 7, 19, 30}) {
        QTest::mouseClick(program.picture, Qt::LeftButton, {},
                          QPoint(program.picture->width() / 2, program.middleOf(line)));
        ASSERT_TRUE(program.tool->MemoryPicture.picked());
        EXPECT_EQ(static_cast<int>(*program.tool->MemoryPicture.picked()) / 32, line);
    }
}

TEST(EepromWindows, BytesKeepTheirMarksWhenTheTextIsReplaced) {
    ProgrammerWindow program;
    program.show("a7 d0 00 00 ff");
    auto marked = [&program] {
        QStringList bytes;
        for (const auto& mark : program.text->extraSelections()) {
            bytes += mark.cursor.selectedText();
        }
        return bytes;
    };
    EXPECT_EQ(marked(), QStringList({"00", "00", "ff"}));
    program.show("00 c4\r\n00");
    EXPECT_EQ(marked(), QStringList({"00", "00"}));
    program.show({});
    EXPECT_EQ(marked(), QStringList());
}

} // namespace zor
