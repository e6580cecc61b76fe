// SPDX-License-Identifier: MIT
#pragma once

#include "platform/event_loop.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zor {

/// What happened at the receiver: a packet came, numbers are missing before the next one, or a report broke
/// off.
struct PacketEvent {
    enum class Kind { Received, Lost, Damaged };

    Kind kind = Kind::Received;
    EventLoop::Duration time{};
    /// Of a packet whose payload is numbered, or the first number that is missing.
    std::optional<std::int64_t> number;
    /// How many numbers are missing; 1 for what came.
    std::int64_t count = 1;
    std::string payload;
    /// Frequency offset in kHz as a status read gave it; empty without one.
    std::string offset;
};

/// What the last packets say of the link.
struct LinkFigures {
    std::size_t received = 0;
    std::int64_t lost = 0;
    std::size_t damaged = 0;
    /// Lost ones among all that were sent, in percent.
    double lostPercent = 0;
    /// Over the time in which they came; 0 while there are fewer than two.
    double perMinute = 0;
};

/// The packets that a receiver reported, in their order, and those that are missing between them.
///
/// A payload is taken for numbered while the first decimal number in it stands behind the same text as in
/// the packet before and has gone up by one at least once; a number that does not go up begins a new count.
/// Bounded: of each kind of memory the newest part stays.
class PacketLog {
  public:
    /// How many packets the figures and the plot are about.
    static constexpr std::size_t window = 200;
    /// A larger step of the number is another count, not that many losses.
    static constexpr std::int64_t longestLoss = 10'000;

    /// A packet came. @return what is new, the lost ones before it
    std::vector<PacketEvent> add(const std::string& payload, EventLoop::Duration time,
                                 const std::string& offset = {});
    PacketEvent addDamaged(EventLoop::Duration time);
    void clear();

    /// The newest events, oldest first.
    [[nodiscard]] const std::deque<PacketEvent>& recent() const { return events; }
    [[nodiscard]] LinkFigures figures() const;
    /// Packets since the last clear.
    [[nodiscard]] std::uint64_t received() const { return receivedCount; }

  private:
    void keep(const PacketEvent& event);

    std::deque<PacketEvent> events;
    std::uint64_t receivedCount = 0;
    std::optional<std::int64_t> lastNumber;
    std::string lastPrefix;
    /// The number has gone up by one in this count.
    bool counting = false;
};

/// The first decimal number in a payload and the text in front of it; nothing without one, or for one of more
/// than nine digits.
struct NumberedPayload {
    std::string_view prefix;
    std::int64_t number = 0;
};
[[nodiscard]] std::optional<NumberedPayload> numberIn(std::string_view payload);

} // namespace zor
