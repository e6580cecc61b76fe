// SPDX-License-Identifier: MIT
#include "simulator/faulty_line.h"

#include "simulator/replies.h"

#include <utility>

namespace zor::sim {

FaultyLine::FaultyLine(LineEnd& behind, const FaultPlan& faults)
    : board(behind)
    , plan(faults)
    , random(faults.seed) {
    board.transmit = [this](const Transmission& transmission) { pass(transmission); };
}

FaultyLine::~FaultyLine() {
    board.transmit = nullptr;
}

void FaultyLine::pass(const Transmission& transmission) {
    if (plan.muteAfter && answers >= *plan.muteAfter) {
        return;
    }
    ++answers;
    std::string bytes = transmission.bytes;
    if (bytes.ends_with(successPrompt) && happens(plan.refusalRate)) {
        bytes = errorPrompt;
    }
    bytes = withNoise(bytes + plan.trail);
    auto delay = transmission.delay + plan.delay;
    if (plan.splitEvery == 0) {
        send(std::move(bytes), delay);
        return;
    }
    for (std::size_t start = 0; start < bytes.size(); start += plan.splitEvery) {
        send(bytes.substr(start, plan.splitEvery), delay);
        delay += plan.splitGap;
    }
}

void FaultyLine::send(std::string bytes, std::chrono::milliseconds delay) {
    if (transmit) {
        transmit({std::move(bytes), delay});
    }
}

std::string FaultyLine::withNoise(const std::string& bytes) {
    std::string noisy;
    for (char byte : bytes) {
        if (happens(plan.noiseRate)) {
            noisy.push_back(static_cast<char>(random() & 0xFF));
        }
        noisy.push_back(byte);
    }
    return noisy;
}

// The library's distributions differ from one standard library to the next; the engine does not.
bool FaultyLine::happens(double rate) {
    return rate > 0 && static_cast<double>(random()) / 4294967296.0 < rate;
}

} // namespace zor::sim
