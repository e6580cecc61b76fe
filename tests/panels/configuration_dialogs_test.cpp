// SPDX-License-Identifier: MIT
// Saving and loading as the user does it: dialogs, names, boxes and what follows a load.
#include "host/files.h"
#include "panels/all_panels.h"
#include "panels/panel_bench.h"
#include "utilities/power_supply.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

namespace zor {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::PanelBench;
using testing::With;

constexpr const char* noPort =
    "Commport not available, please open commport. Power control settings were not updated.";

const std::string opalDefaults = "\"# ZOR KT1100 configuration file. Version 2.0.0\"\r\n"
                                 "#TRUE#\r\n#FALSE#\r\n\"10\"\r\n"
                                 "\"0\"\r\n\"0\"\r\n\"315\"\r\n"
                                 "#TRUE#\r\n#FALSE#\r\n#FALSE#\r\n#FALSE#\r\n"
                                 "0\r\n\"12.5 pF\"\r\n\"fo + df\"\r\n0\r\n\"Pmax\"\r\n"
                                 "0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n"
                                 "\"2.5\"\r\n\"FSK\"\r\n\"'D' or above\"\r\n\"0\"\r\n";

const std::string jadeDefaults = "\"# ZOR KT1101 configuration file. Version 2.0.0\"\r\n"
                                 "#TRUE#\r\n#FALSE#\r\n\"10\"\r\n\"435\"\r\n"
                                 "#TRUE#\r\n#FALSE#\r\n#FALSE#\r\n"
                                 "0\r\n\"12.5 pF\"\r\n\"fo + df\"\r\n0\r\n\"Pmax\"\r\n"
                                 "0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n"
                                 "\"2.5\"\r\n\"FSK\"\r\n\"'A' or above\"\r\n"
                                 "\"0\"\r\n\"0\"\r\n\"0\"\r\n0\r\n0\r\n\"0\"\r\n0\r\n";

const std::string onyxDefaults = "\"# ZOR KT1102 configuration file. Version 2.2.2\"\r\n"
                                 "#TRUE#\r\n#FALSE#\r\n\"10\"\r\n\"868.3\"\r\n"
                                 "#FALSE#\r\n#TRUE#\r\n#FALSE#\r\n"
                                 "0\r\n\"12.5 pF\"\r\n\"fo + df\"\r\n0\r\n\"Pmax\"\r\n"
                                 "0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n"
                                 "0\r\n\"3\"\r\n0\r\n\"19\"\r\n\"2.5\"\r\n\"'A' or above\"\r\n"
                                 "\"0\"\r\n\"0\"\r\n\"150\"\r\n\"1\"\r\n"
                                 "0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n";

template <class Panel>
std::string pathOf(PanelBench<Panel>& bench, const std::string& name) {
    return (bench.folder.path() / name).string();
}

template <class Panel>
void save(PanelBench<Panel>& bench, const std::string& name) {
    bench.dialogs.files.push_back(pathOf(bench, name));
    bench.click("ConfSave");
}

template <class Panel>
void load(PanelBench<Panel>& bench, const std::string& bytes) {
    std::string name = pathOf(bench, std::string("given.") + bench.panel->traits().file.extension);
    writeFileWhole(name, bytes);
    bench.dialogs.files.push_back(name);
    bench.click("ConfLoad");
}

template <class Panel>
bool there(PanelBench<Panel>& bench, const std::string& name) {
    return std::filesystem::exists(pathOf(bench, name));
}

/// A file's bytes with one line changed, counted from 1.
std::string withLine(std::string bytes, int number, const std::string& line) {
    std::size_t begin = 0;
    for (int passed = 1; passed < number; ++passed) {
        begin = bytes.find("\r\n", begin) + 2;
    }
    return bytes.replace(begin, bytes.find("\r\n", begin) - begin, line);
}

} // namespace

