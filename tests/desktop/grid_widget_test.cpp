// SPDX-License-Identifier: MIT
#include "desk_of_test.h"

#include "desktop/widgets/binders.h"
#include "elements/grid.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <QVBoxLayout>

namespace zor {

namespace {

using Access = GridColumn::Access;

class GridWidget : public testing::Test {
  protected:
    GridWidget()
        : widget(gridView(grid, 5))
        , table(dynamic_cast<QTableView&>(*widget))
        , tester(table.model(), QAbstractItemModelTester::FailureReportingMode::Fatal) {
        form.show();
        grid.setRows({row("00"), row("01"), row("02"), row("03")});
        showAlone(*widget);
    }

    static GridRow row(const std::string& name) { return {{name}, {"h" + name}}; }
    [[nodiscard]] QString shown(int atRow, int column) const {
        return table.model()->index(atRow, column).data().toString();
    }
    [[nodiscard]] int currentRow() const { return table.currentIndex().row(); }

    DeskOfTest test;
    Form form{test.desk, "Panel", "Panel"};
    Grid grid{form, "Table", {{.caption = "Addr."}, {.caption = "Hex", .access = Access::Editable}}};
    std::unique_ptr<QWidget> widget;
    QTableView& table;
    QAbstractItemModelTester tester;
};

} // namespace

TEST_F(GridWidget, ShowsTheGridUnderItsName) {
    EXPECT_EQ(table.objectName(), "Table");
    EXPECT_EQ(table.model()->rowCount(), 4);
    EXPECT_EQ(shown(2, 1), "h02");
    EXPECT_EQ(table.model()->headerData(1, Qt::Horizontal).toString(), "Hex");
}

TEST_F(GridWidget, AColumnThatIsDraggedIsTheElementsOwnAndBack) {
    int before = table.columnWidth(0);
    int wanted = grid.columns()[0].characters + 6;
    grid.setColumnWidth(0, wanted);
    int wide = table.columnWidth(0);
    EXPECT_GT(wide, before);
    table.horizontalHeader()->resizeSection(0, before);
    EXPECT_EQ(grid.columns()[0].characters, wanted - 6);
    EXPECT_EQ(table.columnWidth(0), before);
    table.horizontalHeader()->resizeSection(0, wide);
    EXPECT_EQ(grid.columns()[0].characters, wanted);
}

TEST_F(GridWidget, FollowsEveryChangeOfRows) {
    grid.insertRows(1, {row("A"), row("B")});
    grid.insertRows(6, {row("Z")});
    EXPECT_EQ(table.model()->rowCount(), 7);
    EXPECT_EQ(shown(1, 0), "A");
    EXPECT_EQ(shown(3, 0), "01");
    grid.removeRows(0, 2);
    grid.removeRows(4, 1);
    EXPECT_EQ(table.model()->rowCount(), 4);
    EXPECT_EQ(shown(0, 0), "B");
    grid.setCell(0, 1, {"5F", CellLook::Wrong});
    EXPECT_EQ(shown(0, 1), "5F");
    grid.setRows({});
    EXPECT_EQ(table.model()->rowCount(), 0);
    grid.setRows({row("X")});
    EXPECT_EQ(shown(0, 0), "X");
}

TEST_F(GridWidget, AClickPicksARowAndTheArrowsWalk) {
    int picks = 0;
    grid.onPick = [&] { ++picks; };
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {},
                      table.visualRect(table.model()->index(2, 0)).center());
    EXPECT_EQ(grid.picked(), 2u);
    QTest::keyClick(&table, Qt::Key_Up);
    EXPECT_EQ(grid.picked(), 1u);
    EXPECT_EQ(picks, 2);
}

TEST_F(GridWidget, ShowsTheRowThatTheProgramPicks) {
    grid.putPicked(3);
    EXPECT_EQ(currentRow(), 3);
    EXPECT_TRUE(table.selectionModel()->isRowSelected(3));
    grid.putPicked(std::nullopt);
    EXPECT_EQ(currentRow(), -1);
    EXPECT_FALSE(table.selectionModel()->hasSelection());
}

TEST_F(GridWidget, ThePickedRowKeepsItsChoiceWhileRowsComeAndGo) {
    int picks = 0;
    grid.putPicked(2);
    grid.onPick = [&] { ++picks; };
    grid.insertRows(0, {row("A")});
    EXPECT_EQ(currentRow(), 3);
    grid.removeRows(0, 2);
    EXPECT_EQ(currentRow(), 1);
    grid.removeRows(1, 1);
    EXPECT_EQ(grid.picked(), std::nullopt);
    EXPECT_EQ(currentRow(), -1);
    EXPECT_EQ(picks, 0);
}

TEST_F(GridWidget, TypingIntoACellRunsTheEditOnceTheEditorHasGone) {
    std::string typed;
    grid.onCellEdit = [&](std::size_t atRow, std::size_t column, const std::string& text) {
        typed = text;
        grid.setCell(atRow, column, {"0" + text});
    };
    table.setCurrentIndex(table.model()->index(1, 1));
    QTest::keyClick(&table, '5');
    auto* editor = table.findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(QString::fromStdString(typed), QStringLiteral("5"));
    EXPECT_EQ(shown(1, 1), "05");
}

TEST_F(GridWidget, AColumnForReadingOpensNoEditor) {
    table.setCurrentIndex(table.model()->index(1, 0));
    QTest::keyClick(&table, '5');
    EXPECT_EQ(table.findChild<QLineEdit*>(), nullptr);
}

TEST_F(GridWidget, TabLeavesTheTable) {
    QWidget host;
    QLineEdit next;
    auto* layout = new QVBoxLayout(&host);
    layout->addWidget(widget.release());
    layout->addWidget(&next);
    showAlone(host);
    table.setFocus();
    QTest::keyClick(&table, Qt::Key_Tab);
    EXPECT_TRUE(next.hasFocus());
    next.setParent(nullptr);
}

TEST_F(GridWidget, TheFocusAlonePicksNoRow) {
    std::vector<std::size_t> picks;
    grid.onPick = [&] { picks.push_back(*grid.picked()); };
    table.setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(table.hasFocus());
    EXPECT_EQ(currentRow(), -1);
    QTest::keyClick(&table, Qt::Key_Down);
    QTRY_COMPARE(picks.size(), 1U);
    EXPECT_EQ(grid.picked(), 0U);
    grid.putPicked(std::nullopt);
    table.clearFocus();
    // The toolkit gives the focus before it looks at the place.
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {},
                      table.visualRect(table.model()->index(2, 0)).center());
    QTRY_COMPARE(picks.size(), 2U);
    EXPECT_EQ(picks, (std::vector<std::size_t>{0, 2}));
}

TEST_F(GridWidget, TenThousandRowsComeAndScrollWithoutAStop) {
    std::vector<GridRow> rows;
    for (int i = 0; i < 10'000; ++i) {
        rows.push_back(row(std::to_string(i)));
    }
    int changes = 0;
    Subscription counting = grid.rowsChanged.subscribe([&](const GridChange&) { ++changes; });
    grid.setRows(std::move(rows));
    EXPECT_EQ(table.model()->rowCount(), 10'000);
    grid.setCell(9'999, 1, {"last"});
    EXPECT_EQ(changes, 3);
    table.scrollToBottom();
    QCoreApplication::processEvents();
    EXPECT_TRUE(table.viewport()->rect().intersects(table.visualRect(table.model()->index(9'999, 0))));
}

} // namespace zor
