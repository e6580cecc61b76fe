// SPDX-License-Identifier: MIT
#include "elements/history.h"

#include "elements/button.h"
#include "elements/desk.h"
#include "elements/form.h"
#include "elements/list_box.h"
#include "elements/options.h"
#include "elements/range.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "virtual/virtual_loop.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace zor {

namespace {

/// Settings that follow one another, a result, and a number that no element shows.
class Bench : public Form, public Undoable {
  public:
    explicit Bench(Desk& desk)
        : Form(desk, "bench", "Bench") {
        level.onCommit = [this] {
            number = std::clamp(std::atoi(level.text().c_str()), 0, 100);
            level.setText(std::to_string(number));
            result.setText("is " + level.text());
        };
        slider.onChange = [this] {
            level.setText(std::to_string(slider.value()));
            level.onCommit();
        };
        one.putChosen();
        one.onChoose = [this] {
            tick.setEnabled(true);
            list.setEntries({"x", "y", "z"});
        };
        two.onChoose = [this] {
            tick.setEnabled(false);
            list.setEntries({"p", "q"});
            list.select(0);
        };
        both.onClick = [this] {
            tick.setTicked(!tick.ticked());
            level.setText("77");
            level.onCommit();
        };
        waits.onClick = [this] {
            level.setText("50");
            level.onCommit();
            if (meanwhile) {
                meanwhile();
            }
            tick.setTicked(true);
        };
        beginHistory(*this);
    }

    OptionGroup group;
    TextField level{*this, "level", "1"};
    TextField result{*this, "result", "", TextField::Access::ReadOnly};
    ListBox list{*this, "list", {"x", "y", "z"}, "x"};
    Option one{*this, group, "one", "One"};
    Option two{*this, group, "two", "Two"};
    Slider slider{*this, "slider", 0, 50, 3};
    TickBox tick{*this, "tick", "Tick"};
    Button both{*this, "both", "&Both of them..."};
    Button waits{*this, "waits", "Waits"};
    int number = 1;
    std::function<void()> meanwhile;

    [[nodiscard]] Aspects keptAspects(const Element&) const override { return keepsAll; }
    [[nodiscard]] bool isSetting(const Element& element) const override {
        return &element != &result && dynamic_cast<const Button*>(&element) == nullptr;
    }
    [[nodiscard]] std::string settingCaption(const Element& element) const override { return element.name(); }
    [[nodiscard]] KeptParts keptParts() override { return {keptPart(number)}; }

    [[nodiscard]] std::string everything() const {
        std::string all = std::to_string(number);
        for (const Element* element : elements()) {
            ElementState state = stateOf(*element, keepsAll);
            all += ";" + state.text + "|" + std::to_string(state.number) + (state.enabled ? "e" : "-");
            for (const std::string& entry : state.entries) {
                all += entry;
            }
        }
        return all;
    }
};

class HistoryTest : public ::testing::Test {
  protected:
    HistoryTest()
        : desk(loop)
        , bench(desk)
        , history(*bench.history()) {
        loop.perform([this] { bench.show(); });
    }

    using Names = std::vector<std::string>;

