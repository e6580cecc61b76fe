// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "registertool/fifo_page.h"

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
    /// @return the addresses that the chip does not have
    std::vector<std::string> takeRegisters(const std::vector<std::string>& lines);
    void SaveGUI_Click();
    void LoadGUI_Click();
    void saveFifo(FifoPage::Column column, const std::string& title);
    void openFifo(FifoPage::Column column, const std::string& title);
    [[nodiscard]] std::string firstLine() const;

    SPI& tool;
};

} // namespace zor
