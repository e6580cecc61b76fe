// SPDX-License-Identifier: MIT
#include "widget_of_test.h"

#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"

namespace zor {

using PlotView = WidgetOfTest;

namespace {

Plot::Traits lengthTraits() {
    return {.title = "Length of the last packets",
            .x = {.caption = "Packet number", .unit = "", .ticks = PlotAxis::Ticks::WholeNumbers},
            .y = {.caption = "Length", .unit = "bytes", .from = 0.0},
            .style = Plot::Style::Bars,
            .gapCaption = "lost"};
}

/// How many pixels of a picture have this colour.
int pixels(const QImage& picture, const QColor& colour) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            count += picture.pixelColor(x, y) == colour ? 1 : 0;
        }
    }
    return count;
}

} // namespace

TEST_F(PlotView, APlotDrawsItsValuesAndMarksItsGaps) {
    auto& element = add<Plot>("Lengths", lengthTraits());
    auto& view = show<QWidget>(plot(element));
    host.resize(700, 300);
    QCoreApplication::processEvents();
    QColor bars = view.palette().color(QPalette::Link);
    QColor lost = roles(view.palette()).error;
    EXPECT_EQ(view.accessibleName(), "Length of the last packets");
    QImage empty = view.grab().toImage();
    EXPECT_EQ(pixels(empty, bars), 0);

    element.add({1, 20});
    element.add({2, 10});
    QImage two = view.grab().toImage();
    int ofTwo = pixels(two, bars);
    EXPECT_GT(ofTwo, 1000);
    element.add({3, std::nullopt});
    QImage withGap = view.grab().toImage();
    EXPECT_LT(pixels(withGap, bars), ofTwo);
    EXPECT_GT(pixels(withGap, lost), pixels(two, lost));
}

TEST_F(PlotView, APlotsPictureIsThatOfItsView) {
    auto& element = add<Plot>("Lengths", lengthTraits());
    auto& view = show<QWidget>(plot(element));
    element.add({1, 20});
    std::string bytes = element.picture();
    QImage picture;
    ASSERT_TRUE(picture.loadFromData(reinterpret_cast<const uchar*>(bytes.data()),
                                     static_cast<int>(bytes.size()), "PNG"));
    EXPECT_GE(picture.width(), 1440);
    EXPECT_GT(pixels(picture, view.palette().color(QPalette::Link)), 1000);
    delete &view;
    EXPECT_EQ(element.picture(), "");
}

TEST_F(PlotView, APlotStandsAnySize) {
    auto& element = add<Plot>(
        "Errors", Plot::Traits{.title = "Errors",
                               .x = {"Read"},
                               .y = {.caption = "BER", .unit = "", .scale = PlotAxis::Scale::Logarithmic}});
    auto& view = show<QWidget>(plot(element));
    for (int number = 0; number < 3000; ++number) {
        element.add({static_cast<double>(number),
                     number % 7 == 0 ? std::nullopt : std::optional(1e-6 * number * number)});
    }
    for (QSize size : {QSize(1, 1), QSize(20, 300), QSize(300, 20), QSize(1600, 900)}) {
        view.resize(size);
        EXPECT_FALSE(view.grab().isNull());
    }
}

} // namespace zor
