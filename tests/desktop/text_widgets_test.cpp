// SPDX-License-Identifier: MIT
#include "widget_of_test.h"

#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"

#include <QPlainTextEdit>
#include <QTest>

namespace zor {

using TextWidgets = WidgetOfTest;

TEST_F(TextWidgets, TypingEditsAndEnterCommitsOnce) {
    auto& element = add<TextField>("FreqCenter", "315");
    int commits = 0;
    std::vector<std::string> edits;
    element.onCommit = [&] { ++commits; };
    element.onEdit = [&] { edits.push_back(element.text()); };
    auto& line = show<QLineEdit>(field(element));
    line.selectAll();
    QTest::keyClicks(&line, "433");
    EXPECT_EQ(edits, (std::vector<std::string>{"4", "43", "433"}));
    EXPECT_EQ(commits, 0);
    QTest::keyClick(&line, Qt::Key_Return);
    EXPECT_EQ(commits, 1);
    EXPECT_EQ(element.text(), "433");
}

TEST_F(TextWidgets, LosingTheFocusCommitsOnceAndABoxOverTheWindowDoesNot) {
    auto& element = add<TextField>("FreqCenter", "315");
    int commits = 0;
    element.onCommit = [&] { ++commits; };
    auto& line = show<QLineEdit>(field(element));
    EXPECT_TRUE(element.focused());
    QFocusEvent popup(QEvent::FocusOut, Qt::PopupFocusReason);
    QCoreApplication::sendEvent(&line, &popup);
    EXPECT_EQ(commits, 0);
    elsewhere.setFocus();
    EXPECT_EQ(commits, 1);
    EXPECT_FALSE(element.focused());
}

TEST_F(TextWidgets, EscapeBringsBackTheTextThatTheFieldHad) {
    auto& element = add<TextField>("FreqCenter", "315");
    auto& line = show<QLineEdit>(field(element));
    line.selectAll();
    QTest::keyClicks(&line, "9");
    ASSERT_EQ(element.text(), "9");
    QTest::keyClick(&line, Qt::Key_Escape);
    EXPECT_EQ(element.text(), "315");
    EXPECT_EQ(line.text(), "315");
}

TEST_F(TextWidgets, ACommitThatRewritesTheFieldIsShown) {
    auto& element = add<TextField>("FreqCenter", "315");
    element.onCommit = [&] { element.setText("319.75"); };
    auto& line = show<QLineEdit>(field(element));
    line.selectAll();
    QTest::keyClicks(&line, "999");
    QTest::keyClick(&line, Qt::Key_Enter);
    EXPECT_EQ(line.text(), "319.75");
}

TEST_F(TextWidgets, ALongTextIsKeptWhole) {
    auto& element = add<TextField>("Notes");
    auto& line = show<QLineEdit>(textField(element));
    std::string longText(40'000, 'x');
    element.setText(longText);
    EXPECT_EQ(line.text().size(), 40'000);
    line.setText(QString());
    line.insert(QString(50'000, 'y'));
    Q_EMIT line.textEdited(line.text());
    EXPECT_EQ(element.text(), std::string(50'000, 'y'));
}

TEST_F(TextWidgets, AKeyIsTypedAtTheCaretAndAFilterLeavesItThere) {
    auto& element = add<TextField>("TB_Pattern", "2DD4");
    element.onEdit = [&] {
        std::string text = element.text();
        std::size_t caret = element.cursor();
        if (caret > 0 && text[caret - 1] == 'g') {
            element.setText(text.erase(caret - 1, 1));
            element.setCursor(caret - 1);
        }
    };
    auto& line = show<QLineEdit>(textField(element));
    line.setCursorPosition(2);
    EXPECT_EQ(element.cursor(), 2U);
    QTest::keyClicks(&line, "gA");
    EXPECT_EQ(line.text(), "2DAD4");
    EXPECT_EQ(element.text(), "2DAD4");
    EXPECT_EQ(line.cursorPosition(), 3);
    EXPECT_EQ(element.cursor(), 3U);
    element.setCursor(0);
    EXPECT_EQ(line.cursorPosition(), 0);
}

TEST_F(TextWidgets, AFullFieldTakesNoFurtherKey) {
    auto& element = add<TextField>("TB_Pattern", "2DD4");
    element.setLimit(4);
    auto& line = show<QLineEdit>(textField(element));
    line.setCursorPosition(1);
    QTest::keyClicks(&line, "A");
    EXPECT_EQ(line.text(), "2DD4");
    EXPECT_EQ(line.cursorPosition(), 1);
}

TEST_F(TextWidgets, AnAreaSharesItsCaretAcrossLineEnds) {
    auto& element = add<TextField>("WorkSheet", "c6 05\r\n2d d4");
    element.setMultiLine(true);
    auto& area = show<QPlainTextEdit>(textArea(element));
    element.setCursor(7);
    EXPECT_EQ(area.textCursor().position(), 6);
    QTest::keyClicks(&area, "f");
    EXPECT_EQ(element.text(), "c6 05\r\nf2d d4");
    EXPECT_EQ(element.cursor(), 8U);
    QTest::keyClick(&area, Qt::Key_Up);
    EXPECT_EQ(element.cursor(), 1U);
}

TEST_F(TextWidgets, KeysAndDoubleClicksInALockedFieldReachItsActions) {
    auto& element = add<TextField>("TB_EventContent", "C400", TextField::Access::ReadOnly);
    std::string keys;
    int doubleClicks = 0;
    element.onKey = [&](char key) {
        keys += key;
        return true;
    };
    element.onDoubleClick = [&] { ++doubleClicks; };
    auto& area = show<QPlainTextEdit>(textArea(element));
    QTest::keyClicks(&area, "aB");
    QTest::keyClick(&area, Qt::Key_Left);
    QTest::keyClick(&area, Qt::Key_Backspace);
    QTest::mouseDClick(area.viewport(), Qt::LeftButton);
    EXPECT_EQ(keys, "aB\b");
    EXPECT_EQ(doubleClicks, 1);
    EXPECT_EQ(element.text(), "C400");
}

TEST_F(TextWidgets, AReadOnlyFieldTakesNoKeys) {
    auto& element = add<TextField>("Freqw", "A7D0", TextField::Access::ReadOnly);
    auto& line = show<QLineEdit>(word(element));
    QTest::keyClicks(&line, "1");
    EXPECT_EQ(line.text(), "A7D0");
}

TEST_F(TextWidgets, APendingWordIsMarkedByMoreThanColour) {
    auto& element = add<TextField>("Freqw", "A7D0", TextField::Access::ReadOnly);
    bool pending = false;
    auto& line = show<QLineEdit>(word(element, [&] { return pending; }));
    QColor plainBack = line.palette().color(QPalette::Base);
    EXPECT_FALSE(line.font().bold());
    pending = true;
    element.setText("A7D1");
    EXPECT_EQ(line.text(), "A7D1");
    EXPECT_TRUE(line.font().bold());
    EXPECT_NE(line.palette().color(QPalette::Base), plainBack);
    pending = false;
    Binding::of(&line)->redraw();
    EXPECT_FALSE(line.font().bold());
}

} // namespace zor
