// SPDX-License-Identifier: MIT
#pragma once

#include "platform/event_loop.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <functional>
#include <vector>

namespace zor {

/// The toolkit's event loop as the core sees it. Every timer of the core hangs on one toolkit timer, so that
/// those due at the same moment keep the order in which they were started.
class QtLoop : public EventLoop {
  public:
    QtLoop();

    [[nodiscard]] Duration now() const override;
    /// Intervals are rounded up to whole milliseconds. A timer that falls behind leaves out the ticks it
    /// missed.
    TimerId startTimer(Duration interval, Repeat repeat, std::function<void()> callback) override;
    void stopTimer(TimerId timer) override;
    void runOnce() override;

    /// Runs this behind the event that is being handled now, in the order of the calls, before whichever loop
    /// it is in sleeps again. A posted event would do the same, but wakes that loop through the system: two
    /// calls of it and an empty turn for each.
    void afterEvent(std::function<void()> action);

  private:
    struct Entry {
        Duration due;
        TimerId id;
        Duration interval;
        Repeat repeat;
        std::function<void()> callback;
    };

    void put(Entry entry);
    void arm();
    void fireNext();
    /// @return whether there was any
    bool runBehind();

    QElapsedTimer clock;
    QTimer wake;
    /// What a running `wake` was set for: the next timer's time or, if that was stopped since, an earlier
    /// one.
    Duration wakeDue{};
    /// Lets the toolkit's own loops, such as an open dialog's, run what waits behind an event.
    QObject turns;
    std::vector<std::function<void()>> behind;
    /// By due time, then by order of start. They are few, and every exchange stops one and starts it again.
    std::vector<Entry> timers;
    TimerId lastId = 0;
};

} // namespace zor
