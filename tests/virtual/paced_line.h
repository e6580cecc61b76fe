// SPDX-License-Identifier: MIT
#pragma once

#include "platform/event_loop.h"

#include <deque>
#include <functional>
#include <string_view>

namespace zor::testing {

/// One direction of a serial line: what is sent arrives character by character, each one character's time
/// behind the one before.
class PacedLine {
  public:
    PacedLine(EventLoop& eventLoop, std::function<void(char)> arrival);
    PacedLine(const PacedLine&) = delete;
    PacedLine& operator=(const PacedLine&) = delete;
    ~PacedLine();

    /// Characters already on their way keep the speed they were sent at.
    /// @param baud  bits a second
    /// @param bits  of a character, start and stop bits included
    void setSpeed(int baud, int bits = 10) {
        characterTime = std::chrono::nanoseconds(bits * 1'000'000'000LL / baud);
    }
    /// @param delay  how much later than now the first character starts at the earliest
    void send(std::string_view bytes, EventLoop::Duration delay = EventLoop::Duration(0));
    /// The next character follows on the heels of the one that has just arrived.
    [[nodiscard]] bool continues() const;
    /// What is on its way arrives at once.
    void drain();
    /// What is on its way is lost.
    void clear();

  private:
    struct Travelling {
        char byte;
        std::chrono::nanoseconds arrival;
    };
    void schedule();
    void arriveNext();

    EventLoop& loop;
    std::function<void(char)> arrived;
    std::chrono::nanoseconds characterTime{10'000'000'000LL / 19200};
    std::chrono::nanoseconds freeFrom{0};
    std::deque<Travelling> travelling;
    EventLoop::TimerId timer = 0;
};

} // namespace zor::testing
