// SPDX-License-Identifier: MIT
#include "shell/start_advice.h"

#include "link/recent_files.h"
#include "panels/common/panel_traits.h"
#include "shell/main_window.h"
#include "shell/panel_table.h"
#include "support/file_name.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

namespace zor {

namespace {

const PanelTraits& traitsOf(std::string_view panel) {
    auto row = std::find_if(panelRows().begin(), panelRows().end(),
                            [panel](const PanelRow& candidate) { return candidate.name == panel; });
    return row->traits();
}

const char* megahertz(Band band) {
    switch (band) {
    case Band::Band315:
        return "315";
    case Band::Band433:
        return "433";
    case Band::Band868:
        return "868";
    case Band::Band915:
        return "915";
    }
    return "";
}

} // namespace

StartAdvice startAdvice(MainWindow& main) {
    const LinkBar& bar = main.linkBar;
    switch (main.linkState()) {
    case LinkState::None:
        return {.headline = "No board is connected.",
                .hint = "Plug a LoadBoard into a USB or serial port, then connect. It is found by itself.",
                .offersConnect = true,
                .offersDemo = bar.Connect.active()};
    case LinkState::Lost:
        return {.headline = "The board has gone.",
                .hint = "Plug it in again, then connect.",
                .offersConnect = true,
                .offersDemo = bar.Connect.active()};
    case LinkState::Searching:
        return {.headline = "Searching for boards.", .hint = "Looking at " + bar.CommStatus.text() + "."};
    case LinkState::Choosing:
        return {.headline = "More than one board was found.",
                .hint = "Choose one from the list behind \"Connected Board:\"."};
    case LinkState::Connected:
        return {.headline = bar.LoadboardList.text() + " is connected.",
                .hint = "Choose the chip on it.",
                .connected = true};
    case LinkState::DataMode:
        return {.headline = "The board is in Data mode.",
                .hint = "Choose one of the first two entries of the data selector to come back.",
                .connected = true};
    }
    return {};
}

std::vector<LastFile> lastFiles(const std::vector<std::string>& paths, std::size_t most) {
    std::vector<LastFile> files;
    for (const std::string& path : paths) {
        auto row = std::find_if(panelRows().begin(), panelRows().end(),
                                [&](const PanelRow& panel) { return kindOfFile(path) == panel.fileKind; });
        if (row == panelRows().end() || files.size() == most) {
            continue;
        }
        auto choice =
            std::find_if(panelChoices().begin(), panelChoices().end(),
                         [&](const PanelChoice& chip) { return std::string_view(chip.panel) == row->name; });
        std::filesystem::path file = pathOf(path);
        files.push_back({path, nameOf(file.filename()), nameOf(file.parent_path()),
                         choice == panelChoices().end() ? std::string() : choice->caption});
    }
    return files;
}

std::vector<const PanelChoice*> chipsOf(ChipClass chipClass) {
    std::vector<const PanelChoice*> chips;
    for (const PanelChoice& choice : panelChoices()) {
        for (const PanelRow& row : panelRows()) {
            if (std::string_view(row.name) == choice.panel && row.chipClass == chipClass) {
                chips.push_back(&choice);
            }
        }
    }
    return chips;
}

std::string bandsOf(const PanelChoice& chip) {
    const PanelTraits& traits = traitsOf(chip.panel);
    if (chip.variant == Variant::Bijaku) {
        // The low-power variant has its panel's first band alone.
        return std::string(megahertz(traits.offeredBands.front())) + " MHz, low power";
    }
    std::string bands;
    for (Band band : traits.offeredBands) {
        bands += (bands.empty() ? "" : ", ") + std::string(megahertz(band));
    }
    return bands + " MHz";
}

const char* titleOf(ChipClass chipClass) {
    switch (chipClass) {
    case ChipClass::Transmitter:
        return "Transmitters";
    case ChipClass::Receiver:
        return "Receivers";
    case ChipClass::Transceiver:
        return "Transceivers";
    }
    return "";
}

} // namespace zor
