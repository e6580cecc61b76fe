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
    /// What a user presses; a stop is pressed a while after what began the run.
    std::function<void(ProgrammerBench&)> begin;
    /// The lines, from 1, that are waiting for their answer as the fault comes.
    std::vector<std::size_t> lines;
    /// The steps that are waiting for their tick as the fault comes.
    std::vector<std::int32_t> steps;
    /// It begins by deselecting the device, and selects it: a user who ends it leaves it deselected.
    bool selects = true;
};

std::vector<Operation> operations() {
    auto press = [](Button Eeprom::*button) {
        return [button](ProgrammerBench& bench) { (bench.tool().*button).click(); };
    };
    auto verified = [](ProgrammerBench& bench) {
        bench.tool().VerifyAfterProgramming.tick(true);
        bench.tool().Prog.click();
    };
    auto stoppedReading = [](ProgrammerBench& bench) {
        bench.tool().Read.click();
        bench.run(430ms);
        if (bench.desk.find("eeprom") != nullptr) {
            bench.tool().StopButton.click();
        }
    };
    // Of a reading the three lines of its start, some pages, the last page, the deselection; of programming
    // two pages and a tail.
    const std::vector<std::size_t> readingLines{1, 2, 3, 4, 5, 30, 67, 68};
    const std::vector<std::size_t> programmingLines{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
    return {
        {"Prog", press(&Eeprom::Prog), programmingLines, {1, 2, 100}},
        {"ProgAndVerify", verified, {12, 13, 14, 15, 16, 79, 80}, {100, 110, 111, 20, 21, 200}},
        {"Command1", press(&Eeprom::Command1), {1, 2}, {10, 11, 3000}, false},
        {"Read", press(&Eeprom::Read), readingLines, {30, 31, 300}},
        {"Verify", press(&Eeprom::Verify), readingLines, {20, 21, 200}},
        {"ReadStopped", stoppedReading, {}, {2000, 2001}},
    };
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

class EepromFaults : public ::testing::TestWithParam<Operation> {
  protected:
    static void expectEnded(SpoiledBench& bench, const Fault& fault) {
        bench.run(10s);
        letItEnd(bench);
        bench.takeSent();
        EXPECT_EQ(bench.shared().link.CommState(), 0);
        if (bench.desk.find("eeprom") != nullptr && !bench.main().isClosed()) {
            expectTold(bench);
        }
        if (fault.deselects && GetParam().selects) {
            EXPECT_EQ(bench.board().output(chipSelectLine), sim::OutputState::high);
        }
        bench.run(2s);
        EXPECT_TRUE(bench.takeSent().empty()) << "it goes on";
    }
};

TEST_P(EepromFaults, GiveBackPortAndButtonsAtEveryLine) {
    for (const Fault& fault : faults()) {
        for (std::size_t line : GetParam().lines) {
            SCOPED_TRACE(std::string(fault.name) + " at line " + std::to_string(line));
            SpoiledBench bench;
            bench.putImage(patternDigits(24));
            bench.strikeAt("", line, [&] { fault.strike(bench); });
            GetParam().begin(bench);
            expectEnded(bench, fault);
        }
    }
}

TEST_P(EepromFaults, GiveBackPortAndButtonsAtEveryStep) {
    for (const Fault& fault : faults()) {
        for (std::int32_t step : GetParam().steps) {
            SCOPED_TRACE(std::string(fault.name) + " at step " + std::to_string(step));
            SpoiledBench bench;
            bench.putImage(patternDigits(24));
            bench.strikeAtStep(step, [&] { fault.strike(bench); });
            GetParam().begin(bench);
            expectEnded(bench, fault);
            EXPECT_TRUE(bench.stepReached());
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Programmer, EepromFaults, ::testing::ValuesIn(operations()),
                         [](const auto& row) { return row.param.name; });

} // namespace zor::testing
