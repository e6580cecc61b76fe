// SPDX-License-Identifier: MIT
#include "eeprom/ecet.h"

#include "eeprom/transmitter_words.h"
#include "panels/common/chip_panel.h"

#include <algorithm>

namespace zor {

namespace {

constexpr const char* caption = "EEPROM Content Editor Tool";
constexpr Twips windowWidth = 9600;
constexpr Twips windowHeight = 9000;
constexpr std::chrono::milliseconds secondClickInterval(1000);

std::vector<std::string> tabTitles() {
    std::vector<std::string> titles;
    titles.reserve(std::size(eventRows));
    for (const EventRow& row : eventRows) {
        titles.emplace_back(row.tab);
    }
    return titles;
}

/// Where a command's word stands on the transmitter panels; nullptr where the command editor has it itself.
struct WordSource {
    Command command;
    const char* onKT1100;
    const char* onKT1101;
};

constexpr std::array<WordSource, everyCommand.size()> wordSources = {{
    {configurationSetting, "Ctrlw", "Ctrlw"},
    {frequencySetting, "Freqw", "Freqw"},
    {powerSetting, "OutPowerw", "OutPowerw"},
    {powerManagement, "PowerMw", "PowerMw"},
    {lowBatteryDetector, "LBDw", "LBDw"},
    {dataRateCommand, nullptr, "Dataratew"},
    {pushButtonCommand, nullptr, nullptr},
    {wakeUpTimer, "Wkupw", "Wkupw"},
    {pllSetting, "", "TB_PLLCmd"},
}};

} // namespace

ECET::ECET(Bench& ownBench)
    : Form(ownBench.desk, "ECET", caption)
    , TabStrip1(*this, "TabStrip1", tabTitles())
    , TB_EEPROMContent(*this, "TB_EEPROMContent")
    , TB_ErrorLog(*this, "TB_ErrorLog")
    , PB_GenerateRom(*this, "PB_GenerateRom", "&Generate EEPROM Code")
    , PB_Call(*this, "PB_Call", "Call &EEPROM Programmer")
    , PB_Load(*this, "PB_Load", "Load...")
    , PB_Save(*this, "PB_Save", "Save...")
    , PB_ClearLog(*this, "PB_ClearLog", "Clear Error Log")
    , ImageSize(*this, "ImageSize", "no image")
    , bench(ownBench)
    , PN9_Timer(ownBench.platform.loop, [this] { PN9_Timer_Timer(); }) {
    setPlace({0, 0});
    setExtent({windowHeight, windowWidth});
    PN9_Timer.setInterval(secondClickInterval);
    TB_EEPROMContent.setLimit(imageDigits);
    TB_EEPROMContent.setTip("The image of the EEPROM in hexadecimal digits");
    for (int event = 0; event < eventCount; ++event) {
        tabs[static_cast<std::size_t>(event)] = std::make_unique<EventTab>(*this, bench, event);
    }
    TabStrip1.onTurn = [this] { TabStrip1_Click(); };
    PB_GenerateRom.onClick = [this] { PB_GenerateRom_Click(); };
    PB_Call.onClick = [this] { PB_Call_Click(); };
    PB_Load.onClick = [this] { PB_Load_Click(); };
    PB_Save.onClick = [this] { PB_Save_Click(); };
    PB_ClearLog.onClick = [this] { TB_ErrorLog.clear(); };
    // Beside the pages' groups lies the ground of the page.
    onClick = [this] { frameClicked(); };
    imageChanged = TB_EEPROMContent.changed.subscribe([this] {
        std::size_t bytes = (TB_EEPROMContent.text().size() + 1) / 2;
        ImageSize.setCaption(bytes == 0 ? "no image" : std::to_string(bytes) + " bytes");
    });
    // The words' meanings depend on the panel's band and crystal, which may have changed meanwhile.
    broughtToFront = activated.subscribe([this] { readAll(); });
    showFrames();
    (void)commands();
    beginHistory(*this);
}

Frm_CmdSequence& ECET::commands() {
    auto& form = dynamic_cast<Frm_CmdSequence&>(bench.tools.create(Tool::Frm_CmdSequence));
    if (!form.serves(*this)) {
        besidePlace = form.place();
        form.serve(*this);
    }
    placeBeside(form);
    return form;
}

void ECET::placeBeside(Form& window) {
    // Where the user has put it, it stays.
    if (!window.isOpen() && window.place() == besidePlace) {
        besidePlace = {place().top, place().left + extent().width};
        window.setPlace(besidePlace);
    }
}

void ECET::unload() {
    PN9_Timer.stop();
    bench.tools.close(Tool::Frm_CmdSequence);
}

void ECET::showFrames() {
    for (int event = 0; event < eventCount; ++event) {
        tab(event).Frm_ECETEvents.setVisible(event == currentEvent());
    }
}

void ECET::readAll() {
    for (const auto& eventTab : tabs) {
        eventTab->read();
    }
}

void ECET::TabStrip1_Click() {
    showFrames();
    commands().followTab(opened(currentEvent()));
}

std::string ECET::GetDataFromControlPanel(int event) {
    if (!IsTXPanelOn(bench)) {
        return {};
    }
    const ChipPanel* panel = transmitterPanel(bench);
    if (panel == nullptr) {
        return {};
    }
    bool fromKT1100 = bench.windows.TX0on;
    Frm_CmdSequence& editor = commands();
    std::string words;
    for (const WordSource& source : wordSources) {
        if (!editor.contains(event, source.command)) {
            continue;
        }
        const char* name = fromKT1100 ? source.onKT1100 : source.onKT1101;
        if (name != nullptr) {
            words += shownWord(*panel, name);
        } else if (source.command == dataRateCommand) {
            words += editor.TB_DataRateCmd.text();
        } else {
            words += pushButtonWord(event == CommandData::insertColumn ? editor.PBCmd2 : editor.PBCmd);
        }
    }
    return words;
}

void ECET::insertCommands() {
    tab(currentEvent()).growRoutine(GetDataFromControlPanel(CommandData::insertColumn));
}

void ECET::dropImage() {
    if (!TB_EEPROMContent.text().empty()) {
        TB_EEPROMContent.setText({});
        TB_ErrorLog.clear();
    }
}

void ECET::PB_GenerateRom_Click() {
    TB_EEPROMContent.setText({});
    TB_ErrorLog.append(LogColour::Blue, "EEPROM Code Generation started.");
    int warnings = 0;
    std::string image;
    for (int event = 0; event < eventCount; ++event) {
        EventTab& eventTab = tab(event);
        bool empty = eventTab.routine().empty();
        warnings += generateEvent(eventTab) ? 1 : 0;
        NoFunction[static_cast<std::size_t>(event)] = empty || hasNoFunction(eventTab.routine());
        image += routineBlock(eventTab.routine());
    }
    TB_EEPROMContent.setText(image);
    logWithoutFunction();
    TB_ErrorLog.append(LogColour::Blue, "EEPROM Code Generation finished.");
    TB_ErrorLog.append(LogColour::Blue, "Total warnings: " + std::to_string(warnings));
    if (warnings > 0) {
        TB_ErrorLog.append(LogColour::Red, "THE EEPROM CODE MIGHT BE INCORRECT.");
    }
    TB_ErrorLog.moveToEnd();
    showImageInProgrammer();
}

bool ECET::generateEvent(EventTab& eventTab) {
    if (eventTab.routine().empty() && eventTab.CB_FillEmptieswithC4.ticked()) {
        eventTab.putRoutine(std::string(sleepCommand));
        eventTab.logWithCaption(LogColour::Black, "Sleep Command appended to Event code.");
    }
    bool sleeps = mentionsSleep(eventTab.routine());
    if (sleeps) {
        eventTab.logWithCaption(LogColour::Green, "Event code was found correct.");
    } else {
        eventTab.logWithCaption(LogColour::Red, "WARNING: Missing Sleep Command.");
    }
    eventTab.lockRoutine();
    if (!eventTab.routine().empty()) {
        eventTab.lockPayload();
    }
    return !sleeps;
}

void ECET::logWithoutFunction() {
    auto count = std::count(NoFunction.begin(), NoFunction.end(), true);
    if (count == 0) {
        return;
    }
    TB_ErrorLog.append(LogColour::Black,
                       "The following Event Routines ( " + std::to_string(count) + " ) have no function:");
    for (int event = 0; event < eventCount; ++event) {
        if (NoFunction[static_cast<std::size_t>(event)]) {
            TB_ErrorLog.append(LogColour::Black, "    " + tab(event).caption());
        }
    }
}

void ECET::frameClicked() {
    if (PN9_Timer.running()) {
        PN9_Timer.stop();
        showPN9(true);
        setTitle(caption);
        return;
    }
    setTitle(title() + ".");
    PN9_Timer.start();
}

void ECET::PN9_Timer_Timer() {
    PN9_Timer.stop();
    showPN9(false);
    setTitle(caption);
}

void ECET::showPN9(bool shown) {
    for (const auto& eventTab : tabs) {
        eventTab->PB_PN9.setVisible(shown);
    }
}

} // namespace zor
