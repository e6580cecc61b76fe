// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/board.h"
#include "simulator/faulty_line.h"
#include "simulator/paced_queue.h"
#include "simulator/program/options.h"
#include "simulator/program/pseudo_terminal.h"

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zor::sim {

/// A board on a pseudo-terminal: carries characters both ways at the line's pace.
class Seat {
  public:
    using TimePoint = PacedQueue::TimePoint;
    using Trace =
        std::function<void(std::string_view direction, std::string_view text, std::string_view meaning)>;

    /// @param clock  the moment in which all boards of the program act: that of the character that one hears
    /// Throws std::system_error if there is no terminal.
    Seat(const Options& options, TimePoint& clock, Trace tracing);
    Seat(const Seat&) = delete;
    Seat& operator=(const Seat&) = delete;

    Board board;
    PseudoTerminal terminal;

    /// What the terminal's client wrote can be taken.
    [[nodiscard]] bool hasRoom() const;
    /// When a character will be through; nothing while the line is idle.
    [[nodiscard]] std::optional<TimePoint> wake() const;
    void handleClient();
    void readTerminal();
    /// Lets a monitor print the packet that is due.
    void reportPacket();
    void moveCharacters();

  private:
    void followSpeed();

    FaultyLine line;
    PacedQueue fromPc;
    PacedQueue toPc;
    TimePoint& boardTime;
    Trace trace;
    bool paced;
    double packetsPerSecond;
    /// When the monitor's next packet is due; the end of time if it prints none.
    TimePoint packetTime = TimePoint::max();
    int lineSpeed = 19200;
};

} // namespace zor::sim
