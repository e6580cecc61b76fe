// SPDX-License-Identifier: MIT
#pragma once

#include "elements/range.h"
#include "panels/common/linked_number.h"
#include "panels/transmitters/transmitter_panel.h"

namespace zor {

/// Control panel of the KT1102 transmitter.
class KT1102 : public TransmitterPanel {
  public:
    explicit KT1102(Bench& ownBench);
    /// What the chip is, whether or not its panel exists.
    [[nodiscard]] static const PanelTraits& chipTraits();

    UpDown UD_LBD;
    TickBox CB_ebs;

    TickBox CB_EnFIFO;
    TextField TB_FIFOITLevel;
    Slider SL_FIFOITLevel;
    UpDown UD_FIFOITLevel;
    ControlWord TB_FIFOcmd;

    TickBox CB_Prescaler;
    TextField TB_DataRate;
    Slider SL_DataRateLevel;
    UpDown UD_DataRate;
    /// In kbit/s.
    TextField TB_DataRateValue;
    ControlWord TB_DataRateCmd;

    Slider SL_WakeUpM;
    UpDown UD_WakeUpM;
    Slider SL_WakeUpR;
    UpDown UD_WakeUpR;
    TextField WKUPD;
    UpDown UD_WakeUpD;
    ControlWord EWkupw;

    TickBox CB_EnLowPowerXtal;
    TickBox CB_512ClockTail;
    TickBox CB_DisWUTAutocal;
    TickBox CB_DisFIFOAutoSleep;
    TickBox CB_EnWUonIT;
    CodeList C_PLLBW;
    ControlWord EFCmd;

    [[nodiscard]] KeptParts keptParts() override;

  protected:
    void setDefaults() override;
    void crystalChanged() override;
    WakeUpSetting commitWakeUpFields() override;
    void wakeUpCommitted() override;
    [[nodiscard]] std::vector<Element*> wakeUpElements() override;
    [[nodiscard]] std::vector<Element*> lowBatteryElements() override;
    void commitFurtherRead() override;
    [[nodiscard]] ConfigurationLines configuration() override;

  private:
    void wire();
    void defineWords();
    void TB_FIFOITLevel_LostFocus();
    void TB_DataRate_LostFocus();

    LinkedNumber thresholdLink;
    LinkedNumber fifoLevel;
    LinkedNumber dataRateDivider;
    LinkedNumber wakeUpM;
    LinkedNumber wakeUpR;
    LinkedNumber wakeUpD;
};

} // namespace zor
