// SPDX-License-Identifier: MIT
// `Measure`: the chip's states as lines on the wire, and what becomes of the readings.
#include "link/board_name.h"
#include "link/wire_recorder.h"
#include "panels/common/chip_panel.h"
#include "panels/common/forecast.h"
#include "support/csv.h"
#include "support/error.h"
#include "support/local_time.h"
#include "support/numbers.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zor {

namespace {

using Kind = ChipState::Kind;

constexpr const char* measureCaption = "Measure";
constexpr const char* stopCaption = "Stop";
constexpr int measuringGeneration = 2;

/// What the label says of an end; empty where the readings tell it.
const char* endText(CurrentWalk::End how) {
    switch (how) {
    case CurrentWalk::End::Done:
        return "";
    case CurrentWalk::End::Stopped:
        return "Stopped: nothing was kept. The chip has its words back.";
    case CurrentWalk::End::NoAnswer:
        return "The board did not answer: nothing was kept. Update the chip before going on.";
    case CurrentWalk::End::Disturbed:
        return "The chip was given other words meanwhile: nothing was kept.";
    case CurrentWalk::End::PortGone:
        return "The port was closed meanwhile: nothing was kept.";
    }
    return "";
}

} // namespace

void Forecast::MeasureCurrents_Click() {
    if (walk.running()) {
        walk.stop();
        return;
    }
    if (!mayMeasure()) {
        return;
    }
    if (bench.link.LoadBoardRev != measuringGeneration) {
        tellOutcome("Only a generation 2 board measures currents.");
        return;
    }
    std::vector<ControlWord*> words = touched();
    bool known = std::all_of(words.begin(), words.end(),
                             [](const ControlWord* word) { return !word->lastSent().empty(); });
    if (!known || panel.LabelUpdate.visible()) {
        tellOutcome("Update the chip first: it is measured with the settings it has.");
        return;
    }
    measuredVolts = bench.preferences.Pref_Voltage;
    outcome.clear();
    if (walk.begin(steps(), words)) {
        MeasureCurrents.setCaption(stopCaption);
        walkMoved();
    }
}

std::vector<ControlWord*> Forecast::touched() const {
    std::vector<ControlWord*> words;
    auto add = [&](const char* name) {
        ControlWord& word = wordOf(name);
        if (std::find(words.begin(), words.end(), &word) == words.end()) {
            words.push_back(&word);
        }
    };
    for (const ChipState& state : chip.states) {
        for (const WordBits& bits : state.words) {
            add(bits.word);
        }
    }
    if (chip.power != nullptr) {
        add(chip.powerBits.word);
    }
    return words;
}

std::string Forecast::stepLine(const WordBits& bits) const {
    const ControlWord& word = wordOf(bits.word);
    std::uint32_t value = readHex(word.lastSent()).value_or(word.base());
    return (word.size() == ControlWord::Size::OneByte ? "S1" : "S2") +
           hexText((value & ~bits.clear) | bits.set) + "\r";
}

std::vector<CurrentWalk::Step> Forecast::steps() const {
    std::vector<CurrentWalk::Step> all;
    for (const ChipState& state : chip.states) {
        std::vector<std::string> lines;
        for (const WordBits& bits : state.words) {
            lines.push_back(stepLine(bits));
        }
        if (state.kind != Kind::Transmit) {
            all.push_back({stateName(state.kind), std::move(lines)});
            continue;
        }
        const auto& powers = dynamic_cast<ListBox&>(*panel.find(chip.power)).entries();
        for (std::size_t power = 0; power < powers.size(); ++power) {
            WordBits bits = chip.powerBits;
            bits.set |= static_cast<std::uint32_t>(power) << chip.powerShift;
            std::vector<std::string> withPower = lines;
            withPower.insert(withPower.begin(), stepLine(bits));
            all.push_back({stateName(state.kind, powers[power]), std::move(withPower)});
        }
    }
    return all;
}

void Forecast::walkMoved() {
    CurrentSource.setCaption("Measuring " + walk.steps()[walk.place()].state + ", " +
                             std::to_string(walk.place() + 1) + " of " + std::to_string(walk.steps().size()));
}

void Forecast::walkEnded(CurrentWalk::End how) {
    MeasureCurrents.setCaption(measureCaption);
    if (how == CurrentWalk::End::Done) {
        keepReadings();
        look();
        return;
    }
    tellOutcome(endText(how));
}

void Forecast::tellOutcome(std::string text) {
    outcome = std::move(text);
    CurrentSource.setCaption(outcome);
}

void Forecast::keepReadings() {
    std::string board = boardName(bench);
    std::string time = localTime(bench.wireRecorder->wallClock(bench.platform.loop.now()), "%Y-%m-%d %H:%M");
    std::vector<MeasuredCurrent> fresh;
    for (const CurrentWalk::Reading& reading : walk.readings()) {
        fresh.push_back(
            {panel.chip(), measuredVolts, reading.state, reading.microamps, reading.step, board, time});
    }
    try {
        currents.replace(bench.platform, fresh);
        currentsTrouble.clear();
        bench.notice("Measured " + std::to_string(fresh.size()) + " currents of the " + panel.chip() +
                     " at " + measuredVolts + " V");
    } catch (const CsvError& error) {
        currents.keep(fresh);
        currentsTrouble = "Measured, but not kept: ZOR-currents.csv holds something else in line " +
                          std::to_string(error.line) + ".";
    } catch (const ToolError& error) {
        currents.keep(fresh);
        currentsTrouble = "Measured, but not kept: " + std::string(error.what()) + ".";
    }
}

void Forecast::panelCloses() {
    settings.clear();
    walk.stop();
}

} // namespace zor
