// SPDX-License-Identifier: MIT
#include "transcript_runner/air_bench.h"

#include "transcript/transcript.h"

#include <string>

namespace zor::testing {

using transcript::Failure;

AirBench::AirBench(EventLoop& eventLoop, sim::Board& nearBoard)
    : loop(eventLoop) {
    air.add(nearBoard);
    air.addFarEnd();
}

AirBench::~AirBench() {
    loop.stopTimer(timer);
}

void AirBench::state(std::string_view statement) {
    auto result = sim::airControl(air, 0, statement);
    if (!result) {
        throw Failure("the air cannot " + std::string(statement));
    }
    if (result->outcome == sim::ControlOutcome::failed) {
        throw Failure(result->message);
    }
    plan();
}

void AirBench::plan() {
    loop.stopTimer(timer);
    timer = 0;
    if (auto interval = air.farEnd()->interval()) {
        timer = loop.startTimer(*interval, EventLoop::Repeat::Every, [this] { air.farEnd()->act(); });
    }
}

} // namespace zor::testing
