// SPDX-License-Identifier: MIT
#include "desktop/views/compose.h"
#include "desktop/views/views.h"
#include "utilities/power_supply.h"

namespace zor {

QWidget* powerSupplyView(Form& form) {
    auto& p = static_cast<PowerSupply&>(form);
    return window({
        group("Supply",
              {line(labelled(p.LabelVoltage, field(p.Voltage), "V"), stretch(), button(p.PB_Voltage))}),
        group(p.CurrentFrame, {line(labelled(p.LabelCurrent, field(p.Current)), label(p.CurUnit, Tone::Soft),
                                    stretch(), button(p.PB_Current), button(p.ContRead))}),
        stretch(),
        statusLine(p.Statusline),
    });
}

} // namespace zor
