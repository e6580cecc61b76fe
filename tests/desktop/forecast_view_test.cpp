// SPDX-License-Identifier: MIT
#include "desktop/widgets/binding.h"
#include "elements/plot.h"
#include "elements/timeline.h"
#include "panels/common/forecast.h"
#include "views_of_test.h"

#include <gtest/gtest.h>

#include <QMdiArea>

namespace zor {

namespace {

QWidget& widgetNamed(FormWindow& window, const char* name) {
    auto* found = window.content().findChild<QWidget*>(name);
    EXPECT_NE(found, nullptr) << name;
    return *found;
}

/// All of a widget lies in what the window shows of its content.
bool inSight(const QWidget& widget) {
    return widget.isVisible() && widget.visibleRegion().boundingRect().height() > widget.height() / 2;
}

} // namespace

class ForecastView : public testing::TestWithParam<std::string> {};

TEST_P(ForecastView, FoldsOutIntoSightAndBackToTheSizeBefore) {
    Program program;
    ChipPanel& panel = startWithPanel(program, GetParam());
    panel.ShowStatus.click();
    FormWindow& window = *program.window.windowOf(panel);
    QCoreApplication::processEvents();
    QSize folded = window.shell().size();
    QWidget& area = widgetNamed(window, "ForecastArea");
    EXPECT_FALSE(area.isVisible());
    QStringList hiddenWithTheStatus = wronglyHidden(window.content());

    panel.forecast().ShowForecast.click();
    QTest::qWait(50);
    EXPECT_TRUE(area.isVisible());
    EXPECT_TRUE(inSight(widgetNamed(window, "CycleLine")));
    EXPECT_GE(window.shell().height(), folded.height());
    EXPECT_LE(window.shell().height(), program.window.area().viewport()->height());
    EXPECT_EQ(clippedTexts(window.content()), QStringList());
    EXPECT_EQ(wronglyHidden(window.content()), hiddenWithTheStatus);
    // Nothing has to be scrolled to sideways.
    EXPECT_LE(window.content().width(), window.shell().width());

    panel.forecast().ShowForecast.click();
    QTest::qWait(50);
    EXPECT_FALSE(area.isVisible());
    EXPECT_EQ(window.shell().size(), folded);
}

INSTANTIATE_TEST_SUITE_P(Panels, ForecastView, testing::ValuesIn([] {
                             std::vector<std::string> names;
                             for (const PanelRow& row : panelRows()) {
                                 names.emplace_back(row.name);
                             }
                             return names;
                         }()),
                         [](const auto& panel) { return panel.param; });

TEST(TimelineView, DrawsItsPhasesAndStandsAnySize) {
    Program program;
    ChipPanel& panel = startWithPanel(program, "AmberV1");
    panel.forecast().ShowForecast.click();
    QTest::qWait(20);
    QWidget& view = widgetNamed(*program.window.windowOf(panel), "CycleLine");
    EXPECT_EQ(view.accessibleName(), "always: receive");
    QImage always = view.grab().toImage();
    panel.forecast().CycleLine.setPhases({{"receive", 0.015, 0.8}, {"wake-up timer", 0.285, 0.1}});
    EXPECT_EQ(view.accessibleName(), "receive 15 ms, wake-up timer 285 ms, again each 300 ms");
    EXPECT_NE(view.grab().toImage(), always);
    for (QSize size : {QSize(1, 1), QSize(20, 300), QSize(1600, 20)}) {
        view.resize(size);
        EXPECT_FALSE(view.grab().isNull());
    }
    panel.forecast().CycleLine.setPhases({});
    EXPECT_FALSE(view.grab().isNull());
}

TEST(SupplyPlot, OpensByItsButtonAndTheWindowIsSmallAgainBehindIt) {
    Program program;
    program.start();
    program.main.bench().link.LoadBoardRev = 2;
    program.main.bench().tools.open(Tool::frm_PowerSupply);
    Form& supply = *program.main.bench().tools.find(Tool::frm_PowerSupply);
    FormWindow& window = *program.window.windowOf(supply);
    QCoreApplication::processEvents();
    QSize folded = window.shell().size();
    supply.find("ShowPlot")->click();
    QTest::qWait(20);
    EXPECT_GT(window.shell().height(), folded.height());
    EXPECT_EQ(clippedTexts(window.content()), QStringList());
    EXPECT_EQ(wronglyHidden(window.content()), QStringList());
    EXPECT_LE(window.content().height(), window.shell().height());
    EXPECT_LE(window.content().width(), window.shell().width());

    auto& element = static_cast<Plot&>(*supply.find("CurrentPlot"));
    element.setPoints({{0, 100.0}, {10, 3000.0}, {20, 100.0}});
    QWidget& view = widgetNamed(window, "CurrentPlot");
    QImage without = view.grab().toImage();
    QTest::mouseClick(&view, Qt::LeftButton, {}, view.rect().center());
    EXPECT_EQ(element.cursor(), 10);
    EXPECT_NE(view.grab().toImage(), without);
    view.setFocus();
    QTest::keyClick(&view, Qt::Key_Right);
    EXPECT_EQ(element.cursor(), 20);
    QTest::keyClick(&view, Qt::Key_Right);
    EXPECT_EQ(element.cursor(), 20);
    QTest::keyClick(&view, Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(element.cursor(), 0);
    EXPECT_EQ(supply.find("CursorAt")->text(), "0");

    supply.find("ShowPlot")->click();
    QTest::qWait(20);
    EXPECT_EQ(window.shell().size(), folded);
}

} // namespace zor
