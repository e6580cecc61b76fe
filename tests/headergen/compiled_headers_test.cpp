// SPDX-License-Identifier: MIT
// Every header is C, and its macros are the words that an update puts on the wire.
#include "headergen/c_compiler.h"

#include "elements/list_box.h"
#include "elements/options.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "panels/common/chip_panel.h"
#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <set>

namespace zor {

namespace {

using testing::CCompiler;
using testing::MacroValues;
using testing::VirtualBench;

/// As many as the longest list has entries.
constexpr int rounds = 16;
constexpr int boardPort = 3;
constexpr const char* literal = "RFSETUP";

/// A macro's name behind the prefix, and the panel's element whose word it is.
struct MacroRow {
    const char* command;
    const char* word;
};

struct Device {
    const char* name;
    MenuEntry MainMenu::*entry;
    const char* panel;
    std::vector<MacroRow> macros;
    /// Ticks that a user cannot reach.
    std::set<std::string> fixedTicks;
};

void PrintTo(const Device& device, std::ostream* out) {
    *out << device.name;
}

const std::vector<MacroRow> autoPowerMacros = {
    {"CONFIGSET_CMD", "Ctrlw"},    {"FREQSET_CMD", "Freqw"}, {"POWERMAN_CMD", "PowerMw"},
    {"POWERSET_CMD", "OutPowerw"}, {"LBD_CMD", "LBDw"},      {"WTC_CMD", "Wkupw"},
};
const std::vector<MacroRow> fifoTransmitterMacros = {
    {"CONFIGSET_CMD", "Ctrlw"},
    {"FREQSET_CMD", "Freqw"},
    {"POWERMAN_CMD", "PowerMw"},
    {"FIFO_CMD", "TB_FIFOcmd"},
    {"DATARATE_CMD", "TB_DataRateCmd"},
    {"LBD_CMD", "LBDw"},
    {"WTC_CMD", "Wkupw"},
    {"EWTC_CMD", "EWkupw"},
    {"EFC_CMD", "EFCmd"},
};
const std::vector<MacroRow> receiverMacros = {
    {"CONFIGSET_CMD", "Ctrlw"}, {"FREQSET_CMD", "Freqw"},        {"RECEIVERSET_CMD", "Recw"},
    {"WTC_CMD", "Wkupw"},       {"LOWDUTYCCL_CMD", "Dutyw"},     {"LBD_CMD", "LBDw"},
    {"AFC_CMD", "AFCw"},        {"DATAFILTER_CMD", "Datafiltw"}, {"DATARATE_CMD", "Dataratew"},
    {"FIFO_CMD", "FIFOw"},
};
const std::vector<MacroRow> laterReceiverMacros = {
    {"CONFIGSET_CMD", "Ctrlw"},
    {"FREQSET_CMD", "Freqw"},
    {"RECEIVERSET_CMD", "Recw"},
    {"WTC_CMD", "Wkupw"},
    {"EWTC_CMD", "EWkupw"},
    {"LBD_CMD", "LBDw"},
    {"AFC_CMD", "AFCw"},
    {"DATAFILTER_CMD", "Datafiltw"},
    {"DATARATE_CMD", "Dataratew"},
    {"FIFO_CMD", "FIFOw"},
    {"EFC_CMD", "EFw"},
};
const std::vector<MacroRow> transceiverMacros = {
    {"CONFIGSET_CMD", "Ctrlw"},    {"POWERMAN_CMD", "PowerW"},  {"FREQSET_CMD", "Freqw"},
    {"DATARATE_CMD", "Dataratew"}, {"RECEIVERCNT_CMD", "Recw"}, {"DATAFILTER_CMD", "Datafiltw"},
    {"FIFO_RESET_CMD", "FIFOw"},   {"AFC_CMD", "AFCw"},         {"TXCONFIG_CMD", "TXCtrlw"},
    {"WTC_CMD", "Wkupw"},          {"LOWDUTYCCL_CMD", "Dutyw"}, {"LBD_CMD", "LBDw"},
};
const std::vector<MacroRow> laterTransceiverMacros = {
    {"CONFIGSET_CMD", "Ctrlw"},    {"POWERMAN_CMD", "PowerW"},    {"FREQSET_CMD", "Freqw"},
    {"DATARATE_CMD", "Dataratew"}, {"RECEIVERCNT_CMD", "Recw"},   {"DATAFILTER_CMD", "Datafiltw"},
    {"FIFO_RESET_CMD", "FIFOw"},   {"SYNCPATT_CMD", "SynchPatt"}, {"AFC_CMD", "AFCw"},
    {"TXCONFIG_CMD", "TXCtrlw"},   {"PLLSET_CMD", "PLLCmd"},      {"WTC_CMD", "Wkupw"},
    {"LOWDUTYCCL_CMD", "Dutyw"},   {"LBD_CMD", "LBDw"},
};

// clang-format off
const std::vector<Device> devices = {
    {"KT1100",  &MainMenu::mnuViewTx0,       "OpalV2",    autoPowerMacros,        {}},
    {"KT1100B", &MainMenu::mnuViewTx0Bijaku, "OpalV2",    autoPowerMacros,        {}},
    {"KT1101",  &MainMenu::mnuViewTx1,       "JadeV1",    autoPowerMacros,        {}},
    {"KT1102",  &MainMenu::mnuViewTx2,       "KT1102",    fifoTransmitterMacros,  {}},
    {"KT2100",  &MainMenu::mnuViewRx,        "AmberV1",   receiverMacros,         {"DFILTbit5"}},
    {"KT2102",  &MainMenu::mnuViewCoralRx,   "Coral",     laterReceiverMacros,    {"CB_exr"}},
    {"KT3100",  &MainMenu::mnuViewTRx,       "BerylV3",   transceiverMacros,      {"DFILTbit5"}},
    {"KT3100B", &MainMenu::mnuViewTRxBijaku, "BerylV3",   transceiverMacros,      {"DFILTbit5"}},
    {"KT3101",  &MainMenu::mnuViewTopazTRx,  "FRM_Topaz", laterTransceiverMacros, {"DFILTbit5"}},
};
// clang-format on

/// Brings a panel into other settings each round; over all rounds each list shows each of its entries, each
/// option is chosen and each tick is set and not set.
class Settings {
  public:
    explicit Settings(Form& ownPanel)
        : panel(ownPanel) {}

