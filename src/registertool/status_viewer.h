// SPDX-License-Identifier: MIT
#pragma once

#include "elements/bit_cell.h"
#include "elements/list_box.h"
#include "elements/text_field.h"
#include "platform/register_store.h"

#include <deque>
#include <memory>
#include <string_view>

namespace zor {

class SPI;

/// Shows one status register of 16 bits, read when asked for.
class StatusViewer {
  public:
    explicit StatusViewer(SPI& ownTool);

    ListBox StatusRegCombo;
    Button StatusRead;
    TextField Hexadec;
    /// By the bit's number.
    std::deque<BitCell> Databit;

    /// Offers the status registers of a source; none is chosen.
    void offer(RecordSource& registers);
    /// Empties the cells.
    void clear();
    /// There is no chip any more.
    void forget();
    /// Reads the chosen register; nothing happens without one.
    void StatusRead_Click();

    struct StatusRegister {
        std::string Name;
        std::string Address;
        std::array<std::string, 16> bit;
    };
    /// The first status register of that address; nullptr if there is none.
    [[nodiscard]] const StatusRegister* at(std::string_view address) const;

  private:
    void StatusRegCombo_Click();

    SPI& tool;
    /// The record source that the entries are from; nullptr if there is none.
    RecordSource* Registers = nullptr;
    /// Its rows, in its order.
    std::vector<StatusRegister> registers;
};

} // namespace zor
