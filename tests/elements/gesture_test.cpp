// SPDX-License-Identifier: MIT
#include "elements/gesture.h"

#include "elements/button.h"
#include "elements/desk.h"
#include "elements/form.h"
#include "elements/grid.h"
#include "elements/list_box.h"
#include "elements/menu.h"
#include "elements/monitor.h"
#include "elements/range.h"
#include "elements/tab_strip.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "elements/watched_dialogs.h"
#include "virtual/scripted_dialogs.h"
#include "virtual/virtual_loop.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace zor::testing {

namespace {

/// A window with one element of a kind, and a watcher who writes down what he hears.
class GestureTest : public ::testing::Test {
  protected:
    GestureTest() {
        form.show();
        begun = desk.gestureBegins.subscribe([this](const Gesture& gesture) { note("+", gesture); });
        ended = desk.gestureEnded.subscribe([this](const Gesture& gesture) { note("-", gesture); });
    }

    void note(const char* moment, const Gesture& gesture) {
        std::string name = gesture.element == nullptr ? gesture.form->name() : gesture.element->name();
        heard.push_back(moment + name + " " + std::to_string(static_cast<int>(gesture.kind)) + " " +
                        std::string(gesture.text) + " " + std::to_string(gesture.depth) +
                        (gesture.byUser ? "" : " own"));
        last = gesture;
        text = std::string(gesture.text);
    }

    VirtualLoop loop;
    Desk desk{loop};
    Form form{desk, "F", "Title"};
    Button button{form, "Button"};
    TextField field{form, "Field"};
    ListBox list{form, "List", {"a", "b"}};
    TickBox box{form, "Box", "box"};
    Slider slider{form, "Slider", 0, 10, 0};
    TabStrip strip{form, "Strip", {"one", "two"}};
    Monitor monitor{form, "Monitor"};
    Grid grid{form, "Grid", {{.caption = "A", .access = GridColumn::Access::Editable}}};
    std::vector<std::string> heard;
    std::optional<Gesture> last;
    std::string text;
    Subscription begun;
    Subscription ended;
};

std::string kind(GestureKind value) {
    return std::to_string(static_cast<int>(value));
}

} // namespace

TEST_F(GestureTest, TellsAGestureBeforeAndBehindItsAction) {
    button.onClick = [this] { heard.emplace_back("action"); };
    EXPECT_TRUE(button.click());
    std::string click = "Button " + kind(GestureKind::Click) + "  0";
    EXPECT_EQ(heard, (std::vector<std::string>{"+" + click, "action", "-" + click}));
    EXPECT_EQ(last->form, &form);
    EXPECT_EQ(last->element, &button);
}

TEST_F(GestureTest, TellsNoGestureThatIsRefused) {
    button.setEnabled(false);
    field.setReadOnly(true);
    EXPECT_FALSE(button.click());
    EXPECT_FALSE(field.edit("x"));
    EXPECT_FALSE(list.choosePosition(2));
    EXPECT_FALSE(strip.choosePosition(3));
    EXPECT_FALSE(grid.pickRow(0));
    form.hide();
    EXPECT_FALSE(box.tick(true));
    EXPECT_FALSE(form.userClose());
    EXPECT_TRUE(heard.empty());
}

TEST_F(GestureTest, SaysWhatBelongsToEachKind) {
    field.edit("315");
    EXPECT_EQ(last->kind, GestureKind::Edit);
    EXPECT_EQ(text, "315");
    field.replace("3156", 2);
    EXPECT_EQ(last->kind, GestureKind::Replace);
    EXPECT_EQ(text, "3156");
    EXPECT_EQ(last->first, 2);
    field.placeCaret(1);
    EXPECT_EQ(last->first, 1);
    list.chooseText("b");
    EXPECT_EQ(last->kind, GestureKind::ChooseEntry);
    EXPECT_EQ(last->first, 1);
    EXPECT_EQ(text, "b");
    box.tick(false);
    EXPECT_EQ(last->kind, GestureKind::Tick);
    EXPECT_EQ(last->first, 0);
    slider.slide(7);
    EXPECT_EQ(last->first, 7);
    strip.choosePosition(2);
    EXPECT_EQ(last->kind, GestureKind::TurnPage);
    EXPECT_EQ(last->first, 2);
    monitor.press('x');
    EXPECT_EQ(last->kind, GestureKind::Press);
    EXPECT_EQ(text, "x");
    grid.setRows({{GridCell("1")}, {GridCell("2")}});
    grid.editCell(1, 0, "new");
    EXPECT_EQ(last->kind, GestureKind::EditCell);
    EXPECT_EQ(last->first, 1);
    EXPECT_EQ(last->second, 0);
    EXPECT_EQ(text, "new");
    form.userMove({15, 30});
    EXPECT_EQ(last->kind, GestureKind::Move);
    EXPECT_EQ(last->first, 15);
    EXPECT_EQ(last->second, 30);
    EXPECT_EQ(last->element, nullptr);
    form.userClose();
    EXPECT_EQ(last->kind, GestureKind::Close);
}

