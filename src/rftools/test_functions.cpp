// SPDX-License-Identifier: MIT
#include "rftools/test_functions.h"

#include "link/connect.h"
#include "rftools/chip_of_tool.h"
#include "support/numbers.h"

#include <optional>
#include <utility>

namespace zor {

namespace {

/// The bytes by their index in the arrays, with what stands in front of them in the word that carries them.
struct ByteRow {
    const char* name;
    const char* head;
};
constexpr std::array<ByteRow, 2> byteRows = {
    {{"Test Control Byte #2", "DA"}, {"Test Control Byte #1", "D8"}}};
constexpr std::size_t secondByte = 0;
constexpr std::size_t firstByte = 1;

// Fields of the first byte.
constexpr std::uint32_t modulatorOff = 0x80;
constexpr std::uint32_t highGain = 0x40;
constexpr std::uint32_t modeBits = 0x30;
constexpr std::uint32_t dataBits = 0x0F;
// Fields of the second byte.
constexpr std::uint32_t digitalBits = 0xF8;
constexpr std::uint32_t analogBits = 0x06;
constexpr std::uint32_t lowestBit = 0x01;

constexpr std::uint32_t byteMask = 0xFF;
/// The list's position of the mode that has no code of its own.
constexpr int amplifierPosition = 4;

const std::vector<std::string>& analogOutputs() {
    static const std::vector<std::string> entries = {
        "HighZ on both outputs", "Limiter differential Q Input channel",
        "Limiter differential I Input channel", "Mixer differential offset Q channel "};
    return entries;
}

std::uint32_t hexDigit(std::string_view text, std::size_t position) {
    return position < text.size() ? readHex(text.substr(position, 1)).value_or(0) : 0;
}

} // namespace

TestFunctions::AmplifierTest::AmplifierTest(Form& owner, const TestFunctionTraits& traits)
    : FramePA(owner, "FramePA", "PA Test Select")
    , Label8(owner, "Label8", "PA Status Bit Select")
    , CB_GBDataPAMode(owner, "CB_GBDataPAMode", traits.amplifierBits) {
    Label8.setContainer(&FramePA);
    CB_GBDataPAMode.setContainer(&FramePA);
    CB_GBDataPAMode.putPosition(0);
    Label8.setVisible(false);
    CB_GBDataPAMode.setVisible(false);
}

TestFunctions::TestFunctions(Bench& ownBench, const TestFunctionTraits& ownTraits)
    : Form(ownBench.desk, ownTraits.form, ownTraits.title)
    , Frame_TestByte{{{*this, "Frame_TestByte(0)", byteRows[0].name},
                      {*this, "Frame_TestByte(1)", byteRows[1].name}}}
    , TB_TestByte{{{*this, "TB_TestByte(0)", "00"}, {*this, "TB_TestByte(1)", "00"}}}
    , PB_Send{{{*this, "PB_Send(0)", "&Send"}, {*this, "PB_Send(1)", "&Send"}}}
    , LabelUpdate{{{*this, "LabelUpdate(0)", "Test Commad modified!"},
                   {*this, "LabelUpdate(1)", "Test Commad modified!"}}}
    , CB_DS(*this, "CB_DS", "Switch off the Delta-Sigma modulator")
    , OB_GainswitchHigh(*this, gainGroup, "OB_GainswitchHigh", "High Gain")
    , OB_GainswitchLow(*this, gainGroup, "OB_GainswitchLow", "Low Gain")
    , CB_GBData(*this, "CB_GBData", ownTraits.modes)
    , TB_GBData(*this, "TB_GBData", "00")
    , CB_DSLC(*this, "CB_DSLC", ownTraits.digitalOutputs)
    , TB_DSLC(*this, "TB_DSLC", "00")
    , CB_ASLC(*this, "CB_ASLC", analogOutputs())
    , TB_ASLC(*this, "TB_ASLC", "00")
    , CB_DisableSensitivePOR(*this, "CB_DisableSensitivePOR", ownTraits.lowestBitCaption)
    , bench(ownBench)
    , own(ownTraits) {
    setExtent({6900, 7200});
    if (!own.amplifierBits.empty()) {
        amplifier = std::make_unique<AmplifierTest>(*this, own);
        CB_DisableSensitivePOR.setContainer(&amplifier->FramePA);
    }
    CB_DSLC.setCaption(own.digitalOutputCaption);
    CB_ASLC.setCaption("Analog Outputs <1:0>  < nIRQ (pin 5) : SDO (pin 4) >");
    TB_DSLC.setCaption("DSLC:");
    TB_ASLC.setCaption("ASLC:");
    TB_GBData.setCaption("Digital  Data in hex");
    for (TextField* code : {&TB_TestByte[0], &TB_TestByte[1], &TB_GBData, &TB_DSLC, &TB_ASLC}) {
        code->setLimit(2);
    }
    fields[firstByte] = {{7, 7, "Delta-Sigma modulator", {"on", "switched off"}},
                         {6, 6, "Gain", {"Low Gain", "High Gain"}},
                         {5, 4, "Mode", own.modes},
                         {3, 0, "Digital data", {}}};
    fields[secondByte] = {{7, 3, "Digital outputs", own.digitalOutputs},
                          {2, 1, "Analog outputs", analogOutputs()},
                          {0, 0, own.lowestBitCaption, {"off", "on"}}};
    for (std::size_t group : {firstByte, secondByte}) {
        TB_TestByte[group].setCaption("Analog Test Control Byte in hex");
        LabelUpdate[group].setVisible(false);
        explain(group);
    }
    OB_GainswitchLow.putChosen();
    for (ListBox* list : {&CB_GBData, &CB_DSLC, &CB_ASLC}) {
        list->putPosition(0);
    }
    wire();
}

void TestFunctions::wire() {
    CB_DS.onChange = [this] { writeBits(firstByte, modulatorOff, CB_DS.ticked() ? modulatorOff : 0); };
    OB_GainswitchHigh.onChoose = [this] { writeBits(firstByte, highGain, highGain); };
    OB_GainswitchLow.onChoose = [this] { writeBits(firstByte, highGain, 0); };
    CB_GBData.onChange = [this] { CB_GBData_Click(); };
    commitEdited(TB_GBData, &TestFunctions::TB_GBData_LostFocus);
    CB_DSLC.onChange = [this] {
        TB_DSLC.setText(hexText(static_cast<std::uint32_t>(CB_DSLC.position()), 2));
        TB_DSLC_LostFocus();
    };
    CB_ASLC.onChange = [this] {
        TB_ASLC.setText(hexText(static_cast<std::uint32_t>(CB_ASLC.position()), 2));
        TB_ASLC_LostFocus();
    };
    commitEdited(TB_DSLC, &TestFunctions::TB_DSLC_LostFocus);
    commitEdited(TB_ASLC, &TestFunctions::TB_ASLC_LostFocus);
    CB_DisableSensitivePOR.onChange = [this] { CB_DisableSensitivePOR_Click(); };
    if (amplifier) {
        amplifier->CB_GBDataPAMode.onChange = [this] { CB_GBDataPAMode_Click(); };
    }
    for (std::size_t group : {firstByte, secondByte}) {
        TB_TestByte[group].onEdit = [this, group] { TB_TestByte_Change(group); };
        TB_TestByte[group].onCommit = [this, group] { TB_TestByte_LostFocus(group); };
        PB_Send[group].onClick = [this, group] { PB_Send_Click(group); };
    }
}

// A field that was only walked through must not undo what a hand edit of the byte put there.
void TestFunctions::commitEdited(TextField& field, void (TestFunctions::*action)()) {
    auto edited = std::make_shared<bool>(false);
    field.onEdit = [edited] { *edited = true; };
    field.onCommit = [this, edited, action] {
        if (std::exchange(*edited, false)) {
            (this->*action)();
        }
    };
}

std::uint32_t TestFunctions::byteOf(std::size_t group) const {
    return readHex(TB_TestByte[group].text()).value_or(lastByte[group]) & byteMask;
}

void TestFunctions::putByte(std::size_t group, std::uint32_t value) {
    lastByte[group] = value & byteMask;
    TB_TestByte[group].setText(hexText(lastByte[group], 2));
    explain(group);
}

void TestFunctions::explain(std::size_t group) {
    std::uint32_t byte = byteOf(group);
    TB_TestByte[group].setTip(std::string(byteRows[group].head) + hexText(byte, 2) + "\n" +
                              explained(byte, fields[group]));
}

void TestFunctions::writeBits(std::size_t group, std::uint32_t mask, std::uint32_t value) {
    putByte(group, (byteOf(group) & ~mask) | value);
    mark(group);
}

bool TestFunctions::amplifierModeChosen() const {
    return CB_GBData.position() == amplifierPosition;
}

void TestFunctions::CB_GBData_Click() {
    int position = CB_GBData.position();
    if (position < 0) {
        return;
    }
    // The amplifier's own mode has no code: it is the lowest bit of the other byte.
    std::uint32_t code = amplifierModeChosen() ? 0 : static_cast<std::uint32_t>(position);
    TB_GBData.setText(hexText(code) + hexText(hexDigit(TB_GBData.text(), 1)));
    writeBits(firstByte, modeBits, code << 4);
}

void TestFunctions::TB_GBData_LostFocus() {
    std::string text = TB_GBData.text();
    std::uint32_t code = text.empty() ? (byteOf(firstByte) & modeBits) >> 4 : hexDigit(text, 0) & 3U;
    std::uint32_t data = hexDigit(text, 1);
    if (!(amplifierModeChosen() && code == 0)) {
        CB_GBData.putPosition(code < own.modes.size() ? static_cast<int>(code) : -1);
    }
    TB_GBData.setText(hexText(code) + hexText(data));
    writeBits(firstByte, modeBits | dataBits, code << 4 | data);
}

void TestFunctions::TB_DSLC_LostFocus() {
    std::uint32_t code = readHex(TB_DSLC.text()).value_or(0);
    TB_DSLC.setText(hexText(code, 2));
    CB_DSLC.putPosition(code < CB_DSLC.entries().size() ? static_cast<int>(code) : -1);
    writeBits(secondByte, digitalBits, code * 8);
}

void TestFunctions::TB_ASLC_LostFocus() {
    std::uint32_t code = readHex(TB_ASLC.text()).value_or(0);
    TB_ASLC.setText(hexText(code, 2));
    CB_ASLC.putPosition(code < CB_ASLC.entries().size() ? static_cast<int>(code) : -1);
    writeBits(secondByte, analogBits, code * 2);
}

void TestFunctions::CB_DisableSensitivePOR_Click() {
    bool on = CB_DisableSensitivePOR.ticked();
    if (amplifier) {
        if (on) {
            CB_GBData.addEntry(own.amplifierMode);
        } else {
            if (amplifierModeChosen()) {
                CB_GBData.select(0);
            }
            CB_GBData.removeEntry(amplifierPosition);
        }
        amplifier->CB_GBDataPAMode.setVisible(on);
        amplifier->Label8.setVisible(on);
    }
    writeBits(secondByte, lowestBit, on ? lowestBit : 0);
}

void TestFunctions::CB_GBDataPAMode_Click() {
    auto data = static_cast<std::uint32_t>(amplifier->CB_GBDataPAMode.position());
    TB_GBData.setText(hexText(hexDigit(TB_GBData.text(), 0)) + hexText(data));
    writeBits(firstByte, dataBits, data);
}

void TestFunctions::TB_TestByte_Change(std::size_t group) {
    explain(group);
    mark(group);
}

void TestFunctions::TB_TestByte_LostFocus(std::size_t group) {
    std::string text = TB_TestByte[group].text();
    if (!readHex(text)) {
        bench.notice("\"" + text + "\" is no hexadecimal byte; the one before it stands.");
        putByte(group, lastByte[group]);
        return;
    }
    lastByte[group] = byteOf(group);
    // Two digits stay as they were typed.
    if (text.size() != 2) {
        putByte(group, lastByte[group]);
    }
}

void TestFunctions::PB_Send_Click(std::size_t group) {
    if (!bench.connect->isOpen()) {
        showNotice(bench, own.panels, "Communication fault.");
        bench.warn("Commport not available, please open commport. Control words were not updated.");
        return;
    }
    TB_TestByte_LostFocus(group);
    LabelUpdate[group].setVisible(false);
    bench.connect->Send_To_LoadBoard(std::string("S2") + byteRows[group].head + TB_TestByte[group].text() +
                                     "\r\n");
}

} // namespace zor
