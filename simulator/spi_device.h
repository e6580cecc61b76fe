// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zor::sim {

/// A chip on the radio board's serial bus, most significant bit first, eight bits at a time.
class SpiDevice {
  public:
    SpiDevice() = default;
    SpiDevice(const SpiDevice&) = delete;
    SpiDevice& operator=(const SpiDevice&) = delete;
    virtual ~SpiDevice() = default;

    /// The chip select fell: a new transfer begins.
    virtual void select() = 0;
    /// Eight clocks. @return what the chip drove on its output meanwhile
    virtual std::uint8_t exchange(std::uint8_t fromBoard) = 0;
    /// The chip select rose: the transfer is complete.
    virtual void deselect() = 0;

    /// A byte written, a byte read while the FIFO select is low; a chip without FIFOs gives 0.
    virtual void writeFifo(std::uint8_t) {}
    virtual std::uint8_t readFifo() { return 0; }
};

} // namespace zor::sim
