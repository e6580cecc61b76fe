// SPDX-License-Identifier: MIT
#pragma once

#include "elements/form_state.h"
#include "panels/common/chip_panel.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zor {

/// What a chip panel shows at one moment, so that another panel of the same chip can be brought to show the
/// same. Its settings are those that its history keeps, put back in the same way: raw, without an action.
/// What a history leaves alone comes on top of them here, for it is the panel that went, not a setting: what
/// it knows of the chip, its marks and lamps, the page that was up.
///
/// As lines of a file, which another version of the program may read, settings stand by name beside the
/// configuration file that the panel would save. They are put by their actions then; the values beside the
/// elements, of which a configuration knows nothing, come behind them.
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
    void putLines(ChipPanel& panel) const;
    void putSettings(ChipPanel& panel) const;
    void putValues(ChipPanel& panel) const;
    void putMarks(ChipPanel& panel) const;

    /// Nothing of what was read from a file.
    std::optional<FormState> state;
    std::string configuration;
    /// As the panel's kept parts have them.
    std::vector<KeptValue> values;
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
