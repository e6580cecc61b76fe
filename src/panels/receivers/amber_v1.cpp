// SPDX-License-Identifier: MIT
#include "panels/receivers/amber_v1.h"

namespace zor {

namespace {

PanelTraits makePanelTraits() {
    PanelTraits traits = receiverPanelTraits();
    traits.formName = "AmberV1";
    traits.title = "KT2100 receiver control panel";
    traits.startBand = Band::Band433;
    traits.startFrequency = "435";
    traits.startCapacitance = "10.0 pF";
    traits.file.extension = "rc";
    traits.file.filter = "Receiver Configuration files (*.rc)|*.rc|All files (*.*)|*.*";
    traits.file.saveTitle = "Save KT2100 Configuration File";
    traits.file.banner = "# ZOR Receiver configuration file. Version 2.0.0";
    return traits;
}

const PanelTraits amberTraits = makePanelTraits();
const ReceivingTraits amberReceiving = receiverTraits();

constexpr const char* oldRevision = "'E' or below";
constexpr const char* newRevision = "'F' or above";

/// Codes of the FIFO's fill start that wait for no pattern.
constexpr int startsWithVdi = 0;
constexpr int startsAlways = 3;

/// Indicators that the older generation lacks.
constexpr int firstNewIndicator = 10;
constexpr int lastNewIndicator = 16;

} // namespace

/// What a generation of the chip brings with it.
struct AmberV1::RevisionRow {
    const char* revision;
    int flag;
    const char* ninthIndicator;
    Swatch AmberV1::*colour;
    std::vector<CodeList::Entry> validData;
    std::vector<CodeList::Entry> filters;
};

const PanelTraits& AmberV1::chipTraits() {
    return amberTraits;
}

AmberV1::AmberV1(Bench& ownBench)
    : ReceiverPanel(ownBench, amberTraits, amberReceiving)
    , Frame1(*this, "Frame1", "Select revision:")
    , Green(*this, "Green", {0, 192, 0})
    , Yellow(*this, "Yellow", {255, 255, 0}) {
    Revision.setContainer(&Frame1);
    Revision.onChange = [this] { Revision_Click(); };
    DFILTbit5.setEnabled(false);
    LBDw.define(0xC200, {bits(7, 5, "clock output", CLKout, "MHz"), thresholdBits(4)});
    Datafiltw.define(0xC400, {bits(7, 6, "clock recovery", ClkRecMode), bit(5, "not used", DFILTbit5),
                              bits(4, 3, "filter", FILTTYPE), filterParameterBits()});
    setWords({&Ctrlw, &Freqw, &Recw, &Wkupw, &Dutyw, &LBDw, &AFCw, &Dataratew, &Datafiltw, &FIFOw});
    setDataLineWord(FIFOw);
}

void AmberV1::setDefaults() {
    ReceiverPanel::setDefaults();
    Revision.fill(std::vector<std::string>{oldRevision, newRevision});
    Revision.selectText(bench.preferences.Pref_AmberRevision);
    if (revisionFlag < 0) {
        // A preference that names no generation.
        Revision.selectText(newRevision);
    }
    if (VDI.find("Always") >= 0) {
        VDI.selectText("Always");
    }
    takeDataLineAtStart();
}

void AmberV1::Revision_Click() {
    static const std::vector<RevisionRow> rows = {
        {newRevision, 1, "ATGL", &AmberV1::Green, amberReceiving.validData.entries,
         amberReceiving.filter.entries},
        {oldRevision,
         0,
         "SYNC",
         &AmberV1::Yellow,
         {{"DRSSI", 0}, {"Data Quality Detect", 1}, {"Clock Recovery locked", 2}, {"DQD and DRSSI", 3}},
         {{"Digital LPF", 1}, {"Analog LPF", 3}}},
    };
    for (const RevisionRow& row : rows) {
        if (Revision.text() == row.revision && revisionFlag != row.flag) {
            switchRevision(row);
        }
    }
}

void AmberV1::switchRevision(const RevisionRow& row) {
    revisionFlag = row.flag;
    showStatusOf(row);
    Revision.setBackground((this->*row.colour).background());
    dataratepresc.setEnabled(isF());
    if (!isF()) {
        dataratepresc.setTicked(false);
    }
    setDataRateForm();
    DATARATEDIV_LostFocus();
    VDI.fill(row.validData);
    VDI.selectText("Clock Recovery locked");
    FILTTYPE.fill(row.filters);
    FILTTYPE.selectText("Digital LPF");
    AFCauto.setEnabled(isF());
    setFrequencyControlForm();
    if (isF()) {
        AFCw.rebuild();
    } else {
        AFCauto.selectText("Manual");
    }
    FIFOstrt_Click();
}

KeptParts AmberV1::keptParts() {
    KeptParts parts = ReceiverPanel::keptParts();
    parts.push_back(keptPart(revisionFlag));
    return parts;
}

void AmberV1::partsPutBack() {
    if (laidOutFor != revisionFlag) {
        setDataRateForm();
        setFrequencyControlForm();
    }
}

void AmberV1::excludeForeignSettings() {
    if (!isF()) {
        dataratepresc.setTicked(false);
    }
}

void AmberV1::showStatusOf(const RevisionRow& row) {
    status(9).setCaption(row.ninthIndicator);
    for (int indicator = firstNewIndicator; indicator <= lastNewIndicator; ++indicator) {
        status(indicator).setVisible(isF());
    }
    for (Element* element :
         {static_cast<Element*>(&Foffset), static_cast<Element*>(&Labe35), static_cast<Element*>(&Labe36)}) {
        element->setVisible(isF());
    }
}

void AmberV1::setDataRateForm() {
    // The older generation has no prescaler and a longer divider in its place.
    Dataratew.define(receiving.dataRateBase,
                     isF() ? dataRateFields() : std::vector<BitField>{dividerBits(7)});
}

void AmberV1::setFrequencyControlForm() {
    laidOutFor = revisionFlag;
    if (isF()) {
        AFCw.define(receiving.frequencyControlBase, frequencyControlFields());
        return;
    }
    // Without modes the range stands a bit higher, and the two enabling bits have changed places.
    AFCw.define(receiving.frequencyControlBase,
                {bits(6, 5, "range", AFCres), bit(3, "strobe", afcst), bit(2, "fine", afcfi),
                 bit(1, "enable", afcen), bit(0, "output", afcoen)});
}

void AmberV1::FIFOstrt_Click() {
    // On the older generation these two fill without a pattern, so there is no latch to enable or to reset.
    // The code counts: a file may bring a text that stands for none.
    bool latches = isF() || (FIFOstrt.code() != startsWithVdi && FIFOstrt.code() != startsAlways);
    ffillen.setEnabled(latches);
    FFreset.setEnabled(latches);
    FIFOw.rebuild();
}

ConfigurationLines AmberV1::configuration() {
    return joined({settingLines(),
                   {textLine(WKUPM), textLine(WKUPR), textLine(DUTY_USEM), textLine(DUTY),
                    positionLine(CLKout), textLine(LBD)},
                   frequencyControlLines(),
                   {textLine(ClkRecMode), textLine(FILTTYPE), tickLine(DFILTbit5)},
                   fifoLines(),
                   {textLine(Revision)}});
}

} // namespace zor
