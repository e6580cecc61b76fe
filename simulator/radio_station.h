// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/board.h"
#include "simulator/ether.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace zor::sim {

/// A board with its radio chip on the air: its carrier and its packets go out, and what the chip's latched
/// words let it hear reaches its data line, its status bits, its FIFO and the packet firmware.
class RadioStation : public Station {
  public:
    /// Joins the ether and stays until its end. @param ownBoard, @param space  must outlive it
    RadioStation(Board& ownBoard, Ether& space);
    ~RadioStation() override;

    /// How far the board's crystal is off, in parts per million.
    void setCrystalError(double ppm) { crystalError = ppm; }
    [[nodiscard]] double crystal() const { return crystalError; }

    [[nodiscard]] std::optional<Emission> carrier() const override;
    [[nodiscard]] bool level() override;
    void hear(const AirPacket& packet) override;

  private:
    [[nodiscard]] std::optional<Reception> reception() const;
    [[nodiscard]] std::optional<bool> dataLine() const;
    [[nodiscard]] AirSense sense() const;
    void send(const std::vector<std::uint8_t>& bytes);

    Board& board;
    Ether& ether;
    double crystalError = 0;
    /// Where the sender of the last packet was, in steps; the chip holds what it found.
    std::optional<int> packetOffset;
    /// The board's pseudo-random sequence, fifteen stages.
    std::uint16_t sequence = 0x7FFF;
};

} // namespace zor::sim
