// SPDX-License-Identifier: MIT
// The push button's byte and the data rate of a command sequence.
#include "eeprom/frm_cmd_sequence.h"
#include "eeprom/transmitter_words.h"

#include <utility>

namespace zor {

void Frm_CmdSequence::showPushButton(bool visible) {
    for (Element* element :
         {static_cast<Element*>(&Frm_ContExec), static_cast<Element*>(&CB_ContinousExecution[0]),
          static_cast<Element*>(&CB_ContinousExecution[1]), static_cast<Element*>(&CB_ContinousExecution[2]),
          static_cast<Element*>(&CB_ContinousExecution[3]), static_cast<Element*>(&CB_FourthButton),
          static_cast<Element*>(&CB_Pullup), static_cast<Element*>(&Frm_DebouncingTime),
          static_cast<Element*>(&OB_Bypass), static_cast<Element*>(&OB_10), static_cast<Element*>(&OB_40),
          static_cast<Element*>(&OB_160), static_cast<Element*>(&TB_PBCmdValue)}) {
        element->setVisible(visible);
    }
}

PushButtonSettings Frm_CmdSequence::pushButtonFields() const {
    PushButtonSettings settings;
    settings.fourthButton = CB_FourthButton.ticked();
    settings.debouncing = OB_Bypass.chosen() ? Debouncing::Bypass
                          : OB_10.chosen()   ? Debouncing::Ms10
                          : OB_40.chosen()   ? Debouncing::Ms40
                                             : Debouncing::Ms160;
    for (std::size_t button = 0; button < CB_ContinousExecution.size(); ++button) {
        settings.continuous[button] = CB_ContinousExecution[button].ticked();
    }
    settings.pullUpOff = CB_Pullup.ticked();
    return settings;
}

void Frm_CmdSequence::fillPushButton(const PushButtonSettings& settings) {
    CB_Pullup.putTicked(settings.pullUpOff);
    for (std::size_t button = 0; button < CB_ContinousExecution.size(); ++button) {
        CB_ContinousExecution[button].putTicked(settings.continuous[button]);
    }
    for (auto [option, time] :
         {std::pair(&OB_Bypass, Debouncing::Bypass), std::pair(&OB_10, Debouncing::Ms10),
          std::pair(&OB_40, Debouncing::Ms40), std::pair(&OB_160, Debouncing::Ms160)}) {
        if (settings.debouncing == time) {
            option->putChosen();
        }
    }
    CB_FourthButton.putTicked(settings.fourthButton);
    showPushButtonByte();
}

void Frm_CmdSequence::pushButtonChanged(unsigned mask, unsigned bits) {
    bChanged = true;
    PBCmd2 = static_cast<std::uint8_t>((PBCmd2 & ~mask) | bits);
    PBCmd = pushButtonByte(pushButtonFields());
    showPushButtonByte();
}

void Frm_CmdSequence::showPushButtonByte() {
    TB_PBCmdValue.setText(pushButtonWord(PBCmd));
}

void Frm_CmdSequence::putDataRate(const char* rate) {
    TB_DataRate.setText(rate);
    TB_DataRate_Change();
}

void Frm_CmdSequence::TB_DataRate_Change() {
    TB_DataRateCmd.setText(rateWord(TB_DataRate.text(), transmitterCrystal(bench)));
    bChanged = true;
}

void Frm_CmdSequence::TB_DataRate_LostFocus() {
    TB_DataRate.setText(obtainedRate(TB_DataRateCmd.text(), transmitterCrystal(bench)));
}

} // namespace zor