TEST(ConfigurationDialogs, WriteTheDefaultsOfEachTransmitterToTheByte) {
    PanelBench<OpalV2> opal;
    opal.open();
    save(opal, "a.tc");
    EXPECT_EQ(readFile(pathOf(opal, "a.tc")), opalDefaults);
    PanelBench<JadeV1> jade;
    jade.open();
    save(jade, "a.tc1");
    EXPECT_EQ(readFile(pathOf(jade, "a.tc1")), jadeDefaults);
    PanelBench<KT1102> onyx;
    onyx.open();
    save(onyx, "a.tc2");
    EXPECT_EQ(readFile(pathOf(onyx, "a.tc2")), onyxDefaults);
}

TEST(ConfigurationDialogs, WriteEveryKindOfValue) {
    PanelBench<JadeV1> bench;
    bench.open();
    bench.click("NonStdCrystal");
    bench.type("Crystalfreq", "11");
    bench.click("Band915");
    bench.type("FreqCenter", "1000");
    bench.choose("CLKout", 4);
    bench.choose("Cxtal", "16.0 pF");
    bench.choose("ModPol", "fo - df");
    bench.choose("ModFreq", 7);
    bench.choose("OutputPower", "-18 dB");
    for (const char* box : {"pm6", "pm5", "pm2", "pm1", "CB_ebs"}) {
        bench.tick(box);
    }
    bench.type("PowerSupply", "3.3");
    bench.choose("Modulation", "OOK");
    bench.type("LBD", "17");
    bench.type("WKUPM", "200");
    bench.type("WKUPR", "9");
    bench.type("DATARATEDIV", "35");
    bench.choose("CB_MaxDataRate", "115.2");
    EXPECT_EQ(bench.panel->savedConfiguration(), "\"# ZOR KT1101 configuration file. Version 2.0.0\"\r\n"
                                                 "#FALSE#\r\n#TRUE#\r\n\"11\"\r\n\"999.999\"\r\n"
                                                 "#FALSE#\r\n#FALSE#\r\n#TRUE#\r\n"
                                                 "4\r\n\"16.0 pF\"\r\n\"fo - df\"\r\n7\r\n\"-18 dB\"\r\n"
                                                 "0\r\n1\r\n1\r\n0\r\n0\r\n1\r\n1\r\n0\r\n"
                                                 "\"3.3\"\r\n\"OOK\"\r\n\"'A' or above\"\r\n"
                                                 "\"17\"\r\n\"200\"\r\n\"9\"\r\n0\r\n1\r\n\"35\"\r\n3\r\n");
}

TEST(ConfigurationDialogs, AskWithTheTextsOfTheirPanel) {
    struct {
        FileRequest::Mode mode;
        const char* title;
    } modes[] = {{FileRequest::Mode::Load, "Load KT1102 Configuration File"},
                 {FileRequest::Mode::Save, "Save KT1102 Configuration File"}};
    PanelBench<KT1102> bench(With::LoadBoard1);
    bench.open();
    bench.click("ConfLoad");
    bench.click("ConfSave");
    for (const auto& row : modes) {
        ASSERT_FALSE(bench.dialogs.fileDialogs.empty());
        FileRequest request = bench.dialogs.fileDialogs.front();
        bench.dialogs.fileDialogs.pop_front();
        EXPECT_EQ(request.mode, row.mode);
        EXPECT_EQ(request.title, row.title);
        EXPECT_EQ(request.filter, "KT1101 Configuration files (*.tc1)|*.tc2|All files (*.*)|*.*");
        EXPECT_EQ(request.startName, "*.tc2");
        EXPECT_EQ(request.defaultExtension, "tc2");
        EXPECT_EQ(request.folder, bench.platform.programFolder / ".." / "Project_Configurations");
    }
    // Both were cancelled.
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    EXPECT_THAT(bench.takeSent(), IsEmpty());
}

TEST(ConfigurationDialogs, RefuseAnotherExtension) {
    PanelBench<OpalV2> bench;
    bench.open();
    bench.dialogs.files = {pathOf(bench, "a.tc1"), pathOf(bench, "b.txt")};
    bench.click("ConfLoad");
    bench.click("ConfSave");
    for (int box = 0; box < 2; ++box) {
        ASSERT_FALSE(bench.dialogs.boxes.empty());
        EXPECT_EQ(bench.dialogs.boxes.front().title, "File open error");
        EXPECT_EQ(bench.takeBox(), "File type not supported! Please try again!");
    }
    EXPECT_FALSE(there(bench, "b.txt"));
}

