// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/form.h"
#include "elements/label.h"
#include "elements/options.h"
#include "elements/text_field.h"
#include "headergen/header_block.h"
#include "headergen/unsent_words.h"
#include "link/bench.h"

#include <cstdint>
#include <optional>
#include <string>

namespace zor {

class ChipPanel;

/// Turns the state of the open chip panel into a C header: a macro for each control word, and what it is set
/// to in words. What a firmware engineer includes to start a chip with the settings tried on the bench.
class Frm_GenHeader : public Form {
    // Older than the options that join it.
    OptionGroup literalGroup;

  public:
    explicit Frm_GenHeader(Bench& ownBench);

    Option CB_DeviceName;
    Option CB_DefineLiteral;
    TextField TB_Literal;
    /// What a compiler will think of the literal; empty while it is a name.
    Label L_LiteralNote;
    Label L_Source;
    TextField TB_Header;
    Button PB_Generate;
    Button PB_Clear;
    Button PB_Copy;
    Button PB_Save;
    /// Saves into the file in which this run saved the device's header last.
    Button PB_SaveAgain;
    /// How many of the header's words the chip does not have.
    Label L_Unsent;
    /// Where the header was saved last.
    Label L_Saved;

    /// Finds the panel that the header is made of; tells in a box that none is open.
    bool SetSource();
    /// Builds the whole text of the panel that SetSource has just found.
    void GenerateHeader();

  private:
    struct Source;
    static const std::vector<Source>& sources();

    void wire();
    /// The first showing generates at once.
    void begin();
    void PB_Generate_Click();
    void PB_Save_Click();
    void PB_SaveAgain_Click();
    void PB_Copy_Click();
    void PB_Clear_Click();
    /// A field of a panel that was typed in and not left yet takes effect.
    void commitTypedFields();
    [[nodiscard]] ChipPanel* panelOf(const Source& row) const;

    void writeFrame(const ChipPanel& panel);
    /// A line of the header's frame: a text, tabs and the closing stars.
    void framed(const std::string& text, int tabCount);
    template <class Panel>
    void appendSection();
    void Do_KT1100();
    void Do_KT1101();
    void Do_KT1102();
    void Do_KT2100();
    void Do_KT2102();
    void Do_KT3100();
    void Do_KT3101();

    [[nodiscard]] FileRequest fileRequest() const;
    [[nodiscard]] std::string content() const;
    /// Runs a save, which gives the file's name, and remembers it; a failure is told.
    void saving(const std::function<std::string()>& save);
    void showLiteralNote();
    void showUnsent();
    void showSaved();

    Bench& bench;
    const Source* source = nullptr;
    /// Empty before the first header.
    std::string deviceName;
    std::string macroPrefix;
    std::int32_t crystalHertz = 0;
    HeaderText header;
    UnsentWords unsent;
    Subscription unsentChanged;
    Subscription firstShowing;
};

} // namespace zor
