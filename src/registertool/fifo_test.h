// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/label.h"
#include "elements/text_field.h"

#include <cstddef>
#include <optional>
#include <string>

namespace zor {

class SPI;
class LongAction;

/// Writes the transmit FIFO, reads the receive FIFO and counts the bits that are not as expected, over as
/// many reads as the user likes. The counters are fields that the user may edit; they count in floating
/// point.
class FifoTest {
  public:
    explicit FifoTest(SPI& ownTool);

    /// "FIFO Read / Write"
    Frame FifoFrame;
    Button WriteTXff;
    Button ReadRXff;
    Button ResetBER;
    Label PacketsLabel;
    TextField Packets;
    Label PacketLostLabel;
    TextField PacketLost;
    Label PERLabel;
    TextField PER;
    Label ErrorsLabel;
    TextField Errors;
    Label DatabitsLabel;
    TextField Databits;
    Label BERLabel;
    TextField BER;

    void WriteTXff_Click();
    void ReadRXff_Click();

  private:
    void placeAndWire();
    void ResetBER_Click();
    bool writeRow(std::size_t row, LongAction& busy);
    /// @return the row's differing bits, nothing if the run ended
    std::optional<int> readRow(std::size_t row, LongAction& busy);
    /// One read more with so many differing bits. A division by zero is told and ends the count.
    void countRead(int packetErrors);
    void showProgress(std::size_t done, int size);
    /// What both FIFO actions begin with, the select line included.
    /// @return whether the FIFO is reached by that line, fixed for the run; nothing if the run ends here
    std::optional<bool> begin(int size, LongAction& busy);
    /// Releases the FIFO select line where it was driven.
    void end(bool bySelectLine, LongAction& busy);

    SPI& tool;
};

/// Two decimals and an exponent with its sign and at least two digits: "1.25E-03".
[[nodiscard]] std::string rateText(double rate);

} // namespace zor