TEST(ConfigurationDialogs, CutADoubledExtensionOnTheKT1100) {
    PanelBench<OpalV2> bench;
    bench.open();
    save(bench, "a.tc.tc");
    EXPECT_TRUE(there(bench, "a.tc"));
    EXPECT_FALSE(there(bench, "a.tc.tc"));
    // Only the end is looked at.
    save(bench, "etc.tc");
    EXPECT_TRUE(there(bench, "etc"));
    save(bench, "plain");
    EXPECT_TRUE(there(bench, "plain"));
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST(ConfigurationDialogs, AppendAMissingExtensionOnTheLaterTransmitters) {
    PanelBench<JadeV1> jade;
    jade.open();
    save(jade, "a");
    EXPECT_TRUE(there(jade, "a.tc1"));
    save(jade, "b.TC1");
    EXPECT_TRUE(there(jade, "b.TC1.tc1"));
    save(jade, "c.tc1");
    EXPECT_TRUE(there(jade, "c.tc1"));
    PanelBench<KT1102> onyx;
    onyx.open();
    save(onyx, "a");
    EXPECT_TRUE(there(onyx, "a.tc2"));
}

TEST(ConfigurationDialogs, AskBeforeAFileUnderAMendedNameIsReplaced) {
    PanelBench<JadeV1> bench;
    bench.open();
    std::string name = pathOf(bench, "a.tc1");
    writeFileWhole(name, "old");
    bench.dialogs.files = {pathOf(bench, "a"), pathOf(bench, "b")};
    bench.click("ConfSave");
    // No: the dialog opened once more, and the second name was taken.
    EXPECT_EQ(bench.dialogs.fileDialogs.size(), 2U);
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes.front().title, "File save error");
    EXPECT_EQ(bench.dialogs.boxes.front().buttons, BoxButtons::YesNo);
    EXPECT_EQ(bench.takeBox(), "File already exist:" + name + "\r\nDo you want to replace it?");
    EXPECT_EQ(readFile(name), "old");
    EXPECT_TRUE(there(bench, "b.tc1"));

    bench.dialogs.answers = {Answer::Yes};
    save(bench, "a");
    EXPECT_EQ(readFile(name), jadeDefaults);
}

TEST(ConfigurationDialogs, ReplaceAFileUnderTheDialogsOwnNameWithoutAsking) {
    PanelBench<JadeV1> bench;
    bench.open();
    writeFileWhole(pathOf(bench, "a.tc1"), "old");
    save(bench, "a.tc1");
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    EXPECT_EQ(readFile(pathOf(bench, "a.tc1")), jadeDefaults);
}

TEST(ConfigurationDialogs, AFailedSaveTellsItsErrorAndLeavesTheOldFile) {
    PanelBench<OpalV2> bench;
    bench.open();
    save(bench, "missing/a.tc");
    ASSERT_FALSE(bench.dialogs.boxes.empty());
    EXPECT_EQ(bench.dialogs.boxes.front().title, "File save error");
    EXPECT_EQ(bench.takeBox(), "Error occured:76,Path not found\r\nPlease try again");
    std::filesystem::create_directory(pathOf(bench, "folder.tc"));
    save(bench, "folder.tc");
    EXPECT_EQ(bench.takeBox(), "Error occured:75,Path/File access error\r\nPlease try again");
    EXPECT_TRUE(std::filesystem::is_directory(pathOf(bench, "folder.tc")));
}

