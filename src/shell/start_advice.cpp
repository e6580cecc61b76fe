// SPDX-License-Identifier: MIT
#include "shell/start_advice.h"

#include "shell/main_window.h"

#include <string_view>

namespace zor {

StartAdvice startAdvice(MainWindow& main) {
    const LinkBar& bar = main.linkBar;
    switch (main.linkState()) {
    case LinkState::None:
        return {.headline = "No board is connected.",
                .hint = "Plug a LoadBoard into a USB or serial port, then connect. It is found by itself.",
                .offersConnect = true};
    case LinkState::Lost:
        return {.headline = "The board has gone.",
                .hint = "Plug it in again, then connect.",
                .offersConnect = true};
    case LinkState::Searching:
        return {.headline = "Searching for boards.", .hint = "Looking at " + bar.CommStatus.text() + "."};
    case LinkState::Choosing:
        return {.headline = "More than one board was found.",
                .hint = "Choose one from the list behind \"Connected Board:\"."};
    case LinkState::Connected:
        return {.headline = bar.LoadBoard.text() + " on " + bar.LoadboardList.text() + ".",
                .hint = "Choose the chip on it.",
                .connected = true};
    case LinkState::DataMode:
        return {.headline = "The board is in Data mode.",
                .hint = "Choose one of the first two entries of the data selector to come back.",
                .connected = true};
    }
    return {};
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
