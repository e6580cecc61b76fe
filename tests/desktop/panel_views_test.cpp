// SPDX-License-Identifier: MIT
#include "panels/common/chip_panel.h"
#include "views_of_test.h"

#include <gtest/gtest.h>

#include <QLayout>

namespace zor {

TEST(DesktopWindow, MarksAndReasonsThatComeAndGoMoveNothing) {
    for (const PanelRow& row : panelRows()) {
        SCOPED_TRACE(row.name);
        Program program;
        ChipPanel& panel = startWithPanel(program, row.name);
        FormWindow& window = *program.window.windowOf(panel);
        QCoreApplication::processEvents();
        QSize size = window.shell().size();
        for (const char* label : {"LabelUpdate", "LabelCalibration", "Label38", "Label39"}) {
            Element& element = *panel.find(label);
            bool before = element.visible();
            for (bool shown : {!before, before}) {
                element.setVisible(shown);
                QCoreApplication::processEvents();
                EXPECT_EQ(window.shell().size(), size) << label;
            }
        }
    }
}

TEST(DesktopWindow, EveryWordStandsBesideItsWholeCaption) {
    for (const PanelRow& row : panelRows()) {
        SCOPED_TRACE(row.name);
        Program program;
        ChipPanel& panel = startWithPanel(program, row.name);
        QStringList shown = labelTexts(program.window.windowOf(panel)->content());
        for (const ControlWord* word : panel.words()) {
            EXPECT_TRUE(word->caption().ends_with(":")) << word->caption();
            EXPECT_TRUE(shown.contains(QString::fromStdString(word->caption()))) << word->caption();
        }
    }
}

TEST(DesktopWindow, TheUpperBitsOfTheFifoLevelSayWhatTheyAre) {
    Program program;
    ChipPanel& panel = startWithPanel(program, "Coral");
    QStringList shown = labelTexts(program.window.windowOf(panel)->content());
    EXPECT_TRUE(shown.contains("Bit[1-0] are the upper bits of the FIFO IT level"));
}

TEST(DesktopWindow, AListsTextOfAnyLengthMovesNothing) {
    Program program;
    ChipPanel& panel = startWithPanel(program, "OpalV2");
    FormWindow& window = *program.window.windowOf(panel);
    QCoreApplication::processEvents();
    QSize size = window.shell().size();
    static_cast<ListBox*>(panel.find("Modulation"))->putText(std::string(10'000, 'x'));
    window.content().layout()->invalidate();
    QCoreApplication::processEvents();
    EXPECT_EQ(window.shell().size(), size);
}

} // namespace zor
