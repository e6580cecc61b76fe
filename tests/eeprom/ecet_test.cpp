// SPDX-License-Identifier: MIT
// The content editor in the hands of somebody who does anything in any order.
#include "eeprom/ecet.h"

#include "elements/menu.h"
#include "panels/common/chip_panel.h"
#include "panels/odd_texts.h"
#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

#include <random>

namespace zor {

namespace {

using testing::VirtualBench;

ECET& openEditor(VirtualBench& bench) {
    bench.ports.place(1, sim::BoardKind::LoadBoard2);
    bench.startAndSearch();
    bench.main().menu.mnuViewTx0.click();
    bench.main().menu.mnutoolsECET.click();
    bench.takeSent();
    return dynamic_cast<ECET&>(*bench.desk.find("ECET"));
}

bool isDigits(const std::string& text) {
    return text.find_first_not_of("0123456789ABCDEF") == std::string::npos;
}

class RandomEngineer {
  public:
    RandomEngineer(VirtualBench& virtualBench, unsigned seed)
        : bench(virtualBench)
        , random(seed) {}

    void actOn(Form& form) {
        const std::vector<Element*>& elements = form.elements();
        Element& element = *elements[upTo(elements.size() - 1)];
        if (element.name() == "PB_Save" || element.name() == "PB_Load" || element.name() == "PB_Call") {
            return;
        }
        bench.dialogs.answers.push_back(upTo(1) == 0 ? Answer::Yes : Answer::No);
        if (auto* field = dynamic_cast<TextField*>(&element)) {
            type(*field);
        } else if (auto* tick = dynamic_cast<TickBox*>(&element)) {
            tick->tick(upTo(1) == 0);
        } else if (auto* strip = dynamic_cast<TabStrip*>(&element)) {
            strip->choosePosition(static_cast<int>(upTo(7)));
        } else if (auto* grid = dynamic_cast<Grid*>(&element)) {
            grid->pickRow(upTo(20));
        } else {
            element.click();
        }
        bench.dialogs.answers.clear();
        bench.dialogs.boxes.clear();
        if (upTo(9) == 0) {
            bench.run(std::chrono::milliseconds(upTo(1200)));
        }
    }

    std::size_t upTo(std::size_t highest) {
        return std::uniform_int_distribution<std::size_t>(0, highest)(random);
    }

  private:
    void type(TextField& field) {
        static const std::vector<std::string> odd = testing::oddTexts();
        switch (upTo(4)) {
        case 0:
            field.edit(odd[upTo(odd.size() - 1)].substr(0, 400));
            break;
        case 1:
            field.placeCaret(upTo(field.text().size()));
            field.press("0aFg\b\r z"[upTo(7)]);
            break;
        case 2:
            field.replace(odd[upTo(odd.size() - 1)]);
            break;
        case 3:
            field.doubleClick();
            break;
        default:
            field.leave();
        }
    }

    VirtualBench& bench;
    std::mt19937 random;
};

} // namespace

TEST(ContentEditor, KeepsItsRoutinesInTheirBlocksWhateverIsDone) {
    for (unsigned seed = 1; seed <= 8; ++seed) {
        VirtualBench bench;
        ECET& editor = openEditor(bench);
        RandomEngineer engineer(bench, seed);
        int inserted = 0;
        for (int gesture = 0; gesture < 1500; ++gesture) {
            Form& form = engineer.upTo(3) == 0 ? static_cast<Form&>(editor.commands()) : editor;
            engineer.actOn(form);
            for (int event = 0; event < eventCount; ++event) {
                const EventTab& tab = editor.tab(event);
                ASSERT_LE(tab.routine().size(), routineDigits) << "seed " << seed;
                ASSERT_TRUE(isDigits(tab.routine())) << tab.routine();
                ASSERT_EQ(tab.OB_HexView.chosen(), !tab.OB_Ascii_View.chosen());
                ASSERT_EQ(tab.TB_Payload.readOnly(), !tab.PB_InsertTx.enabled());
                inserted += tab.routine().empty() ? 0 : 1;
            }
        }
        EXPECT_GT(inserted, 0);
        EXPECT_TRUE(bench.takeSent().empty()) << "it sends nothing";
        // And it still makes an image.
        bench.loop.perform([&] { editor.PB_GenerateRom.click(); });
        EXPECT_EQ(editor.TB_EEPROMContent.text().size(), imageDigits);
    }
}

TEST(ContentEditor, ReadsItsRoutinesAnewWhenItComesToTheFront) {
    VirtualBench bench;
    ECET& editor = openEditor(bench);
    EventTab& tab = editor.tab(1);
    tab.PB_GetData.click();
    ASSERT_EQ(tab.Reading.rowCount(), 1U);
    EXPECT_EQ(tab.Reading.cell(0, 4).text, "315 MHz");
    bench.at("OpalV2", "Band868").click();
    bench.desk.find("OpalV2")->show();
    editor.show();
    EXPECT_EQ(tab.Reading.cell(0, 4).text, "870 MHz");
}

TEST(ContentEditor, SaysWhereTheCommandStandsThatIsPicked) {
    VirtualBench bench;
    ECET& editor = openEditor(bench);
    EventTab& tab = editor.tab(0);
    tab.PB_GetData.click();
    EXPECT_EQ(tab.picked(), nullptr);
    ASSERT_TRUE(tab.Reading.pickRow(2));
    ASSERT_NE(tab.picked(), nullptr);
    EXPECT_EQ(tab.picked()->begin, 6U);
    EXPECT_EQ(tab.picked()->count, 4U);
    tab.PB_ClearEventRoutine.click();
    EXPECT_EQ(tab.picked(), nullptr);
}

TEST(ContentEditor, OutlivesTheCommandEditorsEnd) {
    VirtualBench bench;
    ECET& editor = openEditor(bench);
    editor.tab(2).PB_CmdSequence.click();
    bench.loop.perform([&] { bench.shared().tools.close(Tool::Frm_CmdSequence); });
    bench.run(std::chrono::milliseconds(10));
    EXPECT_TRUE(editor.tab(3).PB_CmdSequence.click());
    EXPECT_EQ(editor.commands().L_ControlName.caption(), "Push Button 3 Event Control");
}

} // namespace zor