    void set(int round) {
        for (auto* tick : all<TickBox>()) {
            // What governs other settings must not keep them out of reach.
            tick->tick(false);
        }
        setTypedNumbers(round, Crystal::Too);
        for (auto* option : all<Option>()) {
            const auto& group = option->ownGroup().options();
            if (group[static_cast<std::size_t>(round) % group.size()] == option) {
                option->click();
            }
        }
        for (auto* list : all<ListBox>()) {
            if (!list->entries().empty()) {
                auto count = static_cast<int>(list->entries().size());
                // One of two takes half of the rounds, so that each half goes with every other choice.
                list->choosePosition(count == 2 ? round * 2 / rounds : round % count);
            }
        }
        int place = 0;
        for (auto* tick : all<TickBox>()) {
            // Neighbours and the next but one differ, so that none of them always excludes another.
            int pattern = (round >> (2 + place % 2)) + place / 2;
            tick->tick((pattern & 1) == 1);
            ++place;
        }
        // The ticks have opened further fields; another crystal would take the lists back.
        setTypedNumbers(round, Crystal::Stays);
        remember();
    }

    /// Lists' entries, options and ticks' states that no round has shown.
    [[nodiscard]] std::vector<std::string> missed(const std::set<std::string>& fixedTicks) const {
        std::vector<std::string> missing;
        auto demand = [&](const std::string& state) {
            if (!seen.contains(state)) {
                missing.push_back(state);
            }
        };
        for (const auto* list : all<ListBox>()) {
            if (!list->visible()) {
                continue;
            }
            for (const std::string& entry : entriesOf.at(list)) {
                demand(list->name() + " " + entry);
            }
        }
        for (const auto* option : all<Option>()) {
            if (option->visible()) {
                demand(option->name());
            }
        }
        for (const auto* tick : all<TickBox>()) {
            if (!fixedTicks.contains(tick->name())) {
                demand(tick->name() + " on");
                demand(tick->name() + " off");
            }
        }
        return missing;
    }

  private:
    template <class Kind>
    [[nodiscard]] std::vector<Kind*> all() const {
        std::vector<Kind*> found;
        for (Element* element : panel.elements()) {
            if (auto* fitting = dynamic_cast<Kind*>(element)) {
                found.push_back(fitting);
            }
        }
        return found;
    }

    enum class Crystal { Too, Stays };

    void setTypedNumbers(int round, Crystal crystal) {
        static const char* const crystals[] = {"10", "11.0592", "8", "9.999871", "12"};
        for (auto* field : all<TextField>()) {
            if (field->readOnly() || !field->usable() || field->name() == "PowerSupply") {
                continue;
            }
            if (field->name() == "Crystalfreq") {
                if (crystal == Crystal::Too) {
                    field->type(crystals[round % 5]);
                }
            } else {
                field->type(std::to_string(round * round * 61 % 300));
            }
        }
    }

