// SPDX-License-Identifier: MIT
#pragma once

#include "support/error.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace zor {

/// Thrown out of a wait whose purpose has gone (the port was closed on purpose, the program is being left):
/// what is left of the action that waits is dropped, without a box. Others may clean up and throw it on; only
/// EventLoop::perform, and the program's end, let it end there.
struct ActionDropped {};

/// The one thread's source of time and events. The core waits through it and never sleeps or polls.
class EventLoop {
  public:
    using Duration = std::chrono::microseconds;
    using TimerId = std::uint64_t;
    enum class Repeat { Once, Every };

    EventLoop() = default;
    EventLoop(const EventLoop&) = delete;
    EventLoop& operator=(const EventLoop&) = delete;
    virtual ~EventLoop() = default;

    /// Time since some fixed moment; never goes back.
    [[nodiscard]] virtual Duration now() const = 0;

    /// Calls back when the interval has passed, once or again and again. Callbacks run inside runOnce or the
    /// outer loop, in order of their due time and, at the same time, of their start.
    virtual TimerId startTimer(Duration interval, Repeat repeat, std::function<void()> callback) = 0;
    /// Unknown and ended timers are ignored.
    virtual void stopTimer(TimerId timer) = 0;

    /// Sleeps until something happens and handles it.
    virtual void runOnce() = 0;

    /// Runs the loop until the condition holds; events, timers and clicks are handled meanwhile, so anything
    /// may have changed when it returns. Throws ActionDropped once the program is being left.
    void runUntil(const std::function<bool()>& condition);

    /// Runs one event's action from its outermost frame: a ToolError that nobody caught goes to `uncaught`, a
    /// dropped action ends here. When the outermost action has returned, what was handed to discardLater
    /// goes.
    void perform(const std::function<void()>& action);

    /// Keeps what an action may still stand in alive until the outermost action has returned, then runs this.
    void discardLater(std::function<void()> discard);

    /// True while any action runs.
    [[nodiscard]] bool acting() const { return !actions.empty(); }
    /// Names one run of one action; never the same twice. 0 is none.
    using ActionId = std::uint64_t;
    /// The innermost action that runs; 0 if none does.
    [[nodiscard]] ActionId currentAction() const { return actions.empty() ? 0 : actions.back(); }
    [[nodiscard]] bool isRunning(ActionId action) const;

    /// How many waits stand inside one another now.
    [[nodiscard]] int waiting() const { return waits; }
    /// A wait, for as long as it lives.
    class Waiting {
      public:
        explicit Waiting(EventLoop& eventLoop)
            : loop(eventLoop) {
            ++loop.waits;
        }
        Waiting(const Waiting&) = delete;
        Waiting& operator=(const Waiting&) = delete;
        ~Waiting() { --loop.waits; }

      private:
        EventLoop& loop;
    };

    /// From now on every wait ends by ActionDropped.
    void leave() { isLeaving = true; }
    [[nodiscard]] bool leaving() const { return isLeaving; }

    /// Shows an error that no action caught; set by the main window.
    std::function<void(const ToolError&)> uncaught;

  protected:
    /// Takes `leave` back, for a loop that outlives the program it served.
    void stay() { isLeaving = false; }

  private:
    void flushDiscards();

    std::vector<std::function<void()>> discards;
    std::vector<ActionId> actions;
    ActionId lastAction = 0;
    int waits = 0;
    bool isLeaving = false;
};

/// A named timer of a window: an interval and a tick action. Stopped at first and by its destruction. A tick
/// that comes while the tick before still runs (it waits for the board) is skipped.
class Timer {
  public:
    Timer(EventLoop& eventLoop, std::function<void()> tickAction);
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;
    ~Timer();

    /// The time to the next tick counts from now if the timer runs.
    void setInterval(std::chrono::milliseconds newLength);
    [[nodiscard]] std::chrono::milliseconds interval() const { return length; }

    /// Starts ticking; a running timer goes on undisturbed.
    void start();
    /// Ticks at this interval, the first tick a whole interval from now.
    void start(std::chrono::milliseconds newLength);
    void stop();
    [[nodiscard]] bool running() const { return id != 0; }

  private:
    void tick();

    EventLoop& loop;
    std::function<void()> action;
    std::chrono::milliseconds length{0};
    EventLoop::TimerId id = 0;
    bool ticking = false;
    /// Lets a tick notice that its own timer was destroyed by what it did.
    std::shared_ptr<bool> alive = std::make_shared<bool>(true);
};

} // namespace zor
