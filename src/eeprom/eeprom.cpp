// SPDX-License-Identifier: MIT
// The window: its elements, its measures and its end.
#include "eeprom/eeprom.h"

#include "link/connect.h"

#include <algorithm>
#include <utility>

namespace zor {

namespace {

/// Lengths of the window's own, in twips.
constexpr Twips closedHeight = 3100;
constexpr Twips openingWidth = 7250;
/// What stands above and below the text.
constexpr Twips aroundWorkSheet = 3200;
constexpr Twips leastOpenHeight = 4000;
constexpr Twips firstWorkSheetHeight = 6000;

} // namespace

Eeprom::Eeprom(Bench& ownBench)
    : Form(ownBench.desk, "eeprom", "EEPROM Programmer")
    , loadeefile(*this, "loadeefile", "Load EEPROM content from file")
    , SaveEEFile(*this, "SaveEEFile", "Save EEPROM content To File")
    , Import(*this, "Import", "Import...")
    , Export(*this, "Export", "Export...")
    , Label5(*this, "Label5", "File name:")
    , Label7(*this, "Label7")
    , Label2(*this, "Label2", "Data size:")
    , Label3(*this, "Label3")
    , EditorWindow(*this, "EditorWindow", "Show editor window")
    , WorkSheet(*this, "WorkSheet")
    , MemoryPicture(*this, "MemoryPicture", eepromBytes / eepromPageBytes, eepromPageBytes)
    , MemoryCaret(*this, "MemoryCaret")
    , Prog(*this, "Prog", "Program to EEPROM")
    , Verify(*this, "Verify", "Verify")
    , Read(*this, "Read", "Read From EEPROM")
    , Command1(*this, "Command1", "Update")
    , VerifyAfterProgramming(*this, "VerifyAfterProgramming", "Verify after programming")
    , Label1(*this, "Label1", "EEPROM status:")
    , StatusMsg(*this, "StatusMsg", "Unknown", TextField::Access::ReadOnly)
    , ProgressBar1(*this, "ProgressBar1", 0, static_cast<int>(eepromBytes), 0)
    , RunProgress(*this, "RunProgress")
    , StopButton(*this, "StopButton", "Stop")
    , bench(ownBench)
    , EEprog_timer(ownBench.platform.loop, [this] { EEprog_timer_Timer(); })
    , workSheetHeight(firstWorkSheetHeight) {
    setPlace({0, 0});
    setExtent({closedHeight, openingWidth});
    WorkSheet.setMultiLine(true);
    WorkSheet.setTip("EEPROM content editor window");
    for (Button* button : {&loadeefile, &SaveEEFile, &Prog, &Verify, &Read, &Command1, &StopButton}) {
        button->setTip(button->caption());
    }
    EditorWindow.setTip(EditorWindow.caption());
    Import.setTip("Reads an image in Intel HEX or raw binary");
    Export.setTip("Writes the image in Intel HEX or raw binary");
    VerifyAfterProgramming.setTip("Reads back what was programmed and compares it");
    for (Element* element :
         std::initializer_list<Element*>{&WorkSheet, &MemoryPicture, &MemoryCaret, &ProgressBar1, &StopButton,
                                         &Label2, &Label3, &Label5, &Label7}) {
        element->setVisible(false);
    }
    for (Button* button : {&Prog, &SaveEEFile, &Verify}) {
        button->setEnabled(false);
    }
    wire();
    bench.windows.EEPROMon = true;
    beginHistory(*this);
}

Aspects Eeprom::keptAspects(const Element& element) const {
    if (isSetting(element)) {
        return keepsContent;
    }
    bool ofTheFile = &element == &Label2 || &element == &Label3 || &element == &Label5 || &element == &Label7;
    return ofTheFile ? keepsVisible | keepsCaption : keepsNothing;
}

Eeprom::~Eeprom() {
    // The next programmer may be open already when this one is discarded.
    if (!isClosed()) {
        unload();
    }
}

void Eeprom::wire() {
    loadeefile.onClick = [this] { (void)loadFile(); };
    SaveEEFile.onClick = [this] { (void)saveFile(); };
    Import.onClick = [this] { importFile(); };
    Export.onClick = [this] { exportFile(); };
    Prog.onClick = [this] { Prog_Click(); };
    Verify.onClick = [this] { StartEepromRead(askVerify); };
    Read.onClick = [this] { StartEepromRead(askRead); };
    Command1.onClick = [this] { Command1_Click(); };
    StopButton.onClick = [this] { StopButton_Click(); };
    EditorWindow.onChange = [this] { EditorWindow_Click(); };
    MemoryPicture.explain = [this](std::size_t byte) { return memoryText(byte); };
    MemoryPicture.onCell = [this](std::size_t byte) { caretToByte(byte); };
    edited = WorkSheet.changed.subscribe([this] { showMemory(); });
    caretMoved = WorkSheet.cursorMoved.subscribe([this] { showCaret(); });
    resized = changed.subscribe([this] { keepLeastHeight(); });
    closing = bench.connect->closing.subscribe([this] {
        if (claim.held()) {
            breakOff();
        }
    });
}

void Eeprom::unload() {
    closing.end();
    EEprog_timer.stop();
    bench.windows.EEPROMon = false;
    // Given back behind the last line, however that one ends.
    PortClaim ending = std::move(claim);
    if (ending && bench.connect->isOpen()) {
        SendEepromCommand("H2");
    }
}

std::array<Button*, 6> Eeprom::runButtons() {
    return {&loadeefile, &Prog, &Read, &SaveEEFile, &Verify, &Command1};
}

void Eeprom::EditorWindow_Click() {
    bool shown = EditorWindow.ticked();
    for (Element* element : std::initializer_list<Element*>{&WorkSheet, &MemoryPicture, &MemoryCaret}) {
        element->setVisible(shown);
    }
    setExtent({shown ? workSheetHeight + aroundWorkSheet : closedHeight, extent().width});
}

void Eeprom::keepLeastHeight() {
    Twips least = EditorWindow.ticked() ? leastOpenHeight : closedHeight;
    if (extent().height < least) {
        setExtent({least, extent().width});
        return;
    }
    if (WorkSheet.visible()) {
        workSheetHeight = extent().height - aroundWorkSheet;
    }
}

} // namespace zor
