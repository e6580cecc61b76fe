// SPDX-License-Identifier: MIT
// Every operation, broken into while each of its lines waits for its answer.
#include "eeprom/programmer_bench.h"
#include "simulator/faulty_line.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace zor::testing {

namespace {

using namespace std::chrono_literals;

constexpr std::size_t chipSelectLine = 2;

struct Operation {
    const char* name;
    Button Eeprom::*button;
    /// The lines, from 1, that are waiting for their answer as the fault comes.
    std::vector<std::size_t> lines;
};

std::vector<Operation> operations() {
    // 48 digits: two pages and a tail.
    std::vector<Operation> all{{"Prog", &Eeprom::Prog, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}},
                               {"Command1", &Eeprom::Command1, {1, 2}}};
    for (Operation reading :
         {Operation{"Read", &Eeprom::Read, {}}, Operation{"Verify", &Eeprom::Verify, {}}}) {
        // The three of the start, some pages, the last page, the deselection.
        reading.lines = {1, 2, 3, 4, 5, 30, 67, 68};
        all.push_back(reading);
    }
    return all;
}

/// A bench whose board can be given a bad line.
class SpoiledBench : public ProgrammerBench {
  public:
    void spoil(const sim::FaultPlan& plan) {
        auto out = board().transmit;
        line = std::make_unique<sim::FaultyLine>(board(), plan);
        line->transmit = out;
    }

  private:
    std::unique_ptr<sim::FaultyLine> line;
};

struct Fault {
    const char* name;
    std::function<void(SpoiledBench&)> strike;
    /// The port is there still, so the device can be deselected.
    bool deselects = false;
};

std::vector<Fault> faults() {
    return {
        {"mute", [](SpoiledBench& bench) { bench.board().setMute(true); }},
        {"slow", [](SpoiledBench& bench) { bench.board().setDelay(700ms); }},
        {"refusing", [](SpoiledBench& bench) { bench.spoil({.refusalRate = 1}); }},
        {"pulled out", [](SpoiledBench& bench) { bench.ports.seat(ProgrammerBench::port).unplug(); }},
        {"line error", [](SpoiledBench& bench) { bench.ports.seat(ProgrammerBench::port).fault(1004); }},
        {"disconnected", [](SpoiledBench& bench) { bench.at("main", "Disconnect").click(); }},
        {"Data mode", [](SpoiledBench& bench) { bench.at("main", "CB_Mode").choosePosition(2); }},
        {"stopped", [](SpoiledBench& bench) { bench.tool().StopButton.click(); }, true},
        {"window closed", [](SpoiledBench& bench) { bench.tool().userClose(); }, true},
        {"program left", [](SpoiledBench& bench) { bench.main().userClose(); }},
    };
}

/// What a user would do with a run that has not come to its end by itself.
void letItEnd(ProgrammerBench& bench) {
    bench.run(4s);
    if (bench.desk.find("eeprom") != nullptr) {
        bench.tool().StopButton.click();
    }
    bench.run(20s);
}

void expectTold(ProgrammerBench& bench) {
    Eeprom& tool = bench.tool();
    EXPECT_FALSE(tool.running());
    for (const Button* button :
         {&tool.loadeefile, &tool.SaveEEFile, &tool.Prog, &tool.Verify, &tool.Read, &tool.Command1}) {
        EXPECT_TRUE(button->enabled()) << button->name();
    }
    EXPECT_FALSE(tool.StopButton.visible());
    EXPECT_FALSE(tool.ProgressBar1.visible());
}

} // namespace

class EepromFaults : public ::testing::TestWithParam<Operation> {};

TEST_P(EepromFaults, GiveBackPortAndButtonsAtEveryStep) {
    const Operation& operation = GetParam();
    for (const Fault& fault : faults()) {
        for (std::size_t line : operation.lines) {
            SCOPED_TRACE(std::string(fault.name) + " at line " + std::to_string(line));
            SpoiledBench bench;
            bench.putImage(patternDigits(24));
            bench.strikeAt("", line, [&] { fault.strike(bench); });
            (bench.tool().*operation.button).click();
            bench.run(10s);
            letItEnd(bench);
            bench.takeSent();
            EXPECT_EQ(bench.shared().link.CommState(), 0);
            if (bench.desk.find("eeprom") != nullptr && !bench.main().isClosed()) {
                expectTold(bench);
            }
            if (fault.deselects && operation.button != &Eeprom::Command1) {
                EXPECT_EQ(bench.board().output(chipSelectLine), sim::OutputState::high);
            }
            bench.run(2s);
            EXPECT_TRUE(bench.takeSent().empty()) << "it goes on";
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Programmer, EepromFaults, ::testing::ValuesIn(operations()),
                         [](const auto& row) { return row.param.name; });

} // namespace zor::testing
