// SPDX-License-Identifier: MIT
#include "registertool/differences.h"

#include "link/file_dialog.h"
#include "registertool/register_lines.h"
#include "registertool/spi.h"
#include "registertool/text_file.h"
#include "support/csv.h"
#include "support/file_name.h"
#include "support/letters.h"

#include <algorithm>

namespace zor {

namespace {

/// In the order of the entries.
constexpr const char* entries[] = {"All registers", "Not the default", "Not as last read",
                                   "Not as in the file"};
constexpr const char* defaultSign = "◆";
constexpr const char* readSign = "•";
constexpr const char* fileSign = "≠";
/// Where a configuration file's own lines begin, behind the chip and the notes.
constexpr std::size_t firstEntry = 2;
constexpr const char* listPattern = "*.txt";

} // namespace

Differences::Differences(SPI& ownTool)
    : Show(ownTool, "Show", {std::begin(entries), std::end(entries)}, entries[0])
    , CompareFile(ownTool, "CompareFile", "Compare...")
    , ComparedFile(ownTool, "ComparedFile")
    , SaveListed(ownTool, "SaveListed", "Save listed...")
    , tool(ownTool) {
    Show.setTip("Which registers are listed. ◆ differs from the default, • from what was last read, "
                "≠ from the compared file");
    CompareFile.setTip("Chooses a configuration file and marks what differs from it; nothing is written");
    SaveListed.setTip("Saves the registers in the list alone: as a configuration, or as a table (CSV)");
    ComparedFile.setVisible(false);
    Show.onChange = [this] { Show_Click(); };
    CompareFile.onClick = [this] {
        if (chooseFile()) {
            tool.narrow();
        }
    };
    SaveListed.onClick = [this] { SaveListed_Click(); };
    stored = tool.table.stored.subscribe([this](std::size_t) { showFile(); });
    showsOthers = tool.table.showsOthers.subscribe([this] { showFile(); });
}

const std::string* Differences::valueOf(const Setting& setting, Against against) const {
    switch (against) {
    case Against::Default:
        return setting.DefaultValue.empty() ? nullptr : &setting.DefaultValue;
    case Against::LastRead:
        return setting.readValue ? &*setting.readValue : nullptr;
    case Against::File:
        if (fileValues) {
            if (auto value = fileValues->find(upperCase(setting.Address)); value != fileValues->end()) {
                return &value->second;
            }
        }
        return nullptr;
    case Against::Nothing:
        break;
    }
    return nullptr;
}

bool Differences::differs(const Setting& setting, Against against) const {
    const std::string* value = valueOf(setting, against);
    return value != nullptr && *value != setting.HexValue &&
           HexToBinary(*value) != HexToBinary(setting.HexValue);
}

bool Differences::wants(const Setting& setting) const {
    return shows == Against::Nothing || differs(setting, shows);
}

std::string Differences::marksOf(const Setting& setting) const {
    std::string marks;
    marks += differs(setting, Against::Default) ? defaultSign : "";
    marks += differs(setting, Against::LastRead) ? readSign : "";
    marks += differs(setting, Against::File) ? fileSign : "";
    return marks;
}

std::size_t Differences::countOf(Against against) const {
    return static_cast<std::size_t>(std::ranges::count_if(
        tool.table.rows(), [this, against](const Setting& setting) { return differs(setting, against); }));
}

std::string Differences::summary() const {
    std::size_t count = countOf(Against::Default);
    if (count == 0) {
        return {};
    }
    return count == 1 ? "1 differs from its default" : std::to_string(count) + " differ from their defaults";
}

Differences::Against Differences::chosen() const {
    return static_cast<Against>(std::max(Show.position(), 0));
}

void Differences::Show_Click() {
    if (chosen() == Against::File && !fileValues && !chooseFile()) {
        Show.putPosition(static_cast<int>(shows));
        return;
    }
    shows = chosen();
    tool.narrow();
}

bool Differences::chooseFile() {
    bool taken = false;
    loading(tool.bench, [&] {
        auto name = chooseTextToLoad(tool.bench, "Compare with Chip Configuration", firstRegisters);
        if (!name) {
            return;
        }
        std::map<std::string, std::string> values;
        std::vector<std::string> lines = readTextLines(*name);
        for (std::size_t at = firstEntry; at < lines.size(); ++at) {
            RegisterLine entry = readRegisterLine(lines[at]);
            // As a load does it: of two lines for one register the later one counts.
            values[upperCase(entry.address)] = entry.value;
        }
        fileValues = std::move(values);
        fileName = nameOf(pathOf(*name).filename());
        fileLoaded(tool.bench, firstRegisters, *name);
        taken = true;
    });
    return taken;
}

void Differences::showFile() {
    if (!fileValues) {
        return;
    }
    std::size_t count = countOf(Against::File);
    ComparedFile.setVisible(true);
    ComparedFile.setCaption(fileName + ": " +
                            (count == 0 ? "nothing differs" : std::to_string(count) + " differ"));
}

void Differences::SaveListed_Click() {
    saving(tool.bench, [&] {
        saveChosen(tool.bench,
                   {.mode = FileRequest::Mode::Save,
                    .title = "Save Listed Registers",
                    .folder = {},
                    .startName = listPattern,
                    .filter = "Configuration (*.txt)|*.txt|Table (*.csv)|*.csv",
                    .defaultExtension = "txt"},
                   "listed-registers.txt", [this](const std::string& name) {
                       bool isTable = !extensionDiffers(name, "csv") && pathOf(name).has_extension();
                       return isTable ? table() : configuration();
                   });
    });
}

std::string Differences::configuration() const {
    std::string text = "#CHIP " + tool.ChipSelect.text() + textLineEnd + tool.Notes.text() + textLineEnd;
    for (std::size_t row : tool.table.inSight()) {
        const Setting& setting = tool.table.rows()[row];
        text += setting.Address + "," + setting.HexValue + textLineEnd;
    }
    return text;
}

std::string Differences::table() const {
    std::string text =
        csvLine({"Address", "Name", "HexValue", "DefaultValue", "Last read", "File", "Description"});
    for (std::size_t row : tool.table.inSight()) {
        const Setting& setting = tool.table.rows()[row];
        auto valueAgainst = [&](Against against) {
            const std::string* value = valueOf(setting, against);
            return value == nullptr ? std::string() : *value;
        };
        text += csvLine({setting.Address, setting.Name, setting.HexValue, setting.DefaultValue,
                         valueAgainst(Against::LastRead), valueAgainst(Against::File), setting.Description});
    }
    return text;
}

} // namespace zor
