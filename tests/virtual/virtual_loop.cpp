// SPDX-License-Identifier: MIT
#include "virtual/virtual_loop.h"

#include <algorithm>

namespace zor::testing {

EventLoop::TimerId VirtualLoop::startTimer(Duration interval, Repeat repeat, std::function<void()> callback) {
    TimerId id = ++newest;
    due.emplace(Moment(time + interval, id), Running{interval, repeat, std::move(callback)});
    dueTimes[id] = time + interval;
    return id;
}

void VirtualLoop::stopTimer(TimerId timer) {
    auto entry = dueTimes.find(timer);
    if (entry != dueTimes.end()) {
        due.erase(Moment(entry->second, timer));
        dueTimes.erase(entry);
    }
}

void VirtualLoop::runOnce() {
    if (due.empty()) {
        throw VirtualTimeError("a wait without an end: nothing is due any more");
    }
    auto next = due.extract(due.begin());
    auto [moment, id] = next.key();
    time = std::max(time, moment);
    ++events;
    checkLimits();
    // The callback may wait and come by here again, stop its own timer, or start others.
    std::function<void()> callback = next.mapped().callback;
    if (next.mapped().repeat == Repeat::Every) {
        dueTimes[id] = moment + next.mapped().interval;
        next.key() = Moment(dueTimes[id], id);
        due.insert(std::move(next));
    } else {
        dueTimes.erase(id);
    }
    callback();
}

void VirtualLoop::runFor(Duration duration) {
    Duration end = time + duration;
    while (!due.empty() && due.begin()->first.first <= end) {
        runOnce();
    }
    time = std::max(time, end);
    checkLimits();
}

void VirtualLoop::checkLimits() const {
    if (events > eventLimit || time > timeLimit) {
        throw VirtualTimeError("a run without an end: more events or more time than any bench needs");
    }
}

void VirtualLoop::setLimits(std::uint64_t mostEvents, Duration latest) {
    eventLimit = mostEvents;
    timeLimit = latest;
}

} // namespace zor::testing
