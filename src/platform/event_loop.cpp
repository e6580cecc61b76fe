// SPDX-License-Identifier: MIT
#include "platform/event_loop.h"

#include <algorithm>
#include <utility>

namespace zor {

void EventLoop::runUntil(const std::function<bool()>& condition) {
    Waiting inside(*this);
    while (!condition()) {
        if (leaving()) {
            throw ActionDropped();
        }
        runOnce();
    }
}

void EventLoop::perform(const std::function<void()>& action) {
    {
        struct Inside {
            std::vector<ActionId>& actions;
            Inside(std::vector<ActionId>& running, ActionId id)
                : actions(running) {
                actions.push_back(id);
            }
            ~Inside() { actions.pop_back(); }
        } inside(actions, ++lastAction);
        try {
            // A timer that is still on or a click that was on its way finds a program that is going.
            if (!leaving()) {
                action();
            }
        } catch (const ActionDropped&) {
            // The port was closed on purpose or the program is being left: nothing is left to do or to say.
        } catch (const ToolError& error) {
            if (uncaught) {
                uncaught(error);
            }
        }
    }
    if (actions.empty()) {
        flushDiscards();
    }
}

bool EventLoop::isRunning(ActionId action) const {
    return std::find(actions.begin(), actions.end(), action) != actions.end();
}

void EventLoop::discardLater(std::function<void()> discard) {
    discards.push_back(std::move(discard));
    if (actions.empty()) {
        flushDiscards();
    }
}

void EventLoop::flushDiscards() {
    // A discarded form may hand on another one.
    while (!discards.empty()) {
        auto now = std::exchange(discards, {});
        for (auto& discard : now) {
            discard();
        }
    }
}

Timer::Timer(EventLoop& eventLoop, std::function<void()> tickAction)
    : loop(eventLoop)
    , action(std::move(tickAction)) {}

Timer::~Timer() {
    *alive = false;
    stop();
}

void Timer::setInterval(std::chrono::milliseconds newLength) {
    length = newLength;
    if (running()) {
        stop();
        start();
    }
}

void Timer::start() {
    if (!running()) {
        id = loop.startTimer(length, EventLoop::Repeat::Every, [this] { tick(); });
    }
}

void Timer::start(std::chrono::milliseconds newLength) {
    length = newLength;
    stop();
    start();
}

void Timer::stop() {
    if (running()) {
        loop.stopTimer(std::exchange(id, 0));
    }
}

void Timer::tick() {
    if (ticking) {
        return;
    }
    auto stillAlive = alive;
    ticking = true;
    loop.perform(action);
    if (*stillAlive) {
        ticking = false;
    }
}

} // namespace zor
