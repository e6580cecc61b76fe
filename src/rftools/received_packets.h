// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/grid.h"
#include "elements/label.h"
#include "elements/plot.h"
#include "link/bench.h"
#include "rftools/packet_log.h"
#include "rftools/packet_report.h"

#include <functional>
#include <vector>

namespace zor {

/// The packets that the board reports, as a table and as a strip of their lengths: part of a window that
/// receives, beside its own monitor. It listens to the line itself, so it has the bytes as they came, and it
/// neither sends nor changes anything.
class ReceivedPackets {
  public:
    /// How many rows the table keeps.
    static constexpr std::size_t capacity = 5000;

    /// @param frequencyOffset  the offset that the panel shows, in kHz; empty without one
    ReceivedPackets(Form& owner, Bench& ownBench, std::function<std::string()> frequencyOffset);

    /// Listens from now on, or no more.
    void listen();
    void ignore();

    /// Newest on top.
    Grid Packets;
    Label PacketNote;
    Button CopyPackets;
    Button SavePackets;
    Button ClearPackets;
    /// Length over number; numbers that are missing are its gaps.
    Plot PacketLengths;
    Button SaveLengths;
    Label PacketFigures;

    /// The table as CSV, oldest row first, lines ended by CR LF.
    [[nodiscard]] std::string csv() const;

  private:
    void hear(std::string_view bytes);
    void show(const std::vector<PacketEvent>& fresh);
    void addRow(const PacketEvent& event);
    void addPoints(const PacketEvent& event);
    void showFigures();
    void clear();
    void save();
    [[nodiscard]] std::string tabbed() const;

    Bench& bench;
    std::function<std::string()> offset;
    PacketReportReader reader;
    PacketLog log;
    EventLoop::Duration start{};
    EventLoop::Duration now{};
    /// Where the next packet stands on the strip while the payloads bear no numbers.
    double nextPlace = 1;
    std::vector<Subscription> subscriptions;
};

} // namespace zor
