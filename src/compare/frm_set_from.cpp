// SPDX-License-Identifier: MIT
#include "compare/frm_set_from.h"

#include "host/files.h"
#include "link/file_dialog.h"
#include "panels/common/chip_panel.h"
#include "support/error.h"
#include "support/numbers.h"
#include "support/wording.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace zor {

namespace {

constexpr const char* headerPattern = "*.h";
/// Longer than any header of a chip, by far.
constexpr std::uintmax_t longestHeader = 1U << 20U;

std::vector<GridColumn> columns() {
    using Access = GridColumn::Access;
    return {{"Word", Access::ReadOnly, 24, false},
            {"Bits", Access::ReadOnly, 6, true},
            {"Field", Access::ReadOnly, 22, false},
            {"Asked", Access::ReadOnly, 12, true},
            {"Possible", Access::ReadOnly, 44, false}};
}

} // namespace

frm_SetFrom::frm_SetFrom(Bench& ownBench)
    : Form(ownBench.desk, "frm_SetFrom", "Set from a Word or Header")
    , L_Panel(*this, "L_Panel")
    , LabelWord(*this, "LabelWord", "Word:")
    , CB_Word(*this, "CB_Word")
    , TB_Word(*this, "TB_Word")
    , L_Meaning(*this, "L_Meaning")
    , PB_SetWord(*this, "PB_SetWord", "Set Word")
    , LabelHeader(*this, "LabelHeader", "C header:")
    , TB_HeaderText(*this, "TB_HeaderText")
    , PB_LoadHeader(*this, "PB_LoadHeader", "From File...")
    , PB_SetHeader(*this, "PB_SetHeader", "Set Panel")
    , L_Result(*this, "L_Result")
    , GR_Refused(*this, "GR_Refused", columns())
    , bench(ownBench)
    , target(ownBench, [this] { takePanel(); }) {
    setExtent({8400, 11400});
    TB_HeaderText.setMultiLine(true);
    GR_Refused.setCaption("What no setting gives:");
    GR_Refused.setTip("Each field that cannot be had, with what was asked and what is possible");
    TB_Word.setPlaceholder("A7D0, 0xA7D0 or S2A7D0");
    CB_Word.setTip("The word whose settings are set");
    TB_Word.setTip("The word's value in hexadecimal digits, with or without 0x, with or without the command "
                   "that sends it");
    PB_SetWord.setTip("Sets the settings that give the word; nothing is sent");
    TB_HeaderText.setTip("A header of the generator's form, or any text with its macros' names and values");
    PB_LoadHeader.setTip("Reads a header and sets the panel from it");
    PB_SetHeader.setTip("Sets the panel from the text above, all at once; nothing is sent");
    wire();
    takePanel();
    target.look();
}

void frm_SetFrom::wire() {
    CB_Word.onChange = [this] { showMeaning(); };
    TB_Word.onEdit = [this] { showMeaning(); };
    PB_SetWord.onClick = [this] { PB_SetWord_Click(); };
    PB_LoadHeader.onClick = [this] { PB_LoadHeader_Click(); };
    PB_SetHeader.onClick = [this] { PB_SetHeader_Click(); };
    showing.push_back(activated.subscribe([this] { takeAskedWord(); }));
    showing.push_back(raised.subscribe([this] { takeAskedWord(); }));
}

void frm_SetFrom::unload() {
    target.end();
}

void frm_SetFrom::takePanel() {
    const ChipPanel* panel = target.get();
    L_Panel.setCaption(panel == nullptr ? "Please open a chip's panel." : panel->title());
    std::vector<std::string> titles;
    if (panel != nullptr) {
        for (const ControlWord* word : panel->words()) {
            titles.push_back(word->title());
        }
    }
    CB_Word.setEntries(std::move(titles));
    CB_Word.putPosition(panel == nullptr ? -1 : 0);
    for (Element* element : {static_cast<Element*>(&CB_Word), static_cast<Element*>(&TB_Word),
                             static_cast<Element*>(&PB_SetWord), static_cast<Element*>(&PB_LoadHeader),
                             static_cast<Element*>(&PB_SetHeader)}) {
        element->setEnabled(panel != nullptr);
    }
    tell({});
    showMeaning();
}

void frm_SetFrom::takeAskedWord() {
    target.look();
    const ChipPanel* panel = target.get();
    if (panel == nullptr) {
        return;
    }
    const ControlWord* asked = panel->wordToSet();
    if (asked != nullptr) {
        CB_Word.putText(asked->title());
        showMeaning();
    }
    setFocus(asked != nullptr ? &TB_Word : &TB_HeaderText);
}

