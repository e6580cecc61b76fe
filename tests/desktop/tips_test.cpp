// SPDX-License-Identifier: MIT
// Whoever stops at a control is told what it is: its tip, or the explanation that stands in for one.
#include "desktop/widgets/binding.h"
#include "panels/common/chip_panel.h"
#include "views_of_test.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QWidget>

namespace zor {

namespace {

/// A person can point at it and do something with it; captions, frames and notices only say something.
bool isControl(const QWidget& widget) {
    return widget.focusPolicy() != Qt::NoFocus && qobject_cast<const QLabel*>(&widget) == nullptr;
}

QStringList withoutTip(const QWidget& root) {
    QStringList without;
    for (const Binding* binding : root.findChildren<Binding*>()) {
        const QWidget* widget = binding->widget();
        if (widget != nullptr && isControl(*widget) && widget->toolTip().trimmed().isEmpty()) {
            without += name(*binding->element());
        }
    }
    without.removeDuplicates();
    return without;
}

} // namespace

class EveryViewExplained : public testing::TestWithParam<std::string> {};

TEST_P(EveryViewExplained, HasATipForEveryControl) {
    EXPECT_EQ(withoutTip(OpenView(GetParam()).window().content()).join(" ").toStdString(), "");
}

INSTANTIATE_TEST_SUITE_P(Registry, EveryViewExplained, testing::ValuesIn(everyForm()),
                         [](const auto& view) { return view.param; });

TEST(DesktopWindow, HasATipForEveryControlOfItsBars) {
    Program program;
    program.start();
    EXPECT_EQ(withoutTip(program.window).join(" ").toStdString(), "");
}

namespace {

std::string tipOnScreen(Program& program, const char* form, const QString& element) {
    QWidget& content = program.window.windowOf(*program.desk.find(form))->content();
    return content.findChild<QWidget*>(element)->toolTip().remove('\r').toStdString();
}

} // namespace

TEST(Tips, SaySettingsUnitRangeAndPlaceInTheWord) {
    Program program;
    ChipPanel& panel = startWithPanel(program, "OpalV2");
    auto tip = [&](const QString& element) { return tipOnScreen(program, "OpalV2", element); };
    EXPECT_EQ(tip("Cxtal"),
              "Load capacitance of the crystal\nBits 7:4 of Configuration Setting: 8.5 pF to 16.0 pF");
    EXPECT_EQ(
        tip("ModFreq"),
        "Deviation from the centre frequency in kHz\nBits 2:0 of Configuration Setting: 30 kHz to 240 kHz");
    EXPECT_EQ(tip("Modulation"), "FSK shifts the carrier's frequency, OOK switches the carrier on and off");
    EXPECT_EQ(tip("pm5"), "Switches the crystal oscillator on\nBit 5 of Power Management");
    EXPECT_EQ(tip("WKUPM"),
              "Mantissa of the wake-up time: the time is M times 2 to the power of R\n0 to 255");
    EXPECT_EQ(tip("LBDV"), "Threshold of the low battery detector in V\n2.2 V to 5.3 V");
    EXPECT_EQ(tip("FreqCenter"), "Centre frequency in MHz; the nearest that the chip can make is taken\n"
                                 "310.24 MHz to 319.7575 MHz");
    EXPECT_EQ(tip("Band868"), "The band; the frequency word stays, and the frequency moves with it\n"
                              "860.48 MHz to 879.515 MHz");
    // They follow what the panel is set to.
    panel.find("Band433")->click();
    panel.find("NonStdCrystal")->click();
    panel.Crystalfreq.type("12");
    EXPECT_EQ(tip("FreqCenter").substr(tip("FreqCenter").find('\n') + 1), "516.288 MHz to 527.709 MHz");
    EXPECT_TRUE(tip("ModFreq").ends_with(": 36 kHz to 288 kHz")) << tip("ModFreq");
    // What the product tells stays in front.
    EXPECT_TRUE(tip("ConfLoad").starts_with("Load a previous configuration"));
}

TEST(Tips, OfASliderSayItsEnds) {
    Program program;
    startWithPanel(program, "KT1102");
    EXPECT_EQ(tipOnScreen(program, "KT1102", "SL_WakeUpM"), "Mantissa of the wake-up time\n0 to 16383");
    EXPECT_EQ(
        tipOnScreen(program, "KT1102", "OutputPower"),
        "Output power, in dB below the highest (Pmax)\nBits 10:8 of Configuration Setting: Pmax to -21 dB");
}

/// Every list and tick that a word's table knows says where in the word it is.
TEST(Tips, NameTheBitsOfEveryListAndTickOfAWord) {
    for (const PanelRow& row : panelRows()) {
        SCOPED_TRACE(row.name);
        Program program;
        ChipPanel& panel = startWithPanel(program, row.name);
        int found = 0;
        for (const ControlWord* word : panel.words()) {
            for (const BitField& field : word->fields()) {
                if (field.source != nullptr) {
                    ++found;
                    EXPECT_NE(
                        tipOnScreen(program, row.name, name(*field.source)).find(" of " + word->title()),
                        std::string::npos)
                        << field.source->name();
                }
            }
        }
        EXPECT_GE(found, 10);
    }
}

} // namespace zor
