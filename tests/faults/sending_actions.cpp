// SPDX-License-Identifier: MIT
#include "faults/sending_actions.h"

#include "eeprom/eeprom.h"
#include "faults/link_actions.h"
#include "faults/play_actions.h"
#include "faults/register_actions.h"
#include "host/files.h"
#include "panels/common/chip_panel.h"
#include "panels/common/forecast.h"
#include "shell/panel_table.h"

#include <iterator>
#include <utility>

namespace zor::testing {

namespace {

std::function<void(VirtualBench&)> clicking(std::string form, std::string element) {
    return [form = std::move(form), element = std::move(element)](VirtualBench& bench) {
        if (bench.desk.find(form) != nullptr) {
            bench.at(form, element).click();
        }
    };
}

void addPanelActions(std::vector<SendingAction>& all, const PanelRow& panel) {
    std::string form = panel.name;
    auto add = [&](const char* what, std::function<void(VirtualBench&)> act) {
        all.push_back({form + "_" + what, form, panel.view, std::move(act)});
    };
    for (const char* button : {"Update", "CalibratePLL", "ReadStatus", "IRQpoll"}) {
        add(button, clicking(form, button));
    }
    add("RepeatedStatusRead", [form](VirtualBench& bench) {
        if (bench.desk.find(form) != nullptr) {
            bench.at(form, "ReadStatus").doubleClick();
            bench.run(std::chrono::seconds(4));
            if (bench.desk.find(form) != nullptr) {
                bench.at(form, "ReadStatus").leave();
            }
        }
    });
    add("MeasureCurrents", [form](VirtualBench& bench) {
        if (auto* open = dynamic_cast<ChipPanel*>(bench.desk.find(form))) {
            // As behind an update; its own lines have their rows above.
            for (ControlWord* word : open->words()) {
                word->takeSent(word->text());
            }
            open->LabelUpdate.setVisible(false);
            if (!open->forecast().ForecastArea.visible()) {
                open->forecast().ShowForecast.click();
            }
            open->forecast().MeasureCurrents.click();
            bench.run(std::chrono::seconds(3));
        }
        if (auto* open = dynamic_cast<ChipPanel*>(bench.desk.find(form))) {
            if (open->forecast().measuring()) {
                open->forecast().MeasureCurrents.click();
            }
        }
    });
    if (panel.chipClass != ChipClass::Receiver) {
        add("PowerSupply", [form](VirtualBench& bench) {
            if (bench.desk.find(form) != nullptr) {
                bench.at(form, "PowerSupply").type("3.1");
            }
        });
    }
    if (panel.chipClass != ChipClass::Transmitter) {
        add("FFreset", clicking(form, "FFreset"));
        add("CloseWindow", [form](VirtualBench& bench) {
            if (Form* window = bench.desk.find(form)) {
                window->userClose();
            }
        });
    }
}

void addLoaderActions(std::vector<SendingAction>& all) {
    auto add = [&](const char* name, std::function<void(VirtualBench&)> act) {
        all.push_back({name, "FirmLoad", nullptr, std::move(act), sim::BoardKind::Loader});
    };
    add("FirmLoad_Download", [](VirtualBench& bench) {
        if (bench.desk.find("FirmLoad") == nullptr) {
            return;
        }
        std::filesystem::path file = bench.folder.path() / "firmware.hex";
        writeFileWhole(file, ":0300300002337A1E\r\n:0300330002337A1B\r\n:0300360002337A18\r\n"
                             ":00000001FF\r\n\r\n");
        bench.dialogs.files.emplace_back(file.string());
        bench.at("FirmLoad", "loadeefile").click();
        bench.at("FirmLoad", "Prog").click();
        bench.run(std::chrono::seconds(1));
    });
    add("FirmLoad_Stop", [](VirtualBench& bench) {
        for (const char* element : {"Prog", "StopButton"}) {
            if (bench.desk.find("FirmLoad") == nullptr) {
                return;
            }
            std::filesystem::path file = bench.folder.path() / "firmware.hex";
            writeFileWhole(file, ":0300300002337A1E\r\n:0300330002337A1B\r\n:00000001FF\r\n");
            bench.dialogs.files.emplace_back(file.string());
            bench.at("FirmLoad", "loadeefile").click();
            bench.at("FirmLoad", element).click();
            bench.run(std::chrono::milliseconds(25));
        }
    });
    add("FirmLoad_Speed", clicking("FirmLoad", "SerSpd_384"));
}

/// Clicks, lets a run go on for a while, and stops what is left of it.
std::function<void(VirtualBench&)> runningEeprom(Button Eeprom::*action, std::chrono::milliseconds time,
                                                 bool verified = false) {
    return [action, time, verified](VirtualBench& bench) {
        auto tool = [&bench] { return dynamic_cast<Eeprom*>(bench.desk.find("eeprom")); };
        if (tool() != nullptr) {
            tool()->takeImage(std::string(96, '0'));
            tool()->VerifyAfterProgramming.tick(verified);
            tool()->Prog.setEnabled(!tool()->running());
            tool()->Verify.setEnabled(!tool()->running());
            (tool()->*action).click();
            bench.run(time);
        }
        if (tool() != nullptr) {
            tool()->StopButton.click();
        }
    };
}

constexpr sim::BoardKind lb2 = sim::BoardKind::LoadBoard2;

/// The link test's button, pressed and, when it has worked for a while, pressed again.
std::function<void(VirtualBench&)> workingFor(std::string button, int page, std::chrono::milliseconds time) {
    return [button = std::move(button), page, time](VirtualBench& bench) {
        const char* form = "Frm_BerylRfLinkTest";
        if (bench.desk.find(form) == nullptr) {
            return;
        }
        bench.at(form, "TabStrip1").choosePosition(page);
        bench.at(form, button).click();
        if (bench.ports.seats().contains(1)) {
            bench.ports.seat(1).board().hearPacket("PKT 00001\r");
        }
        bench.run(time);
        if (bench.desk.find(form) != nullptr) {
            bench.at(form, button).click();
        }
    };
}

void addEepromActions(std::vector<SendingAction>& all) {
    using namespace std::chrono_literals;
    auto add = [&](const char* name, Button Eeprom::*action, std::chrono::milliseconds time,
                   const char* endBox) {
        all.push_back({name, "eeprom", &MainMenu::mnutoolsEEPROM, runningEeprom(action, time),
                       sim::BoardKind::LoadBoard2, nullptr, endBox});
    };
    add("Eeprom_Program", &Eeprom::Prog, 1500ms, "End of Programming");
    all.push_back({"Eeprom_ProgramVerified", "eeprom", &MainMenu::mnutoolsEEPROM,
                   runningEeprom(&Eeprom::Prog, 11000ms, true), sim::BoardKind::LoadBoard2, nullptr,
                   "Verify Successful"});
    add("Eeprom_ReadStopped", &Eeprom::Read, 1500ms, productTitle);
    add("Eeprom_Read", &Eeprom::Read, 9000ms, "Read end");
    add("Eeprom_Verify", &Eeprom::Verify, 9000ms, "Verify Successful");
    add("Eeprom_Update", &Eeprom::Command1, 1000ms, "");
}

/// A search over a few points, let go on for a while and then ended.
void addSearchActions(std::vector<SendingAction>& all) {
    using namespace std::chrono_literals;
    auto add = [&](const char* name, MenuEntry MainMenu::*panel, std::chrono::milliseconds time,
                   void (*end)(Form & window)) {
        auto act = [time, end](VirtualBench& bench) {
            auto find = [&bench] { return bench.desk.find("frm_TxSearch"); };
            if (find() == nullptr) {
                return;
            }
            find()->find("CHK_Search")->tick(true);
            find()->find("SpanTo")->type("1");
            find()->find("PB_START")->click();
            bench.run(time);
            if (Form* window = find()) {
                end(*window);
            }
        };
        all.push_back({name, "frm_TxSearch", nullptr, act, lb2, panel});
    };
    auto nothing = [](Form&) {};
    auto stop = [](Form& window) { window.find("PB_STOP")->click(); };
    auto fold = [](Form& window) { window.find("CHK_Search")->tick(false); };
    auto close = [](Form& window) { window.userClose(); };
    add("Search_ToItsEnd", &MainMenu::mnuViewTRx, 3000ms, nothing);
    add("Search_Stopped", &MainMenu::mnuViewRx, 110ms, stop);
    add("Search_Folded", &MainMenu::mnuViewTRx, 75ms, fold);
    add("Search_Closed", &MainMenu::mnuViewTRx, 90ms, close);
}

void addLinkTestActions(std::vector<SendingAction>& all) {
    constexpr auto panel = &MainMenu::mnuViewTRx;
    auto add = [&](const char* what, std::function<void(VirtualBench&)> act) {
        all.push_back({std::string("TransceiverLink_") + what, "Frm_BerylRfLinkTest", nullptr, std::move(act),
                       lb2, panel});
    };
    add("Receive", workingFor("PB_Enable", 2, std::chrono::milliseconds(400)));
    add("SendContinuously", workingFor("PB_Send", 1, std::chrono::milliseconds(2500)));
    add("SendOne", [](VirtualBench& bench) {
        if (bench.desk.find("Frm_BerylRfLinkTest") != nullptr) {
            bench.at("Frm_BerylRfLinkTest", "CB_Continous").tick(false);
            bench.at("Frm_BerylRfLinkTest", "PB_Send").click();
        }
    });
    add("LeaveWhileReceiving", [](VirtualBench& bench) {
        if (bench.desk.find("Frm_BerylRfLinkTest") != nullptr) {
            bench.at("Frm_BerylRfLinkTest", "TabStrip1").choosePosition(2);
            bench.at("Frm_BerylRfLinkTest", "PB_Enable").click();
            bench.shared().tools.open(Tool::Terminal);
            bench.shared().tools.close(Tool::Terminal);
        }
    });
    add("Close", [](VirtualBench& bench) {
        if (Form* window = bench.desk.find("Frm_BerylRfLinkTest")) {
            window->userClose();
        }
    });
}

void addTestModeActions(std::vector<SendingAction>& all) {
    all.push_back({"OpalTest_Update", "OpalV2test", nullptr, clicking("OpalV2test", "Update"), lb2,
                   &MainMenu::mnuViewTx0});
    all.push_back({"OpalTest_Read", "OpalV2test", nullptr,
                   [](VirtualBench& bench) {
                       if (bench.desk.find("OpalV2test") != nullptr) {
                           bench.at("OpalV2test", "ReadGearbox").click();
                           bench.run(std::chrono::seconds(2));
                       }
                   },
                   lb2, &MainMenu::mnuViewTx0});
    for (const char* button : {"PB_Send(0)", "PB_Send(1)"}) {
        std::string number(1, button[8]);
        all.push_back({"ReceiverTest_" + number, "Frm_AmberTestFunctions", nullptr,
                       clicking("Frm_AmberTestFunctions", button), lb2, &MainMenu::mnuViewRx});
        all.push_back({"TransceiverTest_" + number, "Frm_BerylTestFunctions", nullptr,
                       clicking("Frm_BerylTestFunctions", button), lb2, &MainMenu::mnuViewTRx});
    }
}

} // namespace

std::vector<SendingAction> sendingActions() {
    std::vector<SendingAction> all;
    for (const PanelRow& panel : panelRows()) {
        if (panel.make != nullptr) {
            addPanelActions(all, panel);
        }
    }
    addSearchActions(all);
    all.push_back({"Supply_Voltage", "frm_PowerSupply", nullptr, clicking("frm_PowerSupply", "PB_Voltage")});
    all.push_back({"Supply_Current", "frm_PowerSupply", nullptr, clicking("frm_PowerSupply", "PB_Current")});
    all.push_back({"Supply_Continuous", "frm_PowerSupply", nullptr, [](VirtualBench& bench) {
                       for (int time = 0; time < 2; ++time) {
                           if (bench.desk.find("frm_PowerSupply") != nullptr) {
                               bench.at("frm_PowerSupply", "ContRead").click();
                               bench.run(std::chrono::seconds(1));
                           }
                       }
                   }});
    all.push_back({"Terminal_Line", "Terminal", &MainMenu::mnutoolsTerminal, [](VirtualBench& bench) {
                       for (char key : std::string_view("i\r")) {
                           if (bench.desk.find("Terminal") != nullptr) {
                               bench.at("Terminal", "Text1").press(key);
                           }
                       }
                       bench.run(std::chrono::seconds(1));
                   }});
    all.push_back({"Terminal_Script", "Terminal", &MainMenu::mnutoolsTerminal, [](VirtualBench& bench) {
                       if (bench.desk.find("Terminal") != nullptr) {
                           bench.at("Terminal", "En_ScriptWindow").tick(true);
                           bench.at("Terminal", "Script").edit("H2\r\nL2\r\n");
                           bench.at("Terminal", "SendScript").click();
                       }
                   }});
    addLoaderActions(all);
    addLinkTestActions(all);
    addTestModeActions(all);
    // A press there commits the field of a panel that is being typed in, and this one's commit sends.
    all.push_back({"Header_CommitsTheSupply", "OpalV2", &MainMenu::mnuViewTx0, [](VirtualBench& bench) {
                       bench.shared().tools.open(Tool::Frm_GenHeader);
                       if (bench.desk.find("OpalV2") != nullptr) {
                           bench.at("OpalV2", "PowerSupply").edit("3.1");
                       }
                       if (bench.desk.find("Frm_GenHeader") != nullptr) {
                           bench.at("Frm_GenHeader", "PB_Generate").click();
                       }
                   }});
    for (std::vector<SendingAction>& more :
         std::vector<std::vector<SendingAction>>{registerActions(), linkActions(), playActions()}) {
        all.insert(all.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
    }
    for (int index = 0; index < 3; ++index) {
        all.push_back({"Selector_" + std::to_string(index), "", nullptr,
                       [index](VirtualBench& bench) { bench.at("main", "CB_Mode").choosePosition(index); }});
    }
    addEepromActions(all);
    all.push_back({"Connect_Again", "", nullptr, [](VirtualBench& bench) {
                       bench.at("main", "Disconnect").click();
                       bench.at("main", "Connect").click();
                       bench.run(std::chrono::seconds(12));
                   }});
    return all;
}

} // namespace zor::testing
