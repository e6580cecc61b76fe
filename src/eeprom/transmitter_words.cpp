// SPDX-License-Identifier: MIT
#include "eeprom/transmitter_words.h"

#include "panels/common/chip_panel.h"

namespace zor {

namespace {

constexpr std::int32_t standardCrystal = 10'000'000;

} // namespace

ChipPanel* panelNamed(const Bench& bench, std::string_view formName) {
    return dynamic_cast<ChipPanel*>(bench.desk.find(formName));
}

ChipPanel* transmitterPanel(const Bench& bench) {
    if (bench.windows.TX0on) {
        return panelNamed(bench, "OpalV2");
    }
    return bench.windows.TX1on ? panelNamed(bench, "JadeV1") : nullptr;
}

bool IsTXPanelOn(const Bench& bench) {
    if (bench.windows.TX0on || bench.windows.TX1on) {
        return true;
    }
    bench.platform.dialogs.show({.text = "Please open the appropriate transmitter control panel.",
                                 .title = "ERROR. Couldn't get device settings.",
                                 .icon = BoxIcon::Warning});
    return false;
}

std::string shownWord(const ChipPanel& panel, std::string_view name) {
    const Element* word = panel.find(name);
    return word == nullptr ? std::string() : word->text();
}

std::int32_t transmitterCrystal(const Bench& bench) {
    const ChipPanel* panel = panelNamed(bench, bench.windows.TX1on ? "JadeV1" : "OpalV2");
    return panel == nullptr ? standardCrystal : panel->GetXtalFrequency();
}

} // namespace zor
