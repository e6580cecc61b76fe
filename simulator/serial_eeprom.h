// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/spi_device.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace zor::sim {

/// The time that a chip measures its own delays by, from any fixed moment.
using ChipClock = std::function<std::chrono::microseconds()>;

/// A serial EEPROM of 1024 bytes on the board's bus: one instruction a transfer.
///
///     03 AA AA      read; runs on from byte to byte, and from the last to the first, while selected
///     05            status, again and again: bit 0 a write is under way, bit 1 the write-enable latch
///     06, 04        sets, clears the latch
///     02 AA AA D..  writes up to 16 bytes inside one page; what runs over its end goes on at its start
///
/// A write begins as the select rises. It needs the latch, which it clears when it is done; until then the
/// chip hears nothing but 05. An address behind the last byte is of no chip: such a write does nothing.
class SerialEeprom : public SpiDevice {
  public:
    static constexpr std::size_t byteCount = 1024;
    static constexpr std::size_t pageBytes = 16;

    explicit SerialEeprom(ChipClock ownClock);

    void select() override;
    std::uint8_t exchange(std::uint8_t fromBoard) override;
    void deselect() override;

    [[nodiscard]] const std::array<std::uint8_t, byteCount>& bytes() const { return memory; }
    /// Puts bytes there as they are; what runs behind the last byte is lost.
    void put(std::size_t address, std::span<const std::uint8_t> content);

    /// How long a write takes; 5 ms at first. Ends what setStuckBusy began.
    void setWriteTime(std::chrono::microseconds time);
    /// The chip says that a write is under way, for good, and takes none.
    void setStuckBusy() { stuckBusy = true; }

    /// A write has changed the memory.
    std::function<void()> written;

  private:
    [[nodiscard]] bool busy() const;
    /// The write under way may have come to its end since.
    void settle();
    void beginWrite();
    std::uint8_t readOn();

    ChipClock clock;
    std::array<std::uint8_t, byteCount> memory{};
    std::chrono::microseconds writeTime{5000};
    std::optional<std::chrono::microseconds> writeEnd;
    bool stuckBusy = false;
    bool writeEnabled = false;
    /// The instruction and what came behind it.
    std::vector<std::uint8_t> transfer;
    /// This transfer began while a write was under way.
    bool deaf = false;
    std::size_t readAddress = 0;
};

/// An empty socket: nobody drives the line to the board.
class EmptySocket : public SpiDevice {
  public:
    void select() override {}
    std::uint8_t exchange(std::uint8_t) override { return 0x00; }
    void deselect() override {}
};

} // namespace zor::sim
