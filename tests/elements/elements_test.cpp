// SPDX-License-Identifier: MIT
#include "elements/desk.h"
#include "elements/form.h"
#include "elements/label.h"
#include "elements/list_box.h"
#include "elements/monitor.h"
#include "elements/options.h"
#include "elements/range.h"
#include "elements/tab_strip.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "virtual/virtual_loop.h"

#include <gtest/gtest.h>

#include <string>

namespace zor {

namespace {

/// An open window on a desk without a program behind it.
struct Window {
    Window() { form.show(); }

    zor::testing::VirtualLoop loop;
    Desk desk{loop};
    Form form{desk, "Window", "A window"};
    std::string log;
};

} // namespace

TEST(Element, IsFoundUnderItsNameAsLongAsItLives) {
    Window window;
    {
        Label label(window.form, "status(3)", "TEXT");
        EXPECT_EQ(window.form.find("status(3)"), &label);
    }
    EXPECT_EQ(window.form.find("status(3)"), nullptr);
}

TEST(Element, IsOutOfReachWhileDisabledHiddenOrInAClosedWindow) {
    Window window;
    Frame frame(window.form, "Frame");
    Button button(window.form, "Button");
    button.setContainer(&frame);
    EXPECT_TRUE(button.click());
    button.setEnabled(false);
    EXPECT_FALSE(button.click());
    button.setEnabled(true);
    button.setVisible(false);
    EXPECT_FALSE(button.click());
    button.setVisible(true);
    frame.setEnabled(false);
    EXPECT_FALSE(button.click());
    frame.setEnabled(true);
    frame.setVisible(false);
    EXPECT_FALSE(button.click());
    frame.setVisible(true);
    EXPECT_TRUE(button.click());
    window.form.hide();
    EXPECT_FALSE(button.click());
}

TEST(Element, BehindAModalWindowIsOutOfReach) {
    Window window;
    Button button(window.form, "Button");
    Form modal(window.desk, "Modal", "", Form::Kind::Modal);
    Button inside(modal, "Button");
    modal.show();
    EXPECT_FALSE(button.click());
    EXPECT_FALSE(window.form.userClose());
    EXPECT_TRUE(inside.click());
    modal.close();
    EXPECT_TRUE(button.click());
}

TEST(Element, TheFocusLeavesOneElementBeforeAnotherTakesIt) {
    Window window;
    TextField first(window.form, "First");
    TextField second(window.form, "Second");
    first.onCommit = [&] { window.log += window.form.focusedElement() == &second ? "committed" : "early"; };
    EXPECT_TRUE(first.takeFocus());
    EXPECT_TRUE(second.takeFocus());
    EXPECT_EQ(window.log, "committed");
    EXPECT_TRUE(second.focused());
}

TEST(TextField, KnowsThatItWasTypedInUntilEnterOrTheLossOfFocus) {
    Window window;
    TextField field(window.form, "Field", "1");
    EXPECT_FALSE(field.typedIn());
    field.edit("2");
    EXPECT_TRUE(field.typedIn());
    field.enter();
    EXPECT_FALSE(field.typedIn());
    field.press('3');
    EXPECT_TRUE(field.typedIn());
    field.leave();
    EXPECT_FALSE(field.typedIn());
    field.edit("4");
    field.setText("5");
    EXPECT_FALSE(field.typedIn());
    field.onCommit = [&] { window.log += field.typedIn() ? "typed" : "committed"; };
    field.type("6");
    EXPECT_EQ(window.log, "committed");
}

TEST(TextField, EnterAndTheLossOfFocusAreOneCommit) {
    Window window;
    TextField field(window.form, "Field", "old");
    field.onCommit = [&] { window.log += field.text() + ";"; };
    EXPECT_TRUE(field.type("new"));
    EXPECT_TRUE(field.leave());
    EXPECT_EQ(window.log, "new;new;");
}

TEST(TextField, IsEditedCharacterByCharacter) {
    Window window;
    TextField field(window.form, "Field", "old");
    field.onEdit = [&] { window.log += field.text() + ";"; };
    EXPECT_TRUE(field.edit("315"));
    EXPECT_EQ(window.log, "3;31;315;");
    EXPECT_TRUE(field.replace("868"));
    EXPECT_EQ(window.log, "3;31;315;868;");
    EXPECT_TRUE(field.press('\b'));
    EXPECT_EQ(field.text(), "86");
}

TEST(TextField, ThatIsReadOnlyTakesNoText) {
    Window window;
    TextField field(window.form, "Field", "old", TextField::Access::ReadOnly);
    EXPECT_FALSE(field.type("new"));
    EXPECT_FALSE(field.edit("new"));
    EXPECT_FALSE(field.press('n'));
    EXPECT_EQ(field.text(), "old");
}

TEST(TextField, TheProgramsTextRunsNoAction) {
    Window window;
    TextField field(window.form, "Field");
    field.onEdit = [&] { window.log += "edit"; };
    field.onCommit = [&] { window.log += "commit"; };
    field.setText("new");
    EXPECT_EQ(window.log, "");
    EXPECT_EQ(field.cursor(), 3u);
}

TEST(TextField, TakesKeysAtItsCaret) {
    Window window;
    TextField field(window.form, "Field", "2DD4");
    EXPECT_EQ(field.cursor(), 4U);
    EXPECT_TRUE(field.placeCaret(1));
    EXPECT_TRUE(field.press('A'));
    EXPECT_TRUE(field.press('B'));
    EXPECT_EQ(field.text(), "2ABDD4");
    EXPECT_EQ(field.cursor(), 3U);
    EXPECT_TRUE(field.press('\b'));
    EXPECT_EQ(field.text(), "2ADD4");
    EXPECT_EQ(field.cursor(), 2U);
    field.setCursor(0);
    EXPECT_TRUE(field.press('\b'));
    EXPECT_EQ(field.text(), "2ADD4");
    field.setCursor(99);
    EXPECT_EQ(field.cursor(), 5U);
}

TEST(TextField, LetsAnActionTakeBackWhatWasTyped) {
    Window window;
    TextField field(window.form, "Field", "2DD4");
    field.onEdit = [&] {
        std::string text = field.text();
        std::size_t caret = field.cursor();
        if (caret > 0 && text[caret - 1] == 'G') {
            text.erase(caret - 1, 1);
            field.setText(text);
            field.setCursor(caret - 1);
        }
    };
    field.setCursor(2);
    EXPECT_TRUE(field.press('G'));
    EXPECT_TRUE(field.press('A'));
    EXPECT_EQ(field.text(), "2DAD4");
    EXPECT_EQ(field.cursor(), 3U);
    EXPECT_TRUE(field.edit("1G2"));
    EXPECT_EQ(field.text(), "12");
}

TEST(TextField, TakesNoMoreThanItsLimit) {
    Window window;
    TextField field(window.form, "Field", "2DD4");
    EXPECT_FALSE(field.limit());
    field.setLimit(4);
    field.setCursor(1);
    EXPECT_TRUE(field.press('A'));
    EXPECT_EQ(field.text(), "2DD4");
    EXPECT_TRUE(field.edit("123456"));
    EXPECT_EQ(field.text(), "1234");
    // A paste of three characters behind the first: only what fits stays, the old text behind it too.
    field.setText("12");
    EXPECT_TRUE(field.replace("1ABC2", 4));
    EXPECT_EQ(field.text(), "1AB2");
    EXPECT_EQ(field.cursor(), 3U);
    field.setText("a longer one of the program");
    EXPECT_EQ(field.text(), "a longer one of the program");
    field.setLimit(0);
    EXPECT_TRUE(field.edit("1"));
    EXPECT_EQ(field.text(), "a longer one of the program");
}

TEST(TextField, ThatIsLockedHasAnActionForKeysAndDoubleClicks) {
    Window window;
    TextField field(window.form, "Field", "C400", TextField::Access::ReadOnly);
    EXPECT_FALSE(field.press('1'));
    field.onKey = [&](char key) {
        window.log += key;
        field.setReadOnly(false);
        return false;
    };
    field.onDoubleClick = [&] { window.log += "double;"; };
    EXPECT_TRUE(field.placeCaret(0));
    EXPECT_TRUE(field.press('1'));
    EXPECT_EQ(field.text(), "C400") << "the key that unlocks is not typed";
    EXPECT_TRUE(field.press('2'));
    EXPECT_EQ(field.text(), "2C400");
    EXPECT_TRUE(field.doubleClick());
    EXPECT_EQ(window.log, "12double;");
    field.setEnabled(false);
    EXPECT_FALSE(field.press('3'));
    EXPECT_FALSE(field.doubleClick());
    EXPECT_FALSE(field.placeCaret(0));
}

TEST(TextField, OfSeveralLinesIsBrokenAndJoinedAtTheCaret) {
    Window window;
    TextField field(window.form, "Field", "aabb");
    field.setMultiLine(true);
    field.setCursor(2);
    EXPECT_TRUE(field.press('\r'));
    EXPECT_EQ(field.text(), "aa\r\nbb");
    EXPECT_EQ(field.cursor(), 4U);
    EXPECT_TRUE(field.press('\b'));
    EXPECT_EQ(field.text(), "aabb");
}

TEST(TextField, TellsOfItsCaretApartFromItsText) {
    Window window;
    TextField field(window.form, "Field", "aabb");
    auto moves = field.cursorMoved.subscribe([&] { window.log += std::to_string(field.cursor()) + ";"; });
    field.setCursor(2);
    field.setCursor(2);
    field.setText("aabb");
    field.setText("cc");
    EXPECT_EQ(window.log, "2;4;");
}

TEST(Progress, WithAMaximumUnderItsMinimumStandsAtTheMinimum) {
    Window window;
    Progress bar(window.form, "Bar", 0, 100, 0);
    bar.setRange(1, 0);
    bar.putValue(7);
    EXPECT_EQ(bar.value(), 1);
    bar.setRange(0, 4);
    bar.putValue(3);
    EXPECT_EQ(bar.value(), 3);
}

TEST(ListBox, KeepsItsTextApartFromItsPosition) {
    Window window;
    ListBox list(window.form, "List", {"a", "b"}, "Please select...");
    EXPECT_EQ(list.text(), "Please select...");
    EXPECT_EQ(list.position(), -1);
    list.putText("b");
    EXPECT_EQ(list.position(), 1);
    list.removeEntry(0);
    EXPECT_EQ(list.position(), 0);
    EXPECT_EQ(list.text(), "b");
    list.removeEntry(0);
    EXPECT_EQ(list.position(), -1);
    EXPECT_EQ(list.text(), "b");
}

TEST(ListBox, EverySelectionRunsTheActionAlsoOfTheEntryThatShows) {
    Window window;
    ListBox list(window.form, "List", {"a", "b"});
    list.onChange = [&] { window.log += list.text(); };
    EXPECT_TRUE(list.choosePosition(1));
    EXPECT_TRUE(list.chooseText("b"));
    list.select(0);
    list.putPosition(1);
    EXPECT_EQ(window.log, "bba");
}

TEST(ListBox, ThatIsLockedTakesNoChoice) {
    Window window;
    ListBox list(window.form, "List", {"a", "b"});
    list.setLocked(true);
    EXPECT_FALSE(list.choosePosition(1));
    EXPECT_FALSE(list.chooseText("a"));
    EXPECT_EQ(list.position(), -1);
}

TEST(ListBox, RefusesAnEntryThatItDoesNotHave) {
    Window window;
    ListBox list(window.form, "List", {"a", "b"});
    EXPECT_FALSE(list.choosePosition(2));
    EXPECT_FALSE(list.choosePosition(-1));
    EXPECT_FALSE(list.chooseText("c"));
}

TEST(TickBox, ATickThatChangesNothingRunsNoAction) {
    Window window;
    TickBox box(window.form, "Box");
    box.onChange = [&] { window.log += box.ticked() ? "+" : "-"; };
    box.tick(true);
    box.tick(true);
    box.setTicked(true);
    box.click();
    box.putTicked(true);
    EXPECT_EQ(window.log, "+-");
}

TEST(Option, ChoosingRunsTheActionEachTime) {
    Window window;
    OptionGroup group;
    Option first(window.form, group, "First");
    Option second(window.form, group, "Second");
    first.onChoose = [&] { window.log += "1"; };
    second.onChoose = [&] { window.log += "2"; };
    first.click();
    first.click();
    second.choose();
    EXPECT_EQ(window.log, "112");
    EXPECT_FALSE(first.chosen());
    EXPECT_EQ(group.chosen(), &second);
    second.unchoose();
    EXPECT_EQ(group.chosen(), nullptr);
}

TEST(Slider, TakesTheNearerEndAndActsOnAChangeOnly) {
    Window window;
    Slider slider(window.form, "Slider", 0, 15, 3);
    slider.onChange = [&] { window.log += std::to_string(slider.value()) + ";"; };
    slider.slide(99);
    slider.slide(15);
    slider.setValue(-4);
    slider.putValue(7);
    EXPECT_EQ(window.log, "15;0;");
    EXPECT_EQ(slider.value(), 7);
}

TEST(TabStrip, TurnsOnlyPagesThatAreThere) {
    Window window;
    TabStrip strip(window.form, "Strip", {"One", "Two"});
    strip.onTurn = [&] { window.log += strip.text(); };
    EXPECT_FALSE(strip.choosePosition(0));
    EXPECT_FALSE(strip.choosePosition(3));
    EXPECT_TRUE(strip.choosePosition(2));
    EXPECT_TRUE(strip.choosePosition(2));
    EXPECT_EQ(window.log, "Two");
}

TEST(Monitor, ABackspaceTakesALineEndBackWhole) {
    Window window;
    Monitor monitor(window.form, "Monitor");
    monitor.press('a');
    monitor.press('\r');
    EXPECT_EQ(monitor.text(), "a\r\n");
    monitor.press('\b');
    EXPECT_EQ(monitor.text(), "a");
    monitor.press('\b');
    monitor.press('\b');
    EXPECT_EQ(monitor.text(), "");
}

TEST(Monitor, TellsAppendedWhatCameAndChangedNothing) {
    Window window;
    Monitor monitor(window.form, "Monitor");
    Subscription appended = monitor.appended.subscribe([&](std::string_view text) { window.log += text; });
    Subscription changed = monitor.changed.subscribe([&] { window.log += "!"; });
    monitor.append("ab");
    monitor.append("\r\n");
    monitor.clear();
    EXPECT_EQ(window.log, "ab\r\n!");
}

TEST(Form, AnswersAClickWithItsActionAndADoubleClickWithBoth) {
    Window window;
    window.form.onClick = [&] { window.log += "c"; };
    window.form.onDoubleClick = [&] { window.log += "d"; };
    EXPECT_TRUE(window.form.userDoubleClick());
    EXPECT_EQ(window.log, "cd");
}

TEST(Form, ClosesOnceAndIsHiddenBeforeItUnloads) {
    struct Unloading : Form {
        using Form::Form;
        void unload() override { log += isOpen() ? "open" : "hidden"; }
        std::string log;
    };
    zor::testing::VirtualLoop loop;
    Desk desk(loop);
    Unloading form(desk, "Form", "");
    form.show();
    int closings = 0;
    Subscription closed = form.closed.subscribe([&] { ++closings; });
    EXPECT_TRUE(form.userClose());
    form.close();
    EXPECT_EQ(form.log, "hidden");
    EXPECT_EQ(closings, 1);
    EXPECT_EQ(desk.find("Form"), nullptr);
}

TEST(Desk, FindsTheOpenOneOfTwoWindowsOfAName) {
    zor::testing::VirtualLoop loop;
    Desk desk(loop);
    Form hidden(desk, "Form", "");
    Form open(desk, "Form", "");
    open.show();
    EXPECT_EQ(desk.find("Form"), &open);
    open.close();
    EXPECT_EQ(desk.find("Form"), &hidden);
}

} // namespace zor
