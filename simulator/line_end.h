// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <string>

namespace zor::sim {

/// What a board puts on the line at once, and how much later than at once.
struct Transmission {
    std::string bytes;
    std::chrono::milliseconds delay{0};
};

/// The far end of a serial line, as the line sees it: characters come in one by one, bytes go out through
/// `transmit`. It has no clock: who owns the line keeps the delays and the order of transmissions.
class LineEnd {
  public:
    LineEnd() = default;
    LineEnd(const LineEnd&) = delete;
    LineEnd& operator=(const LineEnd&) = delete;
    virtual ~LineEnd() = default;

    /// One character from the PC.
    virtual void receive(char byte) = 0;
    /// The PC opened its port again.
    virtual void lineOpened() = 0;
    /// The PC's side of the line goes at this speed from now on, in bits a second.
    virtual void lineSpeedChanged(int baud) = 0;
    /// The line was held low for longer than a character.
    virtual void breakReceived() = 0;

    /// Set by who owns the line; nothing is said while it is empty.
    std::function<void(const Transmission&)> transmit;
};

} // namespace zor::sim
