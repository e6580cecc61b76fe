// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/chip_commands.h"
#include "simulator/spi_device.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace zor::sim {

/// What a receiver finds in its bandwidth.
struct AirSense {
    /// Above the threshold that it was told.
    bool signal = false;
    /// How far the signal lies off, in steps of the band.
    std::optional<int> offsetSteps = std::nullopt;
    /// It carries data, whatever their rate.
    bool data = false;
    /// The clock of the data has been recovered: they come at the rate that it was told.
    bool clockLocked = false;
};

/// The radio chip on the board's serial bus: latched command words, status bytes, and on the transceivers a
/// receive FIFO. Which chip is mounted may stay open; words are then kept only as they came.
class RadioChip : public SpiDevice {
  public:
    static constexpr std::size_t fifoBytes = 16;

    void setChip(std::optional<Chip> chip);
    [[nodiscard]] std::optional<Chip> chip() const { return mounted; }

    void select() override;
    std::uint8_t exchange(std::uint8_t fromBoard) override;
    void deselect() override;
    /// What goes in while the FIFO is selected moves its content out all the same.
    void writeFifo(std::uint8_t) override { takeFromFifo(); }
    std::uint8_t readFifo() override { return takeFromFifo(); }

    /// The status bytes from now on, as a bench sets them; a chip with one byte has no second.
    void setStatus(std::uint8_t first, std::optional<std::uint8_t> second);
    /// Frequency offset in steps of the band, in the low bits of the second status byte: six bits on
    /// receivers (-32 to 31), five on transceivers (-16 to 15). Clamped; the next `setStatus` overwrites it.
    void setFrequencyOffset(int steps);
    /// The status bytes as the chip would send them now, FIFO state included.
    [[nodiscard]] std::array<std::uint8_t, 2> status() const;

    /// The air around the chip, where there is one.
    std::function<AirSense()> listen;

    /// A byte from the air. Taken by a transceiver whose receiver and receive FIFO are on, ignored otherwise;
    /// a byte for a full FIFO is lost and marks the overflow.
    void receiveFromAir(std::uint8_t byte);
    /// The oldest byte of the receive FIFO, 0 if it is empty.
    std::uint8_t takeFromFifo();
    [[nodiscard]] std::size_t fifoFill() const { return receiveFifo.size(); }
    /// True while the FIFO has reached its level or has overflown.
    [[nodiscard]] bool interruptPending() const;

    /// The word last latched for a role; nothing while the chip has not had one, or no chip is told.
    [[nodiscard]] std::optional<std::uint16_t> latched(WordRole role) const;
    /// Every word as it came, oldest first, up to the last 256.
    [[nodiscard]] const std::deque<std::uint16_t>& words() const { return history; }

  private:
    void latch();
    [[nodiscard]] bool hasFifo() const;
    [[nodiscard]] bool fifoRuns() const;
    /// Puts an offset into the low bits of the second status byte.
    [[nodiscard]] std::uint8_t withOffset(std::uint8_t second, int steps) const;

    std::optional<Chip> mounted;
    std::array<std::uint8_t, 2> benchStatus{};
    std::vector<std::uint8_t> transfer;
    std::size_t statusRead = 0;
    bool selected = false;
    std::map<WordRole, std::uint16_t> latches;
    std::deque<std::uint16_t> history;
    std::deque<std::uint8_t> receiveFifo;
    bool overflown = false;
};

} // namespace zor::sim
