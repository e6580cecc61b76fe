// SPDX-License-Identifier: MIT
// Going back and forth in the steps of the content editor and of the EEPROM's text.
#include "elements/element_state.h"
#include "elements/history.h"
#include "elements/label.h"
#include "elements/options.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace zor {

namespace {

using testing::VirtualBench;
using Everything = std::map<std::string, std::string>;

/// What goes with the settings, and the labels that follow the texts by themselves.
Everything everythingOf(const Form& form) {
    Everything all;
    const auto& rules = dynamic_cast<const Undoable&>(form);
    for (const Element* element : form.elements()) {
        bool follows = element->name().starts_with("ImageSize") ||
                       element->name().starts_with("RoutineSize") ||
                       element->name().starts_with("ReadingFault");
        Aspects aspects = follows ? keepsCaption : rules.keptAspects(*element);
        ElementState state = stateOf(*element, aspects);
        all[element->name()] = state.text + "|" + state.caption + "|" + std::to_string(state.number) +
                               (state.visible ? "v" : "-") + (state.enabled ? "e" : "-") +
                               (state.readOnly ? "r" : "-") + std::to_string(state.limit.value_or(0)) +
                               (state.background ? "g" : "-");
    }
    return all;
}

std::string differences(const Everything& now, const Everything& then) {
    std::string text;
    for (const auto& [name, value] : now) {
        if (then.at(name) != value) {
            text += name + ": " + value + " for " + then.at(name) + "; ";
        }
    }
    return text;
}

std::string randomText(std::mt19937& random, std::size_t longest) {
    static constexpr std::string_view signs = "0123456789abcdefABCDEF xyz";
    std::string text;
    for (std::size_t left = random() % (longest + 1); left > 0; --left) {
        text += signs[random() % signs.size()];
    }
    return text;
}

/// Anything that sets something in the content editor.
void act(VirtualBench& bench, Element& element, std::mt19937& random) {
    static const std::array<std::string_view, 9> buttons = {
        "PB_GetData",      "PB_InsertTx", "PB_InsertSleep",       "PB_Fill",       "PB_Preamble",
        "PB_SynchPattern", "PB_PN9",      "PB_ClearEventRoutine", "PB_GenerateRom"};
    if (auto* field = dynamic_cast<TextField*>(&element)) {
        if (random() % 3 == 0) {
            bench.dialogs.answers.push_back(Answer::Yes);
            field->doubleClick();
            bench.dialogs.answers.clear();
        }
        field->edit(randomText(random, 12));
        if (random() % 2 == 0) {
            field->leave();
        }
    } else if (dynamic_cast<TickBox*>(&element) != nullptr || dynamic_cast<Option*>(&element) != nullptr) {
        element.click();
    } else {
        for (std::string_view name : buttons) {
            if (element.name().starts_with(name)) {
                element.click();
            }
        }
    }
}

void goesBackAndForth(VirtualBench& bench, Form& form, const Everything& first) {
    History& history = *History::of(&form);
    Everything last = everythingOf(form);
    ASSERT_LT(history.count(), History::most);
    while (!history.undo().empty()) {
    }
    ASSERT_EQ(differences(everythingOf(form), first), "");
    while (!history.redo().empty()) {
    }
    ASSERT_EQ(differences(everythingOf(form), last), "");
    EXPECT_TRUE(bench.takeSent().empty());
}

TEST(UndoInTheContentEditor, AWalkUndoneToItsBeginningAndDoneAgainIsExact) {
    VirtualBench bench;
    bench.startAndSearch();
    bench.at("main", "mnuViewTx0").click();
    bench.at("main", "mnutoolsECET").click();
    Form& form = *bench.desk.find("ECET");
    std::mt19937 random(5);
    Everything first = everythingOf(form);
    const std::vector<Element*>& elements = form.elements();
    for (int made = 0; made < 10000; ++made) {
        act(bench, *elements[random() % elements.size()], random);
    }
    EXPECT_GT(History::of(&form)->count(), 1000U);
    bench.dialogs.boxes.clear();
    goesBackAndForth(bench, form, first);
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST(UndoInTheProgrammer, AWalkUndoneToItsBeginningAndDoneAgainIsExact) {
    VirtualBench bench;
    bench.startAndSearch();
    bench.at("main", "EE").click();
    Form& form = *bench.desk.find("eeprom");
    bench.at("eeprom", "EditorWindow").tick(true);
    auto& text = dynamic_cast<TextField&>(bench.at("eeprom", "WorkSheet"));
    std::mt19937 random(6);
    Everything first = everythingOf(form);
    for (int made = 0; made < 10000; ++made) {
        if (random() % 2 == 0) {
            text.press(randomText(random, 1).append("0").front());
        } else {
            text.edit(randomText(random, 60));
        }
        if (random() % 3 == 0) {
            text.leave();
        }
    }
    EXPECT_GT(History::of(&form)->count(), 1000U);
    goesBackAndForth(bench, form, first);
}

} // namespace

} // namespace zor
