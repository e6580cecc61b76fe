// SPDX-License-Identifier: MIT
#include "desktop/widgets/shown_text.h"

#include "desk_of_test.h"

#include "desktop/widgets/binders.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

namespace zor {

namespace {

using Lines = ShownText::Lines;

/// Every byte there is.
std::string everyByte() {
    std::string bytes;
    for (int code = 0; code < 0x100; ++code) {
        bytes += static_cast<char>(code);
    }
    return bytes;
}

struct FieldWindow : DeskOfTest {
    Form form{desk, "Window", "Window"};
    TextField element{form, "Script"};
};

} // namespace

TEST(ShownText, AChangeTouchesNoOtherByte) {
    std::string bytes = everyByte() + "\r\n\xC3\xA9\r\n\n\r" + everyByte();
    ShownText shown(bytes, Lines::Many);
    for (qsizetype at : {qsizetype{0}, qsizetype{65}, qsizetype{200}, shown.text().size()}) {
        QString text = shown.text();
        text.insert(at, QLatin1Char('#'));
        std::string expected = bytes;
        expected.insert(shown.bytesBefore(at), "#");
        EXPECT_EQ(shown.edited(text), expected) << "at " << at;
    }
    EXPECT_EQ(shown.edited(shown.text()), bytes);
}

TEST(ShownText, Utf8ShowsAsItsCharactersAndIsTypedSo) {
    ShownText shown("\xC3\xA9t\xC3\xA9 \xF0\x9F\x98\x80", Lines::Many);
    EXPECT_EQ(shown.text(), QString::fromUtf8("\xC3\xA9t\xC3\xA9 \xF0\x9F\x98\x80"));
    EXPECT_EQ(shown.bytesBefore(1), 2U);
    EXPECT_EQ(shown.positionOf(5), 3);
    EXPECT_EQ(shown.edited(QString::fromUtf8("\xC3\xA9t\xC3\xA8 \xF0\x9F\x98\x80")),
              "\xC3\xA9t\xC3\xA8 \xF0\x9F\x98\x80");
    EXPECT_EQ(shown.edited(QString::fromUtf8("\xC3\xA9t\xC3\xA9 \xF0\x9F\x98\x81")),
              "\xC3\xA9t\xC3\xA9 \xF0\x9F\x98\x81")
        << "half a character is none";
}

TEST(ShownText, AnOldTextIsTypedInItsOwnForm) {
    ShownText shown("\xB5s", Lines::Many);
    EXPECT_EQ(shown.text(), QString::fromLatin1("\xB5s"));
    EXPECT_EQ(shown.edited(QString::fromLatin1("\xB5s \xE9")), "\xB5s \xE9");
    EXPECT_EQ(shown.edited(QString::fromUtf8("\xC2\xB5s \xE2\x82\xAC")), "\xB5s ?");
}

TEST(ShownText, LineEndsStayAsTheyAreAndNewOnesAreOurs) {
    ShownText shown("a\nb\r\nc", Lines::Many);
    EXPECT_EQ(shown.text(), "a\nb\nc");
    EXPECT_EQ(shown.edited("a\nb\nc\nd"), "a\nb\r\nc\r\nd");
    EXPECT_EQ(shown.edited("a\nbc"), "a\nbc");
}

TEST(ShownText, AnAreaSendsTheBytesThatTheFileHad) {
    FieldWindow window;
    std::string bytes = "S2" + everyByte() + "\r\nL2\r\n";
    window.element.setText(bytes);
    std::unique_ptr<QWidget> widget(textArea(window.element));
    window.form.show();
    showAlone(*widget);
    auto& area = dynamic_cast<QPlainTextEdit&>(*widget);
    area.moveCursor(QTextCursor::End);
    QTest::keyClicks(&area, "RS");
    EXPECT_EQ(window.element.text(), bytes + "RS");
    area.moveCursor(QTextCursor::Start);
    QTest::keyClick(&area, Qt::Key_Delete);
    EXPECT_EQ(window.element.text(), bytes.substr(1) + "RS");
    EXPECT_EQ(window.element.cursor(), 0U);
    QTest::keyClicks(&area, "Q");
    EXPECT_EQ(window.element.text(), "Q" + bytes.substr(1) + "RS");
    EXPECT_EQ(window.element.cursor(), 1U);
}

TEST(ShownText, ALineKeepsItsOtherBytesAndEscapeBringsThemAllBack) {
    FieldWindow window;
    std::string bytes = "\x80\xFFmarks\x01";
    window.element.setText(bytes);
    std::unique_ptr<QWidget> widget(field(window.element, 20));
    window.form.show();
    showAlone(*widget);
    auto& line = dynamic_cast<QLineEdit&>(*widget);
    line.setCursorPosition(2);
    QTest::keyClicks(&line, "x");
    EXPECT_EQ(window.element.text(), "\x80\xFFxmarks\x01");
    EXPECT_EQ(window.element.cursor(), 3U);
    QTest::keyClick(&line, Qt::Key_Escape);
    EXPECT_EQ(window.element.text(), bytes);
}

} // namespace zor
