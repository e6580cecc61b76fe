// SPDX-License-Identifier: MIT
// The register tool over its database: whole-table reads and writes against the bare exchanges of the same
// lines, on a paced line against the time of the characters alone, and the choice of a chip against the bare
// inserts of the same rows in one transaction.
#include "answering_terminal.h"
#include "bench_on_terminal.h"
#include "in_turns.h"
#include "ratio.h"

#include "desktop/adapters/qt_text.h"
#include "desktop/demo_board.h"
#include "registertool/register_lines.h"
#include "registertool/spi.h"
#include "store/register_list_store.h"

#include <benchmark/benchmark.h>

#include <SQLiteCpp/SQLiteCpp.h>

#include <QTemporaryDir>

#include <chrono>

namespace zor::benchmarks {

namespace {

const DeclareRatio refreshRatio("TableRefresh", "BareTableReads", 1.6);
const DeclareRatio updateRatio("ChipUpdate", "BareTableWrites", 1.6);
const DeclareRatio pacedRefreshRatio("PacedTableRefresh", "TableLineTime", 1.03);
const DeclareRatio choiceRatio("ChipChoice", "BareInserts", 2);
const DeclareRatio growthRatio("ChoiceOf1024Each", "ChoiceOf16Each", 1.1);

constexpr int registerCount = 128;

std::string addressOf(int number) {
    constexpr char digits[] = "0123456789ABCDEF";
    return {digits[number / 16 % 8], digits[number % 16]};
}

RegisterList listOf(int count) {
    RegisterList list;
    list.chips.push_back({.id = 1, .name = "Chip", .txFifoSize = "0", .rxFifoSize = "0"});
    for (int number = 0; number < count; ++number) {
        ListedRegister entry{.chip = 1,
                             .address = addressOf(number),
                             .name = "REGISTER_" + std::to_string(number),
                             .readable = true,
                             .writable = true,
                             .radio = true,
                             .defaultValue = "5F",
                             .description = "What this register is for, said in one line."};
        for (std::size_t bit = 0; bit < 8; ++bit) {
            entry.bitNames[bit] = "NAME" + std::to_string(bit);
        }
        list.registers.push_back(entry);
    }
    return list;
}

/// The register tool with a database of one chip, on whatever answers at a terminal.
class ToolAt {
  public:
    ToolAt(const std::string& terminal, int registers)
        : bench(terminal) {
        store::SqliteRegisterStores stores;
        store::makeDatabase(stores, bench.folder() / "ZOR.db", listOf(registers));
        bench.bench().tools.open(Tool::SPI);
        tool().ChipSelect.choosePosition(0);
    }

    [[nodiscard]] SPI& tool() { return dynamic_cast<SPI&>(*bench.bench().tools.find(Tool::SPI)); }

  private:
    BenchOnTerminal bench;
};

/// The same on a terminal that answers at once.
class ToolOnTerminal {
  public:
    explicit ToolOnTerminal(int registers)
        : bench(terminal.path(), registers) {}

    [[nodiscard]] SPI& tool() { return bench.tool(); }

