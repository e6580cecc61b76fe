// SPDX-License-Identifier: MIT
#pragma once

#include "elements/bit_cell.h"
#include "elements/list_box.h"
#include "elements/text_field.h"
#include "registertool/setting_table.h"

#include <deque>

namespace zor {

class SPI;

inline constexpr const char* selectRegister = "Select register ...";

/// One register kept at hand: chosen by name or address, with its value, its bits and its own two buttons.
struct MacroRow {
    MacroRow(SPI& tool, int index);

    ListBox M_Name;
    TextField M_Address;
    TextField M_Hexvalue;
    /// By the bit's number; their names count on through all rows.
    std::deque<BitCell> M_bit;
    Button M_Read;
    Button M_Send;

    void setValue(const std::string& value);
    void reset();
};

/// The six macro rows.
class MacroRows {
  public:
    static constexpr int count = 6;

    explicit MacroRows(SPI& ownTool);

    std::deque<MacroRow> rows;

    /// The names of all registers, as the rows offer them.
    void offerNames();
    void reset();
    /// Rows of that address take the value.
    void copyValue(const std::string& address, const std::string& value);
    /// Every row takes what the table holds for its address.
    void GUI_Sync();
    /// Sets a row up for a register; @return false if there is no such address
    bool setUp(MacroRow& row, const std::string& address);

  private:
    void M_Name_Click(MacroRow& row);
    void M_Address_LostFocus(MacroRow& row);
    void M_bit_Click(MacroRow& row, int number);
    void read(MacroRow& row, const std::string& address);
    void send(MacroRow& row, const std::string& address, const std::string& value);
    void wire(MacroRow& row);

    SPI& tool;
};

} // namespace zor
