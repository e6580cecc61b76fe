// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "support/register_list.h"

#include <string>

namespace zor {

class SPI;

/// Chips of the register database as files: tables of comma separated values in and out, and databases of the
/// older kind in. A file that cannot be taken whole changes nothing.
class TableFiles {
  public:
    explicit TableFiles(SPI& ownTool);

    Button Import;
    Button Export;

  private:
    void Import_Click();
    /// False if the list was not taken; that has been told.
    bool takeList(const std::string& name);
    void Export_Click();
    [[nodiscard]] RegisterList readList(const std::string& name) const;
    /// Asks about chips that are there already. @return whether the list may be taken
    [[nodiscard]] bool mayReplace(const RegisterList& list) const;
    /// The chosen chip, or all of them.
    [[nodiscard]] RegisterList listToExport() const;

    SPI& tool;
};

} // namespace zor
