// SPDX-License-Identifier: MIT
#include "panels/common/forecast.h"

#include "host/files.h"
#include "panels/all_panels.h"
#include "panels/common/measured_currents.h"
#include "panels/panel_bench.h"
#include "support/csv.h"
#include "support/numbers.h"

namespace zor {

using namespace std::chrono_literals;
using testing::PanelBench;
using testing::With;

template <class Panel>
class EveryForecast : public ::testing::Test {};

TYPED_TEST_SUITE(EveryForecast, testing::AllPanels, testing::PanelNames);

TYPED_TEST(EveryForecast, NamesElementsAndBitsThatThePanelHas) {
    PanelBench<TypeParam> bench;
    auto& panel = bench.open();
    const ForecastChip* chip = findForecastChip(panel.name());
    ASSERT_NE(chip, nullptr);
    for (const char* name : {chip->deviation, chip->keying, chip->rate, chip->bandwidth, chip->power,
                             chip->wakeUpTick, chip->wakeUpDivisor, chip->dutyTick, chip->dutyPercent}) {
        // Two of the three transmitters have a keying; the first alone has no data rate.
        bool optional = name != nullptr && std::string_view(name) == "Modulation";
        EXPECT_TRUE(name == nullptr || optional || panel.find(name) != nullptr) << name;
    }
    std::vector<WordBits> all;
    if (chip->power != nullptr) {
        all.push_back(chip->powerBits);
    }
    for (const ChipState& state : chip->states) {
        EXPECT_NE(dynamic_cast<ControlWord*>(panel.find(state.word)), nullptr) << state.word;
        all.insert(all.end(), state.words.begin(), state.words.end());
    }
    for (const WordBits& bits : all) {
        const auto* word = dynamic_cast<ControlWord*>(panel.find(bits.word));
        ASSERT_NE(word, nullptr) << bits.word;
        // Every value that is sent is one of the word's own.
        EXPECT_TRUE(word->fits((word->value() & ~bits.clear) | bits.set)) << bits.word;
        EXPECT_EQ(bits.set & ~bits.clear, 0U) << bits.word;
    }
}

TYPED_TEST(EveryForecast, FollowsTheSettingsWhileItIsFoldedOut) {
    PanelBench<TypeParam> bench;
    auto& panel = bench.open();
    EXPECT_FALSE(panel.forecast().ForecastArea.shown());
    EXPECT_EQ(bench.text("CarsonBandwidth"), "");
    bench.click("ShowForecast");
    EXPECT_NE(bench.text("CarsonBandwidth"), "");
    EXPECT_NE(bench.text("OccupiedBandwidth"), "");
    EXPECT_NE(bench.text("TimeOnAir"), "");
    std::string needed = bench.text("NeededBandwidth");
    bench.type("OwnTolerance", "50");
    EXPECT_NE(bench.text("NeededBandwidth"), needed);
    const ForecastChip& chip = *findForecastChip(panel.name());
    if (chip.deviation != nullptr) {
        std::string before = bench.text("CarsonBandwidth");
        bench.choose(chip.deviation, 3);
        EXPECT_NE(bench.text("CarsonBandwidth"), before);
        EXPECT_EQ(bench.text("ForecastDeviation"), bench.text(chip.deviation));
    }
    bench.click("ShowForecast");
    EXPECT_TRUE(bench.takeSent().empty());
}

TYPED_TEST(EveryForecast, MeasuresEachStateAndGivesTheChipItsWordsBack) {
    PanelBench<TypeParam> bench(With::LoadBoard2);
    auto& panel = bench.open();
    bench.click("Update");
    bench.click("ShowForecast");
    bench.takeSent();
    bench.click("MeasureCurrents");
    EXPECT_TRUE(panel.forecast().measuring());
    EXPECT_EQ(panel.forecast().MeasureCurrents.caption(), "Stop");
    bench.run(10s);
    EXPECT_FALSE(panel.forecast().measuring());
    EXPECT_EQ(panel.forecast().MeasureCurrents.caption(), "Measure");
    EXPECT_TRUE(bench.shared().link.port.free());

    // What went out last of each word is what the panel had sent.
    std::vector<std::string> lines = bench.takeSent();
    for (const ControlWord* word : panel.words()) {
        if (word->lastSent().empty()) {
            continue;
        }
        std::string last;
        for (const std::string& line : lines) {
            std::optional<std::uint32_t> value = line.size() > 2 ? readHex(line.substr(2)) : std::nullopt;
            bool same = line.starts_with(word->size() == ControlWord::Size::OneByte ? "S1" : "S2");
            if (value && same && word->fits(*value)) {
                last = line.substr(2);
            }
        }
        EXPECT_TRUE(last.empty() || last == word->lastSent()) << word->name() << " " << last;
    }
    EXPECT_FALSE(panel.LabelUpdate.visible());

    MeasuredCurrents kept;
    kept.read(bench.platform);
    std::size_t powers = 0;
    const ForecastChip& chip = *findForecastChip(panel.name());
    if (chip.power != nullptr) {
        powers = dynamic_cast<ListBox&>(*panel.find(chip.power)).entries().size();
    }
    EXPECT_EQ(kept.all().size(), chip.states.size() + powers - (powers > 0 ? 1 : 0));
    EXPECT_NE(kept.find(panel.chip(), bench.shared().preferences.Pref_Voltage, "sleep"), nullptr);
}

TYPED_TEST(EveryForecast, ClosedInTheMidstGivesTheChipItsWordsBack) {
    PanelBench<TypeParam> bench(With::LoadBoard2);
    auto& panel = bench.open();
    bench.click("Update");
    bench.click("ShowForecast");
    const ForecastChip& chip = *findForecastChip(panel.name());
    std::vector<std::string> back;
    for (const WordBits& bits : chip.states.front().words) {
        const auto& word = dynamic_cast<ControlWord&>(*panel.find(bits.word));
        back.push_back("S2" + word.lastSent());
    }
    bench.click("MeasureCurrents");
    bench.run(730ms);
    bench.takeSent();
    bench.loop.perform([&] { panel.userClose(); });
    std::vector<std::string> lines = bench.takeSent();
    for (const std::string& line : back) {
        EXPECT_NE(std::find(lines.begin(), lines.end(), line), lines.end()) << line;
    }
    EXPECT_TRUE(bench.shared().link.port.free());
}

TEST(MeasuredCurrentsFile, ReadsWhatItWrites) {
    std::vector<MeasuredCurrent> all = {
        {"KT1100B", "3.3", "transmit -3 dB", 12'500, 24.4, "generation 2, port 1", "2026-03-01 14:05"},
        {"KT2100", "2.5", "sleep", 0, 48.8, "a \"board\", or two", "2026-03-01 14:06"}};
    EXPECT_EQ(parseCurrents(formatCurrents(all)), all);
    EXPECT_TRUE(parseCurrents("").empty());
}

TEST(MeasuredCurrentsFile, TellsTheLineThatItCannotRead) {
    std::string good = formatCurrents({{"KT1100", "3", "sleep", 1, 2, "b", "t"}});
    for (const std::string& bad : {good + "KT1100,3,sleep,much,2,b,t\r\n", good + "KT1100,3\r\n",
                                   good + "KT1100,3,sleep,-1,2,b,t\r\n", good + "\"KT1100"}) {
        try {
            (void)parseCurrents(bad);
            ADD_FAILURE() << bad;
        } catch (const CsvError& error) {
            EXPECT_EQ(error.line, 3U) << bad;
        }
    }
    EXPECT_THROW((void)parseCurrents("Name,Telephone\r\n"), CsvError);
}

TEST(MeasuredCurrentsFile, KeepsWhatWasMeasuredOfOtherChipsAndVoltages) {
    testing::VirtualBench bench;
    MeasuredCurrents currents;
    currents.replace(bench.platform, {{"KT1100", "3.3", "sleep", 1, 2, "b", "t"}});
    currents.replace(bench.platform, {{"KT1100", "2.5", "sleep", 3, 2, "b", "t"}});
    currents.replace(bench.platform, {{"KT1101", "3.3", "sleep", 4, 2, "b", "t"}});
    currents.replace(bench.platform, {{"KT1100", "3.3", "sleep", 5, 2, "b", "u"}});
    MeasuredCurrents fresh;
    fresh.read(bench.platform);
    EXPECT_EQ(fresh.all().size(), 3U);
    EXPECT_DOUBLE_EQ(fresh.find("KT1100", "3.3", "sleep")->microamps, 5);
    EXPECT_DOUBLE_EQ(fresh.find("KT1100", "2.5", "sleep")->microamps, 3);
    EXPECT_EQ(fresh.nearestVolts("KT1100", 2.8), "2.5");
    EXPECT_EQ(fresh.nearestVolts("KT1100", 3.1), "3.3");
    EXPECT_EQ(fresh.nearestVolts("KT3100", 3.1), "");
}

TEST(MeasuredCurrentsFile, IsNotWrittenOverWhereItHoldsSomethingElse) {
    testing::VirtualBench bench;
    std::filesystem::path file = bench.platform.programFolder / "ZOR-currents.csv";
    writeFileWhole(file, "my notes\r\n");
    MeasuredCurrents currents;
    EXPECT_THROW(currents.replace(bench.platform, {{"KT1100", "3.3", "sleep", 1, 2, "b", "t"}}), CsvError);
    EXPECT_EQ(readFile(file), "my notes\r\n");
}

TEST(Duration, IsSaidInThreeDigitsAndTheUnitThatSuitsIt) {
    EXPECT_EQ(durationText(0), "0 s");
    EXPECT_EQ(durationText(0.0133333), "13.3 ms");
    EXPECT_EQ(durationText(0.000104), "104 us");
    EXPECT_EQ(durationText(1), "1 s");
    EXPECT_EQ(durationText(90), "90 s");
    EXPECT_EQ(durationText(150), "2.5 min");
    EXPECT_EQ(durationText(36 * 3600.0), "36 h");
    EXPECT_EQ(durationText(100 * 86'400.0), "100 days");
    EXPECT_EQ(durationText(10 * 365.25 * 86'400), "10 years");
}

} // namespace zor