    void remember() {
        for (const auto* list : all<ListBox>()) {
            bool scaled = dynamic_cast<const ScaledList*>(list) != nullptr;
            for (int place = 0; place < static_cast<int>(list->entries().size()); ++place) {
                // The values of a list that scales with the crystal are others each time: its places count.
                std::string entry =
                    scaled ? std::to_string(place) : list->entries()[static_cast<std::size_t>(place)];
                entriesOf[list].insert(entry);
                if (place == list->position()) {
                    seen.insert(list->name() + " " + entry);
                }
            }
        }
        for (const auto* option : all<Option>()) {
            if (option->chosen()) {
                seen.insert(option->name());
            }
        }
        for (const auto* tick : all<TickBox>()) {
            seen.insert(tick->name() + (tick->ticked() ? " on" : " off"));
        }
    }

    Form& panel;
    std::set<std::string> seen;
    std::map<const ListBox*, std::set<std::string>> entriesOf;
};

/// What the macros of one round must be.
MacroValues expectedValues(VirtualBench& bench, const Device& device, const std::string& prefix) {
    auto& panel = dynamic_cast<ChipPanel&>(*bench.desk.find(device.panel));
    std::map<std::string, unsigned long> onTheWire;
    bench.takeSent();
    EXPECT_TRUE(panel.Update.click());
    std::vector<std::string> lines = bench.takeSent();
    std::erase_if(lines, [](const std::string& line) { return line.front() != 'S'; });
    // An update sends the words in the panel's order, all but one that is only shown.
    std::size_t next = 0;
    for (const ControlWord* word : panel.words()) {
        if (word->name() == "EFw") {
            onTheWire[word->name()] = std::stoul(word->text(), nullptr, 16);
        } else if (next < lines.size()) {
            onTheWire[word->name()] = std::stoul(lines[next++].substr(2), nullptr, 16);
        }
    }
    EXPECT_EQ(next, lines.size());
    MacroValues expected;
    for (const MacroRow& row : device.macros) {
        expected[prefix + "_" + row.command] = onTheWire.at(row.word);
    }
    if (device.macros.size() == autoPowerMacros.size()) {
        expected[prefix + "_SLEEP_CMD"] = 0xC400;
    }
    double megahertz = std::strtod(panel.Crystalfreq.text().c_str(), nullptr);
    expected["UPCLKFREQUENCY"] = static_cast<unsigned long>(std::lround(megahertz * 1e6));
    return expected;
}

} // namespace

class CompiledHeaders : public ::testing::TestWithParam<Device> {};

TEST_P(CompiledHeaders, HoldWhatAnUpdateSends) {
    const Device& device = GetParam();
    VirtualBench bench;
    bench.ports.place(boardPort, sim::BoardKind::LoadBoard2);
    bench.startAndSearch();
    ASSERT_TRUE((bench.main().menu.*device.entry).click());
    bench.shared().tools.open(Tool::Frm_GenHeader);
    Settings settings(*bench.desk.find(device.panel));
    std::vector<std::string> headers;
    std::vector<MacroValues> expected;
    for (int round = 0; round < rounds; ++round) {
        settings.set(round);
        bool named = round % 2 == 0;
        bench.at("Frm_GenHeader", named ? "CB_DeviceName" : "CB_DefineLiteral").click();
        ASSERT_TRUE(bench.at("Frm_GenHeader", "PB_Generate").click());
        headers.push_back(bench.at("Frm_GenHeader", "TB_Header").text());
        expected.push_back(expectedValues(bench, device, named ? device.name : literal));
    }
    EXPECT_EQ(settings.missed(device.fixedTicks), std::vector<std::string>());

    CCompiler compiler(bench.folder.path());
    std::vector<MacroValues> values = compiler.valuesOf(headers, device.name);
    ASSERT_EQ(values.size(), headers.size()) << compiler.messages();
    for (std::size_t round = 0; round < values.size(); ++round) {
        EXPECT_EQ(values[round], expected[round]) << "round " << round;
    }
}

INSTANTIATE_TEST_SUITE_P(Devices, CompiledHeaders, ::testing::ValuesIn(devices),
                         [](const auto& device) { return std::string(device.param.name); });

TEST(CCompiler, RefusesATextThatIsNoHeader) {
    testing::TemporaryFolder folder;
    CCompiler compiler(folder.path());
    EXPECT_TRUE(compiler.valuesOf({"#define A\n#define 2B 1\n"}, "A").empty());
    EXPECT_FALSE(compiler.messages().empty());
    EXPECT_TRUE(compiler.valuesOf({"#define A\n/* a /* b */\n"}, "A").empty());
    std::vector<MacroValues> one = {{{"B", 16UL}}};
    EXPECT_EQ(compiler.valuesOf({"#define A\n#define B 0x10\n"}, "A"), one);
}

} // namespace zor
