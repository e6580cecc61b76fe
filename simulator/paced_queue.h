// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <optional>
#include <string>

namespace zor::sim {

/// One direction of a serial line: characters go in when they are written and come out when their stop bit
/// has passed. Order is kept, whatever delays are asked for. Times are the caller's, real or virtual.
class PacedQueue {
  public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// A character of 8N1 at 19200 baud: ten bits.
    static constexpr std::chrono::nanoseconds characterAt19200{520'833};

    /// @param character  how long one character takes; 0 for a line without a pace
    explicit PacedQueue(std::chrono::nanoseconds character)
        : characterTime(character) {}

    /// Characters that are not through go at the new speed.
    void setCharacterTime(std::chrono::nanoseconds character) { characterTime = character; }

    /// @param notBefore  the first start bit leaves no sooner
    void push(std::string bytes, TimePoint notBefore);
    /// The characters that are through by now.
    [[nodiscard]] std::string take(TimePoint now);
    /// Everything at once.
    [[nodiscard]] std::string takeAll();
    /// When the next character will be through; nothing while the line is idle.
    [[nodiscard]] std::optional<TimePoint> next() const;
    /// Characters that are not through.
    [[nodiscard]] std::size_t size() const { return waiting; }

  private:
    struct Piece {
        std::string bytes;
        std::size_t taken;
        TimePoint notBefore;
    };

    std::chrono::nanoseconds characterTime;
    std::deque<Piece> pieces;
    std::size_t waiting = 0;
    TimePoint lineFree{};
};

} // namespace zor::sim
