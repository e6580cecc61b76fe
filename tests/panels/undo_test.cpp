// SPDX-License-Identifier: MIT
// Going back and forth in a panel's steps, for every chip: a walk of any gestures, taken back to its
// beginning and done again, leaves the panel as it was each time.
#include "elements/element_state.h"
#include "elements/history.h"
#include "panels/all_panels.h"
#include "panels/panel_bench.h"
#include "panels/random_user.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <type_traits>
#include <vector>

namespace zor {

namespace {

using testing::PanelBench;
using testing::With;

using Everything = std::map<std::string, std::string>;

/// What is not the same in both; empty if all is.
std::string differences(const Everything& now, const Everything& then) {
    std::string text;
    for (const auto& [name, value] : now) {
        if (then.at(name) != value) {
            text += name + ": " + value + " for " + then.at(name) + "; ";
        }
    }
    return text;
}

/// All that a panel is to who looks at it and to the chip.
Everything everythingOf(ChipPanel& panel) {
    Everything all;
    for (const Element* element : panel.elements()) {
        ElementState state = stateOf(*element, keepsAll);
        std::string text = state.text + "|" + state.caption + "|" + std::to_string(state.number) + "|" +
                           (state.visible ? "v" : "-") + (state.enabled ? "e" : "-") +
                           (state.readOnly ? "r" : "-");
        for (const std::string& entry : state.entries) {
            text += "|" + entry;
        }
        for (int code : state.codes) {
            text += "|" + std::to_string(code);
        }
        if (state.background) {
            text +=
                "|" + std::to_string(state.background->red) + " " + std::to_string(state.background->green);
        }
        all[element->name()] = text;
    }
    for (const ControlWord* word : panel.words()) {
        all["value of " + word->name()] = std::to_string(word->value());
        all["chip's " + word->name()] = word->lastSent();
        std::string& readBack = all["table of " + word->name()];
        for (const BitField& field : word->fields()) {
            readBack += field.name + std::to_string(field.highBit) + ":" + std::to_string(field.lowBit);
            for (const FieldPart& part : field.parts) {
                readBack += " " + std::to_string(part.width) + " " + part.setting.offered() + ";";
            }
        }
    }
    all["file"] = panel.savedConfiguration();
    all["crystal"] = std::to_string(panel.GetXtalFrequency());
    all["frequency"] = panel.frequencyText(1234, panel.bandField());
    return all;
}

/// A user who sets one thing after the other, leaves some of what he types as it stands, and types nonsense.
class Walker : public testing::RandomUser {
  public:
    Walker(ChipPanel& panel, unsigned seed)
        : RandomUser(seed) {
        for (Element* element : panel.elements()) {
            if (panel.isSetting(*element) || dynamic_cast<UpDown*>(element) != nullptr) {
                settings.push_back(element);
            }
        }
    }

    [[nodiscard]] bool typing() const {
        return std::any_of(settings.begin(), settings.end(), [](const Element* element) {
            const auto* field = dynamic_cast<const TextField*>(element);
            return field != nullptr && field->typedIn();
        });
    }
    void step() { set(*settings[static_cast<std::size_t>(upTo(static_cast<int>(settings.size()) - 1))]); }

  protected:
    void typeIn(TextField& field) override {
        std::string number = anyNumber();
        switch (upTo(5)) {
        case 0:
            field.edit(number);
            break;
        case 1:
            field.edit(number);
            field.leave();
            break;
        case 2:
            field.type("odd " + number);
            break;
        default:
            field.type(number);
            break;
        }
    }

  private:
    std::vector<Element*> settings;
};

} // namespace

template <class Panel>
class UndoOnPanels : public ::testing::Test {
  protected:
    Panel& open(PanelBench<Panel>& bench) {
        Panel& panel = bench.open();
        panel.history()->forget();
        return panel;
    }
};

TYPED_TEST_SUITE(UndoOnPanels, testing::AllPanels, testing::PanelNames);

TYPED_TEST(UndoOnPanels, AWalkUndoneToItsBeginningAndDoneAgainIsExact) {
    for (bool variant : {false, true}) {
        PanelBench<TypeParam> bench;
        bench.shared().SetBijakuMode(variant);
        auto& panel = this->open(bench);
        History& history = *panel.history();
        Walker walker(panel, variant ? 2 : 1);
        auto first = everythingOf(panel);
        // By the steps' numbers: what a step is like when it is made, before notices come and go.
        std::map<std::uint64_t, Everything> onTheWay;
        // One of them walks the whole way in each run of the tests; the others share the machinery.
        const int gestures = variant ? 1000 : std::is_same_v<TypeParam, OpalV2> ? 10000 : 2500;
        for (int made = 0; made < gestures; ++made) {
            std::size_t before = history.count();
            walker.step();
            if (made % 10 == 0 && history.count() > before && !walker.typing()) {
                onTheWay[history.number(history.count() - 1)] = everythingOf(panel);
            }
        }
        // A notice that no step has brought comes back with none: the walk ends with a step.
        for (std::size_t before = history.count(); history.count() == before || walker.typing();) {
            before = history.count();
            walker.step();
        }
        auto last = everythingOf(panel);
        EXPECT_GT(history.count(), static_cast<std::size_t>(gestures) / 4);
        bench.dialogs.boxes.clear();
        std::size_t seen = 0;
        auto looksAsThen = [&] {
            std::size_t position = history.position();
            auto then = position == 0 ? onTheWay.end() : onTheWay.find(history.number(position - 1));
            if (then != onTheWay.end()) {
                ++seen;
                ASSERT_EQ(differences(everythingOf(panel), then->second), "") << "step " << position;
            }
        };
        while (!history.undo().empty()) {
            looksAsThen();
        }
        ASSERT_EQ(differences(everythingOf(panel), first), "");
        while (!history.redo().empty()) {
            looksAsThen();
        }
        ASSERT_EQ(differences(everythingOf(panel), last), "");
        EXPECT_GT(seen, static_cast<std::size_t>(gestures) / 100);
        EXPECT_TRUE(bench.takeSent().empty());
        EXPECT_TRUE(bench.dialogs.boxes.empty());
    }
}

} // namespace zor
