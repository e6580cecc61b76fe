// SPDX-License-Identifier: MIT
#pragma once

#include "link/bench.h"
#include "link/wire_tap.h"

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zor {

/// One line of the wire's history.
struct WireEntry {
    enum class Result {
        Answered,
        Refused,
        NoAnswer,
        PortGone,
        /// Written without waiting for a prompt.
        NotAwaited,
        /// Said by the board of its own accord.
        Unasked,
    };

    /// Counts from 0 over the whole run; entries that fell out of the history keep theirs.
    std::uint64_t number = 0;
    /// Since the program's start.
    EventLoop::Duration time{};
    EventLoop::Duration length{};
    int port = 0;
    /// As they crossed the wire, terminators and prompts included.
    std::string line;
    std::string answer;
    Result result = Result::Unasked;
    std::string meaning;
};

/// The word for a result, as a table shows it.
[[nodiscard]] const char* wordOf(WireEntry::Result result);

/// Keeps the newest exchanges of both ports from the program's start on, so that the past is there when
/// somebody wants to see it. At most 20,000 entries; an answer is kept up to 512 characters, so the whole
/// takes some 4 MB, 12 MB at the very most.
class WireRecorder {
  public:
    static constexpr std::size_t capacity = 20000;

    WireRecorder(Bench& ownBench, WireTap& tap);

    [[nodiscard]] const std::deque<WireEntry>& entries() const { return history; }
    /// The number of the next entry.
    [[nodiscard]] std::uint64_t nextNumber() const { return next; }
    void clear();
    /// The moment on the wall that a time of the history was.
    [[nodiscard]] std::chrono::system_clock::time_point wallClock(EventLoop::Duration time) const;

    /// Says what a line means beyond the command's own words: names the word of a chip, a register, a
    /// memory's instruction. The newest is asked first, as a tool knows its own lines best; the first that
    /// knows it has said it.
    using Naming = std::function<std::string(std::string_view line, std::string_view answer)>;
    Subscription addNaming(Naming naming);

    /// An entry was added.
    Signal<const WireEntry&> added;
    /// All of them went.
    Signal<> cleared;

  private:
    struct Named {
        std::uint64_t id;
        Naming naming;
    };

    void recordBytes(const WireBytes& crossed);
    void recordExchange(const WireExchange& exchange);
    void recordUnasked();
    void add(WireEntry entry);
    [[nodiscard]] std::string meaningOf(const WireEntry& entry) const;

    std::deque<WireEntry> history;
    std::uint64_t next = 0;
    const EventLoop& loop;
    EventLoop::Duration start;
    std::chrono::system_clock::time_point wallStart;
    /// What the board says while nobody waits for it, up to the line's end.
    WireEntry unasked;
    std::vector<Named> namings;
    std::uint64_t lastNaming = 0;
    Subscription bytes;
    Subscription exchanges;
};

} // namespace zor
