// SPDX-License-Identifier: MIT
#pragma once

#include "compare/open_panel.h"
#include "compare/panel_setter.h"
#include "elements/button.h"
#include "elements/form.h"
#include "elements/grid.h"
#include "elements/label.h"
#include "elements/list_box.h"
#include "elements/text_field.h"

#include <optional>
#include <string>
#include <vector>

namespace zor {

class ControlWord;

/// Sets the open chip panel backwards: from a word to the settings that give it, or from a C header to the
/// whole panel. What no setting can give is told bit by bit, and nothing changes. It sends nothing.
class frm_SetFrom : public Form {
  public:
    explicit frm_SetFrom(Bench& ownBench);

    /// The panel that is set.
    Label L_Panel;
    Label LabelWord;
    /// The panel's words.
    ListBox CB_Word;
    TextField TB_Word;
    /// What the typed value means as that word.
    Label L_Meaning;
    Button PB_SetWord;
    Label LabelHeader;
    TextField TB_HeaderText;
    Button PB_LoadHeader;
    Button PB_SetHeader;
    /// How the last setting ended.
    Label L_Result;
    /// What no setting gives.
    Grid GR_Refused;

  protected:
    void unload() override;

  private:
    void wire();
    /// Another panel is open.
    void takePanel();
    /// The word that the user asked for on the panel.
    void takeAskedWord();
    void showMeaning();
    void PB_SetWord_Click();
    void PB_LoadHeader_Click();
    void PB_SetHeader_Click();
    /// Brings the panel to it and tells how that ended. @param done  what is told if it did
    void set(const WantedSettings& wanted, const std::string& done);
    void tell(const std::string& result, const std::vector<RefusedBits>& refused = {});
    [[nodiscard]] const ControlWord* chosenWord() const;
    /// The panel's word that a value has the fixed bits of; nullptr if it is none's.
    [[nodiscard]] const ControlWord* wordOf(std::uint32_t value) const;

    Bench& bench;
    OpenPanel target;
    std::vector<Subscription> showing;
};

} // namespace zor
