// SPDX-License-Identifier: MIT
#include "views_of_test.h"

#include "desktop/adapters/qt_dialogs.h"
#include "desktop/views/pictures.h"
#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

namespace zor {

namespace {

/// The colour that covers most of a widget's inside: its ground.
QColor groundOf(QWidget& widget) {
    QImage image = widget.grab().toImage();
    QHash<QRgb, int> counts;
    for (int y = 3; y < image.height() - 3; ++y) {
        for (int x = 3; x < image.width() - 3; ++x) {
            ++counts[image.pixel(x, y)];
        }
    }
    auto most = std::max_element(counts.begin(), counts.end());
    return QColor(most.key());
}

/// The least contrast of the text with any row of the button's ground, at its left end where no text is.
double leastContrast(QWidget& widget) {
    QImage image = widget.grab().toImage();
    double least = 21;
    for (int y = 3; y < image.height() - 3; ++y) {
        least = std::min(least, contrast(QColor(image.pixel(6, y)), roles(widget.palette()).accentText));
    }
    return least;
}

} // namespace

TEST(Look, TheTextOnAStrongButtonCanBeReadInBothPalettes) {
    for (Scheme scheme : {Scheme::Light, Scheme::Dark}) {
        QPalette before = QApplication::palette();
        QApplication::setPalette(schemePalette(scheme));
        QWidget host;
        auto* push = new QPushButton("Update", &host);
        makeStrong(*push);
        push->resize(140, 28);
        host.show();
        QCoreApplication::processEvents();
        EXPECT_GE(leastContrast(*push), 4.5);
        push->setDown(true);
        EXPECT_GE(leastContrast(*push), 4.5);
        push->setDown(false);
        push->setEnabled(false);
        EXPECT_NE(groundOf(*push), roles(scheme).accent);
        QApplication::setPalette(before);
    }
}

TEST(Look, LampsHaveOneColourWhateverTheElementKeeps) {
    Program program;
    ChipPanel& panel = startWithPanel(program, "OpalV2");
    QWidget& content = program.window.windowOf(panel)->content();
    auto* lamp = content.findChild<QWidget*>("status(1)");
    auto lightOf = [](QWidget& widget) {
        return QColor(
            widget.grab().toImage().pixel(widget.fontMetrics().ascent() / 2 + 1, widget.height() / 2));
    };
    dynamic_cast<Lamp&>(*panel.find("status(1)")).paint(true, dynamic_cast<Swatch&>(*panel.find("OnColor")));
    EXPECT_EQ(lightOf(*lamp), roles(lamp->palette()).lit);
    // The legend shows the lamps' own shape and colour.
    auto* legend = content.findChild<QWidget*>("OnColor");
    EXPECT_EQ(lightOf(*legend), roles(legend->palette()).lit);
    EXPECT_NE(lightOf(*content.findChild<QWidget*>("OffColor")), roles(legend->palette()).lit);
}

TEST(Look, ABoxIsAsWideAsItsTitle) {
    int width = 0;
    QTimer::singleShot(0, [&] {
        auto* box = QApplication::activeModalWidget();
        ASSERT_NE(box, nullptr);
        width = box->width() - box->fontMetrics().horizontalAdvance(box->windowTitle());
        box->close();
    });
    QtDialogs().show(
        {.text = "No.", .title = "Commport not available, nothing at all was sent to the board"});
    EXPECT_GE(width, 100);
}

TEST(Look, TheProgramHasAnIconInEverySize) {
    QIcon icon = productIcon();
    for (int side : {16, 24, 32, 48, 64, 128, 256}) {
        EXPECT_EQ(icon.actualSize({side, side}), QSize(side, side));
        QImage image = icon.pixmap(side).toImage();
        EXPECT_EQ(image.pixelColor(side / 2, side * 9 / 10), roles(Scheme::Light).accent) << side;
    }
}

} // namespace zor