TEST_F(GestureTest, StepsOfAGestureAreTheGesturesOwn) {
    button.doubleClick();
    EXPECT_EQ(heard, (std::vector<std::string>{"+Button " + kind(GestureKind::DoubleClick) + "  0",
                                               "+Button " + kind(GestureKind::Click) + "  1 own",
                                               "-Button " + kind(GestureKind::Click) + "  1 own",
                                               "+Button " + kind(GestureKind::SecondClick) + "  1 own",
                                               "-Button " + kind(GestureKind::SecondClick) + "  1 own",
                                               "-Button " + kind(GestureKind::DoubleClick) + "  0"}));
}

TEST_F(GestureTest, AGestureInTheMiddleOfAWaitIsTheUsersOwn) {
    bool done = false;
    loop.startTimer(std::chrono::milliseconds(5), EventLoop::Repeat::Once, [this] { box.tick(true); });
    loop.startTimer(std::chrono::milliseconds(9), EventLoop::Repeat::Once, [&done] { done = true; });
    button.onClick = [&] { loop.runUntil([&done] { return done; }); };
    button.click();
    ASSERT_EQ(heard.size(), 4U);
    EXPECT_EQ(heard[1], "+Box " + kind(GestureKind::Tick) + "  1");
    EXPECT_EQ(heard[2], "-Box " + kind(GestureKind::Tick) + "  1");
}

TEST_F(GestureTest, AnErrorOrADropEndsTheGestureToo) {
    std::string told;
    loop.uncaught = [&told](const ToolError& error) { told = error.what(); };
    button.onClick = [] { throw ToolError(5); };
    button.click();
    button.onClick = [] { throw ActionDropped(); };
    button.click();
    EXPECT_EQ(heard.size(), 4U);
    EXPECT_FALSE(told.empty());
    EXPECT_FALSE(desk.inGesture());
}

TEST_F(GestureTest, TheElementIsThereAtTheEndOfItsLastGesture) {
    auto window = std::make_unique<Form>(desk, "G", "Second");
    auto close = std::make_unique<Button>(*window, "Close");
    window->show();
    close->onClick = [&] {
        window->close();
        loop.discardLater([&] {
            close.reset();
            window.reset();
        });
    };
    close->click();
    EXPECT_EQ(window, nullptr);
    EXPECT_EQ(heard.back(), "-Close " + kind(GestureKind::Click) + "  0");
}

TEST_F(GestureTest, TheEntryIsToldThoughItsListChangesInTheAction) {
    list.onChange = [this] { list.setEntries({"quite another list than the one before it was"}); };
    list.choosePosition(0);
    EXPECT_EQ(text, "a");
}

TEST(WatchedDialogs, TellWhatIsAskedAndWhatComesBack) {
    ScriptedDialogs real;
    WatchedDialogs watched(real);
    std::vector<std::string> heard;
    auto comes = watched.boxComes.subscribe([&](const Box& box) { heard.push_back("box " + box.text); });
    auto answered = watched.boxAnswered.subscribe(
        [&](const Box&, Answer answer) { heard.emplace_back(answer == Answer::Yes ? "yes" : "other"); });
    auto file =
        watched.fileDialogAnswered.subscribe([&](const FileRequest& request, const FileChoice& choice) {
            heard.push_back(request.title + " " + choice.name);
        });
    real.answers = {Answer::Yes};
    real.files = {"x.tc"};
    FileRequest request;
    request.title = "Load";
    request.startName = "*.tc";
    EXPECT_EQ(watched.show({.text = "Sure?", .buttons = BoxButtons::YesNo}), Answer::Yes);
    EXPECT_EQ(watched.chooseFile(request).name, "x.tc");
    EXPECT_EQ(heard, (std::vector<std::string>{"box Sure?", "yes", "Load x.tc"}));
}

TEST(WatchedDialogs, SomebodyElseMayAnswer) {
    ScriptedDialogs real;
    ScriptedDialogs other;
    other.answers = {Answer::Yes};
    WatchedDialogs watched(real);
    watched.answerBy(&other);
    EXPECT_EQ(watched.show({.text = "Sure?", .buttons = BoxButtons::YesNo}), Answer::Yes);
    watched.answerBy(nullptr);
    EXPECT_EQ(watched.show({.text = "Sure?", .buttons = BoxButtons::YesNo}), Answer::No);
    EXPECT_EQ(other.boxes.size(), 1U);
    EXPECT_EQ(real.boxes.size(), 1U);
}

} // namespace zor::testing
