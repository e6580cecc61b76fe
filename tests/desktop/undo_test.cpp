// SPDX-License-Identifier: MIT
// The keys of a step back, on real widgets: in a field that is being typed in they are the field's, at any
// other time the window's.
#include "program.h"

#include "desktop/form_window.h"
#include "elements/history.h"
#include "panels/common/chip_panel.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QTest>

namespace zor {

namespace {

class UndoKeysTest : public ::testing::Test {
  protected:
    UndoKeysTest() {
        program.start();
        program.window.activateWindow();
        program.main.menu.mnuViewTx0.click();
        panel = program.main.bench().openPanel();
        content = &program.window.windowOf(*panel)->content();
        QCoreApplication::processEvents();
    }

    QLineEdit& line(const char* name) { return *content->findChild<QLineEdit*>(QLatin1String(name)); }

    QLineEdit& typeInto(const char* name, const char* keys) {
        QLineEdit& field = line(name);
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, keys);
        return field;
    }

    Program program;
    ChipPanel* panel = nullptr;
    QWidget* content = nullptr;
};

TEST_F(UndoKeysTest, TakeTheLastCommitBackAndBringItAgain) {
    QLineEdit& field = typeInto("FreqCenter", "311\r");
    ASSERT_EQ(panel->FreqCenter.text(), "311");
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(panel->FreqCenter.text(), "315");
    EXPECT_EQ(field.text(), "315");
    EXPECT_EQ(line("Freqw").text(), "A7D0");
    QTest::keyClick(&field, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(field.text(), "311");
}

TEST_F(UndoKeysTest, AreTheFieldsWhileItIsTypedIn) {
    panel->Cxtal.chooseText("9.0 pF");
    QLineEdit& field = typeInto("FreqCenter", "31");
    ASSERT_EQ(panel->FreqCenter.text(), "31");
    std::size_t steps = panel->history()->count();
    for (int times = 0; times < 8 && panel->FreqCenter.text() != "315"; ++times) {
        QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
    }
    EXPECT_EQ(panel->FreqCenter.text(), "315");
    EXPECT_EQ(panel->history()->position(), steps);
    // Committed, the keys are the window's again.
    QTest::keyClick(&field, Qt::Key_Return);
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(panel->history()->position(), steps - 1);
}

TEST_F(UndoKeysTest, WorkWhereverTheFocusIs) {
    typeInto("FreqCenter", "311\r");
    content->findChild<QComboBox*>("Cxtal")->setFocus();
    QTest::keyClick(content->findChild<QComboBox*>("Cxtal"), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(panel->FreqCenter.text(), "315");
}

TEST_F(UndoKeysTest, TheListAtTheFootGoesToAnyStep) {
    auto* steps = program.window.findChild<QComboBox*>("Steps");
    ASSERT_NE(steps, nullptr);
    EXPECT_FALSE(steps->isVisible());
    typeInto("FreqCenter", "311\r");
    typeInto("FreqCenter", "312\r");
    typeInto("FreqCenter", "313\r");
    EXPECT_TRUE(steps->isVisible());
    ASSERT_EQ(steps->count(), 4);
    EXPECT_EQ(steps->currentText(), "Centre 312 -> 313");
    steps->setFocus();
    QTest::keyClick(steps, Qt::Key_Home);
    EXPECT_EQ(panel->FreqCenter.text(), "315");
    QTest::keyClick(steps, Qt::Key_Down);
    EXPECT_EQ(panel->FreqCenter.text(), "311");
    EXPECT_EQ(line("FreqCenter").text(), "311");
}

TEST_F(UndoKeysTest, TheMenuNamesTheStep) {
    typeInto("FreqCenter", "311\r");
    auto* undo = program.window.findChild<QAction*>("mnuEditUndo");
    ASSERT_NE(undo, nullptr);
    EXPECT_EQ(undo->text(), "Undo Centre 315 -> 311");
    undo->trigger();
    EXPECT_EQ(panel->FreqCenter.text(), "315");
    EXPECT_FALSE(undo->isEnabled());
}

} // namespace

} // namespace zor
