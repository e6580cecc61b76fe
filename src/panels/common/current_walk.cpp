// SPDX-License-Identifier: MIT
#include "panels/common/current_walk.h"

#include "elements/form.h"
#include "link/connect.h"
#include "panels/common/control_word.h"

#include <utility>

namespace zor {

namespace {

/// From the words to the reading: a crystal starts, the supply's filter settles.
constexpr std::chrono::milliseconds settling(100);
constexpr std::int32_t claimStep = 1;
/// So often a reading is taken again before the walk gives up.
constexpr int mostTries = 20;
/// Lines of a reading: a range and the converter, or both ranges with it.
constexpr int linesOfHigh = 2;
constexpr int linesOfLow = 4;

} // namespace

CurrentWalk::CurrentWalk(Bench& ownBench)
    : bench(ownBench)
    , timer(ownBench.platform.loop, [this] { tick(); })
    // As long as the port is still there: a transmitter shall not stay on because its board was given up.
    , portClosing(ownBench.connect->closing.subscribe([this] {
        if (isRunning) {
            writeWordsBack();
            end(End::PortGone, false);
        }
    })) {}

bool CurrentWalk::begin(std::vector<Step> steps, const std::vector<ControlWord*>& touched) {
    claim = bench.link.port.claim(claimStep);
    if (!claim.held()) {
        return false;
    }
    walk = std::move(steps);
    held.clear();
    for (ControlWord* word : touched) {
        held.push_back({word, word->size() == ControlWord::Size::OneByte ? "S1" : "S2", word->lastSent()});
    }
    found.clear();
    at = 0;
    tries = 0;
    isPut = false;
    isRunning = true;
    timer.start(settling);
    return true;
}

void CurrentWalk::stop() {
    if (isRunning) {
        end(End::Stopped, true);
    }
}

void CurrentWalk::tick() {
    if (!isRunning) {
        return;
    }
    if (!bench.connect->isOpen() || !claim.held()) {
        end(End::PortGone, false);
        return;
    }
    try {
        isPut ? read() : put();
    } catch (...) {
        // The port was closed on purpose, and the chip has its words already.
        if (isRunning) {
            end(End::PortGone, false);
        }
        throw;
    }
}

void CurrentWalk::put() {
    for (const std::string& line : walk[at].lines) {
        Exchange result = bench.connect->Send_To_LoadBoard(line);
        if (!isRunning) {
            return;
        }
        if (result.outcome != Exchange::Outcome::Answered) {
            end(result.portGone() ? End::PortGone : End::NoAnswer, !result.portGone());
            return;
        }
    }
    isPut = true;
}

void CurrentWalk::read() {
    int lines = 0;
    std::optional<CurrentReading> reading;
    {
        Subscription counting =
            bench.connect->tap.exchanges.subscribe([&lines](const WireExchange&) { ++lines; });
        reading = readChipCurrent(bench);
    }
    if (!isRunning) {
        return;
    }
    if (!bench.connect->isOpen()) {
        end(End::PortGone, false);
        return;
    }
    if (!reading || !reading->answered) {
        end(End::NoAnswer, true);
        return;
    }
    if (disturbed()) {
        end(End::Disturbed, true);
        return;
    }
    if (lines != (reading->range == CurrentReading::Range::High ? linesOfHigh : linesOfLow)) {
        // The supply tool read in between, and may have turned the range.
        if (++tries >= mostTries) {
            end(End::Disturbed, true);
        }
        return;
    }
    tries = 0;
    found.push_back({walk[at].state, reading->microamps(), reading->step()});
    isPut = false;
    if (++at == walk.size()) {
        end(End::Done, true);
    } else if (moved) {
        moved();
    }
}

bool CurrentWalk::disturbed() const {
    for (const Held& one : held) {
        if (one.word->lastSent() != one.text) {
            return true;
        }
    }
    return false;
}

void CurrentWalk::end(End how, bool giveBack) {
    // First, so that nothing of it goes on while the words wait for their answers.
    isRunning = false;
    timer.stop();
    PortClaim last = std::move(claim);
    try {
        if (giveBack && bench.connect->isOpen()) {
            giveWordsBack();
        }
    } catch (...) {
        last.giveBack();
        tellEnd(End::PortGone);
        throw;
    }
    last.giveBack();
    tellEnd(how);
}

void CurrentWalk::tellEnd(End how) const {
    if (ended) {
        ended(how);
    }
}

std::string CurrentWalk::lineOf(const Held& one) {
    // Whoever sent another value meanwhile meant it; a value that is not known any more was this one.
    const std::string& sent = one.word->lastSent();
    return one.command + (sent.empty() ? one.text : sent) + "\r";
}

void CurrentWalk::writeWordsBack() const {
    // In Data mode what is written goes out on the data line, and no word of it to the chip.
    const Form* main = bench.desk.find("main");
    const Element* selector = main == nullptr ? nullptr : main->find("CB_Mode");
    if (selector != nullptr && selector->text() == "Data Mode") {
        return;
    }
    try {
        for (const Held& one : held) {
            bench.connect->writeDirectly(lineOf(one));
        }
    } catch (const ToolError&) {
        // Whoever closes the port tells what is wrong with it.
        return;
    }
}

void CurrentWalk::giveWordsBack() {
    for (const Held& one : held) {
        Exchange result = bench.connect->Send_To_LoadBoard(lineOf(one));
        if (result.outcome == Exchange::Outcome::Refused) {
            one.word->markUnsent();
        }
        if (result.portGone() || result.outcome == Exchange::Outcome::TimedOut) {
            return;
        }
    }
}

} // namespace zor
