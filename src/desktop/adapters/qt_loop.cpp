// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_loop.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace zor {

using std::chrono::milliseconds;

QtLoop::QtLoop() {
    clock.start();
    wake.setSingleShot(true);
    wake.setTimerType(Qt::PreciseTimer);
    QObject::connect(&wake, &QTimer::timeout, &wake, [this] { fireNext(); });
    // Whichever loop runs, one of the two comes between an event and the sleep behind it.
    const QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance();
    QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, &turns, [this] { runBehind(); });
    QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &turns, [this] { runBehind(); });
}

EventLoop::Duration QtLoop::now() const {
    return std::chrono::duration_cast<Duration>(std::chrono::nanoseconds(clock.nsecsElapsed()));
}

EventLoop::TimerId QtLoop::startTimer(Duration interval, Repeat repeat, std::function<void()> callback) {
    auto rounded = std::max(std::chrono::ceil<milliseconds>(interval), milliseconds(repeat == Repeat::Every));
    TimerId id = ++lastId;
    put({now() + rounded, id, rounded, repeat, std::move(callback)});
    arm();
    return id;
}

void QtLoop::stopTimer(TimerId timer) {
    auto running = std::ranges::find(timers, timer, &Entry::id);
    if (running != timers.end()) {
        timers.erase(running);
    }
}

void QtLoop::put(Entry entry) {
    auto order = [](const Entry& timer) { return std::pair(timer.due, timer.id); };
    auto place = std::ranges::upper_bound(timers, order(entry), {}, order);
    timers.insert(place, std::move(entry));
}

void QtLoop::runOnce() {
    // What an outer turn left behind its event may be what this wait waits for: then there is no sleeping.
    if (!runBehind()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        runBehind();
    }
}

void QtLoop::afterEvent(std::function<void()> action) {
    behind.push_back(std::move(action));
}

bool QtLoop::runBehind() {
    if (behind.empty()) {
        return false;
    }
    // One that waits lets those behind it run inside that wait.
    while (!behind.empty()) {
        std::function<void()> next = std::move(behind.front());
        behind.erase(behind.begin());
        next();
    }
    return true;
}

void QtLoop::arm() {
    if (timers.empty()) {
        return;
    }
    Duration due = timers.front().due;
    // Woken too early it finds nothing that is due and goes on; so a timer that each exchange stops and
    // starts again costs the toolkit nothing.
    if (!wake.isActive() || due < wakeDue) {
        wakeDue = due;
        wake.start(std::max(std::chrono::ceil<milliseconds>(due - now()), milliseconds(0)));
    }
}

void QtLoop::fireNext() {
    if (timers.empty() || timers.front().due > now()) {
        arm();
        return;
    }
    Entry fired = std::move(timers.front());
    timers.erase(timers.begin());
    auto callback = fired.callback;
    if (fired.repeat == Repeat::Every) {
        // Late ticks are left out rather than made up for: after a long stop there would be a burst of them.
        fired.due = std::max(fired.due + fired.interval, now());
        put(std::move(fired));
    }
    // The callback may wait in a loop of its own, in which the other timers, and this one, must go on.
    arm();
    perform(callback);
}

} // namespace zor
