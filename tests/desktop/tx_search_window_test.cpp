// SPDX-License-Identifier: MIT
// The search for transmitters unfolded: what stands in it then, and the room that it takes.
#include "rftools/tx_search.h"
#include "views_of_test.h"

#include <gtest/gtest.h>

#include <QMdiArea>

namespace zor {

namespace {

class TxSearchWindow : public testing::TestWithParam<double> {
  protected:
    TxSearchWindow()
        : before(QApplication::font()) {
        QFont font = before;
        font.setPointSizeF(before.pointSizeF() * GetParam());
        QApplication::setFont(font);
        startWithPanel(program, "BerylV3");
        program.main.perform([this] { program.main.bench().tools.open(Tool::frm_TxSearch); });
        search = dynamic_cast<TxSearch*>(program.main.bench().tools.find(Tool::frm_TxSearch));
        QCoreApplication::processEvents();
    }
    ~TxSearchWindow() override { QApplication::setFont(before); }

    QFont before;
    Program program;
    TxSearch* search = nullptr;
};

} // namespace

TEST_P(TxSearchWindow, UnfoldsWithAllItsElementsAndFoldsAgain) {
    FormWindow& window = *program.window.windowOf(*search);
    EXPECT_EQ(unseenElements(*search, window.content()), QStringList());
    EXPECT_EQ(wronglyHidden(window.content()), QStringList());
    QRect folded = window.shell().geometry();

    ASSERT_TRUE(search->CHK_Search.tick(true));
    QCoreApplication::processEvents();
    EXPECT_EQ(wronglyHidden(window.content()), QStringList());
    EXPECT_EQ(clippedTexts(window.content()), QStringList());
    QSize unfolded = window.shell().size();
    EXPECT_GT(unfolded.height(), folded.height());
    QRect room(QPoint(), program.window.area().viewport()->size());
    EXPECT_TRUE(room.contains(window.shell().geometry())) << "wherever it stood folded";
    if (GetParam() == 1) {
        // Nothing has to be scrolled to.
        EXPECT_LE(window.content().height(), unfolded.height());
        EXPECT_LE(window.content().width(), unfolded.width());
    }
    auto* start = window.content().findChild<QWidget*>(QStringLiteral("PB_START"));
    ASSERT_NE(start, nullptr);
    EXPECT_TRUE(start->isEnabled());

    // What is a setting now looks like one, and the tab key stops there.
    auto* band = window.content().findChild<QWidget*>(QStringLiteral("FreqBand"));
    auto* rate = window.content().findChild<QWidget*>(QStringLiteral("DataRate"));
    ASSERT_TRUE(band != nullptr && rate != nullptr);
    EXPECT_EQ(band->palette().color(QPalette::Base), rate->palette().color(QPalette::Base));
    EXPECT_EQ(band->focusPolicy(), Qt::StrongFocus);

    ASSERT_TRUE(search->CHK_Search.tick(false));
    QCoreApplication::processEvents();
    EXPECT_EQ(window.shell().geometry(), folded);
    EXPECT_FALSE(start->isEnabled());
    EXPECT_EQ(band->focusPolicy(), Qt::ClickFocus);
    EXPECT_NE(band->palette().color(QPalette::Base), rate->palette().color(QPalette::Base));
}

TEST_P(TxSearchWindow, TheLongestEndOfASearchIsNotClipped) {
    ASSERT_TRUE(search->CHK_Search.tick(true));
    search->SearchState.setCaption("No status in the answers: 12 carriers; the chip needs an Update");
    QCoreApplication::processEvents();
    EXPECT_EQ(clippedTexts(program.window.windowOf(*search)->content()), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Scales, TxSearchWindow, testing::Values(1, 1.5, 2));

} // namespace zor
