// SPDX-License-Identifier: MIT
#include "views_of_test.h"

#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScrollBar>
#include <QTabBar>
#include <QToolButton>

namespace zor {

/// Wider than the one the windows are made for, which is wide already.
constexpr const char* widerFont = "DejaVu Sans Mono";

TEST(Fonts, OfTheTestsAreTheirOwn) {
    EXPECT_EQ(QFontInfo(QApplication::font()).family(), "DejaVu Sans");
    EXPECT_EQ(QFontInfo(QFontDatabase::systemFont(QFontDatabase::FixedFont)).family(), widerFont);
    QStringList families = QFontDatabase::families();
    // Names of the toolkit's that stand for one of the others.
    families.removeIf([](const QString& name) { return !name.startsWith("DejaVu"); });
    EXPECT_EQ(families, (QStringList{"DejaVu Sans", widerFont}));
    QString text = "Configuration Setting Command:";
    EXPECT_GT(QFontMetrics(QFont(widerFont)).horizontalAdvance(text),
              QFontMetrics(QApplication::font()).horizontalAdvance(text));
}

/// A font for everything, taken back behind it.
class FontForAll {
  public:
    /// @param spacing  of the letters, in percent
    FontForAll(const char* family, double scale, double spacing = 100)
        : before(QApplication::font()) {
        QFont font = before;
        font.setLetterSpacing(QFont::PercentageSpacing, spacing);
        if (family != nullptr) {
            font.setFamily(family);
        }
        font.setPointSizeF(before.pointSizeF() * scale);
        QApplication::setFont(font);
    }
    FontForAll(const FontForAll&) = delete;
    FontForAll& operator=(const FontForAll&) = delete;
    ~FontForAll() { QApplication::setFont(before); }

  private:
    QFont before;
};

struct Scaled {
    std::string form;
    double scale;
    const char* family;
};

class EveryScale : public testing::TestWithParam<Scaled> {};

TEST_P(EveryScale, ClipsNoText) {
    FontForAll font(GetParam().family, GetParam().scale);
    Program program;
    program.start();
    std::unique_ptr<Form> own;
    openForm(program, GetParam().form, own);
    FormWindow& window = *program.window.windowOf(*program.desk.find(GetParam().form));
    QCoreApplication::processEvents();
    EXPECT_EQ(clippedTexts(window.content()), QStringList());
    for (const auto* strip : window.content().findChildren<QTabBar*>()) {
        EXPECT_GE(strip->width(), strip->sizeHint().width());
    }
    // What does not fit into the main window is scrolled to.
    EXPECT_GE(window.content().height(), window.content().minimumSizeHint().height());
    EXPECT_GE(window.content().width(), window.content().minimumSizeHint().width());
    if (qobject_cast<QMdiSubWindow*>(&window.shell()) != nullptr) {
        EXPECT_LE(window.shell().height(), program.window.area().viewport()->height());
        EXPECT_LE(window.shell().width(), program.window.area().viewport()->width());
        if (GetParam().scale == 1 && GetParam().family == nullptr) {
            // On a screen of 1280 x 800 nothing has to be scrolled to.
            EXPECT_LE(window.content().height(), window.shell().height());
            EXPECT_LE(window.content().width(), window.shell().width());
        }
    }
    // Wide tab strips get no arrows, which the keyboard would stop at.
    for (const auto* arrow : window.content().findChildren<QToolButton*>()) {
        EXPECT_TRUE(arrow->isHidden() || qobject_cast<QTabBar*>(arrow->parentWidget()) == nullptr);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Registry, EveryScale, testing::ValuesIn([] {
        std::vector<Scaled> all;
        for (const std::string& formName : everyForm()) {
            for (double scale : {1.0, 1.5, 2.0}) {
                for (const char* family : {static_cast<const char*>(nullptr), widerFont}) {
                    all.push_back({formName, scale, family});
                }
            }
        }
        return all;
    }()),
    [](const auto& row) {
        int percent = static_cast<int>(row.param.scale * 100);
        return row.param.form + "_" + std::to_string(percent) + (row.param.family == nullptr ? "" : "_wide");
    });

/// Fonts differ by a few pixels in a word from machine to machine, and some by half.
struct Lettering {
    const char* name;
    const char* family;
    double spacing;
    /// Of the panel's window at most so many.
    int scrollBars;
};
constexpr Lettering letterings[] = {
    {"plain", nullptr, 100, 1}, {"spaced", nullptr, 102, 1}, {"wide", widerFont, 100, 2}};

struct PanelIn {
    std::string panel;
    Lettering lettering;
};

/// What is left of a screen of 1280 x 800 beside a task bar and frames.
class PanelRoom : public testing::TestWithParam<PanelIn> {};

TEST_P(PanelRoom, HasItsWordsInSightAndTheFewestScrollBars) {
    const Lettering& lettering = GetParam().lettering;
    FontForAll font(lettering.family, 1, lettering.spacing);
    Program program;
    ChipPanel& panel = startWithPanel(program, GetParam().panel);
    if (!panel.statusShown()) {
        panel.ShowStatus.click();
    }
    program.main.linkBar.Toolbar3.setVisible(true);
    program.window.resize(1272, 740);
    QCoreApplication::processEvents();
    FormWindow& window = *program.window.windowOf(panel);
    EXPECT_EQ(clippedTexts(window.content()), QStringList());
    for (const auto* strip : window.content().findChildren<QTabBar*>()) {
        EXPECT_GE(strip->width(), strip->sizeHint().width());
    }
    int bars = 0;
    for (const auto* bar : program.window.area().findChildren<QScrollBar*>()) {
        bars += bar->isVisible() && !window.content().isAncestorOf(bar) ? 1 : 0;
    }
    EXPECT_LE(bars, lettering.scrollBars);
    if (lettering.family == nullptr) {
        const QWidget& room = *program.window.area().viewport();
        for (const ControlWord* word : panel.words()) {
            auto* shown = window.content().findChild<QWidget*>(name(*word));
            EXPECT_LE(shown->mapTo(&room, QPoint(shown->width(), 0)).x(), room.width()) << word->name();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Registry, PanelRoom, testing::ValuesIn([] {
                             std::vector<PanelIn> all;
                             for (const PanelRow& row : panelRows()) {
                                 for (const Lettering& lettering : letterings) {
                                     all.push_back({row.name, lettering});
                                 }
                             }
                             return all;
                         }()),
                         [](const auto& row) { return row.param.panel + "_" + row.param.lettering.name; });

} // namespace zor
