// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/form.h"
#include "elements/label.h"
#include "elements/list_box.h"
#include "elements/options.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "link/bench.h"
#include "rftools/test_byte.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zor {

/// What differs between the chips whose test control bytes are edited.
struct TestFunctionTraits {
    const char* form;
    const char* title;
    /// The panels of the chips that have these bytes.
    std::vector<std::string_view> panels;
    const char* digitalOutputCaption;
    std::vector<std::string> digitalOutputs;
    /// By their code.
    std::vector<std::string> modes;
    const char* lowestBitCaption;
    /// The mode that the lowest bit adds, and what it can select; none on a chip without a power amplifier.
    std::string amplifierMode;
    std::vector<std::string> amplifierBits;
};

/// Two test control bytes of a chip, edited by named settings or by hand and sent one by one. A setting
/// rewrites its own bits only, so a byte that was edited by hand keeps what the settings do not say.
class TestFunctions : public Form {
    // Older than the options that join it.
    OptionGroup gainGroup;

  public:
    TestFunctions(Bench& ownBench, const TestFunctionTraits& ownTraits);

    // By the index that the bytes bear: "Test Control Byte #1" is 1, "#2" is 0.
    std::array<Frame, 2> Frame_TestByte;
    std::array<TextField, 2> TB_TestByte;
    std::array<Button, 2> PB_Send;
    std::array<Label, 2> LabelUpdate;

    TickBox CB_DS;
    Option OB_GainswitchHigh;
    Option OB_GainswitchLow;
    ListBox CB_GBData;
    TextField TB_GBData;

    ListBox CB_DSLC;
    TextField TB_DSLC;
    ListBox CB_ASLC;
    TextField TB_ASLC;
    TickBox CB_DisableSensitivePOR;

    /// What a chip with a power amplifier has besides.
    struct AmplifierTest {
        AmplifierTest(Form& owner, const TestFunctionTraits& traits);
        Frame FramePA;
        Label Label8;
        ListBox CB_GBDataPAMode;
    };
    std::unique_ptr<AmplifierTest> amplifier;

    [[nodiscard]] const TestFunctionTraits& traits() const { return own; }

  private:
    void wire();
    /// Runs the action at a commit of the field if the user has edited it since the last one.
    void commitEdited(TextField& field, void (TestFunctions::*action)());
    /// Rewrites the bits of a mask and marks the byte's group.
    void writeBits(std::size_t group, std::uint32_t mask, std::uint32_t value);
    void putByte(std::size_t group, std::uint32_t value);
    [[nodiscard]] std::uint32_t byteOf(std::size_t group) const;
    void mark(std::size_t group) { LabelUpdate[group].setVisible(true); }
    void explain(std::size_t group);

    void CB_GBData_Click();
    void TB_GBData_LostFocus();
    void TB_DSLC_LostFocus();
    void TB_ASLC_LostFocus();
    void CB_DisableSensitivePOR_Click();
    void CB_GBDataPAMode_Click();
    void TB_TestByte_Change(std::size_t group);
    void TB_TestByte_LostFocus(std::size_t group);
    void PB_Send_Click(std::size_t group);
    [[nodiscard]] bool amplifierModeChosen() const;

    Bench& bench;
    const TestFunctionTraits& own;
    std::array<std::vector<ByteField>, 2> fields;
    /// What each byte held when it last was one.
    std::array<std::uint32_t, 2> lastByte{};
};

class Frm_AmberTestFunctions : public TestFunctions {
  public:
    explicit Frm_AmberTestFunctions(Bench& ownBench);
};

class Frm_BerylTestFunctions : public TestFunctions {
  public:
    explicit Frm_BerylTestFunctions(Bench& ownBench);
};

} // namespace zor
