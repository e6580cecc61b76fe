// SPDX-License-Identifier: MIT
#include "registertool/text_files.h"

#include "link/file_dialog.h"
#include "registertool/register_lines.h"
#include "registertool/spi.h"
#include "registertool/text_file.h"

#include <memory>

namespace zor {

namespace {

constexpr const char* fifoMark = "#FIFO";
/// Where a configuration's and a macro row file's own lines begin, behind the chip and the notes.
constexpr std::size_t firstEntry = 2;
constexpr std::size_t byteDigits = 2;

const char* firstFifo(FifoPage::Column column) {
    return column == FifoPage::Column::Hex ? "tx-fifo.txt" : "rx-fifo.txt";
}

} // namespace

TextFiles::TextFiles(SPI& ownTool)
    : SaveSettings(ownTool, "SaveSettings", "Save All")
    , Command4(ownTool, "Command4", "Save View")
    , LoadSettings(ownTool, "LoadSettings", "Load")
    , SaveGUI(ownTool, "SaveGUI", "Save GUI")
    , LoadGUI(ownTool, "LoadGUI", "Load GUI")
    , OpenTXff(ownTool, "OpenTXff", "Open")
    , SaveTXff(ownTool, "SaveTXff", "Save")
    , OpenRXff(ownTool, "OpenRXff", "Open")
    , SaveRXff(ownTool, "SaveRXff", "Save")
    , tool(ownTool) {
    SaveSettings.setTip("Saves the values of all registers");
    Command4.setTip("Saves the values of the registers of the ticked classes");
    LoadSettings.setTip("Loads values of registers and writes them to the chip");
    SaveGUI.setTip("Saves which registers the macro rows have");
    LoadGUI.setTip("Loads which registers the macro rows have");
    OpenTXff.setTip("Loads the bytes to be sent");
    SaveTXff.setTip("Saves the bytes to be sent");
    OpenRXff.setTip("Loads the bytes that are expected");
    SaveRXff.setTip("Saves the bytes that are expected");
    auto on = [this](Button& button, auto action) {
        button.onClick = [this, action] { tool.guarded([&] { action(); }); };
    };
    using Column = FifoPage::Column;
    on(SaveSettings, [this] { saveRegisters(std::string(allSettings)); });
    on(Command4, [this] { saveRegisters(filterQuery(tool.filter.classes())); });
    on(LoadSettings, [this] { LoadSettings_Click(); });
    on(SaveGUI, [this] { SaveGUI_Click(); });
    on(LoadGUI, [this] { LoadGUI_Click(); });
    on(OpenTXff, [this] { openFifo(Column::Hex, "Load TX FIFO Content from File"); });
    on(SaveTXff, [this] { saveFifo(Column::Hex, "Save TX FIFO Content to File"); });
    on(OpenRXff, [this] { openFifo(Column::Expected, "Load RX FIFO Expected Content from File"); });
    on(SaveRXff, [this] { saveFifo(Column::Expected, "Save Expected FIFO Content to File"); });
}

std::string TextFiles::firstLine() const {
    return "#CHIP " + tool.ChipSelect.text() + textLineEnd;
}

void TextFiles::saveRegisters(const std::string& query) {
    saveText(tool.bench, "Save Chip Configuration to Text File", firstRegisters, [&] {
        tool.table.storeTaken();
        std::string text = firstLine() + tool.Notes.text() + textLineEnd;
        std::unique_ptr<RecordSource> rows = tool.store ? tool.store->select(query) : nullptr;
        for (; rows && !rows->pastLast(); rows->moveNext()) {
            text += rows->value("Address").value_or(std::string()) + "," +
                    rows->value("HexValue").value_or(std::string()) + textLineEnd;
        }
        return text;
    });
}

void TextFiles::LoadSettings_Click() {
    std::vector<std::string> lines;
    std::optional<std::string> name;
    loading(tool.bench, [&] {
        name = chooseTextToLoad(tool.bench, "Load Chip Configuration", firstRegisters);
        if (name) {
            try {
                lines = readTextLines(*name);
            } catch (const ToolError& error) {
                if (error.number() == inputPastEnd) {
                    // That there is no first line shows when it is read, behind a load's beginning.
                    tool.editor.findAgain(beginLoad(), RegisterEditor::Editor::Follows);
                }
                throw;
            }
        }
    });
    if (lines.empty()) {
        return;
    }
    std::string kept = beginLoad();
    if (lines.size() >= firstEntry) {
        tool.Notes.setText(lines[1]);
    }
    const unsigned generation = tool.table.generation();
    std::size_t next = firstEntry;
    while (auto missing = takeUpToMissing(lines, next)) {
        tool.bench.platform.dialogs.show({.text = "Register address " + *missing + "h does not exist!",
                                          .title = "Register Address Error.",
                                          .icon = BoxIcon::Warning});
        if (tool.isClosed() || tool.table.generation() != generation) {
            return;
        }
    }
    tool.editor.findAgain(kept, RegisterEditor::Editor::Follows);
    fileLoaded(tool.bench, firstRegisters, *name);
    tool.whenFree([this] { tool.whole.UpdateChip_Click(); });
}

std::string TextFiles::beginLoad() {
    std::string kept = tool.editor.pickedAddress();
    tool.whole.ProgressBar1.putValue(0);
    tool.filter.tickAll();
    tool.table.show(allSettings);
    return kept;
}

std::optional<std::string> TextFiles::takeUpToMissing(const std::vector<std::string>& lines,
                                                      std::size_t& next) {
    std::optional<std::string> missing;
    std::optional<StoreTransaction> transaction;
    if (tool.store) {
        transaction.emplace(*tool.store);
    }
    while (next < lines.size() && !missing) {
        const std::string& line = lines[next++];
        if (line.empty()) {
            continue;
        }
        auto [address, value] = readRegisterLine(line);
        if (auto found = tool.table.findInQuery("Address = " + address)) {
            tool.table.storeValue(*found, value);
        } else {
            missing = address;
        }
    }
    if (transaction) {
        transaction->commit();
    }
    return missing;
}

void TextFiles::SaveGUI_Click() {
    saveText(tool.bench, "Save GUI Configuration to Text File", firstMacroRows, [&] {
        std::string text = firstLine() + tool.GuiNotes.text() + textLineEnd;
        for (const MacroRow& row : tool.macros.rows) {
            text += row.M_Address.text() + textLineEnd;
        }
        return text;
    });
}

void TextFiles::LoadGUI_Click() {
    loading(tool.bench, [&] {
        auto name = chooseTextToLoad(tool.bench, "Load GUI Configuration", firstMacroRows);
        if (!name) {
            return;
        }
        std::vector<std::string> lines = readTextLines(*name);
        if (lines.size() >= firstEntry) {
            tool.GuiNotes.setText(lines[1]);
        }
        std::size_t at = firstEntry;
        for (MacroRow& row : tool.macros.rows) {
            if (at >= lines.size()) {
                break;
            }
            row.M_Address.setText(lines[at]);
            // An address that the chip does not have leaves the rest of the row as it was.
            (void)tool.macros.setUp(row, lines[at]);
            ++at;
        }
        fileLoaded(tool.bench, firstMacroRows, *name);
    });
}

void TextFiles::saveFifo(FifoPage::Column column, const std::string& title) {
    saveText(tool.bench, title, firstFifo(column), [&] {
        int size = column == FifoPage::Column::Hex ? tool.fifo.TxSize : tool.fifo.RxSize;
        std::string text = std::string(fifoMark) + textLineEnd;
        for (int row = 0; row < size; ++row) {
            text +=
                tool.fifo.value(column, static_cast<std::size_t>(row)).value_or(std::string()) + textLineEnd;
        }
        return text;
    });
}

void TextFiles::openFifo(FifoPage::Column column, const std::string& title) {
    std::vector<std::string> lines;
    std::optional<std::string> name;
    loading(tool.bench, [&] {
        name = chooseTextToLoad(tool.bench, title, firstFifo(column));
        if (name) {
            lines = readTextLines(*name);
        }
    });
    const bool transmit = column == FifoPage::Column::Hex;
    const int size = transmit ? tool.fifo.TxSize : tool.fifo.RxSize;
    if (lines.empty() || size < 1) {
        return;
    }
    const std::size_t given = lines.size() - 1;
    for (std::size_t row = 0; row < static_cast<std::size_t>(size); ++row) {
        tool.fifo.store(column, row, row < given ? lines[row + 1].substr(0, byteDigits) : std::string());
    }
    fileLoaded(tool.bench, firstFifo(column), *name);
    std::string problem;
    if (given < static_cast<std::size_t>(size)) {
        problem = "Not enough data in the file!";
        if (!transmit) {
            problem += "\r\n   " + std::to_string(given) + " databyte(s) loaded.";
        }
    } else if (given > static_cast<std::size_t>(size)) {
        problem = "There is too much data in the file!";
    }
    if (!problem.empty()) {
        tool.bench.platform.dialogs.show(
            {.text = problem, .title = "Fifo fill problem...", .icon = BoxIcon::Warning});
    }
}

} // namespace zor
