// SPDX-License-Identifier: MIT
#include "utilities/mac_sniffer.h"

#include "link/file_dialog.h"

namespace zor {

namespace {

constexpr const char* textPattern = "*.txt";

} // namespace

MacSniffer::MacSniffer(Bench& ownBench)
    : Form(ownBench.desk, "frm_VireoMacSniffer", "VireoMac Packet Sniffer")
    , Incoming(*this, "Incoming")
    , Clear(*this, "Clear", "Clear")
    , Save(*this, "Save", "Save...")
    , Kept(*this, "Kept")
    , FR_OPT(*this, "FR_OPT", "VireoMac Versions")
    , OPT_Lite(*this, versions, "OPT_Lite", "Lite")
    , OPT_Norm(*this, versions, "OPT_Norm", "Normal")
    , FR_Hopt(*this, "FR_Hopt", "Header options")
    , OPT_FixPlen(*this, lengths, "OPT_FixPlen", "Fixed Packet Lenght")
    , OPT_DPlen(*this, lengths, "OPT_DPlen", "Dynamic Packet Lenght")
    , LBL_Plen(*this, "LBL_Plen", "PLEN:")
    , TXT_Plen(*this, "TXT_Plen")
    , CHK_CID(*this, "CHK_CID", "CID used", true)
    , FR_Addr_Setup(*this, "FR_Addr_Setup", "Address Setup")
    , chk_Rar(*this, "chk_Rar", "Reduced address range")
    , OPT_Nw(*this, addressings, "OPT_Nw", "Network Addressing")
    , OPT_Nrm(*this, addressings, "OPT_Nrm", "Normal Addressing")
    , bench(ownBench) {
    setExtent({7200, 10800});
    for (Element* element : {static_cast<Element*>(&OPT_Lite), static_cast<Element*>(&OPT_Norm)}) {
        element->setContainer(&FR_OPT);
    }
    for (Element* element : {static_cast<Element*>(&OPT_FixPlen), static_cast<Element*>(&OPT_DPlen),
                             static_cast<Element*>(&LBL_Plen), static_cast<Element*>(&TXT_Plen),
                             static_cast<Element*>(&CHK_CID)}) {
        element->setContainer(&FR_Hopt);
    }
    for (Element* element :
         {static_cast<Element*>(&chk_Rar), static_cast<Element*>(&OPT_Nw), static_cast<Element*>(&OPT_Nrm)}) {
        element->setContainer(&FR_Addr_Setup);
    }
    Incoming.setLocked(true);
    Incoming.setTip("What the packet monitor prints");
    Save.setTip("Keeps the received text in a file");
    Clear.setTip("Empties the window");
    TXT_Plen.setTip("Packet length in bytes");

    OPT_Norm.putChosen();
    OPT_FixPlen.putChosen();
    OPT_Nrm.putChosen();
    OPT_Lite.onChoose = [this] { OPT_Lite_Click(); };
    OPT_Norm.onChoose = [this] { OPT_Norm_Click(); };
    OPT_FixPlen.onChoose = [this] { followLength(); };
    OPT_DPlen.onChoose = [this] { followLength(); };
    Clear.onClick = [this] {
        Incoming.clear();
        Kept.setCaption("");
    };
    Save.onClick = [this] { Save_Click(); };
    followLength();
    shortened = Incoming.shortened.subscribe([this] { Kept.setCaption(Incoming.droppedNote()); });

    bench.setMirror(&WindowSwitches::VireoMacSnifferOn, &Incoming);
    bench.windows.VireoMacSnifferOn = true;
}

MacSniffer::~MacSniffer() {
    // The next sniffer may be open already when this one is discarded.
    if (!isClosed()) {
        unload();
    }
}

void MacSniffer::unload() {
    bench.windows.VireoMacSnifferOn = false;
    bench.setMirror(&WindowSwitches::VireoMacSnifferOn, nullptr);
}

void MacSniffer::OPT_Lite_Click() {
    CHK_CID.setTicked(true);
    setFullVersion(false);
    followLength();
}

void MacSniffer::OPT_Norm_Click() {
    CHK_CID.setTicked(true);
    setFullVersion(true);
}

/// What the lite version of the packets does not have.
void MacSniffer::setFullVersion(bool enabled) {
    for (Element* element : {static_cast<Element*>(&CHK_CID), static_cast<Element*>(&OPT_Nw),
                             static_cast<Element*>(&chk_Rar), static_cast<Element*>(&OPT_DPlen)}) {
        element->setEnabled(enabled);
    }
}

void MacSniffer::followLength() {
    bool fixed = !OPT_DPlen.chosen();
    TXT_Plen.setEnabled(fixed);
    LBL_Plen.setEnabled(fixed);
}

void MacSniffer::Save_Click() {
    saveByDialog(bench,
                 {.mode = FileRequest::Mode::Save,
                  .title = "Save Received Packets",
                  .folder = {},
                  .startName = textPattern,
                  .filter = "Text files (*.txt)|*.txt|All files (*.*)|*.*",
                  .defaultExtension = "txt"},
                 "received-packets.txt", [this](const std::string&) { return Incoming.contents(); });
}

} // namespace zor
