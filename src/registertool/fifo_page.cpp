// SPDX-License-Identifier: MIT
#include "registertool/fifo_page.h"

#include "registertool/spi.h"
#include "support/numbers.h"

#include <algorithm>
#include <limits>

namespace zor {

namespace {

using Access = GridColumn::Access;

std::vector<GridColumn> transmitColumns() {
    return {{.caption = "Item", .characters = 4},
            {.caption = "Hex", .access = Access::Editable, .characters = 3, .fixedPitch = true},
            {.caption = "ASCII", .characters = 5, .fixedPitch = true}};
}

std::vector<GridColumn> receiveColumns() {
    return {{.caption = "Item", .characters = 4},
            {.caption = "Hex", .characters = 3, .fixedPitch = true},
            {.caption = "ASCII", .characters = 5, .fixedPitch = true},
            {.caption = "Xpd", .access = Access::Editable, .characters = 3, .fixedPitch = true},
            {.caption = "Err", .characters = 3}};
}

std::int16_t sizeOf(const StoredValue& value) {
    constexpr int largest = std::numeric_limits<std::int16_t>::max();
    int size = roundToInt(numericPrefix(value.value_or(std::string())));
    return static_cast<std::int16_t>(std::clamp(size, 0, largest));
}

/// A caption and whether the grid can be used: a chip may lack either FIFO.
void showSize(Grid& grid, const std::string& direction, std::int16_t size) {
    grid.setCaption(size < 1 ? "No " + direction + " FIFO" : direction + " / " + std::to_string(size) + "B");
    grid.setEnabled(size >= 1);
}

void addItems(RecordSource& source, std::int16_t size) {
    for (int item = 1; item <= size; ++item) {
        source.addRow();
        source.setValue("Item", std::to_string(item));
        source.save();
    }
}

GridRow cellsOf(const RecordSource& source, std::initializer_list<const char*> columns) {
    GridRow cells;
    for (const char* column : columns) {
        cells.emplace_back(source.value(column).value_or(std::string()));
    }
    cells.front().look = CellLook::Soft;
    return cells;
}

void showSource(Grid& grid, RecordSource* source, std::initializer_list<const char*> columns) {
    std::vector<GridRow> rows;
    if (source != nullptr) {
        for (source->moveFirst(); !source->pastLast(); source->moveNext()) {
            rows.push_back(cellsOf(*source, columns));
        }
    }
    grid.setRows(std::move(rows));
}

} // namespace

FifoPage::FifoPage(SPI& ownTool)
    : TXFIFO(ownTool, "TXFIFO", transmitColumns())
    , RXFIFO(ownTool, "RXFIFO", receiveColumns()) {
    showSize(TXFIFO, "TX", TxSize);
    showSize(RXFIFO, "RX", RxSize);
}

void FifoPage::attach(RegisterStore& store) {
    TX = store.select("Select * from TXFIFO");
    RX = store.select("Select * from RXFIFO");
}

void FifoPage::detach() {
    TX.reset();
    RX.reset();
    forgetChip();
    showSize(TXFIFO, "TX", TxSize);
    showSize(RXFIFO, "RX", RxSize);
    showRows();
}

void FifoPage::forgetChip() {
    TxSize = 0;
    RxSize = 0;
    TxAddress.clear();
    RxAddress.clear();
    FifoSelectLine = false;
}

void FifoPage::takeChip(const RecordSource& chip) {
    TxSize = sizeOf(chip.value("TxFifoSize"));
    showSize(TXFIFO, "TX", TxSize);
    addItems(*TX, TxSize);
    RxSize = sizeOf(chip.value("RxFifoSize"));
    showSize(RXFIFO, "RX", RxSize);
    addItems(*RX, RxSize);
    TxAddress = chip.value("TxFifoAddress").value_or(TxAddress);
    RxAddress = chip.value("RxFifoAddress").value_or(RxAddress);
    FifoSelectLine = chip.value("nFFS_control") == "True";
    showRows();
}

void FifoPage::showRows() {
    showSource(TXFIFO, TX.get(), {"Item", "Hex", "ASCII"});
    showSource(RXFIFO, RX.get(), {"Item", "Hex", "ASCII", "Expected", "Error"});
}

StoredValue FifoPage::value(Column column, std::size_t row) const {
    RecordSource* source = column == Column::Hex ? TX.get() : RX.get();
    if (source == nullptr || row >= source->count()) {
        return std::nullopt;
    }
    source->moveTo(row);
    return source->value(column == Column::Hex ? "Hex" : "Expected");
}

void FifoPage::store(Column column, std::size_t row, const std::string& text) {
    RecordSource* source = column == Column::Hex ? TX.get() : RX.get();
    if (source == nullptr || row >= source->count()) {
        return;
    }
    source->moveTo(row);
    source->setValue(column == Column::Hex ? "Hex" : "Expected", text);
    source->save();
    if (column == Column::Hex) {
        TXFIFO.setCell(row, TXFIFO.column("Hex").value(), text);
    } else {
        RXFIFO.setCell(row, RXFIFO.column("Xpd").value(), text);
    }
}

void FifoPage::storeRead(std::size_t row, const std::string& hex, const std::string& error) {
    if (!RX || row >= RX->count()) {
        return;
    }
    RX->moveTo(row);
    RX->setValue("Hex", hex);
    RX->setValue("Error", error);
    RX->save();
    RXFIFO.setCell(row, RXFIFO.column("Hex").value(),
                   GridCell(hex, error.empty() ? CellLook::Plain : CellLook::Wrong));
    RXFIFO.setCell(row, RXFIFO.column("Err").value(), GridCell(error, CellLook::Wrong));
}

} // namespace zor
