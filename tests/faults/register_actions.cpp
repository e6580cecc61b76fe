// SPDX-License-Identifier: MIT
#include "faults/register_actions.h"

#include "host/files.h"
#include "registertool/spi.h"
#include "store/register_list_store.h"

#include <filesystem>

namespace zor::testing {

namespace {

constexpr const char* registers = R"(
chip 1 "One" "P1" 4 3 null null line
register 1 00 "A" R,W,RF   11 8 "" ""
register 1 01 "B" R,W,Test 22 8 "" ""
register 1 02 "C" R,W,Misc 33 8 "" ""
register 1 30 "S" R,Status 0000 16 "" ""
)";

/// The register tool with a chip chosen, opened anew if it knows none; nullptr while it is busy closing.
SPI* registerTool(VirtualBench& bench) {
    auto find = [&bench] { return dynamic_cast<SPI*>(bench.desk.find("SPI")); };
    if (find() != nullptr && find()->ChipSelect.entries().empty()) {
        find()->userClose();
        store::SqliteRegisterStores stores;
        store::makeDatabase(stores, bench.platform.programFolder / "ZOR.db", readRegisterList(registers));
        bench.loop.perform([&bench] { bench.shared().tools.open(Tool::SPI); });
    }
    SPI* tool = find();
    if (tool != nullptr && tool->editor.Address.text().empty()) {
        tool->ChipSelect.choosePosition(0);
        for (std::size_t row = 0; row < tool->fifo.TXFIFO.rowCount(); ++row) {
            tool->fifo.TXFIFO.editCell(row, 1, "5A");
        }
        tool->editor.SettingsDataGrid.pickRow(1);
        tool->macros.rows[0].M_Address.type("02");
        tool->status.StatusRegCombo.choosePosition(0);
    }
    return tool;
}

void addScriptActions(std::vector<SendingAction>& all) {
    auto add = [&](const char* name, const char* script, std::chrono::milliseconds looping) {
        all.push_back({name, "SPI", nullptr, [script, looping](VirtualBench& bench) {
                           SPI* tool = registerTool(bench);
                           if (tool == nullptr) {
                               return;
                           }
                           Batch& batch = tool->batch.batches[1];
                           batch.BatchCommands.edit(script);
                           batch.EnLoop.tick(looping.count() > 0);
                           bench.after(looping, [&bench] {
                               if (Form* form = bench.desk.find("SPI")) {
                                   form->find("EnLoop(1)")->tick(false);
                               }
                           });
                           batch.BatchRun.click();
                       }});
    };
    using namespace std::chrono_literals;
    add("Registers_Script", "H1\r\n/none\r\n\r\nS2 855F\r\nL1", 0ms);
    add("Registers_ScriptOfMacros", "#REFRESH\r\n#FIFO_WRITE\r\n#STATUSREAD\r\n#FIFO_READ\r\n", 0ms);
    add("Registers_ScriptThatLoops", "#FIFO_READ\r\nH1\r\nL1\r\n", 200ms);
    add("Registers_MacroThatLoops", "#FIFO_WRITE\r\n", 200ms);
}

/// With a search and a view of differences in force: rows come into sight and leave it while the run goes on.
void addNarrowedActions(std::vector<SendingAction>& all) {
    for (const char* button : {"RefreshTable", "UpdateChip", "Defaults", "Send"}) {
        all.push_back(
            {"Registers_Narrowed_" + std::string(button), "SPI", nullptr, [button](VirtualBench& bench) {
                 SPI* tool = registerTool(bench);
                 if (tool == nullptr) {
                     return;
                 }
                 tool->search.Search.edit("0");
                 tool->differences.Show.choosePosition(1);
                 // In the middle of the run the user looks for something else.
                 bench.after(std::chrono::milliseconds(20), [&bench] {
                     if (auto* open = dynamic_cast<SPI*>(bench.desk.find("SPI"))) {
                         open->search.Search.edit("");
                         open->differences.Show.choosePosition(2);
                     }
                 });
                 tool->find(button)->click();
             }});
    }
}

} // namespace

std::vector<SendingAction> registerActions() {
    std::vector<SendingAction> all;
    for (const char* button : {"Read", "Send", "M_Read(0)", "M_Send(0)", "StatusRead", "RefreshTable",
                               "UpdateChip", "Defaults", "WriteTXff", "ReadRXff", "PB_Voltage"}) {
        std::string name = "Registers_" + std::string(button);
        std::erase_if(name, [](char c) { return c == '(' || c == ')'; });
        all.push_back({name, "SPI", nullptr, [button](VirtualBench& bench) {
                           if (SPI* tool = registerTool(bench)) {
                               tool->find(button)->click();
                           }
                       }});
    }
    all.push_back({"Registers_GridEdit", "SPI", nullptr, [](VirtualBench& bench) {
                       if (SPI* tool = registerTool(bench)) {
                           tool->editor.SettingsDataGrid.editCell(1, 2, "5F");
                       }
                   }});
    all.push_back({"Registers_LoadSettings", "SPI", nullptr, [](VirtualBench& bench) {
                       if (SPI* tool = registerTool(bench)) {
                           std::filesystem::path file = bench.folder.path() / "registers.txt";
                           writeFileWhole(file, "#CHIP One\r\nnotes\r\n00,5A\r\n02,A5\r\n");
                           bench.dialogs.files.emplace_back(file.string());
                           tool->files.LoadSettings.click();
                           bench.dialogs.files.clear();
                       }
                   }});
    addNarrowedActions(all);
    addScriptActions(all);
    all.push_back(
        {"Registers_Everything_at_once", "SPI", nullptr, [](VirtualBench& bench) {
             bench.after(std::chrono::milliseconds(5), [&bench] {
                 for (const char* button : {"M_Send(0)", "StatusRead", "Read", "PB_Voltage", "Stop"}) {
                     if (Form* form = bench.desk.find("SPI")) {
                         form->find(button)->click();
                     }
                 }
             });
             if (SPI* tool = registerTool(bench)) {
                 tool->whole.RefreshTable.click();
             }
         }});
    return all;
}

} // namespace zor::testing
