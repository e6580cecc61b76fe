// SPDX-License-Identifier: MIT
#include "headergen/frm_gen_header.h"

#include "headergen/c_names.h"
#include "headergen/chip_headers.h"
#include "panels/receivers/amber_v1.h"
#include "panels/receivers/beryl_v3.h"
#include "panels/receivers/coral.h"
#include "panels/receivers/frm_topaz.h"
#include "panels/transmitters/jade_v1.h"
#include "panels/transmitters/kt1102.h"
#include "panels/transmitters/opal_v2.h"
#include "support/numbers.h"

#include <algorithm>

namespace zor {

namespace {

/// As long as a line of stars that is closed at the thirteenth tab.
constexpr std::size_t starCount = 107;
constexpr const char* webAddress = "http://www.ortolan.example";
constexpr const char* supportAddress = "support@ortolan.example";
constexpr const char* lastLine = "************************************ End of header file "
                                 "***************************************************";

} // namespace

/// A panel that headers are made of.
struct Frm_GenHeader::Source {
    bool WindowSwitches::*open;
    const char* panel;
    const char* device;
    /// The regional low-power variant; nullptr for a chip without one.
    const char* variant;
    void (Frm_GenHeader::*section)();
};

const std::vector<Frm_GenHeader::Source>& Frm_GenHeader::sources() {
    using Switch = WindowSwitches;
    using This = Frm_GenHeader;
    // Of several that are open the first counts.
    // clang-format off
    static const std::vector<Source> rows = {
        {&Switch::TX0on,  "OpalV2",    "KT1100", "KT1100B", &This::Do_KT1100},
        {&Switch::TX1on,  "JadeV1",    "KT1101", nullptr,   &This::Do_KT1101},
        {&Switch::TX2on,  "KT1102",    "KT1102", nullptr,   &This::Do_KT1102},
        {&Switch::RXon,   "AmberV1",   "KT2100", nullptr,   &This::Do_KT2100},
        {&Switch::RX1on,  "Coral",     "KT2102", nullptr,   &This::Do_KT2102},
        {&Switch::TRXon,  "BerylV3",   "KT3100", "KT3100B", &This::Do_KT3100},
        {&Switch::TRX1on, "FRM_Topaz", "KT3101", nullptr,   &This::Do_KT3101},
    };
    // clang-format on
    return rows;
}

Frm_GenHeader::Frm_GenHeader(Bench& ownBench)
    : Form(ownBench.desk, "Frm_GenHeader", "ANSI C Header Generator")
    , CB_DeviceName(*this, literalGroup, "CB_DeviceName", "Add device name to literal")
    , CB_DefineLiteral(*this, literalGroup, "CB_DefineLiteral", "Add text to literal")
    , TB_Literal(*this, "TB_Literal", "RFSETUP")
    , L_LiteralNote(*this, "L_LiteralNote")
    , L_Source(*this, "L_Source")
    , TB_Header(*this, "TB_Header")
    , PB_Generate(*this, "PB_Generate", "&Generate Header")
    , PB_Clear(*this, "PB_Clear", "&Clear Contents")
    , PB_Copy(*this, "PB_Copy", "C&opy")
    , PB_Save(*this, "PB_Save", "&Save")
    , PB_SaveAgain(*this, "PB_SaveAgain", "Save &Again")
    , L_Unsent(*this, "L_Unsent")
    , L_Saved(*this, "L_Saved")
    , bench(ownBench) {
    setPlace({450, 6000});
    setExtent({9600, 12900});
    TB_Header.setMultiLine(true);
    wire();
    CB_DeviceName.choose();
    showSaved();
}

void Frm_GenHeader::wire() {
    auto literalChosen = [this] {
        TB_Literal.setEnabled(CB_DefineLiteral.chosen());
        showLiteralNote();
    };
    CB_DeviceName.onChoose = literalChosen;
    CB_DefineLiteral.onChoose = literalChosen;
    TB_Literal.onEdit = [this] { showLiteralNote(); };
    PB_Generate.onClick = [this] {
        commitTypedFields();
        // A commit may have sent and waited; the window, or the program, may have been closed meanwhile.
        if (isOpen()) {
            PB_Generate_Click();
        }
    };
    PB_Clear.onClick = [this] { PB_Clear_Click(); };
    PB_Copy.onClick = [this] { PB_Copy_Click(); };
    PB_Save.onClick = [this] { PB_Save_Click(); };
    PB_SaveAgain.onClick = [this] { PB_SaveAgain_Click(); };
    unsentChanged = unsent.changed.subscribe([this] { showUnsent(); });
    firstShowing = activated.subscribe([this] { begin(); });
}

void Frm_GenHeader::begin() {
    firstShowing.end();
    PB_Generate_Click();
}

void Frm_GenHeader::PB_Generate_Click() {
    if (SetSource()) {
        GenerateHeader();
    }
}

void Frm_GenHeader::commitTypedFields() {
    for (const Source& row : sources()) {
        ChipPanel* panel = panelOf(row);
        if (panel == nullptr) {
            continue;
        }
        for (Element* element : panel->elements()) {
            auto* field = dynamic_cast<TextField*>(element);
            if (field != nullptr && field->typedIn()) {
                field->leave();
            }
        }
    }
}

ChipPanel* Frm_GenHeader::panelOf(const Source& row) const {
    // The switch is set before the panel is made.
    return bench.windows.*row.open ? dynamic_cast<ChipPanel*>(bench.desk.find(row.panel)) : nullptr;
}

bool Frm_GenHeader::SetSource() {
    source = nullptr;
    for (const Source& row : sources()) {
        if (source == nullptr && panelOf(row) != nullptr) {
            source = &row;
        }
    }
    if (source == nullptr) {
        L_Source.setCaption("Source: No source.");
        bench.platform.dialogs.show({.text = "Please open the appropriate control panel.",
                                     .title = "No control panel opened.",
                                     .icon = BoxIcon::Warning});
        return false;
    }
    L_Source.setCaption("Source: " + panelOf(*source)->title());
    bool variant = source->variant != nullptr && bench.IsBijakuModeSet();
    deviceName = variant ? source->variant : source->device;
    macroPrefix = CB_DefineLiteral.chosen() ? TB_Literal.text() : deviceName;
    return true;
}

void Frm_GenHeader::GenerateHeader() {
    const ChipPanel& panel = *panelOf(*source);
    crystalHertz = roundToInt(numericPrefix(panel.Crystalfreq.text()) * 1e6);
    header = {};
    writeFrame(panel);
    header.emptyLines(2);
    header.line("#define " + deviceName);
    header.line("#define UPCLKFREQUENCY" + tabs(3) + std::to_string(crystalHertz));
    header.emptyLines(2);
    (this->*source->section)();
    header.emptyLines(2);
    header.line("/*");
    header.line(lastLine);
    header.line("*/");
    TB_Header.setText(header.text());
    showUnsent();
    showSaved();
}

void Frm_GenHeader::writeFrame(const ChipPanel& panel) {
    const std::string stars(starCount, '*');
    header.line("/*");
    header.line(stars);
    framed("*** Configuration File generated automatically by Harnet's Ortolan Radio Bench System", 2);
    framed(std::string("*** ") + productTitle + " GUI Version " ZOR_VERSION, 10);
    if (source->variant != nullptr && bench.IsBijakuModeSet()) {
        // The variant comes in one revision.
        framed("*** Device: " + deviceName, 11);
    } else {
        framed("*** Device: " + deviceName + " rev:" + panel.Revision.text(), 9);
    }
    framed("***", 13);
    framed("*** Crystal Value: " + panel.Crystalfreq.text() + " MHz", 10);
    framed("***", 13);
    framed(std::string("*** For further details please consult device datasheet available at <") +
               webAddress + ">",
           1);
    framed("*** For technical support please attach this file and contact:", 6);
    framed(std::string("*** ") + supportAddress + " <mailto:" + supportAddress + ">", 4);
    header.line(stars);
    header.line("*/");
}

void Frm_GenHeader::framed(const std::string& text, int tabCount) {
    header.line(text + tabs(tabCount) + "***");
}

template <class Panel>
void Frm_GenHeader::appendSection() {
    auto& panel = static_cast<Panel&>(*panelOf(*source));
    HeaderBlocks blocks = headerBlocks(panel);
    for (const HeaderBlock& block : blocks) {
        header.block(macroPrefix, block);
    }
    unsent.follow(panel, blocks);
}

void Frm_GenHeader::Do_KT1100() {
    appendSection<OpalV2>();
}

void Frm_GenHeader::Do_KT1101() {
    appendSection<JadeV1>();
}

void Frm_GenHeader::Do_KT1102() {
    appendSection<KT1102>();
}

void Frm_GenHeader::Do_KT2100() {
    appendSection<AmberV1>();
}

void Frm_GenHeader::Do_KT2102() {
    appendSection<Coral>();
}

void Frm_GenHeader::Do_KT3100() {
    appendSection<BerylV3>();
}

void Frm_GenHeader::Do_KT3101() {
    appendSection<FRM_Topaz>();
}

void Frm_GenHeader::PB_Clear_Click() {
    TB_Header.setText("");
    unsent.forget();
    showUnsent();
}

void Frm_GenHeader::PB_Copy_Click() {
    bench.platform.surroundings.copyText(TB_Header.text());
}

void Frm_GenHeader::showLiteralNote() {
    L_LiteralNote.setCaption(CB_DefineLiteral.chosen() ? prefixNote(TB_Literal.text()) : std::string());
}

void Frm_GenHeader::showUnsent() {
    if (!unsent.following()) {
        L_Unsent.setCaption("");
        L_Unsent.setTip("");
        return;
    }
    std::vector<std::string> commands = unsent.commands();
    std::string names;
    for (const std::string& command : commands) {
        names += (names.empty() ? "" : ", ") + command;
    }
    switch (commands.size()) {
    case 0:
        L_Unsent.setCaption("All words are in the chip");
        break;
    case 1:
        L_Unsent.setCaption("1 word is not in the chip yet");
        break;
    default:
        L_Unsent.setCaption(std::to_string(commands.size()) + " words are not in the chip yet");
        break;
    }
    L_Unsent.setTip(std::move(names));
}

} // namespace zor
