// SPDX-License-Identifier: MIT
#include "transcript_runner/runner.h"

#include "elements/desk.h"
#include "elements/form.h"
#include "shell/main_window.h"
#include "transcript_runner/world.h"
#include "virtual/virtual_machine.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace zor::testing {

namespace {

/// What the runner says of a transcript, without the folder of its file.
std::string outcome(const std::string& transcript) {
    TemporaryFolder folder;
    std::string name = (folder.path() / "t.bench").string();
    std::ofstream(name, std::ios::binary) << transcript;
    std::ostringstream output;
    passes(name, output);
    std::string said = output.str();
    std::size_t at = said.find(name);
    return said.replace(at, name.size(), "t");
}

/// What goes wrong in the last line of a transcript played with a connected generation 2 board on port 1.
std::string failing(const std::string& lines) {
    return outcome("board 1 lb2\nstart\nrun 3000\nsent *\n" + lines);
}

struct Row {
    const char* lines;
    const char* said;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.lines;
}

/// The window in front when these statements have been carried out behind two windows' opening.
std::string frontBehind(const std::string& lines) {
    World world;
    for (const Statement& statement :
         readTranscript("start\nrun 3000\nclick main.mnutoolsTerminal\nchoose main.TX Opal\n" + lines)) {
        carryOut(world, statement);
    }
    Form* front = world.program().desk().front();
    return front == nullptr ? "none" : front->name();
}

TEST(Gestures, BringTheirWindowToTheFront) {
    EXPECT_EQ(frontBehind(""), "OpalV2");
    for (const char* gesture : {"tick Terminal.En_ScriptWindow", "leave Terminal.Text1", "click Terminal",
                                "move Terminal 30 30", "size Terminal 3000 3000"}) {
        EXPECT_EQ(frontBehind(gesture), "Terminal") << gesture;
    }
    EXPECT_EQ(frontBehind("after 10 tick Terminal.En_ScriptWindow\nrun 20"), "Terminal");
}

TEST(Gestures, OnTheBarsAndThoseThatAreRefusedMoveNoWindow) {
    EXPECT_EQ(frontBehind("tick Terminal.En_ScriptWindow\nclick main.mnuViewToolbar"), "Terminal");
    EXPECT_EQ(frontBehind("tick Terminal.En_ScriptWindow\nrefused type OpalV2.Crystalfreq 9"), "Terminal");
    EXPECT_EQ(frontBehind("tick Terminal.En_ScriptWindow\ntext OpalV2.Crystalfreq 10"), "Terminal");
}

class EveryCheck : public ::testing::TestWithParam<Row> {};
class EveryMistake : public ::testing::TestWithParam<Row> {};
class EveryPass : public ::testing::TestWithParam<Row> {};

TEST_P(EveryCheck, CanFail) {
    EXPECT_EQ(failing(GetParam().lines), std::string(GetParam().said) + "\n");
}

TEST_P(EveryMistake, IsAnErrorOfItsLine) {
    EXPECT_EQ(outcome(GetParam().lines), std::string(GetParam().said) + "\n");
}

TEST_P(EveryPass, IsSaid) {
    EXPECT_EQ(failing(GetParam().lines), "ok t\n");
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Transcript, EveryCheck, ::testing::Values(
    Row{"text main.CommStatus \"x\"",                R"(t:5: expected text of main.CommStatus "x", found "Comm. OK")"},
    Row{"text main.CommStatus ~ \"x\"",              R"(t:5: expected "x" in main.CommStatus, found "Comm. OK")"},
    Row{"lacks main.CommStatus \"OK\"",              R"(t:5: expected no "OK" in main.CommStatus, found "Comm. OK")"},
    Row{"caption main \"x\"",                        R"(t:5: expected caption of main "x", found "Ortolan Radio Bench System")"},
    Row{"caption main.EE \"x\"",                     R"(t:5: expected caption of main.EE "x", found "EE")"},
    Row{"tip main.CommStatus \"x\"",                 R"(t:5: expected tip of main.CommStatus "x", found "Comport status")"},
    Row{"index main.CB_Mode 1",                      "t:5: expected position of main.CB_Mode 1, found 0"},
    Row{"entries main.LoadboardList",                R"(t:5: expected entries of main.LoadboardList none, found "LoadBoard 2.x: Com1")"},
    Row{"entries main.LoadboardList a b",            R"(t:5: expected entries of main.LoadboardList "a" "b", found "LoadBoard 2.x: Com1")"},
    Row{"pressed main.TX",                           "t:5: expected main.TX pressed, found it released"},
    Row{"focused main.TX",                           "t:5: expected main.TX focused, found it without the focus"},
    Row{"unticked main.mnuViewToolbar",              "t:5: expected main.mnuViewToolbar unticked, found it ticked"},
    Row{"click main.mnuViewToolbar\nticked main.mnuViewToolbar", "t:6: expected main.mnuViewToolbar ticked, found it unticked"},
    Row{"enabled main.Connect",                      "t:5: expected main.Connect enabled, found it disabled"},
    Row{"disabled main.Disconnect",                  "t:5: expected main.Disconnect disabled, found it enabled"},
    Row{"shown main.mnuAdv",                         "t:5: expected main.mnuAdv shown, found it hidden"},
    Row{"hidden main.CB_Mode",                       "t:5: expected main.CB_Mode hidden, found it shown"},
    Row{"back main.TX 1 2 3",                        "t:5: expected background 1 2 3 of main.TX, found 240 240 240"},
    Row{"open Terminal",                             "t:5: expected Terminal open, found it closed"},
    Row{"closed frm_Splash",                         "t:5: expected frm_Splash closed, found it open"},
    Row{"move main 20 30\nat main 20 31",            "t:6: expected place of main 31, found 30"},
    Row{"size main 200 300\nsized main 201 *",       "t:6: expected size of main 201, found 200"},
    Row{"sent \"Z3\"",                               R"(t:5: expected sent "Z3", found none)"},
    Row{"choose main.CB_Mode #1\nsent",              R"(t:6: expected sent none, found "X0")"},
    Row{"choose main.CB_Mode #1\nsent 2\nsent 1",    R"(t:7: expected sent none, found "X0")"},
    Row{"choose main.CB_Mode #1\nsent X0 X1",        R"(t:6: expected sent "X0" "X1", found "X0")"},
    Row{"box a b",                                   "t:5: expected a box, found none"},
    Row{"board 1 fault 57\nelapsed 0 1",             "t:6: elapsed without a clock before it"},
    Row{"clock\nrun 12\nelapsed 13 20",              "t:7: expected from 13 to 20 ms to have passed, found 12"},
    Row{"dialog a b c",                              "t:5: expected a file dialog, found none"},
    Row{"click main.mnuHelpBrowseEx\ndialog a b c",  R"(t:6: expected dialog "a" "b" "c", found "Browse examples" "*.pdf" "Documentation files (*.PDF)|*.pdf|All files (*.*)|*.*")"},
    Row{"content x\nend",                            "t:5: expected a file x, found none"},
    Row{"file x\na # b\nend\ncontent x\na\nend",     R"(t:8: expected content of x "a\r\n", found "a # b\r\n")"},
    Row{"file raw x \"a\\xFF\"\ncontent raw x a",    "t:6: expected content of x \"a\", found \"a\xFF\""},
    Row{"file raw x \"\"\nnofile x",                 "t:6: expected no file x, found it"},
    Row{"port closed",                               "t:5: expected the port closed, found it open"},
    Row{"state LoadBoardRev 1",                      R"(t:5: expected LoadBoardRev "1", found "2")"},
    Row{"click main.Connect",                        "t:5: expected a user to reach main.Connect, found it out of reach"},
    Row{"refused click main.Disconnect",             "t:5: expected click main.Disconnect to be refused, found that a user can do it"},
    Row{"board 1 registers\nboard 1 register 0A 5F\nregister 1 0A 5E", R"(t:7: expected register 0A "5E", found "5F")"},
    Row{"board 1 registers\nboard 1 register 30 4225\nregister 1 30 4226", R"(t:7: expected register 30 "4226", found "4225")"},
    Row{"board 1 registers\nfifo 1 tx \"5A 5B\"", R"(t:6: expected transmit FIFO "5A 5B", found "")"},
    Row{"limit main.CommStatus 3",                   "t:5: expected a limit of 3 characters in main.CommStatus, found none"},
    Row{"unlocked main.CommStatus",                  "t:5: expected main.CommStatus unlocked, found it locked"},
    Row{"unlocked main.LoadboardList",               "t:5: expected main.LoadboardList unlocked, found it locked"},
    Row{"click main.mnutoolsTerminal\ntick Terminal.En_ScriptWindow\nedit Terminal.Script H23\ncaret Terminal.Script 2\nkey Terminal.Script \"\\x08L\"\ntext Terminal.Script x",
        R"(t:10: expected text of Terminal.Script "x", found "HL3")"},
    Row{"caret main.CommStatus 99",                  "t:5: expected a whole number from 0 to 8, found 99"},
    Row{"eeprom 1 0 \"FF\"",                         "t:5: there is no EEPROM on port 1"},
    Row{"board 1 eeprom\neeprom 1 0 \"FFfe\"",      R"(t:6: expected EEPROM from 0 on "FF FE", found "FF FF")"},
    Row{"board 1 eeprom 1022 \"C4 00\"\neeprom 1 1021 \"FF C4 01\"", R"(t:6: expected EEPROM from 1021 on "FF C4 01", found "FF C4 00")"},
    Row{"board 1 eeprom 1023 \"C4 00\"",            "t:5: expected a whole number from 0 to 1022, found 1023"},
    Row{"board 1 eeprom 0 C4F",                      "t:5: expected bytes of two hexadecimal digits, found C4F"},
    Row{"after 10 port closed\nrun 20\nport open",   "t:5: expected the port closed, found it open"},
    Row{"after 10 port closed",                      "t:5: expected this to be carried out, found the transcript at its end before"},
    Row{"linger 700\nclock\nclick main.mnuHelpBrowseEx\nelapsed 0 699", "t:8: expected from 0 to 699 ms to have passed, found 700"},
    Row{"linger 700\nafter 699 port closed\nclick main.mnuHelpBrowseEx\nport open", "t:6: expected the port closed, found it open"},
    Row{"run 36000000", "t:5: a run without an end: more events or more time than any bench needs"}));

INSTANTIATE_TEST_SUITE_P(Panel, EveryCheck, ::testing::Values(
    Row{"choose main.TX Opal\nreleased main.TX",     "t:6: expected main.TX released, found it pressed"},
    Row{"choose main.TX Opal\nchosen OpalV2.Band915", "t:6: expected OpalV2.Band915 chosen, found it not chosen"},
    Row{"choose main.TX Opal\nlit OpalV2.status(1)", "t:6: expected OpalV2.status(1) lit, found it dark"},
    Row{"choose main.TX Opal\nboard 1 status FF\nclick OpalV2.ReadStatus\nrun 2000\ndark OpalV2.status(1)", "t:9: expected OpalV2.status(1) dark, found it lit"},
    Row{"choose main.TX Opal\nback OpalV2.OnColor as OpalV2.OffColor", "t:6: expected background 240 240 240 of OpalV2.OnColor, found 255 255 0"},
    Row{"choose main.TX Opal\nclick main.mnutoolsECET\nline ECET.TB_ErrorLog blue x", R"(t:7: expected line blue "x" in ECET.TB_ErrorLog, found none)"},
    Row{"choose main.TX Opal\nclick main.mnutoolsECET\nclick ECET.PB_GenerateRom\nlines ECET.TB_ErrorLog none", R"(t:8: expected no further line in ECET.TB_ErrorLog, found blue "EEPROM Code Generation started.")"},
    Row{"choose main.TX Opal\nclick main.mnutoolsECET\nclick ECET.PB_GenerateRom\nline ECET.TB_ErrorLog red \"EEPROM Code Generation started.\"", R"(t:8: expected line red "EEPROM Code Generation started." in ECET.TB_ErrorLog, found blue "EEPROM Code Generation started.")"},
    Row{"choose main.TX Opal\nclick main.mnutoolsECET\nlines ECET.PB_Call none", "t:7: expected a coloured log, but ECET.PB_Call is none"},
    Row{"choose main.TX Onyx\nvalue KT1102.SL_WakeUpR 31", "t:6: expected value of KT1102.SL_WakeUpR 31, found 1"},
    Row{"choose main.TX Onyx\nslide KT1102.SL_WakeUpR 32000", "t:6: expected a whole number from 0 to 15, found 32000"}));

INSTANTIATE_TEST_SUITE_P(Boxes, EveryCheck, ::testing::Values(
    Row{"click main.Disconnect\nclick main.mnutoolsTerminal\nkey Terminal.Text1 \"\\r\"",
        R"(t:7: expected no box left at the end, found "Ortolan Radio Bench System" "Commport not available, Loadboard not connected!")"},
    Row{"click main.Disconnect\nclick main.mnutoolsTerminal\nkey Terminal.Text1 \"\\r\"\nnobox",
        R"(t:8: expected no box, found "Ortolan Radio Bench System" "Commport not available, Loadboard not connected!")"},
    Row{"click main.Disconnect\nclick main.mnutoolsTerminal\nkey Terminal.Text1 \"\\r\"\nbox a ~ not",
        R"(t:8: expected box "a" ~ "not", found "Ortolan Radio Bench System" "Commport not available, Loadboard not connected!")"},
    Row{"click main.Disconnect\nclick main.mnutoolsTerminal\nkey Terminal.Text1 \"\\r\"\nbox ~ Not",
        R"(t:8: expected box ~ "Not", found "Ortolan Radio Bench System" "Commport not available, Loadboard not connected!")"}));

INSTANTIATE_TEST_SUITE_P(Transcript, EveryMistake, ::testing::Values(
    Row{"\n# nothing\nstrat",                        "t:3: unknown statement strat"},
    Row{"\"start\"",                                 "t:1: unknown statement start"},
    Row{"start now",                                 "t:1: start has too much behind it, from now on"},
    Row{"click",                                     "t:1: click needs more behind it"},
    Row{"start\ntext main.CommStatus \"a",           "t:2: quoted text without an end"},
    Row{"start\ntext main.CommStatus \"a\\q\"",      "t:2: unknown escape in a quoted text"},
    Row{"start\ntext main.CommStatus \"\\x4\"",      "t:2: unknown escape in a quoted text"},
    Row{"start\ntext main.CommStatus \"a\"b",        "t:2: no blank behind a quoted text"},
    Row{"start\ntext main.CommStatus a\"b\"",        "t:2: a quote inside a bare word"},
    Row{"file x\na",                                 "t:1: lines without an end"},
    Row{"click main.TX",                             "t:1: the program was not started"},
    Row{"start\nclick main.TXX",                     "t:2: there is no element main.TXX"},
    Row{"start\nclick Mian.TX",                      "t:2: there is no window Mian"},
    Row{"start\ntext main x",                        "t:2: expected an element as Window.Element, found main"},
    Row{"start\nstate Last8 x",                      "t:2: there is no variable Last8"},
    Row{"start\ntick main.TX",                       "t:2: expected a tick box, but main.TX is none"},
    Row{"start\nrefused tick main.TX",               "t:2: expected a tick box, but main.TX is none"},
    Row{"start\nrefused port open",                  "t:2: expected a gesture behind refused"},
    Row{"start\nrefused",                            "t:2: expected a gesture behind refused"},
    Row{"start\nchoose main.CB_Mode x",              "t:2: there is no entry \"x\" in main.CB_Mode"},
    Row{"start\nchoose main.CB_Mode #3",             "t:2: expected a whole number from 0 to 2, found 3"},
    Row{"start\npick row main.TX 1",                 "t:2: expected a grid, but main.TX is none"},
    Row{"start\ncell main.TX 1 a b",                 "t:2: expected a grid, but main.TX is none"},
    Row{"start\nrows main.TX 1",                     "t:2: expected a grid, but main.TX is none"},
    Row{"start\nseen main.TX 1 a b",                 "t:2: expected a grid, but main.TX is none"},
    Row{"start\nrow main.TX none",                   "t:2: expected a grid, but main.TX is none"},
    Row{"start\nlit main.TX",                        "t:2: expected a lamp, but main.TX is none"},
    Row{"start\nport opne",                          "t:2: expected port open or port closed, found opne"},
    Row{"board 1 lb3",                               "t:1: a board cannot lb3"},
    Row{"board 1 mute",                              "t:1: nothing was placed on port 1"},
    Row{"board x lb1",                               "t:1: expected a whole number from 0 to 32767, found x"},
    Row{"board 1 lb1\nboard 1 status 5",             "t:2: expected two hexadecimal digits, found 5"},
    Row{"board 1 lb1\nboard 1 irq on",               "t:2: expected low or high, found on"},
    Row{"board 1 lb1\nstart\nregister 1 00 00",       "t:3: there is no register chip on port 1"},
    Row{"board 1 lb1\nboard 1 register 80 00",        "t:2: expected an address from 00 to 7F, found 80"},
    Row{"board 1 lb1\nboard 1 fifo rx 5",             "t:2: expected bytes of two hexadecimal digits, found 5"},
    Row{"board 1 lb1\nboard 1 fifo tx 55",            "t:2: expected rx or at, found tx"},
    Row{"database\nchip 1 a\nend",                    "t:1: row 1: a chip has 8 values, not 2"},
    Row{"database\nchip 1 a",                         "t:1: lines without an end"},
    Row{"database\nend\nstart\nasked a",              "t:4: expected asked \"a\", found none"},
    Row{"usb 1 fails FT_Read 4",                     "t:1: the USB driver has no call FT_Read"},
    Row{"answer maybe",                              "t:1: expected file, cancel, yes or no, found maybe"},
    Row{"after 5 strat",                             "t:1: unknown statement strat"},
    Row{"linger x",                                  "t:1: expected a whole number from 0 to 36000000, found x"},
    Row{"linger",                                    "t:1: linger needs more behind it"},
    Row{"after x start",                             "t:1: expected a whole number from 0 to 36000000, found x"}));

INSTANTIATE_TEST_SUITE_P(Transcript, EveryPass, ::testing::Values(
    Row{"# text in front", ""},
    Row{"text main.CommStatus \"\\x43omm. OK\" # the prompt \"", ""},
    Row{"file x\n  literal \"text\" # and all\nend\ncontent raw x \"  literal \\\"text\\\" # and all\\r\\n\"", ""},
    Row{"choose main.CB_Mode \"Vireo FSK I/O: Ext.\"\nsent 1 X0\nsent", ""},
    Row{"back main.TX as main.RX\nat main * *\nsized main * *", ""},
    Row{"refused click main.Connect", ""},
    Row{"after 10 choose main.CB_Mode #1\nsent\nrun 10\nsent X0", ""},
    Row{"linger 700\nclock\nclick main.mnuHelpBrowseEx\nelapsed 700 700\nlinger 0\nclick main.mnuHelpBrowseEx\nelapsed 700 700", ""},
    Row{"linger 700\nafter 300 answer file \"x.pdf\"\nafter 400 nofile \"y\"\nclick main.mnuHelpBrowseEx\nnobox", ""},
    Row{"click main.mnutoolsTerminal\nboard 1 packet \"lost\"\nkey Terminal.Text1 \"F11,13,9\\r\"\nrun 300\n"
        "board 1 packet \"A\\x42\"\nrun 300\ntext Terminal.Text1 ~ \"Received packet: 02 bytes: AB\"\n"
        "lacks Terminal.Text1 \"lost\"", ""},
    Row{"start\nrun 3000\nport open\nsent i i Z3 V83 X1", ""}));
// clang-format on

} // namespace

} // namespace zor::testing
