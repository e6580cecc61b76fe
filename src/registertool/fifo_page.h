// SPDX-License-Identifier: MIT
#pragma once

#include "elements/grid.h"
#include "platform/register_store.h"

#include <cstdint>
#include <memory>
#include <string>

namespace zor {

class SPI;

/// The two FIFOs of the chosen chip, byte by byte.
class FifoPage {
  public:
    explicit FifoPage(SPI& ownTool);

    Grid TXFIFO;
    Grid RXFIFO;

    // Filled from the chosen chip.

    /// Depths in bytes; under 1 there is no such FIFO.
    std::int16_t TxSize = 0;
    std::int16_t RxSize = 0;
    /// Registers through which the FIFOs are written and read.
    std::string TxAddress;
    std::string RxAddress;
    /// The FIFOs are reached under the select line on channel 3 rather than through the registers.
    bool FifoSelectLine = false;

    /// Live views of the worktables; nullptr while there is no store.
    std::unique_ptr<RecordSource> TX;
    std::unique_ptr<RecordSource> RX;

    /// Opens the sources. Throws StoreError.
    void attach(RegisterStore& store);
    void detach();
    /// Without sizes, addresses and way.
    void forgetChip();
    /// Takes the FIFO facts of the chip at the source's place and gives each FIFO its rows. Throws
    /// StoreError.
    void takeChip(const RecordSource& chip);
    /// Shows what the worktables hold.
    void showRows();

    /// What is asked of a row from outside: the byte to be sent, the byte to be received.
    enum class Column { Hex, Expected };
    /// Of the transmit FIFO's Hex, or of the receive FIFO's Expected; nothing where there is no such row.
    [[nodiscard]] StoredValue value(Column column, std::size_t row) const;
    /// Stores it and shows it. Throws StoreError.
    void store(Column column, std::size_t row, const std::string& text);
    /// Stores what a read of the receive FIFO gave. Throws StoreError.
    void storeRead(std::size_t row, const std::string& hex, const std::string& error);
};

} // namespace zor
