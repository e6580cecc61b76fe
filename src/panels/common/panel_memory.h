// SPDX-License-Identifier: MIT
#pragma once

#include "panels/common/chip_panel.h"

#include <map>
#include <string>
#include <string_view>

namespace zor {

/// What a chip panel shows at one moment, so that another panel of the same chip can be brought to show the
/// same: its settings, what it knows of the chip, its marks and lamps.
class PanelMemory {
  public:
    /// Remembers the panel.
    explicit PanelMemory(ChipPanel& panel);

    /// Reads what `written` gave. Throws ToolError. What the chip holds is not known then.
    explicit PanelMemory(std::string_view bytes);
    /// Its settings and results, as lines of a file.
    [[nodiscard]] std::string written() const;

    /// Brings a panel of the same chip, freshly loaded, to what is remembered. Sends nothing.
    void putTo(ChipPanel& panel) const;

    /// What the chip holds is not known any more: the words will count as unsent.
    void forgetSent();

    /// What a user can set is the same in both.
    [[nodiscard]] bool sameSettings(const PanelMemory& other) const { return settings == other.settings; }

  private:
    void putFile(ChipPanel& panel) const;
    void putSettings(ChipPanel& panel) const;
    void putMarks(ChipPanel& panel) const;

    std::string configuration;
    /// By the elements' names: a field's or list's text, "1" for what is ticked or chosen, a slider's number.
    std::map<std::string, std::string> settings;
    /// What the panel shows of itself: results, lamps, words as the chip has them.
    std::map<std::string, std::string> results;
    std::map<std::string, bool> lit;
    std::map<std::string, std::string> sent;
    bool updateNeeded = false;
    bool calibrationNeeded = false;
    bool statusShown = false;
    int page = 1;
    Place place;
    ChipPanel::UsedFile file;
};

} // namespace zor
