// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "registertool/fifo_page.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zor {

class SPI;

/// The register tool's text files beside the batch scripts: the registers' values, the macro rows' choice and
/// the FIFOs' bytes.
class TextFiles {
  public:
    explicit TextFiles(SPI& ownTool);

    Button SaveSettings;
    /// Saves the registers of the ticked classes only.
    Button Command4;
    Button LoadSettings;
    Button SaveGUI;
    Button LoadGUI;
    Button OpenTXff;
    Button SaveTXff;
    Button OpenRXff;
    Button SaveRXff;

  private:
    void saveRegisters(const std::string& query);
    void LoadSettings_Click();
    /// All registers are listed from here on. @return the address of the row that was picked, empty if none
    std::string beginLoad();
    /// Takes the values of a configuration's lines, in one transaction, up to the first of a register that
    /// the chip does not have, which is told before the next line counts.
    /// @param next  the line to begin with; behind it that of the missing register, or the end
    /// @return the missing register's address; nothing at the end
    std::optional<std::string> takeUpToMissing(const std::vector<std::string>& lines, std::size_t& next);
    void SaveGUI_Click();
    void LoadGUI_Click();
    void saveFifo(FifoPage::Column column, const std::string& title);
    void openFifo(FifoPage::Column column, const std::string& title);
    [[nodiscard]] std::string firstLine() const;

    SPI& tool;
};

} // namespace zor