TEST(ConfigurationDialogs, TellEveryFailureOfALoadInABox) {
    PanelBench<OpalV2> bench;
    bench.open();
    struct {
        std::string bytes;
        const char* box;
    } rows[] = {
        {"", "Error occured:62,Input past end of file\r\nPlease try again!"},
        {jadeDefaults, "Error occured:1226,Incorrect configuration file version\r\nPlease try again!"},
        {withLine(opalDefaults, 2, "\"10\""), "Error occured:13,Type mismatch\r\nPlease try again!"},
        {opalDefaults.substr(0, opalDefaults.find("\"315\"")),
         "Error occured:62,Input past end of file\r\nPlease try again!"},
        {withLine(opalDefaults, 17, "2"), "Error occured:380,Invalid property value\r\nPlease try again!"},
        {withLine(opalDefaults, 17, "99999999999"), "Error occured:6,Overflow\r\nPlease try again!"},
    };
    for (const auto& row : rows) {
        load(bench, row.bytes);
        ASSERT_FALSE(bench.dialogs.boxes.empty()) << row.box;
        EXPECT_EQ(bench.dialogs.boxes.front().title, "File open error");
        EXPECT_EQ(bench.takeBox(), row.box);
    }
    bench.dialogs.files.emplace_back(pathOf(bench, "none.tc"));
    bench.click("ConfLoad");
    EXPECT_EQ(bench.takeBox(), "Error occured:53,File not found\r\nPlease try again!");
    PanelBench<KT1102> onyx;
    onyx.open();
    load(onyx, opalDefaults);
    EXPECT_EQ(onyx.takeBox(),
              "Error occured:1226,Incorrect configuration file version.\r\nPlease try again!");
}

TEST(ConfigurationDialogs, LeaveOnThePanelWhatABrokenFileBrought) {
    PanelBench<OpalV2> bench;
    bench.open();
    // Band433 in line 9, then a wrong form in the line of the clock output.
    std::string bytes = withLine(withLine(opalDefaults, 8, "#FALSE#"), 9, "#TRUE#");
    bytes = withLine(withLine(bytes, 7, "\"434\""), 12, "\"1\"");
    load(bench, bytes);
    EXPECT_EQ(bench.takeBox(), "Error occured:13,Type mismatch\r\nPlease try again!");
    EXPECT_TRUE(bench.panel->band(Band::Band433)->chosen());
    EXPECT_EQ(bench.text("Ctrlw"), "8880");
    // The frequency was held back and never came.
    EXPECT_EQ(bench.text("FreqCenter"), "435");
    // That of the crystal, which was read.
    EXPECT_EQ(bench.text("Statusline"), " ");
}

TEST(ConfigurationDialogs, AFrequencyHeldBackMeetsItsBandAndCrystal) {
    PanelBench<OpalV2> bench;
    bench.open();
    std::string bytes = withLine(withLine(opalDefaults, 2, "#FALSE#"), 3, "#TRUE#");
    bytes = withLine(withLine(bytes, 4, "\"12\""), 7, "\"1100\"");
    bytes = withLine(withLine(bytes, 8, "#FALSE#"), 11, "#TRUE#");
    load(bench, bytes);
    EXPECT_EQ(bench.takeBox(), noPort);
    EXPECT_EQ(bench.text("FreqCenter"), "1099.998");
}

TEST(ConfigurationDialogs, APositionIsKeptUnderAnotherCrystal) {
    PanelBench<OpalV2> bench;
    bench.open();
    std::string bytes = withLine(withLine(opalDefaults, 2, "#FALSE#"), 3, "#TRUE#");
    bytes = withLine(withLine(bytes, 4, "\"12\""), 12, "3");
    load(bench, withLine(bytes, 15, "2"));
    EXPECT_EQ(bench.panel->CLKout.position(), 3);
    EXPECT_EQ(bench.text("CLKout"), "2.4");
    EXPECT_EQ(bench.text("ModFreq"), "108");
    EXPECT_EQ(bench.text("Ctrlw"), "8382");
}

TEST(ConfigurationDialogs, AFileOfTheOtherRevisionReturnsThePowerToPmax) {
    PanelBench<OpalV2> bench;
    bench.open();
    std::string bytes = withLine(withLine(opalDefaults, 16, "\"-9 dB\""), 27, "\"'C' or below\"");
    load(bench, bytes);
    EXPECT_EQ(bench.text("Revision"), "'C' or below");
    EXPECT_EQ(bench.text("OutputPower"), "Pmax");
    EXPECT_EQ(bench.text("OutPowerw"), "B0");
    // On a panel of its own revision the power stays.
    load(bench, bytes);
    EXPECT_EQ(bench.text("OutputPower"), "-9 dB");
    EXPECT_EQ(bench.text("OutPowerw"), "B3");
}

