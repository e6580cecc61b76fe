// SPDX-License-Identifier: MIT
#pragma once

#include "compare/panel_setter.h"
#include "headergen/frm_gen_header.h"
#include "panels/common/chip_panel.h"
#include "virtual/virtual_bench.h"

#include <ostream>
#include <string>
#include <vector>

namespace zor::testing {

/// A choice of the View menu.
struct Device {
    const char* name;
    MenuEntry MainMenu::*entry;
};

inline void PrintTo(const Device& device, std::ostream* out) {
    *out << device.name;
}

/// All seven panels and both regional variants.
inline const std::vector<Device>& allDevices() {
    static const std::vector<Device> rows = {
        {"KT1100", &MainMenu::mnuViewTx0},      {"KT1100B", &MainMenu::mnuViewTx0Bijaku},
        {"KT1101", &MainMenu::mnuViewTx1},      {"KT1102", &MainMenu::mnuViewTx2},
        {"KT2100", &MainMenu::mnuViewRx},       {"KT2102", &MainMenu::mnuViewCoralRx},
        {"KT3100", &MainMenu::mnuViewTRx},      {"KT3100B", &MainMenu::mnuViewTRxBijaku},
        {"KT3101", &MainMenu::mnuViewTopazTRx},
    };
    return rows;
}

/// The program without a board, with a chip's panel open.
class DeviceBench : public VirtualBench {
  public:
    explicit DeviceBench(const Device& device) {
        startAndSearch();
        dialogs.boxes.clear();
        (main().menu.*device.entry).click();
    }

    [[nodiscard]] ChipPanel& panel() { return *shared().openPanel(); }

    /// The generator's header of the panel as it stands.
    [[nodiscard]] std::string header() {
        shared().tools.open(Tool::Frm_GenHeader);
        auto& generator = dynamic_cast<Frm_GenHeader&>(*shared().tools.find(Tool::Frm_GenHeader));
        generator.PB_Generate.click();
        return generator.TB_Header.text();
    }
};

} // namespace zor::testing
