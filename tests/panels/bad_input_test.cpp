// SPDX-License-Identifier: MIT
// Whatever is typed, a word stays one that the chip has.
#include "panels/all_panels.h"
#include "panels/odd_texts.h"
#include "panels/panel_bench.h"
#include "support/numbers.h"

namespace zor {

namespace {

using testing::oddTexts;
using testing::PanelBench;

} // namespace

template <class Panel>
class BadInput : public ::testing::Test {
  protected:
    void expectSoundWords(const std::string& where) {
        for (const ControlWord* word : bench.panel->words()) {
            std::uint32_t largest = 0;
            for (const BitField& field : word->fields()) {
                largest |= ((1U << (field.highBit - field.lowBit + 1)) - 1U) << field.lowBit;
            }
            std::uint32_t value = readHex(word->text()).value_or(~0U);
            EXPECT_EQ(value & ~largest, word->base()) << word->name() << " " << word->text() << " " << where;
        }
    }

    PanelBench<Panel> bench;
};

TYPED_TEST_SUITE(BadInput, testing::AllPanels, testing::PanelNames);

TYPED_TEST(BadInput, InAFieldLeavesSoundWords) {
    auto& panel = this->bench.open();
    for (const char* governor : {"pm2", "pm1", "enb", "ent", "chb_eb", "chb_ew"}) {
        if (panel.find(governor) != nullptr) {
            this->bench.tick(governor);
        }
    }
    this->bench.click("NonStdCrystal");
    // Folded away at first, and typed in like the others.
    this->bench.click("ShowForecast");
    int typed = 0;
    for (Element* element : panel.elements()) {
        auto* field = dynamic_cast<TextField*>(element);
        if (field == nullptr || field->readOnly()) {
            continue;
        }
        for (const std::string& text : oddTexts()) {
            std::string where = field->name() + " " + text.substr(0, 30);
            ASSERT_TRUE(field->type(text)) << where;
            ++typed;
            this->expectSoundWords(where);
            if (field->onCommit) {
                EXPECT_LT(field->text().size(), 30U) << where;
            }
        }
    }
    EXPECT_GE(typed, 300);
}

TYPED_TEST(BadInput, InAFilesTextsLeavesSoundWords) {
    auto& panel = this->bench.open();
    std::string good = panel.savedConfiguration();
    for (const std::string& text : oddTexts()) {
        if (text.find('"') != std::string::npos) {
            continue;
        }
        // Every text behind the banner becomes the odd one, one at a time.
        std::size_t begin = good.find("\r\n") + 2;
        for (std::size_t mark = good.find('"', begin); mark != std::string::npos;) {
            std::size_t end = good.find('"', mark + 1);
            std::string bytes = good;
            bytes.replace(mark + 1, end - mark - 1, text);
            try {
                panel.takeConfiguration(bytes);
            } catch (const ToolError&) {
                // A tab or a blank before the quotation mark changes nothing, but a line end would.
            }
            this->expectSoundWords(std::to_string(mark) + " " + text.substr(0, 30));
            mark = good.find('"', end + 1);
        }
    }
}

} // namespace zor