  private:
    AnsweringTerminal terminal;
    ToolAt bench;
};

/// A walk over the whole table against the bare exchanges of its lines.
void walkInTurns(benchmark::State& state, std::string (*lineOf)(int number), Button WholeTable::*walk) {
    OnProcessor first(0);
    AnsweringTerminal bareTerminal;
    BareLine line(bareTerminal.path());
    ToolOnTerminal bench(registerCount);
    Button& button = bench.tool().whole.*walk;
    takeTurns(
        state, 1,
        [&] {
            for (int number = 0; number < registerCount; ++number) {
                line.exchange(lineOf(number));
            }
        },
        [&] { button.click(); });
}

void TableRefresh(benchmark::State& state) {
    walkInTurns(
        state, [](int number) { return tableReadLine(addressOf(number)); }, &WholeTable::RefreshTable);
}
BENCHMARK(TableRefresh)->Apply(manyRepetitions);

void ChipUpdate(benchmark::State& state) {
    walkInTurns(
        state, [](int number) { return writeLine(addressOf(number), "5F"); }, &WholeTable::UpdateChip);
}
BENCHMARK(ChipUpdate)->Apply(manyRepetitions);

void TableLineTime(benchmark::State& state) {
    // "S2 0A00" and its CR out; four digits, a separator and the prompt back.
    constexpr double characters = 8 + 4 + 1 + 7;
    constexpr double secondsPerCharacter = 10.0 / 19200;
    for (auto _ : state) {
        state.SetIterationTime(registerCount * characters * secondsPerCharacter);
    }
}
BENCHMARK(TableLineTime)->UseManualTime()->Iterations(1);

void PacedTableRefresh(benchmark::State& state) {
    OnProcessor first(0);
    DemoBoard board;
    std::string terminal = fromQt(board.start());
    if (terminal.empty()) {
        state.SkipWithError("loadboard-sim did not start");
        return;
    }
    board.tell(QStringLiteral("registers"));
    ToolAt bench(terminal, registerCount);
    for (auto _ : state) {
        bench.tool().whole.RefreshTable.click();
    }
}
BENCHMARK(PacedTableRefresh)->UseRealTime()->Iterations(1);

void ChipChoice(benchmark::State& state) {
    QTemporaryDir folder;
    std::filesystem::path file = std::filesystem::path(folder.path().toStdString()) / "ZOR.db";
    store::SqliteRegisterStores().create(file);
    SQLite::Database database(file.string(), SQLite::OPEN_READWRITE);
    database.exec("PRAGMA journal_mode = WAL");
    database.exec("PRAGMA synchronous = NORMAL");
    RegisterList list = listOf(registerCount);
    SQLite::Statement insert(
        database, "INSERT INTO Setting (Name, Address, Description, TestReg, RFReg, DigitalReg, MiscReg, "
                  "StatusReg, R, W,"
                  " bit7, bit6, bit5, bit4, bit3, bit2, bit1, bit0, DefaultValue, HexValue, BinaryValue)"
                  " VALUES (?, ?, ?, 0, 1, 0, 0, 0, 1, 1, ?, ?, ?, ?, ?, ?, ?, ?, '5F', '5F', '0101 1111')");
    auto bareInserts = [&] {
        SQLite::Transaction transaction(database);
        database.exec("DELETE FROM Setting");
        for (const ListedRegister& entry : list.registers) {
            insert.reset();
            insert.bind(1, entry.name);
            insert.bind(2, entry.address);
            insert.bind(3, entry.description);
            for (int bit = 0; bit < 8; ++bit) {
                insert.bind(4 + bit, entry.bitNames[static_cast<std::size_t>(7 - bit)]);
            }
            insert.exec();
        }
        transaction.commit();
    };
    ToolOnTerminal bench(registerCount);
    takeTurns(state, 1, bareInserts, [&] { bench.tool().ChipSelect.choosePosition(0); });
}
BENCHMARK(ChipChoice)->Apply(manyRepetitions);

/// What one register of a chip costs.
void choiceEach(benchmark::State& state, int registers) {
    ToolOnTerminal bench(registers);
    for (auto _ : state) {
        auto begin = std::chrono::steady_clock::now();
        bench.tool().ChipSelect.choosePosition(0);
        std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
        state.SetIterationTime(took.count() / registers);
    }
}

void ChoiceOf16Each(benchmark::State& state) {
    choiceEach(state, 16);
}
BENCHMARK(ChoiceOf16Each)->UseManualTime()->Iterations(100);

void ChoiceOf1024Each(benchmark::State& state) {
    choiceEach(state, 1024);
}
BENCHMARK(ChoiceOf1024Each)->UseManualTime()->Iterations(20);

} // namespace

} // namespace zor::benchmarks
