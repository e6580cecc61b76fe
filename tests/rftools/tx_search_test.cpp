// SPDX-License-Identifier: MIT
// The search for transmitters on the simulated air: each receiving chip against beacons at random frequencies
// and rates, and against silence.
#include "rftools/tx_search.h"

#include "panels/common/chip_panel.h"
#include "shell/panel_table.h"
#include "simulator/air.h"
#include "support/numbers.h"
#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace zor::testing {

namespace {

using namespace std::chrono_literals;

constexpr int port = 1;

struct ChipRow {
    const char* panel;
    sim::Chip chip;
};

/// What a failing test calls it.
void PrintTo(const ChipRow& row, std::ostream* out) {
    *out << row.panel;
}

/// The program beside a board with that chip, its panel open and updated, the search unfolded.
class SearchBench : public VirtualBench {
  public:
    explicit SearchBench(const ChipRow& row) {
        ports.delivery = allWaiting;
        ports.place(port, sim::BoardKind::LoadBoard2);
        startAndSearch();
        board().setChip(row.chip);
        air.add(board());
        air.addFarEnd();
        for (const PanelRow& known : panelRows()) {
            if (known.name == std::string_view(row.panel)) {
                (main().menu.*known.view).click();
            }
        }
        shared().tools.open(Tool::frm_TxSearch);
        search = dynamic_cast<TxSearch*>(shared().tools.find(Tool::frm_TxSearch));
        search->CHK_Search.tick(true);
    }

    sim::Board& board() { return ports.seat(port).board(); }
    ChipPanel& panel() { return *shared().openPanel(); }

    /// Searches, and lets the time pass that it takes.
    void searchNow() {
        ASSERT_TRUE(search->PB_START.click());
        for (int seconds = 0; shared().link.CommState() != 0 && seconds < 3600; ++seconds) {
            run(1s);
        }
        ASSERT_EQ(shared().link.CommState(), 0);
    }
    [[nodiscard]] std::string found(std::size_t row, const char* column) const {
        return search->Carriers.cell(row, *search->Carriers.column(column)).text;
    }

    /// A quarter of a band, anywhere in it.
    void spanOfQuarter(double low, double high, std::mt19937& random) const {
        double quarter = (high - low) / 4;
        double from = std::uniform_real_distribution<double>(low, high - quarter)(random);
        search->SpanFrom.type(numberText(from));
        search->SpanTo.type(numberText(from + quarter));
    }

    sim::Air air;
    TxSearch* search = nullptr;
};

/// The first searches go over whole bands, the others over a quarter of one.
constexpr int wholeBands = 4;

class EveryReceiver : public ::testing::TestWithParam<ChipRow> {};

/// The words that the chip holds, the newest of each role; a status read is none.
std::map<sim::WordRole, std::uint16_t> wordsOf(const sim::RadioChip& chip) {
    std::map<sim::WordRole, std::uint16_t> words;
    for (int role = 0; role < static_cast<int>(sim::WordRole::statusRead); ++role) {
        if (auto word = chip.latched(static_cast<sim::WordRole>(role))) {
            words[static_cast<sim::WordRole>(role)] = *word;
        }
    }
    return words;
}

} // namespace

TEST_P(EveryReceiver, FindsABeaconOfAnyFrequencyAndRateInEachBand) {
    SearchBench bench(GetParam());
    ChipPanel& panel = bench.panel();
    // The widest receiver has the fewest points.
    panel.find("BasebandBW")->choosePosition(panel.name() == "Coral" ? 4 : 5);
    panel.Update.click();
    auto before = wordsOf(bench.board().radio());
    std::mt19937 random(17);
    constexpr int runs = 50;
    int foundCount = 0;
    for (int run = 0; run < runs; ++run) {
        Band band = panel.traits().offeredBands[static_cast<std::size_t>(run % 4)];
        const BandConstants& constants = bandConstants(*panel.traits().bands, band);
        if (!constants.base) {
            // An option without a base of its own is no band.
            band = Band::Band433;
        }
        int field = bandConstants(*panel.traits().bands, band).code;
        bench.search->FreqBand.type(panel.band(band)->caption());
        double low = numericPrefix(panel.frequencyText(96, field));
        double high = numericPrefix(panel.frequencyText(3903, field));
        double step = (high - low) / 3807;
        if (run >= wholeBands) {
            bench.spanOfQuarter(low, high, random);
            low = numericPrefix(bench.search->SpanFrom.text());
            high = numericPrefix(bench.search->SpanTo.text());
        }
        double frequency = std::uniform_real_distribution<double>(low, high)(random);
        int divider = std::uniform_int_distribution<int>(0, 127)(random);
        double rate = 1e7 / 29 / (divider + 1) / (run % 3 == 0 ? 8 : 1);
        bench.air.farEnd()->setBeacon(frequency * 1e6, rate);
        SCOPED_TRACE("run " + std::to_string(run) + ", " + std::to_string(frequency) + " MHz, " +
                     std::to_string(rate) + " bit/s");
        bench.searchNow();
        ASSERT_EQ(bench.search->Carriers.rowCount(), 1U) << bench.search->SearchState.caption();
        EXPECT_NEAR(numericPrefix(bench.found(0, "Frequency MHz")), frequency, step);
        EXPECT_NEAR(numericPrefix(bench.found(0, "Data rate kbps")) * 1000 / rate, 1, 0.021);
        EXPECT_EQ(bench.found(0, "Seen"), "8 of 8");
        foundCount += ::testing::Test::HasFailure() ? 0 : 1;
    }
    EXPECT_EQ(foundCount, runs);
    EXPECT_EQ(wordsOf(bench.board().radio()), before) << "the chip is as the panel has it";
}

