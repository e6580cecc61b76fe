// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_loop.h"

#include <QCoreApplication>

#include <algorithm>

namespace zor {

using std::chrono::milliseconds;

QtLoop::QtLoop() {
    clock.start();
    wake.setSingleShot(true);
    wake.setTimerType(Qt::PreciseTimer);
    QObject::connect(&wake, &QTimer::timeout, &wake, [this] { fireNext(); });
}

EventLoop::Duration QtLoop::now() const {
    return std::chrono::duration_cast<Duration>(std::chrono::nanoseconds(clock.nsecsElapsed()));
}

EventLoop::TimerId QtLoop::startTimer(Duration interval, Repeat repeat, std::function<void()> callback) {
    auto rounded = std::max(std::chrono::ceil<milliseconds>(interval), milliseconds(repeat == Repeat::Every));
    Duration due = now() + rounded;
    TimerId id = ++lastId;
    timers.emplace(Key(due, id), Entry{rounded, repeat, std::move(callback)});
    dueTimes.emplace(id, due);
    arm();
    return id;
}

void QtLoop::stopTimer(TimerId timer) {
    auto due = dueTimes.find(timer);
    if (due != dueTimes.end()) {
        timers.erase(Key(due->second, timer));
        dueTimes.erase(due);
        arm();
    }
}

void QtLoop::runOnce() {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    // What the event itself has posted, such as the characters a port has read, is handled without another
    // turn.
    QCoreApplication::sendPostedEvents();
}

void QtLoop::arm() {
    if (timers.empty()) {
        wake.stop();
        return;
    }
    Duration wait = timers.begin()->first.first - now();
    wake.start(std::max(std::chrono::ceil<milliseconds>(wait), milliseconds(0)));
}

void QtLoop::fireNext() {
    if (timers.empty() || timers.begin()->first.first > now()) {
        arm();
        return;
    }
    auto node = timers.extract(timers.begin());
    auto [due, id] = node.key();
    auto callback = node.mapped().callback;
    if (node.mapped().repeat == Repeat::Every) {
        // Late ticks are left out rather than made up for: after a long stop there would be a burst of them.
        due = std::max(due + node.mapped().interval, now());
        node.key() = Key(due, id);
        timers.insert(std::move(node));
        dueTimes[id] = due;
    } else {
        dueTimes.erase(id);
    }
    // The callback may wait in a loop of its own, in which the other timers, and this one, must go on.
    arm();
    perform(callback);
}

} // namespace zor
