// SPDX-License-Identifier: MIT
#include "registertool/board_supply.h"

#include "registertool/spi.h"
#include "support/numbers.h"

namespace zor {

namespace {

/// In V.
constexpr double lowest = 1.8;
constexpr double highest = 4.0;
/// The register boards' converter: its code is this over the voltage.
constexpr double codeVolts = 310;

double roundedVolts(const TextField& field) {
    return roundToDecimals(numericPrefix(field.text()), 1);
}

} // namespace

BoardSupply::BoardSupply(SPI& ownTool)
    : SupplyFrame(ownTool, "SupplyFrame", "Testboard Supply Voltage")
    , Voltage(ownTool, "Voltage", ownTool.bench.preferences.Pref_Voltage)
    , PB_Voltage(ownTool, "PB_Voltage", "Set")
    , tool(ownTool) {
    Voltage.setTip("Supply of the test board: 1.8 V to 4.0 V");
    PB_Voltage.setTip("Sets the supply of the test board");
    Voltage.setContainer(&SupplyFrame);
    PB_Voltage.setContainer(&SupplyFrame);
    Voltage.onCommit = [this] { Voltage_LostFocus(); };
    PB_Voltage.onClick = [this] { PB_Voltage_Click(); };
}

void BoardSupply::Voltage_LostFocus() {
    tool.bench.tellReading(Voltage.text());
    Voltage.setText(numberText(roundedVolts(Voltage)));
}

void BoardSupply::PB_Voltage_Click() {
    double volts = roundedVolts(Voltage);
    if (volts < lowest) {
        volts = lowest;
        Voltage.setText("1.8");
        tool.bench.warn("Minimum supply voltage is 1.8 V!");
    } else if (volts > highest) {
        volts = highest;
        Voltage.setText("4.0");
        tool.bench.warn("Maximum supply voltage is 4.0 V!");
    } else {
        Voltage.setText(numberText(volts));
    }
    if (!tool.bench.connect->isOpen()) {
        tool.bench.warn("Commport not available, please open commport. PSU setting was not updated.");
        return;
    }
    auto code = static_cast<std::uint32_t>(roundToInt(codeVolts / volts));
    tool.whenFree([this, line = "V" + hexText(code) + "\r"] { tool.send(line); });
}

} // namespace zor
