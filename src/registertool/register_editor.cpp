// SPDX-License-Identifier: MIT
#include "registertool/register_editor.h"

#include "registertool/cell_values.h"
#include "registertool/register_lines.h"
#include "registertool/spi.h"
#include "support/wording.h"

#include <algorithm>

namespace zor {

namespace {

/// Marks, address, value twice, name, eight bits, description, three flags, default.
constexpr std::size_t columnCount = 18;

} // namespace

std::vector<GridColumn> settingColumns() {
    using Access = GridColumn::Access;
    std::vector<GridColumn> columns = {
        {.caption = "", .characters = 2},
        {.caption = "Addr.", .characters = 3, .fixedPitch = true},
        {.caption = "Hex", .access = Access::Editable, .characters = 3, .fixedPitch = true},
        {.caption = "Binary", .characters = 9, .fixedPitch = true},
        {.caption = "Name", .characters = 10}};
    for (int number = 7; number >= 0; --number) {
        columns.push_back({.caption = "bit" + std::to_string(number), .characters = 5});
    }
    columns.push_back({.caption = "Description", .characters = 40});
    for (const char* caption : {"TestReg", "RFReg", "DigitalReg"}) {
        columns.push_back({.caption = caption, .characters = 9});
    }
    columns.push_back({.caption = "DefaultValue", .characters = 11, .fixedPitch = true});
    return columns;
}

GridRow settingCells(const Setting& setting) {
    GridRow cells;
    cells.reserve(columnCount);
    cells.emplace_back();
    for (const std::string* text :
         {&setting.Address, &setting.HexValue, &setting.BinaryValue, &setting.Name}) {
        cells.emplace_back(*text);
    }
    std::string digits = HexToBinary(setting.HexValue);
    for (std::size_t number = setting.bit.size(); number-- > 0;) {
        bool one = digits[setting.bit.size() - 1 - number] == '1';
        cells.emplace_back(setting.bit[number], one ? CellLook::Strong : CellLook::Soft);
    }
    cells.emplace_back(setting.Description);
    for (bool flag : {setting.TestReg, setting.RFReg, setting.DigitalReg}) {
        cells.emplace_back(truthText(flag), CellLook::Soft);
    }
    cells.emplace_back(setting.DefaultValue, CellLook::Soft);
    return cells;
}

RegisterEditor::RegisterEditor(SPI& ownTool)
    : SettingsDataGrid(ownTool, "SettingsDataGrid", settingColumns())
    , Address(ownTool, "Address")
    , Name1(ownTool, "Name1", "", TextField::Access::ReadOnly)
    , HexValue(ownTool, "HexValue")
    , DescriptionLabel(ownTool, "DescriptionLabel", "Register Description:")
    , Description(ownTool, "Description", "", TextField::Access::ReadOnly)
    , Read(ownTool, "Read", "Read")
    , Send(ownTool, "Send", "Send")
    , tool(ownTool) {
    makeCells(bit, tool, "bit", 8);
    for (BitCell& cell : bit) {
        cell.onClick = [this, &cell] { tool.guarded([&] { bit_Click(cell.number()); }); };
    }
    HexValue.setTip("The value as it is sent; two hexadecimal digits");
    Read.setTip("Reads this register from the chip");
    Send.setTip("Writes the value to this register of the chip");
    forbid();
    SettingsDataGrid.onPick = [this] { pick(); };
    SettingsDataGrid.onCellEdit = [this](std::size_t row, std::size_t, const std::string& text) {
        tool.guarded([&] { editGrid(row, text); });
    };
    HexValue.onEdit = [this] {
        HexValue_Change();
        HexValue.setBackground(editedColour);
    };
    Read.onClick = [this] { tool.whenFree([this, address = Address.text()] { read(address); }); };
    Send.onClick = [this] {
        tool.whenFree([this, address = Address.text(), value = HexValue.text()] { send(address, value); });
    };
    stored = tool.table.stored.subscribe([this](std::size_t row) { showRow(row); });
    showsOthers = tool.table.showsOthers.subscribe([this] { showRows(); });
}

void RegisterEditor::forbid() {
    Read.setEnabled(false);
    Send.setEnabled(false);
}

GridRow RegisterEditor::cellsOf(const Setting& setting) const {
    GridRow cells = settingCells(setting);
    cells.front() = markOf(setting);
    return cells;
}

GridCell RegisterEditor::markOf(const Setting& setting) const {
    return {tool.differences.marksOf(setting), CellLook::Mark};
}

void RegisterEditor::showRows() {
    if (inGrid == tool.table.inSight() && gridGeneration == tool.table.generation()) {
        // Each row has followed its register; only what it is marked against may be another.
        for (std::size_t place = 0; place < inGrid.size(); ++place) {
            SettingsDataGrid.setCell(place, 0, markOf(tool.table.rows()[inGrid[place]]));
        }
        SettingsDataGrid.putPicked(std::nullopt);
        return;
    }
    inGrid = tool.table.inSight();
    gridGeneration = tool.table.generation();
    std::vector<GridRow> rows;
    rows.reserve(inGrid.size());
    for (std::size_t row : inGrid) {
        rows.push_back(cellsOf(tool.table.rows()[row]));
    }
    SettingsDataGrid.setRows(std::move(rows));
}

std::optional<std::size_t> RegisterEditor::gridRowOf(std::size_t settingRow) const {
    auto place = std::ranges::find(tool.table.inSight(), settingRow);
    if (place == tool.table.inSight().end()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(place - tool.table.inSight().begin());
}

void RegisterEditor::showRow(std::size_t settingRow) {
    auto before = gridRowOf(settingRow);
    bool inSight = tool.table.putInSight(settingRow);
    if (before.has_value() != inSight) {
        inGrid = tool.table.inSight();
    }
    if (before && inSight) {
        SettingsDataGrid.setRow(*before, cellsOf(tool.table.rows()[settingRow]));
    } else if (before) {
        SettingsDataGrid.removeRows(*before, 1);
    } else if (inSight) {
        SettingsDataGrid.insertRows(*gridRowOf(settingRow), {cellsOf(tool.table.rows()[settingRow])});
    }
}

std::string RegisterEditor::pickedAddress() const {
    auto picked = SettingsDataGrid.picked();
    return picked ? tool.table.rows()[tool.table.inSight()[*picked]].Address : std::string();
}

void RegisterEditor::findAgain(const std::string& address, Editor editor) {
    auto kept = address.empty() ? std::nullopt : tool.table.find(address);
    if (!kept || std::ranges::find(tool.table.shown(), *kept) == tool.table.shown().end()) {
        return;
    }
    if (auto row = gridRowOf(*kept)) {
        SettingsDataGrid.putPicked(*row);
    }
    if (editor == Editor::Follows) {
        takeRow(tool.table.rows()[*kept]);
    }
}

void RegisterEditor::pick() {
    takeRow(tool.table.rows()[tool.table.inSight()[*SettingsDataGrid.picked()]]);
}

void RegisterEditor::takeRow(const Setting& setting) {
    for (std::size_t number = 0; number < bit.size(); ++number) {
        bit[number].setCaption(setting.bit[number]);
    }
    Address.setText(setting.Address);
    Name1.setText(setting.Name);
    Description.setText(setting.Description);
    Read.setEnabled(setting.R);
    Send.setEnabled(setting.W);
    setValue(setting.HexValue);
}

void RegisterEditor::setValue(const std::string& value) {
    HexValue.setText(value);
    HexValue.setBackground(std::nullopt);
    HexValue_Change();
}

void RegisterEditor::HexValue_Change() {
    showBits(bit, HexValue.text());
}

void RegisterEditor::bit_Click(int number) {
    flip(bit[static_cast<std::size_t>(number)]);
    HexValue.setText(byteOf(bit));
    HexValue.setBackground(editedColour);
}

void RegisterEditor::copyValue(const std::string& address, const std::string& value) {
    if (Address.text() == address) {
        setValue(value);
    }
}

void RegisterEditor::storeValue(const std::string& address, const std::string& value, Source source) {
    auto picked = SettingsDataGrid.picked();
    auto row = picked && pickedAddress() == address ? std::optional(tool.table.inSight()[*picked])
                                                    : tool.table.find(address);
    if (row && source == Source::Chip) {
        tool.table.storeRead(*row, value);
    } else if (row) {
        tool.table.storeValue(*row, value);
    }
}

void RegisterEditor::editGrid(std::size_t gridRow, const std::string& text) {
    std::size_t row = tool.table.inSight()[gridRow];
    std::string value = twoDigits(text);
    setValue(value);
    tool.table.storeValue(row, value);
    const Setting& setting = tool.table.rows()[row];
    tool.macros.copyValue(setting.Address, value);
    if (setting.W) {
        tool.whenFree([this, line = writeLine(setting.Address, value)] { tool.send(line); });
    }
}

void RegisterEditor::read(const std::string& address) {
    if (address.empty() || !tool.exchange(readLine(address))) {
        return;
    }
    std::string value = answeredByte(tool.bench.link.Last15);
    storeValue(address, value, Source::Chip);
    // Another register may be shown by now.
    copyValue(address, value);
    tool.macros.copyValue(address, value);
}

void RegisterEditor::send(const std::string& address, const std::string& value) {
    if (address.empty() || !tool.exchange(writeLine(address, value))) {
        return;
    }
    storeValue(address, value, Source::User);
    if (Address.text() == address && HexValue.text() == value) {
        HexValue.setBackground(std::nullopt);
    }
    tool.macros.copyValue(address, value);
}

} // namespace zor
