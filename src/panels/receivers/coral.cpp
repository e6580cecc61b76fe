// SPDX-License-Identifier: MIT
#include "panels/receivers/coral.h"

namespace zor {

namespace {

/// The synthesizer has the one multiplier 8. The lowest option leaves the base of the band before it.
constexpr BandTable coralBands = {{
    {8, std::nullopt, 0, 20},
    {8, 9, 1, 20},
    {8, 10, 2, 20},
    {8, 11, 3, 20},
}};

PanelTraits makePanelTraits() {
    PanelTraits traits = receiverPanelTraits();
    traits.formName = "Coral";
    traits.title = "KT2102 receiver control panel";
    traits.frequencyForm = FrequencyForm::EightThenTen;
    traits.bands = &coralBands;
    traits.startBand = Band::Band868;
    traits.startFrequency = "868.3";
    traits.startCapacitance = "12.5 pF";
    traits.wakeUp = extendedWakeUp;
    // The two directions disagree by 0.2 V.
    traits.threshold = {.range = {0, 15}, .shownOffset = 20, .typedOffset = 22};
    traits.file.extension = "rc2";
    traits.file.filter = "KT2102 Receiver Configuration files (*.rc2)|*.rc2|All files (*.*)|*.*";
    traits.file.saveTitle = "Save KT2102 Configuration File";
    traits.file.banner = "# ZOR KT2102 configuration file. Version 2.2.2";
    return traits;
}

ReceivingTraits makeReceivingTraits() {
    ReceivingTraits traits = receiverTraits();
    traits.fifoCaption = "FIFO Setting Command:";
    traits.bandwidths = {134, 200, 270, 340, 400};
    traits.gain = {{{"max.", 0}, {"-6 dB", 1}, {"-12 dB", 2}, {"-18 dB", 3}}, "max."};
    traits.frequencyControl.start = "Auto, drop Foffset";
    traits.frequencyRange = {{{"Unlimited", 0}, {"+-4 Fs", 1}, {"+-2 Fs", 2}, {"+-1 Fs", 3}}, "Unlimited"};
    traits.clockRecovery.start = "Fast";
    traits.filter = {{{"Digital LPF", 0}, {"Analog LPF", 1}}, "Digital LPF"};
    traits.fifoStart = {{{"VDI", 0}, {"Synchron pattern", 1}, {"Always", 3}}, "Synchron pattern"};
    traits.dataRateDivider = "19";
    traits.filterBit = "Disable autosleep on FIFO IT";
    traits.highestFifoLevel = 63;
    traits.thresholdFormula = "V       = 2.0 + T * 0.1 [V]";
    traits.furtherPages = {"Synchron Pattern", "Extended Features"};
    return traits;
}

const PanelTraits coralTraits = makePanelTraits();
const ReceivingTraits coralReceiving = makeReceivingTraits();

constexpr std::uint32_t synchronBase = 0xC100;

} // namespace

const PanelTraits& Coral::chipTraits() {
    return coralTraits;
}

Coral::Coral(Bench& ownBench)
    : ReceiverPanel(ownBench, coralTraits, coralReceiving)
    , SynchronPattern(static_cast<Form&>(*this), synchronBase)
    , WKUPD(*this, "WKUPD")
    , EWkupw(*this, "EWkupw", "Extended Wake-Up Timer Command:")
    , CB32kHz(*this, "CB32kHz", "Enable 32 kHz clock output during sleep mode")
    , cb_ewi(*this, "cb_ewi", "Automatic wake-up on any IT")
    , TB_F5F4(*this, "TB_F5F4", "", TextField::Access::ReadOnly)
    , CB_exlp(*this, "CB_exlp", "Low power mode for the xtal osc.")
    , CB_exr(*this, "CB_exr", "External res. for wake-up timer osc.")
    , CB_dcal(*this, "CB_dcal", "Disable wake-up timer autocalibration")
    , ClockTail(*this, "ClockTail", "Clock tail length")
    , OB_512bit(*this, tailGroup, "OB_512bit", "512 bit")
    , OB_128bit(*this, tailGroup, "OB_128bit", "128 bit")
    , CB_PllBW(*this, "CB_PllBW")
    , EFw(*this, "EFw", "Extended Features Command:") {
    TB_F5F4.setCaption("Bit[1-0] are the upper bits of the FIFO IT level");
    CB_PllBW.setCaption("PLL Bandwidth");
    CB_exr.setEnabled(false);
    OB_512bit.setContainer(&ClockTail);
    OB_128bit.setContainer(&ClockTail);
    wireFeatures();
    defineWords();
    // The extended features word is only shown: nothing sends it.
    setWords({&Ctrlw, &Freqw, &Recw, &Wkupw, &EWkupw, &Dutyw, &LBDw, &AFCw, &Dataratew, &Datafiltw, &FIFOw,
              &SynchPatt},
             {&EFw});
    setDataLineWord(SynchPatt);
}

void Coral::wireFeatures() {
    WKUPD.onCommit = [this] { WKUPM_LostFocus(); };
    feed(CB32kHz, LBDw);
    feed(cb_ewi, Datafiltw);
    for (TickBox* tick : {&CB_exlp, &CB_exr, &CB_dcal}) {
        feed(*tick, EFw);
    }
    for (Option* option : {&OB_512bit, &OB_128bit}) {
        option->onChoose = [this] { EFw.rebuild(); };
    }
    feed(CB_PllBW, EFw);
    // With two digits to type, the level waits for the commit.
    ITlevelNr.onEdit = nullptr;
}

void Coral::defineWords() {
    EWkupw.define(
        0xC300, {readBack(bits(7, 6, "D", [this] { return wakeUp.divisor; }),
                          numberSetting(
                              WKUPD, [this] { return wakeUp.divisor; }, extendedWakeUp.divisor)),
                 readBack(bits(5, 0, "M, high bits", [this] { return wakeUpHighBitsBy255(wakeUp.mantissa); }),
                          wakeUpMantissa(), 8)});
    LBDw.define(0xC200, {bits(7, 5, "clock output", CLKout, "MHz"), bit(4, "32 kHz in sleep", CB32kHz),
                         thresholdBits(3)});
    Datafiltw.define(0xC400, {bits(7, 6, "clock recovery", ClkRecMode), bit(5, "no autosleep", DFILTbit5),
                              bits(4, 4, "filter", FILTTYPE), bit(3, "wake-up on interrupt", cb_ewi),
                              filterParameterBits()});
    auto tail = [this] { return OB_512bit.chosen() ? 1 : 0; };
    EFw.define(0xB000,
               {bit(7, "low power oscillator", CB_exlp),
                readBack(bits(6, 6, "clock tail", tail,
                              [this] { return (OB_512bit.chosen() ? OB_512bit : OB_128bit).caption(); }),
                         optionSetting(tail, {{0, &OB_128bit}, {1, &OB_512bit}})),
                bit(5, "external resistor", CB_exr), bit(4, "no autocalibration", CB_dcal),
                bits(3, 2, "PLL bandwidth", CB_PllBW),
                readBack(bits(1, 0, "FIFO level, high bits", [this] { return upperLevelBits(); }),
                         fifoLevelSetting(), 4)});
}

void Coral::setDefaults() {
    WKUPD.setText("0");
    ReceiverPanel::setDefaults();
    Revision.fill(std::vector<std::string>{"'A' or above"});
    Revision.select(0);
    OB_128bit.choose();
    CB_PllBW.fill(std::vector<std::string>{"15 kHz", "30 kHz", "60 kHz", "120 kHz"});
    CB_PllBW.selectText("60 kHz");
    takeDataLineAtStart();
}

WakeUpSetting Coral::commitWakeUpFields() {
    WakeUpSetting setting = ReceiverPanel::commitWakeUpFields();
    setting.divisor = committedInteger(WKUPD.text(), traits().wakeUp.divisor);
    WKUPD.setText(std::to_string(setting.divisor));
    return setting;
}

void Coral::wakeUpCommitted() {
    EWkupw.rebuild();
    ReceiverPanel::wakeUpCommitted();
}

std::vector<Element*> Coral::wakeUpElements() {
    std::vector<Element*> elements = ReceiverPanel::wakeUpElements();
    elements.insert(elements.end(), {&WKUPD, &EWkupw});
    return elements;
}

void Coral::fifoLevelChanged() {
    ReceiverPanel::fifoLevelChanged();
    std::string upperBits = std::to_string(upperLevelBits());
    if (TB_F5F4.text() != upperBits) {
        TB_F5F4.setText(std::move(upperBits));
        EFw.rebuild();
    }
}

KeptParts Coral::keptParts() {
    KeptParts parts = ReceiverPanel::keptParts();
    parts.push_back(SynchronPattern::kept());
    return parts;
}

ConfigurationLines Coral::configuration() {
    return joined(
        {settingLines(),
         {textLine(WKUPM), textLine(WKUPR), textLine(WKUPD, [this] { WKUPM_LostFocus(); }),
          textLine(DUTY_USEM), textLine(DUTY), tickLine(enlowdc), tickLine(CB32kHz), positionLine(CLKout),
          textLine(LBD)},
         frequencyControlLines(),
         {textLine(ClkRecMode), textLine(FILTTYPE),
          textLine(StatefiltNr, [this] { StatefiltNr_LostFocus(); }), tickLine(cb_ewi), tickLine(DFILTbit5)},
         fifoLines(),
         {tickLine(CB_exlp), tickLine(CB_exr), tickLine(CB_dcal), booleanLine(OB_512bit),
          booleanLine(OB_128bit), textLine(TB_SP, [this] { TB_SP_LostFocus(); }), textLine(Revision)}});
}

} // namespace zor
