// SPDX-License-Identifier: MIT
#include "widget_of_test.h"

#include "desktop/views/compose.h"
#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"
#include "elements/kept_text.h"

#include <QPlainTextEdit>
#include <QTest>

namespace zor {

using MonitorView = WidgetOfTest;

TEST_F(MonitorView, AMonitorShowsWhatComesAndSendsWhatIsTyped) {
    auto& element = add<Monitor>("Text1");
    std::string keys;
    element.onKey = [&](char key) { keys += key; };
    auto& view = show<QPlainTextEdit>(monitor(element));
    QTest::keyClicks(&view, "i");
    QTest::keyClick(&view, Qt::Key_Return);
    QTest::keyClick(&view, Qt::Key_Backspace);
    EXPECT_EQ(keys, "i\r\b");
    element.append("OK\r\n>");
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.toPlainText() == "iOK\n>"; }, 2000));
    element.clear();
    EXPECT_EQ(view.toPlainText(), "");
}

TEST_F(MonitorView, AMonitorShowsRemarksInAnotherToneBetweenTheText) {
    auto& element = add<KeptText>("Text1");
    auto& view = show<QPlainTextEdit>(monitor(element));
    element.remark("Z3\r\n");
    element.append("OK\r\n>");
    element.remark("H2\r\n");
    element.append("OK\r\n>");
    ASSERT_TRUE(QTest::qWaitFor([&] { return view.toPlainText() == "Z3\nOK\n>H2\nOK\n>"; }, 2000));
    auto italicAt = [&](int position) {
        QTextCursor cursor(view.document());
        cursor.setPosition(position + 1);
        return cursor.charFormat().fontItalic();
    };
    EXPECT_TRUE(italicAt(0));
    EXPECT_FALSE(italicAt(3));
    EXPECT_TRUE(italicAt(7));
    EXPECT_FALSE(italicAt(10));
    element.clear();
    EXPECT_EQ(view.toPlainText(), "");
    element.remark("only a remark\r\n");
    ASSERT_TRUE(QTest::qWaitFor([&] { return view.toPlainText() == "only a remark\n"; }, 2000));
    element.clear();
    EXPECT_EQ(view.toPlainText(), "");
}

TEST_F(MonitorView, UpAndDownFetchTypedLines) {
    auto& element = add<KeptText>("Text1");
    std::string steps;
    element.onRecall = [&](int step) { steps += step < 0 ? 'u' : 'd'; };
    auto& view = show<QPlainTextEdit>(monitor(element));
    QTest::keyClick(&view, Qt::Key_Up);
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_EQ(steps, "ud");
}

TEST_F(MonitorView, AMonitorThatDropsItsOldestTextShowsItsNewest) {
    auto& element = add<KeptText>("Text1");
    auto& view = show<QPlainTextEdit>(monitor(element));
    std::string line(1022, 'x');
    line += "\r\n";
    for (std::size_t written = 0; written <= KeptText::mostKept; written += line.size()) {
        element.append(line);
    }
    element.append("the end");
    EXPECT_GT(element.dropped(), 0U);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.toPlainText().endsWith("x\nthe end"); }, 5000));
}

TEST_F(MonitorView, AFloodLeavesAMonitorBoundedAndTheLoopAlive) {
    auto& element = add<Monitor>("Text1");
    auto& view = show<QPlainTextEdit>(monitor(element));
    std::string line(78, 'x');
    line += "\r\n";
    int turns = 0;
    for (int i = 0; i < 100'000; ++i) {
        element.append(line);
        if (i % 10'000 == 0) {
            QCoreApplication::processEvents();
            ++turns;
        }
    }
    element.append("the end");
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.toPlainText().endsWith("the end"); }, 5000));
    EXPECT_EQ(turns, 10);
    EXPECT_LE(view.document()->characterCount(), monitorCharacters + 1);
    EXPECT_LE(view.blockCount(), monitorLines);
    EXPECT_EQ(element.contents().size(), 100'000U * 80U + 7U);
}

TEST_F(MonitorView, AnEndlessLineIsShownInRows) {
    auto& element = add<Monitor>("Text1");
    auto& view = show<QPlainTextEdit>(monitor(element));
    element.append(std::string(50'000, 'z'));
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.blockCount() == 50; }, 2000));
}

} // namespace zor
