// SPDX-License-Identifier: MIT
#include "registertool/table_files.h"

#include "host/file_backup.h"
#include "host/files.h"
#include "link/file_dialog.h"
#include "registertool/spi.h"
#include "registertool/text_file.h"
#include "support/csv.h"
#include "support/file_name.h"
#include "support/numbers.h"
#include "support/register_table.h"
#include "support/wording.h"

#include <algorithm>

namespace zor {

namespace {

constexpr const char* importTitle = "Import Chips";
constexpr const char* exportTitle = "Export Chips";
constexpr const char* tablePattern = "*.csv";
constexpr const char* tables = "Tables (*.csv)|*.csv";
constexpr const char* olderDatabases = "|Databases (*.mdb)|*.mdb";

std::string textOf(const RecordSource& row, std::string_view column) {
    return row.value(column).value_or(std::string());
}

int idOf(const RecordSource& row) {
    return roundToInt(numericPrefix(textOf(row, "ChipID")));
}

ListedChip chipAt(const RecordSource& row) {
    return {.id = idOf(row),
            .name = textOf(row, "Name"),
            .project = textOf(row, "ProjectNr"),
            .txFifoSize = textOf(row, "TxFifoSize"),
            .rxFifoSize = textOf(row, "RxFifoSize"),
            .txFifoAddress = row.value("TxFifoAddress"),
            .rxFifoAddress = row.value("RxFifoAddress"),
            .fifoSelectLine = row.value("nFFS_control") == "True"};
}

ListedRegister registerAt(const RecordSource& row) {
    auto isTrue = [&row](std::string_view column) { return row.value(column) == "True"; };
    ListedRegister entry{.chip = idOf(row),
                         .address = textOf(row, "Address"),
                         .name = textOf(row, "Name"),
                         .readable = isTrue("R"),
                         .writable = isTrue("W"),
                         .radio = isTrue("RFReg"),
                         .test = isTrue("TestReg"),
                         .digital = isTrue("DigitalReg"),
                         .misc = isTrue("MiscReg"),
                         .status = isTrue("StatusReg"),
                         .defaultValue = textOf(row, "DefaultValue"),
                         .bits = roundToInt(numericPrefix(textOf(row, "Databits"))),
                         .bitNames = {},
                         .description = textOf(row, "Description")};
    for (std::size_t bit = 0; bit < entry.bitNames.size(); ++bit) {
        entry.bitNames[bit] = textOf(row, "bit" + std::to_string(bit));
    }
    return entry;
}

} // namespace

TableFiles::TableFiles(SPI& ownTool)
    : Import(ownTool, "Import", "Import...")
    , Export(ownTool, "Export", "Export...")
    , tool(ownTool) {
    Import.setTip("Takes chips and their registers from a table (CSV) or an older database into this one");
    Export.setTip("Saves the chosen chip, or all chips if none is chosen, as a table (CSV)");
    Import.onClick = [this] { tool.guarded([this] { Import_Click(); }); };
    Export.onClick = [this] { tool.guarded([this] { Export_Click(); }); };
}

RegisterList TableFiles::readList(const std::string& name) const {
    RegisterStores& stores = tool.bench.platform.registerStores;
    bool older = pathOf(name).has_extension() && !extensionDiffers(name, "mdb");
    return older ? stores.readOlder(pathOf(name)) : readRegisterTable(readFile(name));
}

void TableFiles::Import_Click() {
    const RegisterStores& stores = tool.bench.platform.registerStores;
    const FileRequest request = {.mode = FileRequest::Mode::Load,
                                 .title = importTitle,
                                 .folder = {},
                                 .startName = tablePattern,
                                 .filter = std::string(tables) + (stores.readsOlder() ? olderDatabases : ""),
                                 .defaultExtension = "csv"};
    loadChosen(tool.bench, request, firstImport,
               [this](const FileChoice& choice) { return takeList(choice.name); });
}

bool TableFiles::takeList(const std::string& name) {
    if (!tool.store) {
        return false;
    }
    RegisterList list;
    try {
        list = readList(name);
    } catch (const CsvError& error) {
        tool.bench.platform.dialogs.show({.text = "Line " + std::to_string(error.line) + ", column " +
                                                  std::to_string(error.column) + ": " + error.what() +
                                                  ".\r\nNothing was imported.",
                                          .title = importTitle,
                                          .icon = BoxIcon::Warning});
        return false;
    } catch (const ToolError& error) {
        tool.bench.tellFileError(error, "File open error");
        return false;
    }
    if (!mayReplace(list) || !tool.store) {
        return false;
    }
    tool.store->takeList(list);
    tool.reofferChips();
    tool.report.say(counted(list.registers.size(), "register") + " of " + counted(list.chips.size(), "chip") +
                    " imported");
    return true;
}

bool TableFiles::mayReplace(const RegisterList& list) const {
    auto rows = tool.store->select("Select * from Chip");
    std::string there;
    for (const ListedChip& chip : list.chips) {
        rows->moveFirst();
        rows->find("Name = '" + chip.name + "'");
        if (!rows->pastLast()) {
            there += "\r\n   " + chip.name;
        }
    }
    return there.empty() ||
           tool.bench.platform.dialogs.show({.text = "These chips are in the database already:" + there +
                                                     "\r\nReplace them and their registers?",
                                             .title = importTitle,
                                             .icon = BoxIcon::Question,
                                             .buttons = BoxButtons::YesNo}) == Answer::Yes;
}

RegisterList TableFiles::listToExport() const {
    RegisterList list;
    if (!tool.store) {
        return list;
    }
    auto chips = tool.store->select("Select * from Chip");
    auto chosen = static_cast<std::size_t>(tool.ChipSelect.position());
    for (; !chips->pastLast(); chips->moveNext()) {
        if (tool.ChipSelect.position() < 0 || chips->position() == chosen) {
            list.chips.push_back(chipAt(*chips));
        }
    }
    auto rows = tool.store->select("Select * from Register");
    for (; !rows->pastLast(); rows->moveNext()) {
        list.registers.push_back(registerAt(*rows));
    }
    return list;
}

void TableFiles::Export_Click() {
    saving(tool.bench, [this] {
        std::size_t chips = 0;
        std::string name = saveChosen(
            tool.bench,
            {.mode = FileRequest::Mode::Save,
             .title = exportTitle,
             .folder = {},
             .startName = tablePattern,
             .filter = tables,
             .defaultExtension = "csv"},
            firstTable,
            [&](const std::string&) {
                RegisterList list = listToExport();
                chips = list.chips.size();
                return registerTable(list);
            },
            onlyOwnExtension);
        if (!name.empty()) {
            tool.report.say(counted(chips, "chip") + " exported");
        }
    });
}

} // namespace zor
