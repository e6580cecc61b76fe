// SPDX-License-Identifier: MIT
#include "panels/receivers/receiving_panel.h"

#include "panels/common/frequency.h"
#include "panels/common/timing.h"
#include "support/numbers.h"

namespace zor {

namespace {

constexpr int highestFilterParameter = 7;

const std::vector<std::string> thresholds = {"-103 dBm", "-97 dBm", "-91 dBm", "-85 dBm",
                                             "-79 dBm",  "-73 dBm", "-67 dBm", "-61 dBm"};

/// An interrupt at level 0 would never end: the lowest level is 1.
IntegerRange fifoLevels(const ReceivingTraits& traits) {
    return {1, traits.highestFifoLevel};
}

std::vector<std::string> pageTitles(const ReceivingTraits& traits) {
    std::vector<std::string> titles = {"Wake-Up Timer", "Low Duty-Cycle", "Low Battery Detector", "AFC",
                                       "Data Rate",     "Data Filter",    "FIFO Buffer"};
    titles.insert(titles.end(), traits.furtherPages.begin(), traits.furtherPages.end());
    return titles;
}

} // namespace

ReceivingPanel::ReceivingPanel(Bench& ownBench, const PanelTraits& panelTraits,
                               const ReceivingTraits& receivingTraits)
    : ChipPanel(ownBench, panelTraits)
    , VDI(*this, "VDI")
    , LNAgain(*this, "LNAgain")
    , DRSSI(*this, "DRSSI")
    , BasebandBW(*this, "BasebandBW", receivingTraits.bandwidths, receivingTraits.bandwidthRow,
                 ScaledList::Coding::CountLessRow)
    , Recw(*this, "Recw", receivingTraits.receiverCaption)
    , TabStrip1(*this, "TabStrip1", pageTitles(receivingTraits))
    , WakeUpFormula(*this, "WakeUpFormula", "Time = M * 2     [ms]")
    , WakeUpFormulaPower(*this, "WakeUpFormulaPower", "R")
    , enlowdc(*this, "enlowdc", " Enable Low Duty-cycle operation")
    , DUTY(*this, "DUTY")
    , DUTY_USEM(*this, "DUTY_USEM", "", TextField::Access::ReadOnly)
    , DUTY_CALC(*this, "DUTY_CALC", "", TextField::Access::ReadOnly)
    , DutyUnit(*this, "DutyUnit", "%")
    , DutyFormula(*this, "DutyFormula", "Duty cycle = (D * 2 + 1) / M * 100 [%]")
    , Dutyw(*this, "Dutyw", "Low Duty-Cycle Command:")
    , ThresholdFormula(*this, "ThresholdFormula", receivingTraits.thresholdFormula)
    , AFCauto(*this, "AFCauto")
    , AFCres(*this, "AFCres")
    , afcen(*this, "afcen", "Enable AFC")
    , afcfi(*this, "afcfi", "Enable fine mode")
    , afcoen(*this, "afcoen", "Output Enable")
    , afcst(*this, "afcst", "Strobe")
    , AFCw(*this, "AFCw", "AFC Command:")
    , DATARATEDIV(*this, "DATARATEDIV")
    , dataratepresc(*this, "dataratepresc", " Enable prescaller (1/8)")
    , DATARATE(*this, "DATARATE", "", TextField::Access::ReadOnly)
    , DataRateUnit(*this, "DataRateUnit", "kbps")
    , DataRateFormula(*this, "DataRateFormula", "Data Rate = 10  / (1 + 7 * EnPresc) / 29 / (R+1)  [kbps]")
    , DataRateFormulaPower(*this, "DataRateFormulaPower", "4")
    , Dataratew(*this, "Dataratew", "Data Rate Command:")
    , FILTTYPE(*this, "FILTTYPE")
    , ClkRecMode(*this, "ClkRecMode")
    , DFILTbit5(*this, "DFILTbit5", receivingTraits.filterBit)
    , STATEFILT(*this, "STATEFILT", 0, highestFilterParameter, 0)
    , StatefiltNr(*this, "StatefiltNr")
    , PB_FilterHelp(*this, "PB_FilterHelp", "?")
    , Datafiltw(*this, "Datafiltw", "Data Filter Command:")
    , ITLEVEL(*this, "ITLEVEL", 0, receivingTraits.highestFifoLevel, 0)
    , ITlevelNr(*this, "ITlevelNr")
    , ffillen(*this, "ffillen", "Enable synchron latch")
    , FIFOstrt(*this, "FIFOstrt")
    , FFreset(*this, "FFreset", "Reset synchron latch")
    , FIFOw(*this, "FIFOw", receivingTraits.fifoCaption)
    , Foffset(*this, "Foffset", "", TextField::Access::ReadOnly)
    , Labe35(*this, "Labe35", "Foffset:")
    , Labe36(*this, "Labe36", "kHz")
    , receiving(receivingTraits)
    , filterParameter(StatefiltNr, {0, highestFilterParameter}, &STATEFILT, nullptr)
    , fifoLevel(ITlevelNr, fifoLevels(receivingTraits), &ITLEVEL, nullptr) {
    Label38.setCaption(receiving.lowBatteryReason);
    Label39.setCaption(receiving.wakeUpReason);
    STATEFILT.setCaption("DQD parameter:");
    ITLEVEL.setCaption("FIFO IT level:");
    makePages();
    wireSettings();
    wireFifo();
    defineWords();
}

void ReceivingPanel::makePages() {
    for (const std::string& title : TabStrip1.titles()) {
        std::string name = "Frame(" + std::to_string(frames.size() + 1) + ")";
        frames.push_back(std::make_unique<Frame>(*this, std::move(name), title));
    }
    TabStrip1.onTurn = [this] { TabStrip1_Click(); };
    TabStrip1_Click();
}

void ReceivingPanel::TabStrip1_Click() {
    for (int number = 1; number <= static_cast<int>(frames.size()); ++number) {
        page(number).setVisible(number == TabStrip1.page());
    }
}

void ReceivingPanel::wireSettings() {
    for (CodeList* list : {&VDI, &LNAgain, &DRSSI}) {
        feed(*list, Recw);
    }
    feed(CLKout, LBDw);
    feed(enlowdc, Dutyw);
    DUTY.onCommit = [this] { DUTY_LostFocus(); };
    AFCauto.onChange = [this] { AFCauto_Click(); };
    feed(AFCres, AFCw);
    for (TickBox* tick : {&afcen, &afcfi, &afcoen, &afcst}) {
        feed(*tick, AFCw);
    }
    DATARATEDIV.onCommit = [this] { DATARATEDIV_LostFocus(); };
    dataratepresc.onChange = [this] { DATARATEDIV_LostFocus(); };
    for (CodeList* list : {&FILTTYPE, &ClkRecMode}) {
        feed(*list, Datafiltw);
    }
    feed(DFILTbit5, Datafiltw);
    StatefiltNr.onCommit = [this] { StatefiltNr_LostFocus(); };
    PB_FilterHelp.setTip("Data Filter Block Diagram");
    PB_FilterHelp.onClick = [this] { bench.tools.open(Tool::Help_R1); };
}

void ReceivingPanel::wireFifo() {
    ITlevelNr.onEdit = [this] { ITlevelNr_Change(); };
    ITlevelNr.onCommit = [this] { ITlevelNr_LostFocus(); };
    feed(ffillen, FIFOw);
    FIFOstrt.onChange = [this] { FIFOstrt_Click(); };
    FFreset.onClick = [this] { FFreset_Click(); };
}

void ReceivingPanel::defineWords() {
    Dutyw.define(receiving.dutyBase, {readBack(bits(
                                                   7, 1, "D", [this] { return duty; },
                                                   [this] { return DUTY_CALC.text() + " %"; }),
                                               numberSetting(
                                                   DUTY, [this] { return duty; }, dutyRange)),
                                      bit(0, "low duty-cycle", enlowdc)});
    AFCw.define(receiving.frequencyControlBase, frequencyControlFields());
    Dataratew.define(receiving.dataRateBase, dataRateFields());
}

std::vector<BitField> ReceivingPanel::frequencyControlFields() {
    return {bits(7, 6, "mode", AFCauto), bits(5, 4, "range", AFCres), bit(3, "strobe", afcst),
            bit(2, "fine", afcfi),       bit(1, "output", afcoen),    bit(0, "enable", afcen)};
}

std::vector<BitField> ReceivingPanel::dataRateFields() {
    return {bit(7, "prescaler", dataratepresc), dividerBits(6)};
}

BitField ReceivingPanel::dividerBits(int highBit) {
    return readBack(bits(
                        highBit, 0, "R", [this] { return dataRateDivider; },
                        [this] { return DATARATE.text() + " kbps"; }),
                    numberSetting(
                        DATARATEDIV, [this] { return dataRateDivider; }, [this] { return dataRateRange(); }));
}

BitField ReceivingPanel::filterParameterBits() {
    return readBack(
        bits(2, 0, "DQD parameter", [this] { return STATEFILT.value(); }),
        numberSetting(
            StatefiltNr, [this] { return STATEFILT.value(); }, IntegerRange{0, highestFilterParameter}));
}

WordSetting ReceivingPanel::fifoLevelSetting() {
    return numberSetting(
        ITlevelNr, [this] { return ITLEVEL.value(); }, fifoLevels(receiving));
}

void ReceivingPanel::begin(CodeList& list, const Choices& choices) {
    list.fill(choices.entries);
    list.selectText(choices.start);
}

void ReceivingPanel::setDefaults() {
    begin(VDI, receiving.validData);
    begin(LNAgain, receiving.gain);
    DRSSI.fill(thresholds);
    DRSSI.select(0);
    WKUPM.setText("150");
    WKUPR.setText("1");
    DUTY.setText("7");
    WKUPM_LostFocus();
    LBD.setText("0");
    LBD_LostFocus();
    begin(AFCauto, receiving.frequencyControl);
    begin(AFCres, receiving.frequencyRange);
    for (TickBox* tick : {&afcen, &afcfi, &afcoen, &DFILTbit5}) {
        tick->setTicked(true);
    }
    DATARATEDIV.setText(receiving.dataRateDivider);
    DATARATEDIV_LostFocus();
    begin(FILTTYPE, receiving.filter);
    begin(ClkRecMode, receiving.clockRecovery);
    StatefiltNr.setText("4");
    StatefiltNr_LostFocus();
    ITlevelNr.setText("8");
    ITlevelNr_LostFocus();
    begin(FIFOstrt, receiving.fifoStart);
    govern(false, {&LBD, &LBDV, &LBDw}, Label38);
    govern(false, wakeUpElements(), Label39);
}

void ReceivingPanel::DUTY_LostFocus() {
    duty = committedInteger(DUTY.text(), dutyRange);
    DUTY.setText(std::to_string(duty));
    DUTY_USEM.setText(WKUPM.text());
    DUTY_CALC.setText(dutyCycle(duty, numericPrefix(WKUPM.text())).text);
    Dutyw.rebuild();
}

void ReceivingPanel::AFCauto_Click() {
    // Only a person's strobe needs a button; the automatic modes strobe for themselves.
    afcst.setEnabled(AFCauto.code() == 0);
    AFCw.rebuild();
}

void ReceivingPanel::DATARATEDIV_LostFocus() {
    dataRateDivider = committedInteger(DATARATEDIV.text(), dataRateRange());
    DATARATEDIV.setText(std::to_string(dataRateDivider));
    Prescaler prescaler = dataratepresc.ticked() ? Prescaler::On : Prescaler::Off;
    DATARATE.setText(dataRate(dataRateDivider, prescaler, CrystalRatio).text);
    Dataratew.rebuild();
}

void ReceivingPanel::StatefiltNr_LostFocus() {
    filterParameter.commit();
    Datafiltw.rebuild();
}

void ReceivingPanel::ITlevelNr_Change() {
    // The slider follows each digit; the text itself is put right by its commit.
    ITLEVEL.putValue(committedInteger(ITlevelNr.text(), fifoLevels(receiving)));
    fifoLevelChanged();
}

void ReceivingPanel::ITlevelNr_LostFocus() {
    fifoLevel.commit();
    fifoLevelChanged();
}

void ReceivingPanel::configurationRead() {
    FreqCenter_LostFocus();
    WKUPM_LostFocus();
    DUTY_LostFocus();
    LBD_LostFocus();
    DATARATEDIV_LostFocus();
}

std::vector<Element*> ReceivingPanel::wakeUpElements() {
    return {&WKUPM, &WKUPR, &WKUPTIME, &Wkupw};
}

void ReceivingPanel::governLowBattery(const TickBox& tick) {
    govern(tick.ticked(), {&LBD, &LBDV, &LBDw}, Label38);
}

void ReceivingPanel::governWakeUp(const TickBox& tick) {
    govern(tick.ticked(), wakeUpElements(), Label39);
}

} // namespace zor
