// SPDX-License-Identifier: MIT
#pragma once

#include "elements/bit_cell.h"
#include "elements/grid.h"
#include "elements/label.h"
#include "elements/text_field.h"
#include "registertool/setting_table.h"

#include <deque>

namespace zor {

class SPI;

/// The table of registers and the editor of the one that is picked in it.
class RegisterEditor {
  public:
    explicit RegisterEditor(SPI& ownTool);

    Grid SettingsDataGrid;
    TextField Address;
    TextField Name1;
    TextField HexValue;
    Label DescriptionLabel;
    TextField Description;
    /// By the bit's number.
    std::deque<BitCell> bit;
    Button Read;
    Button Send;

    /// Read and Send have nothing to do until a row is picked.
    void forbid();
    /// The value was sent or read elsewhere: takes it if the register is the one shown.
    void copyValue(const std::string& address, const std::string& value);
    /// The address of the picked row; empty if there is none.
    [[nodiscard]] std::string pickedAddress() const;
    enum class Editor { Follows, Stays };
    /// Picks the first row of an address again.
    void findAgain(const std::string& address, Editor editor);

    // For the steps back: all values of the table, and the one that is being edited, empty if none is.
    [[nodiscard]] std::string keptValues() const;
    void putValues(const std::string& text);
    [[nodiscard]] std::string keptEdit() const;
    void putEdit(const std::string& text);

  private:
    /// What a register shows, its marks included.
    [[nodiscard]] GridRow cellsOf(const Setting& setting) const;
    [[nodiscard]] GridCell markOf(const Setting& setting) const;
    void showRows();
    void showRow(std::size_t settingRow);
    void pick();
    void takeRow(const Setting& setting);
    void editGrid(std::size_t gridRow, const std::string& text);
    void setValue(const std::string& value);
    void HexValue_Change();
    /// Into the row of the address: the picked one if it has it, else the first.
    enum class Source { User, Chip };
    void storeValue(const std::string& address, const std::string& value, Source source);
    void bit_Click(int number);
    void read(const std::string& address);
    void send(const std::string& address, const std::string& value);
    [[nodiscard]] std::optional<std::size_t> gridRowOf(std::size_t settingRow) const;

    SPI& tool;
    /// The rows of the table that the grid has, and the generation whose numbers they are.
    std::vector<std::size_t> inGrid;
    unsigned gridGeneration = 0;
    Subscription stored;
    Subscription showsOthers;
};

/// The columns of the table, and what a register shows in them.
[[nodiscard]] std::vector<GridColumn> settingColumns();
[[nodiscard]] GridRow settingCells(const Setting& setting);

} // namespace zor