const ControlWord* frm_SetFrom::chosenWord() const {
    const ChipPanel* panel = target.get();
    if (panel == nullptr || CB_Word.position() < 0) {
        return nullptr;
    }
    return panel->words()[static_cast<std::size_t>(CB_Word.position())];
}

const ControlWord* frm_SetFrom::wordOf(std::uint32_t value) const {
    for (const ControlWord* word : target.get()->words()) {
        if (word->fits(value)) {
            return word;
        }
    }
    return nullptr;
}

void frm_SetFrom::showMeaning() {
    const ControlWord* word = chosenWord();
    std::optional<WrittenWord> written = readWrittenWord(TB_Word.text());
    std::string meaning;
    if (word != nullptr && written) {
        if (word->fits(written->value)) {
            meaning = word->explain(written->value);
        } else {
            const ControlWord* other = wordOf(written->value);
            meaning = other == nullptr ? "No word of the chip" : "A word of " + other->title();
        }
    }
    L_Meaning.setCaption(std::move(meaning));
}

void frm_SetFrom::PB_SetWord_Click() {
    const ControlWord* word = chosenWord();
    if (word == nullptr) {
        tell("Please choose a word.");
        return;
    }
    std::optional<WrittenWord> written = readWrittenWord(TB_Word.text());
    if (!written) {
        tell("Nothing was changed: \"" + TB_Word.text() + "\" is no hexadecimal word.");
        return;
    }
    if (written->bits != 0 && written->bits != word->bitCount()) {
        tell("Nothing was changed: that command sends " + std::to_string(written->bits) + " bits, " +
             word->title() + " has " + std::to_string(word->bitCount()) + ".");
        return;
    }
    WantedSettings wanted;
    wanted.words.emplace_back(word->name(), written->value);
    set(wanted, word->title() + " is " + hexText(written->value) + " now.");
}

void frm_SetFrom::PB_LoadHeader_Click() {
    FileRequest request;
    request.mode = FileRequest::Mode::Load;
    request.title = "Load C Header";
    request.folder = bench.platform.programFolder;
    request.startName = headerPattern;
    request.filter = "C header files (*.h)|*.h|All files (*.*)|*.*";
    request.defaultExtension = "h";
    auto read = [this](const FileChoice& choice) {
        try {
            TB_HeaderText.setText(readFile(choice.name, longestHeader));
            return true;
        } catch (const ToolError& error) {
            bench.tellFileError(error, "File open error");
            return false;
        }
    };
    if (loadChosen(bench, request, firstHeader(target.get()->chip()), read)) {
        PB_SetHeader_Click();
    }
}

void frm_SetFrom::PB_SetHeader_Click() {
    // The dialog may have outlived the panel.
    if (target.get() == nullptr) {
        return;
    }
    try {
        WantedByHeader wanted = wantedByHeader(*target.get(), TB_HeaderText.text());
        std::string done = "Set from the header: " + counted(wanted.settings.words.size(), "word") + ".";
        if (!wanted.foreign.empty()) {
            done += " Not of this chip:";
            for (const std::string& name : wanted.foreign) {
                done += " " + name;
            }
            done += ".";
        }
        set(wanted.settings, done);
    } catch (const HeaderFault& fault) {
        tell(std::string("Nothing was changed. ") + fault.what());
    }
}

void frm_SetFrom::set(const WantedSettings& wanted, const std::string& done) {
    std::vector<RefusedBits> refused;
    try {
        refused = setPanel(bench, *target.get(), wanted);
    } catch (const ToolError& error) {
        tell(std::string("Nothing was changed. ") + error.what() + ".");
        return;
    }
    if (refused.empty()) {
        tell(done);
        bench.notice(done);
        return;
    }
    std::string result = "Nothing was changed: " + counted(refused.size(), "field") + " cannot be set so.";
    if (wanted.words.size() == 1) {
        const ControlWord* other = wordOf(wanted.words.front().second);
        if (other != nullptr && other->name() != wanted.words.front().first) {
            result += " It is a word of " + other->title() + ".";
        }
    }
    tell(result, refused);
}

void frm_SetFrom::tell(const std::string& result, const std::vector<RefusedBits>& refused) {
    L_Result.setCaption(result);
    std::vector<GridRow> rows;
    rows.reserve(refused.size());
    for (const RefusedBits& row : refused) {
        rows.push_back({{row.word}, {row.bits}, {row.field, CellLook::Strong}, {row.asked}, {row.possible}});
    }
    GR_Refused.setRows(std::move(rows));
}

} // namespace zor
