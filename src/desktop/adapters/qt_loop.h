// SPDX-License-Identifier: MIT
#pragma once

#include "platform/event_loop.h"

#include <QElapsedTimer>
#include <QTimer>

#include <map>
#include <unordered_map>
#include <utility>

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

  private:
    /// Due time, then order of start.
    using Key = std::pair<Duration, TimerId>;
    struct Entry {
        Duration interval;
        Repeat repeat;
        std::function<void()> callback;
    };

    void arm();
    void fireNext();

    QElapsedTimer clock;
    QTimer wake;
    std::map<Key, Entry> timers;
    std::unordered_map<TimerId, Duration> dueTimes;
    TimerId lastId = 0;
};

} // namespace zor
