// SPDX-License-Identifier: MIT
#include "registertool/status_viewer.h"

#include "registertool/cell_values.h"
#include "registertool/macro_rows.h"
#include "registertool/register_lines.h"
#include "registertool/spi.h"

#include <algorithm>

namespace zor {

namespace {

constexpr int statusBits = 16;

void showByte(std::deque<BitCell>& cells, std::size_t lowest, const std::string& hex) {
    std::string digits = HexToBinary(hex);
    for (std::size_t number = 0; number < digits.size(); ++number) {
        cells[lowest + number].setState(digits[digits.size() - 1 - number] == '1' ? BitState::One
                                                                                  : BitState::Zero);
    }
}

} // namespace

StatusViewer::StatusViewer(SPI& ownTool)
    : StatusRegCombo(ownTool, "StatusRegCombo", {}, selectRegister)
    , StatusRead(ownTool, "StatusRead", "Refresh")
    , Hexadec(ownTool, "Hexadec", "", TextField::Access::ReadOnly)
    , tool(ownTool) {
    makeCells(Databit, tool, "Databit", statusBits);
    StatusRead.setTip("Reads the status register from the chip");
    StatusRegCombo.onChange = [this] { tool.guarded([this] { StatusRegCombo_Click(); }); };
    StatusRead.onClick = [this] { tool.whenFree([this] { StatusRead_Click(); }); };
}

void StatusViewer::offer(RecordSource& source) {
    Registers = &source;
    registers.clear();
    std::vector<std::string> names;
    for (source.moveFirst(); !source.pastLast(); source.moveNext()) {
        StatusRegister& entry = registers.emplace_back();
        entry.Address = source.value("Address").value_or(std::string());
        for (std::size_t number = 0; number < entry.bit.size(); ++number) {
            entry.bit[number] = source.value("bit" + std::to_string(number)).value_or(std::string());
        }
        entry.Name = source.value("Name").value_or(std::string());
        names.push_back(entry.Name);
    }
    StatusRegCombo.setEntries(std::move(names));
    StatusRegCombo.putText(selectRegister);
}

const StatusViewer::StatusRegister* StatusViewer::at(std::string_view address) const {
    auto entry = std::ranges::find(registers, address, &StatusRegister::Address);
    return entry == registers.end() ? nullptr : &*entry;
}

void StatusViewer::forget() {
    Registers = nullptr;
    registers.clear();
    StatusRegCombo.setEntries({});
    StatusRegCombo.putText(selectRegister);
    clear();
}

void StatusViewer::clear() {
    for (BitCell& cell : Databit) {
        cell.setCaption("");
        cell.setState(BitState::NoData);
    }
}

void StatusViewer::StatusRegCombo_Click() {
    auto position = static_cast<std::size_t>(StatusRegCombo.position());
    if (position >= registers.size()) {
        return;
    }
    // An entry stands for its address: of two registers with one address the first one's bits count.
    Registers->moveFirst();
    Registers->find("Address = '" + registers[position].Address + "'");
    if (Registers->pastLast()) {
        return;
    }
    for (std::size_t number = 0; number < Databit.size(); ++number) {
        Databit[number].setCaption(registers[Registers->position()].bit[number]);
    }
}

void StatusViewer::StatusRead_Click() {
    auto position = static_cast<std::size_t>(StatusRegCombo.position());
    if (position >= registers.size()) {
        return;
    }
    if (!tool.exchange(readLine(registers[position].Address))) {
        return;
    }
    std::string high = answeredHighByte(tool.bench.link.Last15);
    std::string low = answeredByte(tool.bench.link.Last15);
    Hexadec.setText(high + " " + low);
    showByte(Databit, 8, high);
    showByte(Databit, 0, low);
}

} // namespace zor
