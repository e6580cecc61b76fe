// SPDX-License-Identifier: MIT
#include "rftools/opal_v2_test.h"

#include "link/connect.h"
#include "link/number_reading.h"
#include "panels/common/chip_panel.h"
#include "rftools/chip_of_tool.h"
#include "support/numbers.h"

namespace zor {

namespace {

constexpr std::uint32_t testWordBase = 0xD000;
constexpr std::chrono::milliseconds readInterval(200);
/// How far from the end of the answer to "ri" its value stands.
constexpr std::size_t valueFromEnd = 9;
constexpr const char* closedPort =
    "Commport not available, please open commport. Control words were not updated.";

} // namespace

// One tick of SRtimeout runs one row. Odd steps ask for the tuner's bit that the test word selects, even ones
// take it and select the next:
//
//     1 ask, 2 bit 0, 3 ask, 4 bit 1, 5 ask, 6 bit 2, 7 ask, 8 bit 3 and the end
//
// Row 1000 is the end of a read that got no answer; no step leads there.
struct OpalV2test::Step {
    std::int32_t number;
    void (OpalV2test::*action)();
    std::int32_t next;
};

// clang-format off
const OpalV2test::Step OpalV2test::steps[] = {
    {1,    &OpalV2test::askForBit,    2},
    {2,    &OpalV2test::takeBit0,     3},
    {3,    &OpalV2test::askForBit,    4},
    {4,    &OpalV2test::takeBit1,     5},
    {5,    &OpalV2test::askForBit,    6},
    {6,    &OpalV2test::takeBit2,     7},
    {7,    &OpalV2test::askForBit,    8},
    {8,    &OpalV2test::takeBit3,     0},
    {1000, &OpalV2test::notAnswering, 0},
};
// clang-format on

OpalV2test::OpalV2test(Bench& ownBench)
    : Form(ownBench.desk, "OpalV2test", "KT1100 transmitter test mode")
    , DSen(*this, "DSen", "Enable Delta Sigma modulation")
    , TuningFrame(*this, "TuningFrame", "Antenna tuning")
    , Auto(*this, tuningGroup, "Auto", "Auto")
    , Manual(*this, tuningGroup, "Manual", "Manual")
    , Label3(*this, "Label3", "Set State:")
    , GearBoxData(*this, "GearBoxData", "0")
    , GearBoxScroll(*this, "GearBoxScroll", 0, 15, 0)
    , ReadGearbox(*this, "ReadGearbox", "Read State")
    , GearboxValue(*this, "GearboxValue", "---", TextField::Access::ReadOnly)
    , Test0w(*this, "Test0w", "Test Command:")
    , LabelUpdate(*this, "LabelUpdate", "Test Commad modified!")
    , Update(*this, "Update", "Send Command")
    , bench(ownBench)
    , tunerState(GearBoxData, {0, 15}, &GearBoxScroll, nullptr)
    , SRtimeout(ownBench.platform.loop, [this] { SRtimeout_Timer(); }) {
    setExtent({4200, 6300});
    GearBoxData.setTip("State of the antenna tuner, 0 to 15");
    ReadGearbox.setTip("Reads the state that the tuner found, bit by bit; takes two seconds");
    Test0w.define(testWordBase, {bit(7, "Delta-sigma modulation", DSen), fixedBit(5, "Fixed"),
                                 bits(
                                     4, 4, "Antenna tuning", [this] { return Manual.chosen() ? 1 : 0; },
                                     [this] { return std::string(Manual.chosen() ? "Manual" : "Auto"); }),
                                 bits(3, 0, "Tuner state", [this] { return tunerState.value(); })});
    DSen.onChange = [this] { settingChanged(); };
    Auto.onChoose = Manual.onChoose = [this] { modeChosen(); };
    GearBoxData.onCommit = [this] { GearBoxData_LostFocus(); };
    tellReadingsOf(bench, {&GearBoxData});
    Update.onClick = [this] { Update_Click(); };
    ReadGearbox.onClick = [this] { ReadGearbox_Click(); };

    bench.windows.OpalV2testOn = true;
    tunerState.commit();
    Auto.choose();
    LabelUpdate.setVisible(false);
}

OpalV2test::~OpalV2test() {
    // The next one may be open already when this one is discarded.
    if (!isClosed()) {
        unload();
    }
}

void OpalV2test::unload() {
    SRtimeout.stop();
    bench.windows.OpalV2testOn = false;
}

void OpalV2test::notice(const char* text) {
    showNotice(bench, {"OpalV2", "JadeV1"}, text);
}

void OpalV2test::settingChanged() {
    Test0w.rebuild();
    word = Test0w.value();
    LabelUpdate.setVisible(true);
}

void OpalV2test::GearBoxData_LostFocus() {
    notice(" ");
    tunerState.commit();
    settingChanged();
}

void OpalV2test::modeChosen() {
    bool automatic = Auto.chosen();
    for (Element* element : {static_cast<Element*>(&ReadGearbox), static_cast<Element*>(&GearboxValue)}) {
        element->setEnabled(automatic);
    }
    for (Element* element : {static_cast<Element*>(&GearBoxScroll), static_cast<Element*>(&GearBoxData),
                             static_cast<Element*>(&Label3)}) {
        element->setEnabled(!automatic);
    }
    settingChanged();
}

bool OpalV2test::portReady() {
    if (bench.connect->isOpen()) {
        return true;
    }
    notice("Communication fault.");
    bench.warn(closedPort);
    return false;
}

// The test firmware of the tuner wants its lines ended by CR LF.
void OpalV2test::sendWord(std::uint32_t sent) {
    bench.connect->Send_To_LoadBoard("S2" + hexText(sent) + "\r\n");
}

void OpalV2test::Update_Click() {
    if (!portReady()) {
        return;
    }
    LabelUpdate.setVisible(false);
    ControlWord::Sending sending = Test0w.beginSending();
    if (bench.connect->Send_To_LoadBoard("S2" + sending.text + "\r\n").outcome ==
        Exchange::Outcome::Answered) {
        Test0w.markSent(sending);
    }
}

void OpalV2test::ReadGearbox_Click() {
    if (!portReady()) {
        return;
    }
    GearboxValue.setText("....");
    SRtimeout.stop();
    SRtimeout.setInterval(readInterval);
    step = 1;
    stateRead = 0;
    // A port that is closed on purpose in their wait ends the read here and now.
    struct Beginning {
        OpalV2test& tool;
        bool complete = false;
        ~Beginning() {
            if (!complete) {
                tool.step = 0;
                tool.GearboxValue.setText("n/a");
            }
        }
    } beginning{*this};
    bench.connect->Send_To_LoadBoard("S2D200\r\n");
    Test0w.rebuildQuietly();
    // The read leaves the chip with a word that has been raised.
    Test0w.markUnsent();
    word = Test0w.value();
    sendWord(word);
    beginning.complete = true;
    if (isClosed()) {
        return;
    }
    SRtimeout.start();
    LabelUpdate.setVisible(false);
}

void OpalV2test::SRtimeout_Timer() {
    if (!bench.connect->isOpen()) {
        SRtimeout.stop();
        step = 0;
        GearboxValue.setText("n/a");
        return;
    }
    for (const Step& row : steps) {
        if (row.number == step) {
            // Set in front of the action: a read begun anew while it waits has its own step.
            step = row.next;
            (this->*row.action)();
            return;
        }
    }
}

void OpalV2test::askForBit() {
    bench.connect->Send_To_LoadBoard("ri\r\n");
}

std::int32_t OpalV2test::receivedBit() const {
    const std::string& tail = bench.link.Last15;
    return tail.size() >= valueFromEnd ? roundToInt(numericPrefix(tail.substr(tail.size() - valueFromEnd, 1)))
                                       : 0;
}

void OpalV2test::takeBit0() {
    GearboxValue.setText("...");
    stateRead = receivedBit();
    sendWord(++word);
}

void OpalV2test::takeBit1() {
    GearboxValue.setText("..");
    stateRead += 2 * receivedBit();
    sendWord(++word);
}

void OpalV2test::takeBit2() {
    GearboxValue.setText(".");
    stateRead += 4 * receivedBit();
    sendWord(++word);
    word = Test0w.value();
}

void OpalV2test::takeBit3() {
    SRtimeout.stop();
    stateRead += 8 * receivedBit();
    GearboxValue.setText(std::to_string(stateRead));
}

void OpalV2test::notAnswering() {
    SRtimeout.stop();
    bench.warn("Loadboard does not answer. Please check the connections!");
    GearboxValue.setText("n/a");
}

} // namespace zor
