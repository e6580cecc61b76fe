// SPDX-License-Identifier: MIT
#include "panels/common/chip_panel.h"

#include "link/connect.h"
#include "panels/common/forecast.h"
#include "support/marked.h"
#include "support/numbers.h"

#include <algorithm>

namespace zor {

namespace {

constexpr Colour litColour{255, 255, 0};

constexpr std::array<std::pair<const char*, const char*>, 4> bandNames = {{
    {"Band315", "315 MHz"},
    {"Band433", "433 MHz"},
    {"Band868", "868 MHz"},
    {"Band915", "915 MHz"},
}};

} // namespace

ChipPanel::ChipPanel(Bench& ownBench, const PanelTraits& panelTraits)
    : Form(ownBench.desk, panelTraits.formName, panelTraits.title)
    , Statusline(*this, "Statusline", "", TextField::Access::ReadOnly)
    , LabelUpdate(*this, "LabelUpdate", "Update needed >>>")
    , LabelCalibration(*this, "LabelCalibration", "Calibrate >>> (after update)")
    , Update(*this, "Update", "Update")
    , CalibratePLL(*this, "CalibratePLL", "Calibrate Synthesizer")
    , ConfLoad(*this, "ConfLoad", "Load...")
    , ConfSave(*this, "ConfSave", "Save...")
    , ReadStatus(*this, "ReadStatus", "Read Status")
    , ShowStatus(*this, "ShowStatus", "Show Status")
    , CopyWords(*this, nullptr, "CopyWords", "Copy words")
    , CopyArray(*this, nullptr, "CopyArray", "Copy as C array")
    , SetFromHeader(*this, nullptr, "SetFromHeader", "Set from a header...")
    , OnColor(*this, "OnColor", litColour)
    , OffColor(*this, "OffColor", buttonFace)
    , IRQ(*this, "IRQ", "IRQ")
    , IRQpoll(*this, "IRQpoll", "?IRQ")
    , StdCrystal(*this, crystalGroup, "StdCrystal", "Standard 10MHz")
    , NonStdCrystal(*this, crystalGroup, "NonStdCrystal", "Non standard")
    , Crystalfreq(*this, "Crystalfreq", "10")
    , Cxtal(*this, "Cxtal")
    , FreqCenter(*this, "FreqCenter")
    , FreqStep(*this, "FreqStep", "", TextField::Access::ReadOnly)
    , PowerSupply(*this, "PowerSupply", ownBench.preferences.Pref_Voltage)
    , PB_PowerSupply(*this, "PB_PowerSupply", "Power Supply")
    , CLKout(*this, "CLKout", {clockOutputs.begin(), clockOutputs.end()})
    , Revision(*this, "Revision")
    , LBD(*this, "LBD")
    , LBDV(*this, "LBDV")
    , WKUPM(*this, "WKUPM")
    , WKUPR(*this, "WKUPR")
    , WKUPTIME(*this, "WKUPTIME", "", TextField::Access::ReadOnly)
    , Label8(*this, "Label8")
    , Label38(*this, "Label38")
    , Label39(*this, "Label39")
    , Ctrlw(*this, "Ctrlw", "Configuration Setting Command:")
    , Freqw(*this, "Freqw", "Frequency Setting Command:")
    , LBDw(*this, "LBDw", "Low Battery Detector Command:")
    , Wkupw(*this, "Wkupw", "Wake-Up Timer Command:")
    , bench(ownBench)
    , ownTraits(panelTraits)
    , interruptSample{Timer(ownBench.platform.loop, [this] { Timer1_Timer(); }), {}, {}}
    , statusRead{Timer(ownBench.platform.loop, [this] { Timer3_Timer(); }), {}, {}}
    , RepStatusReadTimer(ownBench.platform.loop, [this] { RepStatusReadTimer_Timer(); })
    , SRVisualTimer(ownBench.platform.loop, [this] { SRVisualTimer_Timer(); }) {
    setSizing(Sizing::ByContent);
    makeBands();
    makeStatus();
    wireCommon();
    setTips();
}

ChipPanel::~ChipPanel() = default;

void ChipPanel::makeBands() {
    for (Band which : ownTraits.offeredBands) {
        const auto& [name, caption] = bandNames[static_cast<std::size_t>(which)];
        bandOptions.push_back(std::make_unique<Option>(*this, bandGroup, name, caption));
        bandOptions.back()->onChoose = [this, which] { bandChosen(which); };
    }
}

void ChipPanel::makeStatus() {
    int index = 0;
    for (const char* caption : ownTraits.statusCaptions) {
        ++index;
        statusLamps.push_back(
            std::make_unique<Lamp>(*this, "status(" + std::to_string(index) + ")", caption));
        statusLamps.back()->paint(false, OffColor);
    }
    IRQ.paint(false, OffColor);
}

void ChipPanel::wireCommon() {
    Update.onClick = [this] { Update_Click(); };
    CalibratePLL.onClick = [this] { CalibratePLL_Click(); };
    ConfLoad.onClick = [this] { ConfLoad_Click(); };
    ConfSave.onClick = [this] { ConfSave_Click(); };
    ShowStatus.onClick = [this] { ShowStatus_Click(); };
    CopyWords.onClick = [this] {
        bench.platform.surroundings.copyText(wordLines());
        bench.notice("Copied " + std::to_string(allWords.size()) + " words");
    };
    CopyArray.onClick = [this] {
        bench.platform.surroundings.copyText(wordArray());
        bench.notice("Copied " + std::to_string(allWords.size()) + " words as a C array");
    };
    SetFromHeader.onClick = [this] {
        askedWord = nullptr;
        bench.tools.open(Tool::frm_SetFrom);
    };
    ReadStatus.onClick = [this] { ReadStatus_Click(); };
    ReadStatus.onDoubleClick = [this] { RepStatusReadTimer.start(); };
    ReadStatus.onLeave = [this] { RepStatusReadTimer.stop(); };
    IRQpoll.onClick = [this] { IRQpoll_Click(); };
    StdCrystal.onChoose = [this] { StdCrystal_Click(); };
    NonStdCrystal.onChoose = [this] { NonStdCrystal_Click(); };
    Crystalfreq.onCommit = [this] { Crystalfreq_LostFocus(); };
    FreqCenter.onCommit = [this] { FreqCenter_LostFocus(); };
    LBD.onCommit = [this] { LBD_LostFocus(); };
    LBDV.onCommit = [this] { LBDV_LostFocus(); };
    WKUPM.onCommit = [this] { WKUPM_LostFocus(); };
    WKUPR.onCommit = [this] { WKUPM_LostFocus(); };
    if (ownTraits.supplyField == SupplyField::Commits) {
        PowerSupply.onCommit = [this] { PowerSupply_LostFocus(); };
    }
    PB_PowerSupply.onClick = [this] { bench.tools.open(Tool::frm_PowerSupply); };
    portClosing = bench.connect->portClosed.subscribe([this] {
        for (ControlWord* word : allWords) {
            word->markUnsent();
        }
    });
    feed(Cxtal, Ctrlw);
    Freqw.define(
        0xA000,
        {readBack(explained(bits(
                                11, 0, "frequency parameter", [this] { return frequencyField(FreqCode); },
                                [this] { return FreqCenter.text() + " MHz"; }),
                            [this](int code) { return frequencyText(code, BandCode); }),
                  numberSetting(
                      FreqCenter, [this] { return frequencyField(FreqCode); },
                      IntegerRange{static_cast<std::int32_t>(minimumFrequencyCode),
                                   static_cast<std::int32_t>(maximumFrequencyCode)},
                      [this](int code) {
                          return shownFrequency(static_cast<float>(code), frequencyScale()).megahertz.text;
                      }))});
    Wkupw.define(0xE000, {readBack(bits(12, 8, "R", [this] { return wakeUp.exponent; }), wakeUpExponent()),
                          readBack(bits(7, 0, "M", [this] { return wakeUpLowByte(wakeUp.mantissa); }),
                                   wakeUpMantissa())});
}

Option* ChipPanel::band(Band which) const {
    for (std::size_t place = 0; place < bandOptions.size(); ++place) {
        if (ownTraits.offeredBands[place] == which) {
            return bandOptions[place].get();
        }
    }
    return nullptr;
}

void ChipPanel::tellReadings() {
    // The one field that is committed and holds digits of another kind.
    constexpr std::string_view hexadecimal = "TB_SP";
    for (Element* element : elements()) {
        auto* field = dynamic_cast<TextField*>(element);
        if (field == nullptr || !field->onCommit || field->name() == hexadecimal) {
            continue;
        }
        field->onCommit = [this, field, commit = std::move(field->onCommit)] {
            std::string typed = field->text();
            commit();
            if (field == &Crystalfreq) {
                std::replace(typed.begin(), typed.end(), bench.platform.decimalMark, '.');
                if (!readNumericPrefix(typed)) {
                    // It was not read at all; the field shows what it had.
                    typed.clear();
                }
            }
            bench.tellReading(typed);
        };
    }
}

void ChipPanel::load(AutoLoad autoLoad) {
    // Behind the chip's own elements.
    ownForecast = std::make_unique<Forecast>(*this, bench, [this] { return sequenceMayBegin(); });
    tellReadings();
    watchSettings();
    setPlace({0, 0});
    setExtent({ownTraits.foldedHeight, ownTraits.width});
    FreqCode = 2000;
    Cxtal.fill(loadCapacitances());
    StdCrystal.putChosen();
    Crystalfreq.setEnabled(false);
    for (ScaledList* list : scaledLists) {
        list->rebuild(CrystalRatio);
    }
    band(ownTraits.startBand)->choose();
    Cxtal.selectText(ownTraits.startCapacitance);
    FreqCenter.setText(ownTraits.startFrequency);
    FreqCenter_LostFocus();
    setDefaults();
    for (ControlWord* word : allWords) {
        word->rebuild();
    }
    LabelCalibration.setVisible(false);
    calibratedBand = BandCode;
    if (autoLoad == AutoLoad::AsPreferred && bench.preferences.Pref_CCautoLoad == 1) {
        ConfLoad_Click();
    }
    notice(ownTraits.loadNotice);
    RepStatusReadTimer.setInterval(Bench::GetRepetitiveStatusReadInterval());
    SRVisualTimer.setInterval(Bench::GetRepetitiveStatusReadMarkInterval());
    ReadStatus.takesFocusOnClick = Bench::StopRepStReadOnLostFocus();
    beginHistory(*this);
}

void ChipPanel::hidden() {
    RepStatusReadTimer.stop();
    readOnceMore = false;
}

void ChipPanel::unload() {
    RepStatusReadTimer.stop();
    // A sequence ends with the panel that owns it.
    interruptSample.end();
    statusRead.end();
    Marked farewell(sayingFarewell);
    if (ownForecast) {
        ownForecast->panelCloses();
    }
    releaseChip();
    sendFarewell();
}

void ChipPanel::showVariant(const char* variantTitle) {
    bool regional = bench.IsBijakuModeSet();
    setTitle(regional ? variantTitle : ownTraits.title);
    for (Band which : {Band::Band433, Band::Band868, Band::Band915}) {
        band(which)->setVisible(!regional);
    }
    Revision.setVisible(!regional);
    if (regional && !band(Band::Band315)->chosen()) {
        band(Band::Band315)->choose();
    }
}

void ChipPanel::govern(bool on, const std::vector<Element*>& governed, Label& reason) {
    for (Element* element : governed) {
        element->setEnabled(on);
    }
    reason.setVisible(!on);
}

void ChipPanel::ShowStatus_Click() {
    showStatusArea(!statusShown());
}

void ChipPanel::showStatusArea(bool shown) {
    setExtent({shown ? ownTraits.unfoldedHeight : ownTraits.foldedHeight, extent().width});
    ShowStatus.setCaption(shown ? "Hide Status" : "Show Status");
}

} // namespace zor
