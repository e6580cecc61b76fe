// SPDX-License-Identifier: MIT
#include "registertool/whole_table.h"

#include "registertool/register_lines.h"
#include "registertool/spi.h"
#include "support/numbers.h"

namespace zor {

namespace {

constexpr double wholeProgress = 100;

} // namespace

WholeTable::WholeTable(SPI& ownTool)
    : RefreshTable(ownTool, "RefreshTable", "Refresh Table")
    , UpdateChip(ownTool, "UpdateChip", "Update Chip")
    , Defaults(ownTool, "Defaults", "Load Defaults")
    , ProgressBar1(ownTool, "ProgressBar1", 0, 100, 0)
    , tool(ownTool) {
    RefreshTable.setTip("Reads every register of the chip");
    UpdateChip.setTip("Writes every register of the table to the chip");
    Defaults.setTip("Takes the default values and writes them to the chip");
    RefreshTable.onClick = [this] { tool.whenFree([this] { RefreshTable_Click(); }); };
    UpdateChip.onClick = [this] { tool.whenFree([this] { UpdateChip_Click(); }); };
    Defaults.onClick = [this] { tool.whenFree([this] { Defaults_Click(); }); };
}

void WholeTable::showAll() {
    tool.filter.tickAll();
    tool.table.show(allSettings);
}

void WholeTable::showProgress(std::size_t done, std::size_t total) {
    ProgressBar1.putValue(roundToInt(static_cast<double>(done) / static_cast<double>(total) * wholeProgress));
}

void WholeTable::tellOutcome(std::size_t count, const std::string& word) {
    tool.report.end(std::to_string(count) + (count == 1 ? " register " : " registers ") + word,
                    tool.differences.summary());
}

void WholeTable::RefreshTable_Click() {
    LongAction busy(tool);
    ProgressBar1.putValue(0);
    tool.report.begin();
    std::string kept = tool.editor.pickedAddress();
    showAll();
    // What is shown may change while a send waits; the walk keeps to its rows.
    std::vector<std::size_t> rows = tool.table.shown();
    std::size_t done = 0;
    std::size_t read = 0;
    for (; done < rows.size() && busy.readyForNext(); ++done) {
        const Setting& setting = tool.table.rows()[rows[done]];
        tool.report.at("reading " + setting.Name + ",", done + 1, rows.size());
        if (setting.R) {
            if (!busy.send(tableReadLine(setting.Address))) {
                break;
            }
            takeRead(rows[done], read++ == 0);
        }
        showProgress(done + 1, rows.size());
    }
    tool.table.storeTaken();
    busy.end();
    if (busy.sameTable()) {
        if (done == rows.size()) {
            tellOutcome(done, "read");
        }
        tool.macros.GUI_Sync();
        tool.editor.findAgain(kept, RegisterEditor::Editor::Follows);
    }
}

void WholeTable::takeRead(std::size_t row, bool isFirst) {
    std::string value = answeredByte(tool.bench.link.Last15);
    if (isFirst) {
        // A store that fails ends the walk here, not behind its last register.
        tool.table.storeRead(row, value);
    } else {
        tool.table.takeRead(row, value);
    }
}

void WholeTable::UpdateChip_Click() {
    LongAction busy(tool);
    ProgressBar1.putValue(0);
    tool.report.begin();
    std::string kept = tool.editor.pickedAddress();
    // Each line has the value of its moment: a row that is changed meanwhile goes out as it then is.
    std::vector<std::size_t> rows = tool.table.rowsOf(allSettings);
    std::size_t done = 0;
    for (; done < rows.size() && busy.readyForNext(); ++done) {
        const Setting& setting = tool.table.rows()[rows[done]];
        tool.report.at("writing " + setting.Name + ",", done + 1, rows.size());
        if (setting.W && !busy.send(writeLine(setting.Address, setting.HexValue))) {
            break;
        }
        showProgress(done + 1, rows.size());
    }
    busy.end();
    if (busy.sameTable()) {
        if (done == rows.size()) {
            tellOutcome(done, "written");
        }
        tool.macros.GUI_Sync();
        tool.editor.findAgain(kept, RegisterEditor::Editor::Stays);
    }
}

void WholeTable::Defaults_Click() {
    std::string kept = tool.editor.pickedAddress();
    showAll();
    if (tool.store) {
        StoreTransaction transaction(*tool.store);
        for (std::size_t row : tool.table.shown()) {
            tool.table.storeValue(row, tool.table.rows()[row].DefaultValue);
        }
        transaction.commit();
    }
    tool.editor.findAgain(kept, RegisterEditor::Editor::Follows);
    UpdateChip_Click();
}

} // namespace zor
