// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/spi_device.h"

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <random>

namespace zor::sim {

/// A chip of 128 registers with two FIFOs, as the register tool meets it.
///
/// A transfer of 16 bits is an address, its top bit set for a write, and the data. A read gives the value in
/// the second byte and 00 in the first; a status register of 16 bits gives both bytes. (The bench hands a
/// whole byte over at once, so the chip may answer the address within it.) The FIFOs are filled and emptied
/// through two of the addresses, or by bytes while the board's line 3 is low.
class RegisterChip : public SpiDevice {
  public:
    static constexpr std::size_t registerCount = 128;
    /// Bytes that a FIFO holds; what comes to a full one is lost.
    static constexpr std::size_t fifoBytes = 4096;

    void select() override;
    std::uint8_t exchange(std::uint8_t fromBoard) override;
    void deselect() override;
    void writeFifo(std::uint8_t byte) override;
    std::uint8_t readFifo() override;

    /// @param address  0 to 127
    void setRegister(std::size_t address, std::uint8_t value);
    /// Makes it a status register of 16 bits, which takes no writes.
    void setStatus(std::size_t address, std::uint16_t value);
    [[nodiscard]] std::uint16_t registerAt(std::size_t address) const { return values.at(address); }
    [[nodiscard]] bool isStatus(std::size_t address) const { return statusRegisters.test(address); }

    /// The FIFOs are reached through these addresses from now on.
    void setFifoAddresses(std::size_t transmit, std::size_t receive);
    [[nodiscard]] const std::deque<std::uint8_t>& transmitFifo() const { return transmitted; }
    [[nodiscard]] const std::deque<std::uint8_t>& receiveFifo() const { return received; }
    /// A byte from the air.
    void receive(std::uint8_t byte);

    /// From now on what is written to the transmit FIFO arrives in the receive FIFO, each bit wrong by
    /// chance.
    /// @param bitErrorRate  0 to 1
    /// @param seed  the same seed gives the same errors
    void closeLoop(double bitErrorRate, std::uint32_t seed);
    void openLoop() { loop.reset(); }
    /// Bits turned since the loop was closed.
    [[nodiscard]] std::uint64_t turnedBits() const { return turned; }

  private:
    struct FifoAddresses {
        std::size_t transmit;
        std::size_t receive;
    };
    struct Loop {
        double bitErrorRate;
        std::mt19937 random;
    };
    [[nodiscard]] std::uint16_t readOut(std::size_t address);
    void take(std::size_t address, std::uint8_t value);
    [[nodiscard]] std::uint8_t overTheAir(std::uint8_t byte);

    std::array<std::uint16_t, registerCount> values{};
    std::bitset<registerCount> statusRegisters;
    std::optional<FifoAddresses> fifoAddresses;
    std::deque<std::uint8_t> transmitted;
    std::deque<std::uint8_t> received;
    std::optional<Loop> loop;
    std::uint64_t turned = 0;

    std::size_t transferred = 0;
    std::uint8_t command = 0;
    std::uint16_t answer = 0;
};

} // namespace zor::sim
