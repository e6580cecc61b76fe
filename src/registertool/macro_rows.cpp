// SPDX-License-Identifier: MIT
#include "registertool/macro_rows.h"

#include "registertool/cell_values.h"
#include "registertool/register_lines.h"
#include "registertool/spi.h"
#include "support/wording.h"

namespace zor {

namespace {

constexpr int cellsOfARow = 8;

} // namespace

MacroRow::MacroRow(SPI& tool, int index)
    : M_Name(tool, indexed("M_Name", index), {}, selectRegister)
    , M_Address(tool, indexed("M_Address", index))
    , M_Hexvalue(tool, indexed("M_Hexvalue", index))
    , M_Read(tool, indexed("M_Read", index), "Read")
    , M_Send(tool, indexed("M_Send", index), "Send") {
    makeCells(M_bit, tool, "M_bit", cellsOfARow, index * cellsOfARow);
    M_Name.setTip("The register by its name");
    M_Address.setTip("The register by its address, two hexadecimal digits; empty resets the row");
    M_Hexvalue.setTip("The value as it is sent");
    M_Read.setTip("Reads this register from the chip");
    M_Send.setTip("Writes the value to this register of the chip");
    M_Read.setEnabled(false);
    M_Send.setEnabled(false);
}

void MacroRow::setValue(const std::string& value) {
    M_Hexvalue.setText(value);
    M_Hexvalue.setBackground(std::nullopt);
    showBits(M_bit, value);
}

void MacroRow::reset() {
    M_Hexvalue.setText("");
    M_Hexvalue.setBackground(std::nullopt);
    M_Address.setText("");
    M_Name.putText(selectRegister);
    for (BitCell& cell : M_bit) {
        cell.setCaption("");
        cell.setState(BitState::NoData);
    }
}

MacroRows::MacroRows(SPI& ownTool)
    : tool(ownTool) {
    for (int index = 0; index < count; ++index) {
        wire(rows.emplace_back(tool, index));
    }
}

void MacroRows::wire(MacroRow& row) {
    row.M_Name.onChange = [this, &row] { tool.guarded([&] { M_Name_Click(row); }); };
    row.M_Address.onCommit = [this, &row] { tool.guarded([&] { M_Address_LostFocus(row); }); };
    row.M_Hexvalue.onEdit = [&row] {
        showBits(row.M_bit, row.M_Hexvalue.text());
        row.M_Hexvalue.setBackground(editedColour);
    };
    for (BitCell& cell : row.M_bit) {
        cell.onClick = [this, &row, &cell] { M_bit_Click(row, cell.number()); };
    }
    row.M_Read.onClick = [this, &row] {
        tool.whenFree([this, &row, address = row.M_Address.text()] { read(row, address); });
    };
    row.M_Send.onClick = [this, &row] {
        tool.whenFree([this, &row, address = row.M_Address.text(), value = row.M_Hexvalue.text()] {
            send(row, address, value);
        });
    };
}

void MacroRows::offerNames() {
    std::vector<std::string> names;
    for (const Setting& setting : tool.table.rows()) {
        names.push_back(setting.Name);
    }
    for (MacroRow& row : rows) {
        row.M_Name.setEntries(names);
    }
}

void MacroRows::reset() {
    for (MacroRow& row : rows) {
        row.reset();
    }
}

void MacroRows::copyValue(const std::string& address, const std::string& value) {
    for (MacroRow& row : rows) {
        if (row.M_Address.text() == address) {
            row.setValue(value);
        }
    }
}

void MacroRows::GUI_Sync() {
    for (MacroRow& row : rows) {
        if (auto found = tool.table.find(row.M_Address.text())) {
            row.setValue(tool.table.rows()[*found].HexValue);
        }
    }
}

bool MacroRows::setUp(MacroRow& row, const std::string& address) {
    auto found = tool.table.find(address);
    if (!found) {
        return false;
    }
    const Setting& setting = tool.table.rows()[*found];
    row.M_Name.putText(setting.Name);
    row.setValue(setting.HexValue);
    row.M_Read.setEnabled(setting.R);
    row.M_Send.setEnabled(setting.W);
    for (std::size_t number = 0; number < row.M_bit.size(); ++number) {
        row.M_bit[number].setCaption(setting.bit[number]);
    }
    return true;
}

void MacroRows::M_Name_Click(MacroRow& row) {
    int position = row.M_Name.position();
    if (position < 0 || static_cast<std::size_t>(position) >= tool.table.rows().size()) {
        return;
    }
    std::string address = tool.table.rows()[static_cast<std::size_t>(position)].Address;
    row.M_Address.setText(address);
    if (!setUp(row, address)) {
        row.reset();
    }
}

void MacroRows::M_Address_LostFocus(MacroRow& row) {
    if (row.M_Address.text().empty()) {
        row.reset();
        return;
    }
    std::string address = twoDigits(row.M_Address.text());
    row.M_Address.setText(address);
    if (setUp(row, address)) {
        return;
    }
    // What was wrong stands there while it is told.
    tool.bench.platform.dialogs.show({.text = "Invalid register address! Please try again!",
                                      .title = "Unknown Register Address",
                                      .icon = BoxIcon::Warning});
    row.reset();
}

void MacroRows::M_bit_Click(MacroRow& row, int number) {
    flip(row.M_bit[static_cast<std::size_t>(number)]);
    row.M_Hexvalue.setText(byteOf(row.M_bit));
    row.M_Hexvalue.setBackground(editedColour);
}

void MacroRows::read(MacroRow& row, const std::string& address) {
    if (address.empty() || !tool.exchange(readLine(address))) {
        return;
    }
    std::string value = answeredByte(tool.bench.link.Last15);
    // The row may have another register by now.
    if (row.M_Address.text() == address) {
        row.setValue(value);
    }
    if (auto found = tool.table.find(address)) {
        tool.table.storeRead(*found, value);
    }
}

void MacroRows::send(MacroRow& row, const std::string& address, const std::string& value) {
    if (address.empty() || !tool.exchange(writeLine(address, value))) {
        return;
    }
    if (row.M_Address.text() == address && row.M_Hexvalue.text() == value) {
        row.M_Hexvalue.setBackground(std::nullopt);
    }
    if (auto found = tool.table.find(address)) {
        tool.table.storeValue(*found, value);
    }
    tool.editor.copyValue(address, value);
}

} // namespace zor
