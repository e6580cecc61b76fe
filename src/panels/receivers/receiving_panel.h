// SPDX-License-Identifier: MIT
#pragma once

#include "elements/range.h"
#include "elements/tab_strip.h"
#include "panels/common/chip_panel.h"
#include "panels/common/linked_number.h"
#include "panels/receivers/receiving_traits.h"

#include <memory>
#include <vector>

namespace zor {

/// What the receivers and transceivers share beyond every panel: the receiver chain's settings, frequency
/// control, data rate, data filter and FIFO with their words, the sixteen status bits and the offset in them,
/// and the data line that the FIFO takes for itself.
class ReceivingPanel : public ChipPanel {
  public:
    ReceivingPanel(Bench& ownBench, const PanelTraits& ownTraits, const ReceivingTraits& receivingTraits);

    // Commit actions, for others than the fields too.
    void DATARATEDIV_LostFocus();
    void DUTY_LostFocus();

    CodeList VDI;
    CodeList LNAgain;
    CodeList DRSSI;
    ScaledList BasebandBW;
    ControlWord Recw;

    TabStrip TabStrip1;
    /// The frame of a page, from 1.
    [[nodiscard]] Frame& page(int number) const { return *frames[static_cast<std::size_t>(number - 1)]; }

    // Wake-Up Timer
    Label WakeUpFormula;
    Label WakeUpFormulaPower;

    // Low Duty-Cycle
    TickBox enlowdc;
    TextField DUTY;
    /// The wake-up timer's M, which the duty cycle is a part of.
    TextField DUTY_USEM;
    /// In percent.
    TextField DUTY_CALC;
    Label DutyUnit;
    Label DutyFormula;
    ControlWord Dutyw;

    // Low Battery Detector
    Label ThresholdFormula;

    // AFC
    CodeList AFCauto;
    CodeList AFCres;
    TickBox afcen;
    TickBox afcfi;
    TickBox afcoen;
    TickBox afcst;
    ControlWord AFCw;

    // Data Rate
    TextField DATARATEDIV;
    TickBox dataratepresc;
    /// In kbit/s.
    TextField DATARATE;
    Label DataRateUnit;
    Label DataRateFormula;
    Label DataRateFormulaPower;
    ControlWord Dataratew;

    // Data Filter
    CodeList FILTTYPE;
    CodeList ClkRecMode;
    TickBox DFILTbit5;
    Slider STATEFILT;
    TextField StatefiltNr;
    /// Shows the filter's block diagram.
    Button PB_FilterHelp;
    ControlWord Datafiltw;

    // FIFO Buffer
    Slider ITLEVEL;
    TextField ITlevelNr;
    TickBox ffillen;
    CodeList FIFOstrt;
    Button FFreset;
    ControlWord FIFOw;

    /// Frequency offset that the last status read found, in kHz, between its two labels.
    TextField Foffset;
    Label Labe35;
    Label Labe36;

    [[nodiscard]] KeptParts keptParts() override;
    [[nodiscard]] Aspects keptAspects(const Element& element) const override;
    [[nodiscard]] ElementState takeElement(const Element& element, Aspects aspects) const override;
    void putElement(Element& element, const ElementState& state, Aspects aspects) override;

  protected:
    void setDefaults() override;
    void crystalChanged() override { DATARATEDIV_LostFocus(); }
    void wakeUpCommitted() override { DUTY_LostFocus(); }
    void wordSent(const ControlWord& word) override;
    void beforeStatusRead() override;
    void afterStatusRead() override;
    void statusReadCutShort() override;
    void showStatusByte(int index, std::uint32_t byte) override;
    void sendFarewell() override;

    /// The settings keep the raw data line for the FIFO.
    [[nodiscard]] virtual bool needsDataLine() const = 0;
    /// The ticks that the FIFO reset takes away and sets again.
    [[nodiscard]] virtual std::vector<TickBox*> resetTicks() = 0;
    [[nodiscard]] virtual IntegerRange dataRateRange() const { return {0, 127}; }
    /// By how many indicators the chip's status bits stand further to the front.
    [[nodiscard]] virtual int statusShift() const { return 0; }
    virtual void FIFOstrt_Click() { FIFOw.rebuild(); }
    /// ITLEVEL has another value, the highest included; its text may still be in the making.
    virtual void fifoLevelChanged() { FIFOw.rebuild(); }
    /// What the wake-up tick governs.
    [[nodiscard]] virtual std::vector<Element*> wakeUpElements();

    /// Fills a list and selects the entry it starts with.
    static void begin(CodeList& list, const Choices& choices);
    /// Frequency control word, mode and range on top.
    [[nodiscard]] std::vector<BitField> frequencyControlFields();
    [[nodiscard]] std::vector<BitField> dataRateFields();
    /// The data rate divider, down to bit 0.
    [[nodiscard]] BitField dividerBits(int highBit);
    [[nodiscard]] BitField filterParameterBits();
    /// The FIFO's interrupt level, whose bits stand in two words on some chips.
    [[nodiscard]] WordSetting fifoLevelSetting();
    void governLowBattery(const TickBox& tick);
    void governWakeUp(const TickBox& tick);
    /// The word of an Update behind which the data line is taken or given back.
    void setDataLineWord(const ControlWord& word) { dataLineWord = &word; }
    /// Takes the data line for the FIFO or gives it back; the port is open.
    void routeDataLine();
    void StatefiltNr_LostFocus();
    void configurationRead() override;

    /// The line of afcen: what the user set, also while a status read has it off.
    [[nodiscard]] ConfigurationLine frequencyControlLine();

    const ReceivingTraits& receiving;
    std::int32_t duty = 0;
    std::int32_t dataRateDivider = 0;

  private:
    void wireSettings();
    void wireFifo();
    void defineWords();
    void makePages();
    void FFreset_Click();
    void TabStrip1_Click();
    void AFCauto_Click();
    void ITlevelNr_Change();
    void ITlevelNr_LostFocus();

    LinkedNumber filterParameter;
    LinkedNumber fifoLevel;
    std::vector<std::unique_ptr<Frame>> frames;
    const ControlWord* dataLineWord = nullptr;
    /// The status read in progress has switched the frequency control off.
    bool frequencyControlStopped = false;
    /// Ticks that the latch's reset in progress has off for a moment.
    std::vector<const Element*> tickedSoon;
};

} // namespace zor
