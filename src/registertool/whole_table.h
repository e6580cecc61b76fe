// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/range.h"

#include <cstddef>
#include <string>

namespace zor {

class SPI;

/// What is done with all registers at once: reading them, writing them, writing their defaults.
class WholeTable {
  public:
    explicit WholeTable(SPI& ownTool);

    Button RefreshTable;
    Button UpdateChip;
    /// "Load Defaults"
    Button Defaults;
    Progress ProgressBar1;

    /// Reads every readable register, one exchange each.
    void RefreshTable_Click();
    /// Writes every writable register, changed or not, in the stored order of the table.
    void UpdateChip_Click();
    /// Takes all default values and writes them to the chip.
    void Defaults_Click();

  private:
    void showAll();
    /// @param word  what was done to the registers: "read"
    void tellOutcome(std::size_t count, const std::string& word);
    void showProgress(std::size_t done, std::size_t total);
    /// Takes the answer for a row of the walk.
    void takeRead(std::size_t row, bool isFirst);

    SPI& tool;
};

} // namespace zor