    testing::VirtualLoop loop;
    Desk desk;
    Bench bench;
    History& history;
};

TEST_F(HistoryTest, ACommitIsAStepAndOneThatChangesNothingIsNone) {
    EXPECT_FALSE(history.canUndo());
    bench.level.type("5");
    bench.level.type("5");
    bench.tick.tick(false);
    EXPECT_EQ(history.names(), Names{"level 1 -> 5"});
    EXPECT_EQ(history.undo(), "level 1 -> 5");
    EXPECT_EQ(bench.level.text(), "1");
    EXPECT_EQ(bench.result.text(), "");
    EXPECT_EQ(bench.number, 1);
    EXPECT_EQ(history.undo(), "");
    EXPECT_EQ(history.redo(), "level 1 -> 5");
    EXPECT_EQ(bench.result.text(), "is 5");
    EXPECT_EQ(bench.number, 5);
    EXPECT_EQ(history.redo(), "");
}

TEST_F(HistoryTest, StepsAreNamedByWhatWasSet) {
    bench.two.click();
    bench.list.choosePosition(1);
    bench.both.click();
    bench.level.type("400");
    EXPECT_EQ(history.names(), (Names{"two One -> Two", "list p -> q", "Both of them", "level 77 -> 100"}))
        << history.names()[0];
}

TEST_F(HistoryTest, ASlidersWayIsOneStep) {
    for (int value : {5, 9, 20}) {
        bench.slider.slide(value);
    }
    EXPECT_EQ(history.names(), Names{"slider 3 -> 20"});
    bench.tick.click();
    bench.slider.slide(30);
    EXPECT_EQ(history.count(), 3U);
    history.undo();
    history.redo();
    bench.slider.slide(31);
    EXPECT_EQ(history.count(), 4U);
    history.goTo(0);
    EXPECT_EQ(bench.slider.value(), 3);
    EXPECT_EQ(bench.level.text(), "1");
}

TEST_F(HistoryTest, TypingBelongsToItsCommitAndIsTakenBackBeforeAnyStep) {
    bench.tick.click();
    bench.level.edit("12");
    EXPECT_EQ(history.count(), 1U);
    EXPECT_TRUE(history.canUndo());
    EXPECT_FALSE(history.undo().empty());
    EXPECT_EQ(bench.level.text(), "1");
    EXPECT_TRUE(bench.tick.ticked());
    EXPECT_FALSE(history.redo().empty());
    EXPECT_EQ(bench.level.text(), "12");
    EXPECT_EQ(bench.number, 1);
    bench.level.leave();
    EXPECT_EQ(bench.number, 12);
}

TEST_F(HistoryTest, ANewStepEndsThoseThatWereGoneBackOver) {
    bench.level.type("2");
    bench.level.type("3");
    history.undo();
    bench.tick.click();
    EXPECT_EQ(history.names(), (Names{"level 1 -> 2", "tick off -> on"}));
    EXPECT_FALSE(history.canRedo());
}

TEST_F(HistoryTest, AGestureInTheWaitOfAnotherIsAStepOfItsOwn) {
    bench.meanwhile = [this] {
        loop.startTimer(std::chrono::milliseconds(1), EventLoop::Repeat::Once,
                        [this] { loop.perform([this] { bench.list.choosePosition(2); }); });
        loop.runUntil([this] { return bench.list.position() == 2; });
    };
    bench.waits.click();
    ASSERT_EQ(history.names(), (Names{"level 1 -> 50", "list x -> z", "tick off -> on"}));
    history.undo();
    EXPECT_FALSE(bench.tick.ticked());
    history.undo();
    EXPECT_EQ(bench.list.text(), "x");
    EXPECT_EQ(bench.level.text(), "50");
    history.undo();
    EXPECT_EQ(bench.level.text(), "1");
}

TEST_F(HistoryTest, WhatComesFromElsewhereIsAStepAtTheNextLook) {
    bench.level.setText("8");
    history.settle();
    EXPECT_EQ(history.names(), Names{"level 1 -> 8"});
    bench.result.setText("said");
    history.settle();
    EXPECT_EQ(history.count(), 1U);
}

TEST_F(HistoryTest, TheOldestStepsGo) {
    for (std::size_t step = 0; step < History::most + 50; ++step) {
        bench.tick.click();
    }
    EXPECT_EQ(history.count(), History::most);
    history.goTo(0);
    EXPECT_FALSE(history.canUndo());
}

TEST_F(HistoryTest, LongTextsAreKeptInFewerSteps) {
    std::string third(History::heaviest / 3, 'x');
    bench.level.onCommit = nullptr;
    for (char last : std::string("abcd")) {
        bench.level.replace(third + last);
        bench.level.enter();
    }
    EXPECT_EQ(history.count(), 1U);
}

TEST_F(HistoryTest, AWalkGoesBackToItsBeginningAndForthToItsEnd) {
    std::string first = bench.everything();
    std::mt19937 random(1);
    for (int gesture = 0; gesture < 9000; ++gesture) {
        std::string typed = std::to_string(random() % 150);
        switch (random() % 8) {
        case 0:
            bench.level.type(typed);
            break;
        case 1:
            bench.level.edit(typed);
            break;
        case 2:
            bench.list.choosePosition(static_cast<int>(random() % bench.list.entries().size()));
            break;
        case 3:
            bench.one.click();
            break;
        case 4:
            bench.two.click();
            break;
        case 5:
            bench.slider.slide(static_cast<int>(random() % 51));
            break;
        case 6:
            bench.tick.click();
            break;
        default:
            bench.both.click();
            break;
        }
    }
    std::string last = bench.everything();
    EXPECT_GT(history.count(), 5000U);
    while (!history.undo().empty()) {
    }
    EXPECT_EQ(bench.everything(), first);
    while (!history.redo().empty()) {
    }
    EXPECT_EQ(bench.everything(), last);
}

} // namespace

} // namespace zor