TEST(ConfigurationDialogs, ACrystalThatIsNotInUseIsOnlyShown) {
    PanelBench<OpalV2> bench;
    bench.open();
    load(bench, withLine(opalDefaults, 4, "\"11.5\""));
    EXPECT_EQ(bench.text("Crystalfreq"), "11.5");
    EXPECT_EQ(bench.text("CLKout"), "1");
    EXPECT_EQ(bench.text("FreqCenter"), "315");
    EXPECT_FALSE(bench.element("Crystalfreq").enabled());
}

TEST(ConfigurationDialogs, AListWithoutAPositionStaysWithoutOne) {
    PanelBench<OpalV2> bench;
    bench.open();
    bench.choose("CLKout", 3);
    load(bench, withLine(opalDefaults, 12, "-1"));
    EXPECT_EQ(bench.panel->CLKout.position(), -1);
    EXPECT_EQ(bench.text("CLKout"), "");
    // The crystal's rebuild left the first entry's code.
    EXPECT_EQ(bench.text("Ctrlw"), "8080");
    EXPECT_EQ(bench.panel->savedConfiguration(), withLine(opalDefaults, 12, "-1"));
}

TEST(ConfigurationDialogs, ATextThatNoEntryHasIsShownAndKeepsTheCode) {
    PanelBench<OpalV2> bench;
    bench.open();
    bench.choose("Cxtal", "16.0 pF");
    load(bench, withLine(opalDefaults, 13, "\"20 pF\""));
    EXPECT_EQ(bench.text("Cxtal"), "20 pF");
    EXPECT_EQ(bench.text("Ctrlw"), "80F0");
    load(bench, withLine(opalDefaults, 16, "\"-30 dB\""));
    EXPECT_EQ(bench.text("OutPowerw"), "B0");
}

TEST(ConfigurationDialogs, TheFileOfTheKT1102BringsItsFrequencyBack) {
    PanelBench<KT1102> bench;
    bench.open();
    std::string bytes = withLine(withLine(onyxDefaults, 6, "#TRUE#"), 7, "#FALSE#");
    load(bench, withLine(bytes, 5, "\"433.92\""));
    EXPECT_EQ(bench.text("FreqCenter"), "433.92");
    EXPECT_EQ(bench.text("Freqw"), "A620");
    EXPECT_EQ(bench.text("Ctrlw"), "8880");
}

TEST(ConfigurationDialogs, TheFileOfTheKT1102ShowsItsFrequencyAtOnce) {
    PanelBench<KT1102> bench;
    bench.open();
    load(bench, withLine(withLine(onyxDefaults, 5, "\"900\""), 6, "\"?\""));
    EXPECT_EQ(bench.takeBox(), "Error occured:13,Type mismatch\r\nPlease try again!");
    EXPECT_EQ(bench.text("FreqCenter"), "900");
    EXPECT_EQ(bench.text("Freqw"), "AD57");
}

TEST(ConfigurationDialogs, FieldsWithoutACommitAtTheEndTakeEffectAsTheyAreRead) {
    PanelBench<KT1102> bench;
    bench.open();
    load(bench, withLine(withLine(onyxDefaults, 21, "\"64\""), 23, "\"200\""));
    EXPECT_EQ(bench.text("TB_FIFOITLevel"), "63");
    EXPECT_EQ(bench.text("TB_FIFOcmd"), "CE3F");
    EXPECT_EQ(bench.text("TB_DataRate"), "127");
    EXPECT_EQ(bench.panel->SL_DataRateLevel.value(), 127);
    EXPECT_EQ(bench.text("TB_DataRateCmd"), "C87F");
}

