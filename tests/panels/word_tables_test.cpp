// SPDX-License-Identifier: MIT
// What holds for the control words of every panel.
#include "panels/all_panels.h"
#include "panels/panel_bench.h"
#include "panels/random_user.h"
#include "support/numbers.h"

#include <algorithm>
#include <set>

namespace zor {

namespace {

using testing::PanelBench;

std::uint32_t mask(const BitField& field) {
    return ((1U << (field.highBit - field.lowBit + 1)) - 1U) << field.lowBit;
}

} // namespace

template <class Panel>
class WordTables : public ::testing::Test {
  protected:
    PanelBench<Panel> bench;
};

TYPED_TEST_SUITE(WordTables, testing::AllPanels, testing::PanelNames);

TYPED_TEST(WordTables, FieldsLieInsideTheWordAndClearOfItsBaseAndOfEachOther) {
    for (const ControlWord* word : this->bench.open().words()) {
        std::uint32_t taken = word->base();
        int width = word->size() == ControlWord::Size::OneByte ? 8 : 16;
        for (const BitField& field : word->fields()) {
            EXPECT_GE(field.highBit, field.lowBit) << word->name() << " " << field.name;
            EXPECT_LT(field.highBit, width) << word->name() << " " << field.name;
            EXPECT_EQ(taken & mask(field), 0U) << word->name() << " " << field.name;
            taken |= mask(field);
        }
    }
}

TYPED_TEST(WordTables, EveryWordSaysWhatItIsAndWhatItsBitsMean) {
    for (const ControlWord* word : this->bench.open().words()) {
        EXPECT_TRUE(word->caption().ends_with("ommand:")) << word->caption();
        EXPECT_TRUE(word->tip().starts_with(word->caption() + " " + word->text())) << word->tip();
        for (const BitField& field : word->fields()) {
            EXPECT_NE(word->tip().find(" " + field.name + " "), std::string::npos) << word->tip();
        }
        EXPECT_EQ(std::count(word->tip().begin(), word->tip().end(), '\n'),
                  static_cast<std::ptrdiff_t>(word->fields().size()));
    }
}

TYPED_TEST(WordTables, NoSettingCarriesIntoAnotherField) {
    auto& panel = this->bench.open();
    testing::RandomUser user(1);
    std::set<std::string> seen;
    for (int round = 0; round < 200; ++round) {
        user.set(panel);
        for (const ControlWord* word : panel.words()) {
            std::uint32_t expected = word->base();
            for (const BitField& field : word->fields()) {
                std::uint32_t part = static_cast<std::uint32_t>(field.value()) << field.lowBit;
                EXPECT_EQ(part & ~mask(field), 0U) << word->name() << " " << field.name;
                expected |= part;
            }
            EXPECT_EQ(word->text(), hexText(expected)) << word->name();
            seen.insert(word->text());
        }
    }
    // The user did set something.
    EXPECT_GT(seen.size(), 250U);
}

TYPED_TEST(WordTables, EveryWordIsReadBackAsItsTipExplainsIt) {
    auto& panel = this->bench.open();
    testing::RandomUser user(2);
    std::size_t compared = 0;
    for (int round = 0; round < 100; ++round) {
        user.set(panel);
        for (const ControlWord* word : panel.words()) {
            std::uint32_t value = word->value();
            EXPECT_TRUE(word->fits(value)) << word->name() << " " << word->text();
            for (const BitField& field : word->fields()) {
                EXPECT_EQ(ControlWord::part(value, field), field.value())
                    << word->name() << " " << field.name;
                if (field.meaning && field.meaningOf) {
                    EXPECT_EQ(field.meaningOf(field.value()), field.meaning())
                        << word->name() << " " << field.name;
                    ++compared;
                }
            }
        }
    }
    EXPECT_GT(compared, 300U);
}

TYPED_TEST(WordTables, AValueWithABitBesideTheTableIsNoneOfTheWord) {
    for (const ControlWord* word : this->bench.open().words()) {
        std::uint32_t inTable = 0;
        for (const BitField& field : word->fields()) {
            if (field.kind != BitField::Kind::AlwaysOne) {
                inTable |= mask(field);
            }
        }
        int width = word->size() == ControlWord::Size::OneByte ? 8 : 16;
        for (int bit = 0; bit < width; ++bit) {
            std::uint32_t flipped = word->value() ^ (1U << bit);
            EXPECT_EQ(word->fits(flipped), (inTable >> bit & 1U) != 0) << word->name() << " bit " << bit;
        }
    }
}

TYPED_TEST(WordTables, UpdateSendsEveryWordAsItsTextStands) {
    PanelBench<TypeParam> connected(testing::With::LoadBoard2);
    auto& panel = connected.open();
    connected.takeSent();
    connected.click("Update");
    std::vector<std::string> expected;
    for (const ControlWord* word : panel.words()) {
        if (word->name() == "EFw") {
            // The one word that is only shown.
            continue;
        }
        std::string head = word->size() == ControlWord::Size::OneByte ? "S1" : "S2";
        expected.push_back(head + word->text());
    }
    std::vector<std::string> transfers = connected.takeSent();
    std::erase_if(transfers, [](const std::string& line) { return line.front() != 'S'; });
    EXPECT_EQ(transfers, expected);
}

} // namespace zor
