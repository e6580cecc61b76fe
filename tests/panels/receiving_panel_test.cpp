// SPDX-License-Identifier: MIT
// What the two receivers and the two transceivers share.
#include "panels/all_panels.h"
#include "panels/panel_bench.h"

namespace zor {

namespace {

using testing::PanelBench;
using testing::With;
using Lines = std::vector<std::string>;
using std::chrono::milliseconds;

constexpr milliseconds wholeStatusRead(1000);

} // namespace

template <class Panel>
class ReceivingPanels : public ::testing::Test {
  protected:
    /// The panel beside a board, with a status read behind it.
    Panel& read(std::uint8_t first, std::uint8_t second) {
        bench.board().setStatus(first, second);
        bench.click("ReadStatus");
        bench.run(wholeStatusRead);
        return *bench.panel;
    }
    int litLamps() {
        int lit = 0;
        for (int lamp = 1; lamp <= 16; ++lamp) {
            lit += bench.panel->status(lamp).lit() ? 1 : 0;
        }
        return lit;
    }

    PanelBench<Panel> bench{With::LoadBoard2};
};

using FourPanels = ::testing::Types<AmberV1, Coral, BerylV3, FRM_Topaz>;
TYPED_TEST_SUITE(ReceivingPanels, FourPanels, testing::PanelNames);

TYPED_TEST(ReceivingPanels, EveryStatusBitLightsItsOwnLamp) {
    this->bench.open();
    for (int bit = 0; bit < 8; ++bit) {
        auto byte = static_cast<std::uint8_t>(1U << bit);
        EXPECT_TRUE(this->read(byte, 0).status(8 - bit).lit()) << "first byte, bit " << bit;
        EXPECT_EQ(this->litLamps(), 1) << "first byte, bit " << bit;
        EXPECT_TRUE(this->read(0, byte).status(16 - bit).lit()) << "second byte, bit " << bit;
        EXPECT_EQ(this->litLamps(), 1) << "second byte, bit " << bit;
    }
}

TYPED_TEST(ReceivingPanels, ALitLampTakesTheColourOfOnAndADarkOneThatOfOff) {
    this->bench.open();
    auto& panel = this->read(0x80, 0x00);
    EXPECT_EQ(panel.status(1).background(), panel.OnColor.background());
    EXPECT_TRUE(panel.status(1).enabled());
    EXPECT_EQ(panel.status(2).background(), panel.OffColor.background());
    EXPECT_FALSE(panel.status(2).enabled());
}

TYPED_TEST(ReceivingPanels, TheFrequencyControlReturnsAfterEveryRead) {
    auto& panel = this->bench.open();
    std::string before = panel.AFCw.text();
    for (bool on : {true, false}) {
        panel.afcen.setTicked(on);
        this->read(0x00, 0x00);
        EXPECT_EQ(panel.afcen.ticked(), on);
    }
    panel.afcen.setTicked(true);
    EXPECT_EQ(panel.AFCw.text(), before);
}

TYPED_TEST(ReceivingPanels, AReadCutShortByAClosedPortRestoresTheFrequencyControl) {
    auto& panel = this->bench.open();
    this->bench.click("Update");
    this->bench.click("ReadStatus");
    this->bench.run(milliseconds(60));
    ASSERT_FALSE(panel.afcen.ticked());
    this->bench.loop.perform([this] { this->bench.at("main", "Disconnect").click(); });
    this->bench.run(wholeStatusRead);
    EXPECT_TRUE(panel.afcen.ticked());
    EXPECT_TRUE(panel.LabelUpdate.visible());
    EXPECT_EQ(this->bench.shared().link.CommState(), 0);
}

TYPED_TEST(ReceivingPanels, AnUpdateDuringAReadLeavesNoMark) {
    auto& panel = this->bench.open();
    this->bench.click("ReadStatus");
    this->bench.run(milliseconds(60));
    this->bench.click("Update");
    this->bench.run(wholeStatusRead);
    EXPECT_FALSE(panel.LabelUpdate.visible());
    EXPECT_TRUE(panel.afcen.ticked());
    EXPECT_FALSE(panel.AFCw.pending());
}

TYPED_TEST(ReceivingPanels, ClosedDuringAReadThePanelFreesThePort) {
    auto& panel = this->bench.open();
    this->bench.click("ReadStatus");
    this->bench.run(milliseconds(60));
    this->bench.loop.perform([&panel] { panel.close(); });
    EXPECT_EQ(this->bench.shared().link.CommState(), 0);
    this->bench.takeSent();
    this->bench.run(wholeStatusRead);
    EXPECT_EQ(this->bench.takeSent(), Lines{});
}

TYPED_TEST(ReceivingPanels, ClosingReleasesTheDataLine) {
    auto& panel = this->bench.open();
    this->bench.takeSent();
    this->bench.loop.perform([&panel] { panel.close(); });
    Lines sent = this->bench.takeSent();
    ASSERT_FALSE(sent.empty());
    EXPECT_EQ(sent.front(), "Z3");
    EXPECT_TRUE(this->bench.at("main", "CB_Mode").enabled());
}

TYPED_TEST(ReceivingPanels, TheFifoLevelNeverReachesZero) {
    auto& panel = this->bench.open();
    int highest = panel.ITLEVEL.maximum();
    for (int level = 0; level <= highest; ++level) {
        this->bench.slide("ITLEVEL", level);
        int expected = level == 0 ? 1 : level;
        EXPECT_EQ(panel.ITLEVEL.value(), expected);
        EXPECT_EQ(panel.ITlevelNr.text(), std::to_string(expected));
    }
    for (const char* text : {"0", "-1", "", "abc", "&H0"}) {
        this->bench.type("ITlevelNr", text);
        EXPECT_EQ(panel.ITlevelNr.text(), "1") << text;
        EXPECT_EQ(panel.ITLEVEL.value(), 1) << text;
    }
    for (const char* text : {"64", "1000", "99999999999"}) {
        this->bench.type("ITlevelNr", text);
        EXPECT_EQ(panel.ITlevelNr.text(), std::to_string(highest)) << text;
    }
}

TYPED_TEST(ReceivingPanels, TheFilterParameterTakesZeroToSeven) {
    auto& panel = this->bench.open();
    for (auto [text, shown] : std::vector<std::pair<const char*, const char*>>{
             {"0", "0"}, {"7", "7"}, {"8", "7"}, {"-1", "0"}, {"2.5", "2"}, {"", "0"}, {"x", "0"}}) {
        this->bench.type("StatefiltNr", text);
        EXPECT_EQ(panel.StatefiltNr.text(), shown) << text;
        EXPECT_EQ(std::to_string(panel.STATEFILT.value()), shown) << text;
    }
}

TYPED_TEST(ReceivingPanels, TheStrobeIsThereInManualModeAlone) {
    auto& panel = this->bench.open();
    for (const char* mode : {"Auto, 1x at power-on", "Manual", "Auto, drop Foffset", "Auto, keep Foffset"}) {
        this->bench.choose("AFCauto", mode);
        EXPECT_EQ(panel.afcst.enabled(), std::string(mode) == "Manual") << mode;
    }
}

TYPED_TEST(ReceivingPanels, AWakeUpCommitCarriesItsMIntoTheDutyCycle) {
    auto& panel = this->bench.open();
    panel.WKUPM.setText("200");
    panel.WKUPM_LostFocus();
    EXPECT_EQ(panel.DUTY_USEM.text(), "200");
    EXPECT_EQ(panel.DUTY_CALC.text(), "7.5");
    panel.WKUPM.setText("0");
    panel.WKUPM_LostFocus();
    EXPECT_EQ(panel.DUTY_CALC.text(), "100");
}

TYPED_TEST(ReceivingPanels, AWordSentAtOnceIsNotPending) {
    auto& panel = this->bench.open();
    this->bench.click("Update");
    this->bench.click("FFreset");
    EXPECT_FALSE(panel.LabelUpdate.visible());
    EXPECT_FALSE(panel.FIFOw.pending());
    this->bench.click("CalibratePLL");
    EXPECT_FALSE(panel.LabelUpdate.visible());
    this->read(0xFF, 0xFF);
    EXPECT_FALSE(panel.LabelUpdate.visible());
}

TYPED_TEST(ReceivingPanels, EverySettingMakesAnUpdateDue) {
    auto& panel = this->bench.open();
    for (const char* tick : {"afcen", "afcfi", "afcoen", "enlowdc", "dataratepresc", "ffillen"}) {
        this->bench.click("Update");
        ASSERT_FALSE(panel.LabelUpdate.visible());
        this->bench.click(tick);
        EXPECT_TRUE(panel.LabelUpdate.visible()) << tick;
    }
    for (const char* list : {"VDI", "LNAgain", "DRSSI", "BasebandBW", "AFCauto", "AFCres", "FILTTYPE",
                             "ClkRecMode", "FIFOstrt", "CLKout", "Cxtal"}) {
        this->bench.click("Update");
        this->bench.choose(list, 0);
        EXPECT_TRUE(panel.LabelUpdate.visible()) << list;
    }
    for (const char* field : {"DUTY", "DATARATEDIV", "StatefiltNr", "ITlevelNr", "FreqCenter"}) {
        this->bench.click("Update");
        this->bench.type(field, "3");
        EXPECT_TRUE(panel.LabelUpdate.visible()) << field;
    }
}

TYPED_TEST(ReceivingPanels, TheAutomaticLoadComesAfterTheDataLine) {
    this->bench.shared().preferences.Pref_CCautoLoad = 1;
    this->bench.open();
    EXPECT_EQ(this->bench.dialogs.fileDialogs.size(), 1U);
    Lines sent = this->bench.takeSent();
    ASSERT_FALSE(sent.empty());
    EXPECT_TRUE(sent.back() == "H3" || sent.back() == "Z3");
}

} // namespace zor