TEST(ConfigurationDialogs, ALoadSendsTheSupplyOfItsBoardAndNothingElse) {
    struct {
        With board;
        const char* line;
    } rows[] = {{With::LoadBoard1, "VA1"}, {With::LoadBoard2, "VA1"}};
    for (const auto& row : rows) {
        PanelBench<OpalV2> bench(row.board);
        bench.open();
        load(bench, withLine(opalDefaults, 25, "\"3.3\""));
        EXPECT_THAT(bench.takeSent(), ElementsAre(row.line));
        EXPECT_EQ(bench.text("Statusline"), " ");
        EXPECT_TRUE(bench.panel->LabelUpdate.visible());
        EXPECT_EQ(bench.shared().preferences.Pref_Voltage, "3.3");
        // The panel's own field keeps its text.
        EXPECT_EQ(bench.text("PowerSupply"), "2.5");
    }
}

TEST(ConfigurationDialogs, TheGenerationsTakeDifferentSupplyConstants) {
    struct {
        With board;
        const char* line;
    } rows[] = {{With::LoadBoard1, "V64"}, {With::LoadBoard2, "V65"}};
    for (const auto& row : rows) {
        PanelBench<JadeV1> bench(row.board);
        bench.open();
        // 311 / 2.006 is 155.03, 309 / 2.006 is 154.04.
        load(bench, withLine(jadeDefaults, 22, "\"2.006\""));
        EXPECT_THAT(bench.takeSent(), ElementsAre(row.line));
    }
}

TEST(ConfigurationDialogs, AnotherGenerationIsSentNoSupply) {
    PanelBench<OpalV2> bench(With::LoadBoard1);
    bench.open();
    bench.shared().link.LoadBoardRev = 50;
    load(bench, opalDefaults);
    EXPECT_THAT(bench.takeSent(), IsEmpty());
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST(ConfigurationDialogs, ASupplyThatNoCodeStandsForIsToldInABox) {
    PanelBench<OpalV2> bench(With::LoadBoard1);
    bench.open();
    load(bench, withLine(opalDefaults, 25, "\"off\""));
    EXPECT_EQ(bench.takeBox(), "Error occured:11,Division by zero\r\nPlease try again!");
    load(bench, withLine(opalDefaults, 25, "\"1\""));
    EXPECT_EQ(bench.takeBox(), "Error occured:6,Overflow\r\nPlease try again!");
    EXPECT_THAT(bench.takeSent(), IsEmpty());
}

TEST(ConfigurationDialogs, ALoadWithoutAPortSaysThatTheSupplyWasNotSent) {
    PanelBench<OpalV2> bench;
    bench.open();
    load(bench, opalDefaults);
    EXPECT_EQ(bench.takeBox(), noPort);
    EXPECT_EQ(bench.text("Statusline"), "Communication fault.");
}

TEST(ConfigurationDialogs, TheSupplyToolShowsTheFilesVoltageWhileItIsOpen) {
    PanelBench<OpalV2> bench(With::LoadBoard1);
    bench.open();
    PowerSupply tool(bench.shared());
    load(bench, withLine(opalDefaults, 25, "\"3.1\""));
    EXPECT_EQ(tool.Voltage.text(), "3.1");
}

TEST(ConfigurationDialogs, ABandOfAFileAsksForACalibration) {
    PanelBench<OpalV2> bench;
    auto& panel = bench.open();
    load(bench, opalDefaults);
    EXPECT_TRUE(panel.LabelCalibration.visible());
}

TEST(ConfigurationDialogs, AnAutoLoadedFileOverridesTheDefaults) {
    PanelBench<OpalV2> bench(With::LoadBoard1);
    bench.shared().preferences.Pref_CCautoLoad = 1;
    std::string name = pathOf(bench, "given.tc");
    writeFileWhole(name, withLine(withLine(opalDefaults, 7, "\"316\""), 28, "\"9\""));
    bench.dialogs.files.emplace_back(name);
    bench.open();
    EXPECT_EQ(bench.text("Freqw"), "A960");
    EXPECT_EQ(bench.text("LBDw"), "C209");
    EXPECT_EQ(bench.text("Statusline"), "Update chip control words, and power management settings!");
    EXPECT_THAT(bench.takeSent(), ElementsAre("V83"));
}

} // namespace zor
