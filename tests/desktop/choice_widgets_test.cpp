// SPDX-License-Identifier: MIT
#include "widget_of_test.h"

#include "desktop/widgets/binders.h"
#include "desktop/widgets/memory_picture.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTest>

namespace zor {

using ChoiceWidgets = WidgetOfTest;

TEST_F(ChoiceWidgets, AMemorysCellsAreClickedAndWalkedWithTheArrows) {
    auto& element = add<CellPicture>("MemoryPicture", 64U, 16U);
    element.onCell = [&](std::size_t cell) { element.pick(cell); };
    auto& picture = show<QWidget>(cellPicture(element, 7));
    QTest::mouseClick(&picture, Qt::LeftButton, {}, QPoint(picture.width() - 3, picture.height() - 3));
    EXPECT_EQ(element.picked(), 1023U) << "the nearest cell";
    QTest::keyClick(&picture, Qt::Key_Down);
    EXPECT_EQ(element.picked(), 1023U);
    QTest::keyClick(&picture, Qt::Key_Up);
    QTest::keyClick(&picture, Qt::Key_Left);
    EXPECT_EQ(element.picked(), 1006U);
    element.setContents({CellPicture::Cell::Differs});
    EXPECT_EQ(picture.accessibleName(), "0 written, 0 zero, 0 empty, 1 different");
}

TEST_F(ChoiceWidgets, ATickIsClickedAndARefusedOneSpringsBack) {
    auto& element = add<TickBox>("CB_Er", "Enable & go");
    auto& box = show<QCheckBox>(tick(element));
    EXPECT_EQ(box.text(), "Enable && go");
    box.click();
    EXPECT_TRUE(element.ticked());
    form->hide();
    box.click();
    EXPECT_TRUE(element.ticked());
    EXPECT_TRUE(box.isChecked());
}

TEST_F(ChoiceWidgets, OptionsFollowTheirGroupAndMayAllBeOff) {
    auto& low = add<Option>(bands, "Band315", "315 MHz");
    auto& high = add<Option>(bands, "Band433", "433 MHz");
    int chosen = 0;
    high.onChoose = [&] { ++chosen; };
    auto& row = show<QWidget>(options(low, high));
    auto radios = row.findChildren<QRadioButton*>();
    ASSERT_EQ(radios.size(), 2);
    low.choose();
    EXPECT_TRUE(radios[0]->isChecked());
    radios[1]->click();
    EXPECT_FALSE(radios[0]->isChecked());
    EXPECT_TRUE(high.chosen());
    radios[1]->click();
    EXPECT_EQ(chosen, 2);
    EXPECT_TRUE(radios[1]->isChecked());
    high.unchoose();
    EXPECT_FALSE(radios[1]->isChecked());
}

TEST_F(ChoiceWidgets, AListRunsItsActionForTheEntryThatAlreadyShows) {
    auto& element = add<ListBox>("CB_Mode", std::vector<std::string>{"Int.", "Ext.", "Data"}, "Int.");
    std::vector<int> chosen;
    element.onChange = [&] { chosen.push_back(element.position()); };
    auto& combo = show<QComboBox>(list(element));
    EXPECT_EQ(combo.currentIndex(), 0);
    QTest::keyClick(&combo, Qt::Key_Down);
    Q_EMIT combo.activated(1);
    EXPECT_EQ(chosen, (std::vector<int>{1, 1}));
}

TEST_F(ChoiceWidgets, AListShowsATextThatNoEntryHas) {
    auto& element = add<ListBox>("LoadboardList", std::vector<std::string>{}, "Please select...");
    auto& combo = show<QComboBox>(list(element));
    EXPECT_EQ(combo.count(), 0);
    QImage first = combo.grab().toImage();
    element.putText("searching");
    EXPECT_NE(combo.grab().toImage(), first);
    EXPECT_EQ(combo.currentIndex(), -1);
    element.setEntries({"LoadBoard 2.x: Com3"});
    EXPECT_EQ(combo.count(), 1);
    EXPECT_EQ(combo.currentIndex(), -1);
}

TEST_F(ChoiceWidgets, AListIsAsWideAsTheToolkitsOwnWithNoDropDownMade) {
    auto& element = add<ListBox>("Cxtal", std::vector<std::string>{}, "");
    auto& combo = show<QComboBox>(list(element, 0));
    QComboBox toolkits;
    toolkits.setSizeAdjustPolicy(QComboBox::AdjustToContents);
    auto expectSameHint = [&](const char* when) {
        EXPECT_EQ(combo.sizeHint(), toolkits.sizeHint()) << when;
        EXPECT_EQ(combo.minimumSizeHint(), combo.sizeHint()) << when;
    };
    expectSameHint("empty, of its own least width");
    element.setEntries({"8.5 pF", "16.0 pF"});
    toolkits.addItems({"8.5 pF", "16.0 pF"});
    expectSameHint("filled");
    element.setEntries({"8.5 pF", "16.0 pF", "as measured on the board"});
    toolkits.addItem("as measured on the board");
    expectSameHint("with a longer entry");
    element.setEntries({"8.5 pF"});
    toolkits.clear();
    toolkits.addItem("8.5 pF");
    expectSameHint("with fewer entries");
    EXPECT_TRUE(combo.findChildren<QAbstractItemView*>().isEmpty());
    QFont large = combo.font();
    large.setPointSizeF(large.pointSizeF() * 2);
    combo.setFont(large);
    toolkits.setFont(large);
    expectSameHint("in larger letters");
}

TEST_F(ChoiceWidgets, ALockedListOpensNoPopUpAndKeepsItsText) {
    auto& element = add<ListBox>("LoadboardList", std::vector<std::string>{"One", "Two"}, "One");
    auto& combo = show<QComboBox>(list(element));
    element.setLocked(true);
    combo.showPopup();
    EXPECT_FALSE(combo.view()->isVisible());
    QTest::keyClick(&combo, Qt::Key_Down);
    EXPECT_EQ(element.text(), "One");
    EXPECT_EQ(combo.currentIndex(), 0);
}

TEST_F(ChoiceWidgets, ADoubleClickSendsOneClickAndThenItself) {
    auto& element = add<Button>("ReadStatus", "Read Status");
    std::string log;
    element.onClick = [&] { log += "click "; };
    element.onDoubleClick = [&] { log += "double "; };
    auto& push = show<QPushButton>(button(element));
    QTest::mouseClick(&push, Qt::LeftButton);
    EXPECT_EQ(log, "click ");
    // The second half of a double click: the toolkit's event, after the first click's own.
    QTest::mouseDClick(&push, Qt::LeftButton);
    EXPECT_EQ(log, "click double ");
}

TEST_F(ChoiceWidgets, TwoPressesOfTheSpaceBarAreADoubleClick) {
    auto& element = add<Button>("ReadStatus", "Read Status");
    std::string log;
    element.onClick = [&] { log += "click "; };
    element.onDoubleClick = [&] { log += "double "; };
    auto& push = show<QPushButton>(button(element));
    QTest::keyClick(&push, Qt::Key_Space);
    QTest::keyClick(&push, Qt::Key_Space);
    EXPECT_EQ(log, "click double ");
}

TEST_F(ChoiceWidgets, AButtonShowsAnEscapedAmpersandOnce) {
    auto& element = add<Button>("SaveExit", "Save && Exit");
    auto& push = show<QPushButton>(button(element));
    EXPECT_EQ(push.text(), "Save && Exit");
    EXPECT_TRUE(push.shortcut().isEmpty());
}

TEST_F(ChoiceWidgets, ALabelIsClickable) {
    auto& element = add<Label>("VersionLabel", "GUI Version 1.0.0");
    int clicks = 0;
    element.onClick = [&] { ++clicks; };
    auto& text = show<QLabel>(label(element));
    QTest::mouseClick(&text, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}

TEST_F(ChoiceWidgets, ASliderMovesAndFollows) {
    auto& element = add<Slider>("SL_Level", 0, 15, 4);
    auto& bar = show<QSlider>(slider(element));
    EXPECT_EQ(bar.value(), 4);
    bar.setValue(9);
    EXPECT_EQ(element.value(), 9);
    element.onChange = [&] { element.putValue(1); };
    bar.setValue(0);
    EXPECT_EQ(bar.value(), 1);
}

} // namespace zor
