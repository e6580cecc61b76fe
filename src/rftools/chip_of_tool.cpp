// SPDX-License-Identifier: MIT
#include "rftools/chip_of_tool.h"

#include "panels/common/chip_panel.h"

namespace zor {

ChipPanel* panelOfTool(const Bench& bench, const std::vector<std::string_view>& panels) {
    ChipPanel* hidden = nullptr;
    for (std::string_view name : panels) {
        auto* panel = dynamic_cast<ChipPanel*>(bench.desk.find(name));
        if (panel != nullptr && panel->isOpen()) {
            return panel;
        }
        hidden = hidden == nullptr ? panel : hidden;
    }
    return hidden;
}

void showNotice(const Bench& bench, const std::vector<std::string_view>& panels, const std::string& text) {
    if (ChipPanel* panel = panelOfTool(bench, panels)) {
        panel->Statusline.setText(text);
    }
}

} // namespace zor
