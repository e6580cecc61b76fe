// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/form.h"
#include "elements/label.h"
#include "elements/options.h"
#include "elements/range.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "link/bench.h"
#include "panels/common/control_word.h"
#include "panels/common/linked_number.h"
#include "platform/event_loop.h"

#include <cstdint>

namespace zor {

/// The KT1100's test command: the delta-sigma modulator of its FSK path, and the antenna tuner, which works
/// by itself or holds a state that is set here. The state that it found by itself is read back bit by bit.
class OpalV2test : public Form {
    // Older than the options that join it.
    OptionGroup tuningGroup;

  public:
    explicit OpalV2test(Bench& ownBench);
    ~OpalV2test() override;

    TickBox DSen;
    Frame TuningFrame;
    Option Auto;
    Option Manual;
    Label Label3;
    /// The state that a manual tuner holds, 0 to 15.
    TextField GearBoxData;
    Slider GearBoxScroll;
    Button ReadGearbox;
    TextField GearboxValue;
    ControlWord Test0w;
    Label LabelUpdate;
    Button Update;

  protected:
    void unload() override;

  private:
    /// A row of the tuner read's step table: what a tick does and where it goes.
    struct Step;
    static const Step steps[];

    void settingChanged();
    void GearBoxData_LostFocus();
    void modeChosen();
    void Update_Click();
    void ReadGearbox_Click();
    void SRtimeout_Timer();
    /// @return the port is open; if not, the status line and a box have said so
    [[nodiscard]] bool portReady();
    void notice(const char* text);
    void sendWord(std::uint32_t word);

    // The actions of the steps.
    void askForBit();
    void takeBit0();
    void takeBit1();
    void takeBit2();
    void takeBit3();
    void notAnswering();
    [[nodiscard]] std::int32_t receivedBit() const;

    Bench& bench;
    LinkedNumber tunerState;
    Timer SRtimeout;
    /// The test word as it was sent last; a tuner read raises it bit by bit.
    std::uint32_t word = 0;
    std::int32_t step = 0;
    std::int32_t stateRead = 0;
};

} // namespace zor
