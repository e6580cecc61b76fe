// SPDX-License-Identifier: MIT
#include "virtual/paced_line.h"

#include <algorithm>
#include <utility>

namespace zor::testing {

PacedLine::PacedLine(EventLoop& eventLoop, std::function<void(char)> arrival)
    : loop(eventLoop)
    , arrived(std::move(arrival)) {}

PacedLine::~PacedLine() {
    clear();
}

void PacedLine::send(std::string_view bytes, EventLoop::Duration delay) {
    freeFrom = std::max<std::chrono::nanoseconds>(freeFrom, loop.now() + delay);
    for (char byte : bytes) {
        freeFrom += characterTime;
        travelling.push_back({byte, freeFrom});
    }
    schedule();
}

bool PacedLine::continues() const {
    return !travelling.empty() && travelling.front().arrival <= loop.now() + 2 * characterTime;
}

void PacedLine::drain() {
    loop.stopTimer(std::exchange(timer, 0));
    while (!travelling.empty()) {
        char byte = travelling.front().byte;
        travelling.pop_front();
        arrived(byte);
    }
    freeFrom = loop.now();
}

void PacedLine::clear() {
    loop.stopTimer(std::exchange(timer, 0));
    travelling.clear();
    freeFrom = loop.now();
}

void PacedLine::schedule() {
    if (timer != 0 || travelling.empty()) {
        return;
    }
    auto due = std::chrono::ceil<EventLoop::Duration>(travelling.front().arrival);
    auto wait = std::max(due - loop.now(), EventLoop::Duration(0));
    timer = loop.startTimer(wait, EventLoop::Repeat::Once, [this] { arriveNext(); });
}

void PacedLine::arriveNext() {
    timer = 0;
    char byte = travelling.front().byte;
    travelling.pop_front();
    // What the character sets off may wait for those behind it.
    schedule();
    arrived(byte);
}

} // namespace zor::testing
