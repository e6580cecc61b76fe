// SPDX-License-Identifier: MIT
#include "headergen/chip_headers.h"

#include "panels/common/chip_panel.h"

namespace zor {

DetailLine bandLine(const ChipPanel& panel) {
    DetailLine line{"Frequency Band:", 3, std::nullopt};
    for (Band which : panel.traits().offeredBands) {
        if (panel.band(which)->chosen()) {
            line.value = panel.band(which)->caption();
        }
    }
    return line;
}

HeaderBlock frequencyBlock(const ChipPanel& p) {
    return {"FREQSET_CMD",
            2,
            wordOf(p.Freqw),
            "Frequency Setting Command",
            {shown("Center Frequency", 2, p.FreqCenter, " MHz")}};
}

} // namespace zor
