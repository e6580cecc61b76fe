// SPDX-License-Identifier: MIT
// The widgets of tables, coloured logs and bytes.
#include "desk_of_test.h"

#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/grid_model.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QCoreApplication>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QTextBlock>

#include <gtest/gtest.h>

namespace zor {

namespace {

struct Window : DeskOfTest {
    Window() { form.show(); }

    Form form{desk, "Window", "A window"};
};

std::unique_ptr<QWidget> owned(QWidget* widget) {
    widget->show();
    return std::unique_ptr<QWidget>(widget);
}

QColor inkOfLine(const QPlainTextEdit& area, int line) {
    QTextBlock block = area.document()->findBlockByNumber(line);
    return block.begin().fragment().charFormat().foreground().color();
}

} // namespace

TEST(GridView, ItsModelIsAcceptedByTheToolkitsTester) {
    Window window;
    Grid grid(window.form, "Grid", {{"A"}, {"B", GridColumn::Access::Editable}});
    auto view = owned(gridView(grid));
    auto* table = qobject_cast<QTableView*>(view.get());
    QAbstractItemModelTester tester(table->model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    grid.setRows({{GridCell("1")}, {GridCell("2"), GridCell("two", CellLook::Wrong)}});
    grid.insertRows(1, {{GridCell("x")}, {GridCell("y")}});
    grid.setCell(0, 1, GridCell("one", CellLook::Pending));
    grid.removeRows(0, 2);
    EXPECT_EQ(table->model()->rowCount(), 2);
    EXPECT_EQ(table->model()->index(1, 1).data().toString(), "two");
    EXPECT_EQ(table->model()->index(1, 1).data(Qt::ForegroundRole).value<QColor>(),
              roles(QApplication::palette()).error);
}

TEST(GridView, PicksARowForTheElementAndForTheUser) {
    Window window;
    Grid grid(window.form, "Grid", {{"A"}});
    auto view = owned(gridView(grid));
    auto* table = qobject_cast<QTableView*>(view.get());
    grid.setRows({{GridCell("1")}, {GridCell("2")}, {GridCell("3")}});
    int picks = 0;
    grid.onPick = [&picks] { ++picks; };
    table->selectRow(2);
    EXPECT_EQ(grid.picked(), 2U);
    EXPECT_EQ(picks, 1);
    grid.putPicked(0);
    EXPECT_EQ(table->currentIndex().row(), 0);
    EXPECT_EQ(picks, 1);
    grid.setRows({{GridCell("4")}});
    EXPECT_EQ(grid.picked(), std::nullopt);
    EXPECT_FALSE(table->selectionModel()->hasSelection());
}

TEST(GridView, TypesIntoACellThroughTheElement) {
    Window window;
    Grid grid(window.form, "Grid", {{"A"}, {"B", GridColumn::Access::Editable}});
    auto view = owned(gridView(grid));
    auto* table = qobject_cast<QTableView*>(view.get());
    grid.setRows({{GridCell("1"), GridCell("old")}});
    grid.onCellEdit = [&grid](std::size_t row, std::size_t column, const std::string& text) {
        grid.setCell(row, column, GridCell(text + "!"));
    };
    EXPECT_TRUE(table->model()->setData(table->model()->index(0, 1), QStringLiteral("new")));
    // The edit may wait for the board, so it runs when the toolkit's commit is over.
    QCoreApplication::processEvents();
    EXPECT_EQ(grid.cell(0, 1).text, "new!");
    EXPECT_FALSE(table->model()->setData(table->model()->index(0, 0), QStringLiteral("new")));
}

TEST(LogView, ShowsEachLineInTheToneOfItsRole) {
    Window window;
    ColouredLog log(window.form, "Log");
    log.append(LogColour::Blue, "begun");
    auto view = owned(logView(log));
    auto& area = *qobject_cast<QPlainTextEdit*>(view.get());
    log.append(LogColour::Red, "wrong");
    log.append(LogColour::Green, "right");
    EXPECT_EQ(area.toPlainText(), "begun\nwrong\nright");
    const RoleColours& colours = roles(area.palette());
    EXPECT_EQ(inkOfLine(area, 0), colours.logBlue);
    EXPECT_EQ(inkOfLine(area, 1), colours.error);
    EXPECT_EQ(inkOfLine(area, 2), colours.logGreen);
    log.clear();
    EXPECT_EQ(area.toPlainText(), "");
    log.append(LogColour::Black, "anew");
    EXPECT_EQ(area.toPlainText(), "anew");
}

TEST(LogView, ChangesItsTonesWithThePalette) {
    Window window;
    ColouredLog log(window.form, "Log");
    auto view = owned(logView(log));
    auto& area = *qobject_cast<QPlainTextEdit*>(view.get());
    log.append(LogColour::Blue, "begun");
    area.setPalette(schemePalette(Scheme::Dark));
    EXPECT_EQ(inkOfLine(area, 0), roles(Scheme::Dark).logBlue);
    EXPECT_EQ(area.toPlainText(), "begun");
}

TEST(LogView, StaysAtTheEndUnlessTheUserLooksBack) {
    Window window;
    ColouredLog log(window.form, "Log");
    auto view = owned(logView(log, 40, 4));
    auto& area = *qobject_cast<QPlainTextEdit*>(view.get());
    area.resize(300, 80);
    for (int line = 0; line < 50; ++line) {
        log.append(LogColour::Black, "line");
    }
    QScrollBar& bar = *area.verticalScrollBar();
    EXPECT_EQ(bar.value(), bar.maximum());
    bar.setValue(0);
    log.append(LogColour::Black, "another");
    EXPECT_EQ(bar.value(), 0);
    log.moveToEnd();
    EXPECT_EQ(bar.value(), bar.maximum());
}

TEST(ByteArea, ShowsEveryByteAndLosesNone) {
    Window window;
    TextField field(window.form, "Field");
    std::string every;
    for (int code = 0; code < 256; ++code) {
        every += static_cast<char>(code);
    }
    field.setText(every);
    auto view = owned(byteArea(field, 16, 4));
    auto& area = *qobject_cast<QPlainTextEdit*>(view.get());
    EXPECT_EQ(area.document()->characterCount(), 257);
    area.moveCursor(QTextCursor::End);
    QTest::keyClicks(&area, "x");
    EXPECT_EQ(field.text(), every + "x");
}

TEST(ByteArea, TypesAtTheCaretAndShowsWhatTheElementMadeOfIt) {
    Window window;
    TextField field(window.form, "Field", "ABCD");
    field.setLimit(5);
    field.onEdit = [&field] {
        std::size_t caret = field.cursor();
        std::string upper = field.text();
        std::transform(upper.begin(), upper.end(), upper.begin(),
                       [](char c) { return static_cast<char>(std::toupper(c)); });
        field.setText(upper);
        field.setCursor(caret);
    };
    auto view = owned(byteArea(field, 16, 4));
    auto& area = *qobject_cast<QPlainTextEdit*>(view.get());
    QTextCursor cursor = area.textCursor();
    cursor.setPosition(2);
    area.setTextCursor(cursor);
    QTest::keyClicks(&area, "e");
    EXPECT_EQ(field.text(), "ABECD");
    EXPECT_EQ(area.toPlainText(), "ABECD");
    EXPECT_EQ(area.textCursor().position(), 3);
    QTest::keyClicks(&area, "f");
    EXPECT_EQ(area.toPlainText(), "ABECD") << "the limit holds";
}

TEST(ByteArea, LeadsKeysAndDoubleClicksOfALockedFieldToItsActions) {
    Window window;
    TextField field(window.form, "Field", "ABCD", TextField::Access::ReadOnly);
    std::string keys;
    int doubleClicks = 0;
    field.onKey = [&keys](char key) {
        keys += key;
        return true;
    };
    field.onDoubleClick = [&doubleClicks] { ++doubleClicks; };
    auto view = owned(byteArea(field, 16, 4));
    auto& area = *qobject_cast<QPlainTextEdit*>(view.get());
    QTest::keyClicks(&area, "5");
    QTest::keyClick(&area, Qt::Key_Delete);
    QTest::keyClick(&area, Qt::Key_Left);
    QTest::mouseDClick(area.viewport(), Qt::LeftButton);
    EXPECT_EQ(keys, "5\b");
    EXPECT_EQ(doubleClicks, 1);
    EXPECT_EQ(field.text(), "ABCD");
    EXPECT_EQ(area.palette().color(QPalette::Base), roles(area.palette()).lockedGround);
    field.setReadOnly(false);
    EXPECT_NE(area.palette().color(QPalette::Base), roles(area.palette()).lockedGround);
}

TEST(ByteArea, MarksTheStretchThatIsPicked) {
    Window window;
    TextField field(window.form, "Field", "A7D0C400");
    DigitStretch marked{4, 4};
    auto view = owned(byteArea(field, 16, 4, [&marked] { return marked; }));
    auto& area = *qobject_cast<QPlainTextEdit*>(view.get());
    ASSERT_EQ(area.extraSelections().size(), 1);
    EXPECT_EQ(area.extraSelections().first().cursor.selectedText(), "C400");
    marked = {};
    Binding::of(&area)->redraw();
    EXPECT_TRUE(area.extraSelections().isEmpty());
}

} // namespace zor
