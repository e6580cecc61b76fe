// SPDX-License-Identifier: MIT
#include "desktop/widgets/colours.h"

#include <gtest/gtest.h>

namespace zor {

namespace {

constexpr double readable = 4.5;

} // namespace

TEST(Contrast, IsTwentyOneBetweenBlackAndWhiteAndOneBetweenEquals) {
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21.0, 0.001);
    EXPECT_NEAR(contrast(QColor(12, 34, 56), QColor(12, 34, 56)), 1.0, 0.001);
    EXPECT_NEAR(contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
}

class Schemes : public testing::TestWithParam<Scheme> {};

TEST_P(Schemes, EveryTextCanBeReadOnItsGround) {
    const RoleColours& colours = roles(GetParam());
    QPalette palette = schemePalette(GetParam());
    QColor ground = palette.color(QPalette::Window);
    QColor base = palette.color(QPalette::Base);
    EXPECT_GE(contrast(colours.accentText, colours.accent), readable);
    EXPECT_GE(contrast(colours.pendingText, colours.pendingBack), readable);
    EXPECT_GE(contrast(colours.reminder, ground), readable);
    EXPECT_GE(contrast(colours.error, ground), readable);
    EXPECT_GE(contrast(colours.softText, ground), readable);
    EXPECT_GE(contrast(colours.softText, base), readable);
    EXPECT_GE(contrast(colours.directive, base), readable);
    EXPECT_GE(contrast(colours.codeComment, base), readable);
    EXPECT_GE(contrast(palette.color(QPalette::WindowText), ground), readable);
    EXPECT_GE(contrast(palette.color(QPalette::Text), base), readable);
    EXPECT_GE(contrast(palette.color(QPalette::ButtonText), palette.color(QPalette::Button)), readable);
    EXPECT_GE(contrast(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight)),
              readable);
    EXPECT_GE(contrast(palette.color(QPalette::WindowText), colours.titleBar), readable);
    for (const QColor& ink : {colours.logBlue, colours.logGreen, colours.error}) {
        EXPECT_GE(contrast(ink, base), readable) << ink.name().toStdString();
    }
    for (const QColor& ink : {palette.color(QPalette::Text), colours.softText, colours.error}) {
        EXPECT_GE(contrast(ink, colours.pickedRow), readable) << ink.name().toStdString();
    }
    EXPECT_GE(contrast(palette.color(QPalette::Text), colours.lockedGround), readable);
}

TEST_P(Schemes, LampsAndOutlinesStandOutFromTheWindow) {
    const RoleColours& colours = roles(GetParam());
    QColor ground = schemePalette(GetParam()).color(QPalette::Window);
    EXPECT_GE(contrast(colours.litEdge, ground), readable);
    EXPECT_GE(contrast(colours.darkEdge, ground), readable - 0.5);
    EXPECT_GE(contrast(colours.edge, ground), 3.0);
}

TEST_P(Schemes, IsRecognisedByItsPalette) {
    EXPECT_EQ(schemeOf(schemePalette(GetParam())), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Both, Schemes, testing::Values(Scheme::Light, Scheme::Dark));

TEST(ReadableOn, PicksTheTextThatStandsOut) {
    EXPECT_EQ(readableOn(QColor(255, 255, 0)), QColor(Qt::black));
    EXPECT_EQ(readableOn(QColor(0, 0, 128)), QColor(Qt::white));
}

} // namespace zor
