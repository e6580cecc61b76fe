// SPDX-License-Identifier: MIT
#include "utilities/power_supply.h"

#include "link/commands.h"
#include "link/connect.h"
#include "panels/common/levels.h"
#include "support/numbers.h"

#include <utility>

namespace zor {

namespace {

constexpr std::chrono::milliseconds continuousInterval(200);
/// Marks the reading while it repeats.
constexpr Colour highlight{255, 255, 0};
/// In V. The chip panels' own field goes down to 2.0.
constexpr double lowestSupply = 2.2;
constexpr const char* single = "Cont";
constexpr const char* continuous = "Stop";

struct UpperLimit {
    double volts;
    const char* notice;
};

/// The converter of the second generation ends earlier.
UpperLimit upperLimit(int loadBoardRev) {
    return loadBoardRev == 2 ? UpperLimit{5, "Maximum supply voltage is 5 V!"}
                             : UpperLimit{5.4, "Maximum supply voltage is 5.4 V!"};
}

} // namespace

PowerSupply::PowerSupply(Bench& ownBench)
    : Form(ownBench.desk, "frm_PowerSupply", "Power Supply Settings")
    , LabelVoltage(*this, "LabelVoltage", "Vireo Chip Voltage")
    , Voltage(*this, "Voltage")
    , PB_Voltage(*this, "PB_Voltage", "Set")
    , CurrentFrame(*this, "CurrentFrame")
    , LabelCurrent(*this, "LabelCurrent", "Vireo Chip Current")
    , Current(*this, "Current", "", TextField::Access::ReadOnly)
    , CurUnit(*this, "CurUnit", "mA")
    , PB_Current(*this, "PB_Current", "Read")
    , ContRead(*this, "ContRead", single)
    , Statusline(*this, "Statusline", "", TextField::Access::ReadOnly)
    , overTime(*this, ownBench)
    , bench(ownBench)
    , Timer1(ownBench.platform.loop, [this] { Timer1_Timer(); }) {
    setExtent({3000, 5400});
    for (Element* element : {static_cast<Element*>(&LabelCurrent), static_cast<Element*>(&Current),
                             static_cast<Element*>(&CurUnit), static_cast<Element*>(&PB_Current),
                             static_cast<Element*>(&ContRead)}) {
        element->setContainer(&CurrentFrame);
    }
    Voltage.setTip("Supply of the radio board: 2.2 V to 5.4 V, on a generation 2 board to 5 V");
    PB_Voltage.setTip("Sets the supply of the radio board");
    PB_Current.setTip("Reads the chip's current once");
    ContRead.setTip("Reads the chip's current again and again");
    PB_Voltage.onClick = [this] { PB_Voltage_Click(); };
    PB_Current.onClick = [this] { PB_Current_Click(); };
    ContRead.onClick = [this] { ContRead_Click(); };

    bench.windows.PowerSupplyOn = true;
    CurrentFrame.setEnabled(bench.link.LoadBoardRev == 2);
    Voltage.setText(bench.preferences.Pref_Voltage);
    supply = bench.supplyChanged.subscribe([this] { Voltage.setText(bench.preferences.Pref_Voltage); });
}

PowerSupply::~PowerSupply() {
    // The next tool may be open already when this one is discarded.
    if (!isClosed()) {
        unload();
    }
}

void PowerSupply::unload() {
    Timer1.stop();
    supply.end();
    bench.windows.PowerSupplyOn = false;
}

void PowerSupply::PB_Voltage_Click() {
    Statusline.setText(" ");
    std::string text = Voltage.text();
    std::optional<double> volts = readNumericPrefix(text);
    if (!volts) {
        Statusline.setText("Incorrect Power Supply voltage format!  (" + text + " V)");
        return;
    }
    if (*volts < lowestSupply) {
        Statusline.setText("Minimum supply voltage is 2.2 V!");
        return;
    }
    if (UpperLimit limit = upperLimit(bench.link.LoadBoardRev); *volts > limit.volts) {
        Statusline.setText(limit.notice);
        return;
    }
    bench.tellReading(text);
    bench.preferences.Pref_Voltage = text;
    bench.sharedValueChanged.emit();
    if (!bench.connect->isOpen()) {
        bench.warn("Commport not available, please open commport. PSU setting was not updated.");
        return;
    }
    bench.connect->Send_To_LoadBoard(supplyCommand(*volts, supplyConstant(bench.link.LoadBoardRev)));
}

void PowerSupply::PB_Current_Click() {
    if (reading) {
        return;
    }
    if (!bench.connect->isOpen()) {
        bench.warn("Commport not available, please open commport.");
        return;
    }
    // Also where the port is closed on purpose while the reading waits, the next one shall be possible.
    struct Reading {
        PowerSupply& tool;
        explicit Reading(PowerSupply& owner)
            : tool(owner) {
            tool.reading = true;
            tool.PB_Current.setEnabled(false);
        }
        ~Reading() {
            tool.reading = false;
            if (tool.ContRead.caption() == single) {
                tool.PB_Current.setEnabled(true);
            }
        }
    } guard(*this);
    std::optional<CurrentReading> found = readCurrent();
    if (ContRead.caption() == continuous) {
        overTime.take(found);
    }
}

std::optional<CurrentReading> PowerSupply::readCurrent() {
    // What it was stays readable until the new figure is there.
    if (!Current.text().empty()) {
        Current.setPlaceholder(Current.text());
    }
    Current.setText("");
    std::optional<CurrentReading> taken =
        readChipCurrent(bench, [this](const char* unit) { CurUnit.setCaption(unit); });
    if (taken) {
        Current.setText(taken->shown.text);
        Current.setPlaceholder({});
    }
    return taken;
}

void PowerSupply::ContRead_Click() {
    if (Current.background() == highlight) {
        stopContinuous();
        return;
    }
    Timer1.start(continuousInterval);
    ContRead.setCaption(continuous);
    Current.setBackground(highlight);
}

void PowerSupply::stopContinuous() {
    Timer1.stop();
    Current.setBackground(std::nullopt);
    ContRead.setCaption(single);
    PB_Current.setEnabled(true);
    overTime.pause();
}

void PowerSupply::Timer1_Timer() {
    // Without a port each tick would ask for an answer to the same box.
    if (!reading && !bench.connect->isOpen()) {
        stopContinuous();
    }
    PB_Current_Click();
}

} // namespace zor
