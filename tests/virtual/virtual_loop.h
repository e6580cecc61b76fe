// SPDX-License-Identifier: MIT
#pragma once

#include "platform/event_loop.h"

#include <map>
#include <stdexcept>
#include <utility>

namespace zor::testing {

/// Waiting went nowhere: nothing is due any more, or far more happened than any bench ever needs.
struct VirtualTimeError : std::logic_error {
    using std::logic_error::logic_error;
};

/// An event loop whose time moves only by waiting: runOnce jumps to the next due timer. Timers that are due
/// at the same moment run in the order of their start.
class VirtualLoop : public EventLoop {
  public:
    [[nodiscard]] Duration now() const override { return time; }
    TimerId startTimer(Duration interval, Repeat repeat, std::function<void()> callback) override;
    void stopTimer(TimerId timer) override;
    /// Throws VirtualTimeError if nothing is due ever, or beyond the limits.
    void runOnce() override;

    /// Lets that much time pass. An action begun by a timer in that time is finished first, so it may end
    /// later.
    /// Throws VirtualTimeError beyond the limits.
    void runFor(Duration duration);

    /// Another program takes the loop after the one that was left.
    void restart() { stay(); }

    /// Timers handled so far.
    [[nodiscard]] std::uint64_t eventCount() const { return events; }
    /// A run beyond either is taken for one without an end.
    void setLimits(std::uint64_t mostEvents, Duration latest);

  private:
    struct Running {
        Duration interval;
        Repeat repeat;
        std::function<void()> callback;
    };
    void checkLimits() const;

    using Moment = std::pair<Duration, TimerId>;

    Duration time{0};
    TimerId newest = 0;
    std::map<Moment, Running> due;
    std::map<TimerId, Duration> dueTimes;
    std::uint64_t events = 0;
    std::uint64_t eventLimit = 20'000'000;
    Duration timeLimit = std::chrono::hours(10);
};

} // namespace zor::testing