TEST_P(EveryReceiver, FindsNothingInSilence) {
    SearchBench bench(GetParam());
    ChipPanel& panel = bench.panel();
    panel.find("BasebandBW")->choosePosition(panel.name() == "Coral" ? 4 : 5);
    panel.Update.click();
    std::mt19937 random(23);
    for (int run = 0; run < 50; ++run) {
        Band band = panel.traits().offeredBands[static_cast<std::size_t>(run % 4)];
        bench.search->FreqBand.type(panel.band(band)->caption());
        if (run >= wholeBands) {
            int field = bandConstants(*panel.traits().bands, band).code;
            bench.spanOfQuarter(numericPrefix(panel.frequencyText(96, field)),
                                numericPrefix(panel.frequencyText(3903, field)), random);
        }
        bench.search->SpanDwell.type(std::to_string(5 + random() % 40));
        // A beacon of another band is nothing either.
        bench.air.farEnd()->setBeacon(run % 2 == 0 ? 230e6 : 999e6, 9600);
        bench.searchNow();
        ASSERT_EQ(bench.search->Carriers.rowCount(), 0U);
        ASSERT_EQ(bench.search->SearchState.caption(), "Done: no carrier");
    }
}

INSTANTIATE_TEST_SUITE_P(Chips, EveryReceiver,
                         ::testing::Values(ChipRow{"AmberV1", sim::Chip::KT2100},
                                           ChipRow{"Coral", sim::Chip::KT2102},
                                           ChipRow{"BerylV3", sim::Chip::KT3100},
                                           ChipRow{"FRM_Topaz", sim::Chip::KT3101}),
                         [](const auto& row) { return std::string(row.param.panel); });

TEST(SearchChips, TheBitsAreThoseOfThePanelsCaptions) {
    std::set<std::string> receivers;
    for (const SearchChip& chip : searchChips()) {
        SCOPED_TRACE(chip.panel);
        receivers.insert(chip.panel);
        for (const ChipRow& row :
             {ChipRow{"AmberV1", sim::Chip::KT2100}, ChipRow{"Coral", sim::Chip::KT2102},
              ChipRow{"BerylV3", sim::Chip::KT3100}, ChipRow{"FRM_Topaz", sim::Chip::KT3101}}) {
            if (row.panel != std::string_view(chip.panel)) {
                continue;
            }
            SearchBench bench(row);
            ChipPanel& panel = bench.panel();
            if (chip.revision != nullptr) {
                ASSERT_TRUE(panel.find("Revision")->chooseText(chip.revision));
            }
            EXPECT_EQ(searchChip(panel), &chip);
            // The older generation's bits stand one indicator further to the front.
            int shift = chip.revision == nullptr ? 0 : 1;
            auto caption = [&](StatusBit bit) {
                return panel.traits()
                    .statusCaptions[8 * bit.byte + 7 - static_cast<std::size_t>(bit.bit + shift)];
            };
            EXPECT_STREQ(caption(chip.signal), "DRSSI");
            EXPECT_STREQ(caption(chip.clock), "CRL");
            // Every field that the row names is one of the panel's tables.
            BorrowedWords words(panel);
            for (const std::vector<FieldSetting>& fields : {chip.listening, chip.start}) {
                for (const FieldSetting& field : fields) {
                    bool oldWithoutMode = chip.revision != nullptr && std::string_view(field.field) == "mode";
                    EXPECT_EQ(words.field(field.word, field.field) != nullptr, !oldWithoutMode)
                        << field.word << " " << field.field;
                }
            }
        }
    }
    EXPECT_EQ(receivers.size(), 4U);
}

TEST(TxSearchWords, ComeBackAsThePanelSentThemWhateverTheSettingsAre) {
    SearchBench bench({"BerylV3", sim::Chip::KT3100});
    ChipPanel& panel = bench.panel();
    std::mt19937 random(5);
    bench.search->SpanFrom.type("312");
    bench.search->SpanTo.type("312.3");
    for (int run = 0; run < 40; ++run) {
        for (const char* tick :
             {"chb_er", "chb_ebb", "chb_et", "chb_es", "chb_ex", "EnRxFIFO", "afcen", "enlowdc"}) {
            panel.find(tick)->tick(random() % 2 == 0);
        }
        panel.find("DRSSI")->choosePosition(static_cast<int>(random() % 8));
        panel.find("FILTTYPE")->choosePosition(static_cast<int>(random() % 2));
        panel.find("AFCauto")->choosePosition(static_cast<int>(random() % 4));
        panel.find("DATARATEDIV")->type(std::to_string(random() % 128));
        panel.Update.click();
        auto before = wordsOf(bench.board().radio());
        if (run % 2 == 0) {
            bench.air.farEnd()->setBeacon(312.15e6, 9600);
        }
        ASSERT_TRUE(bench.search->PB_START.click());
        bench.run(std::chrono::milliseconds(random() % 4000));
        bench.search->PB_STOP.click();
        bench.run(1s);
        ASSERT_EQ(bench.shared().link.CommState(), 0);
        EXPECT_EQ(wordsOf(bench.board().radio()), before) << "run " << run;
        for (const ControlWord* word : panel.words()) {
            EXPECT_FALSE(word->pending()) << word->name() << " in run " << run;
        }
    }
}

} // namespace zor::testing
