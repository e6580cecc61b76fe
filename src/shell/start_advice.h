// SPDX-License-Identifier: MIT
#pragma once

#include "shell/panel_table.h"

#include <cstddef>
#include <string>
#include <vector>

namespace zor {

class MainWindow;

/// What the start page says of the board: how things stand, and the next thing to do.
struct StartAdvice {
    std::string headline;
    std::string hint;
    /// A board answers.
    bool connected = false;
    /// The next thing to do is to connect.
    bool offersConnect = false;
    /// A simulated board could be connected to now.
    bool offersDemo = false;
    friend bool operator==(const StartAdvice&, const StartAdvice&) = default;
};

[[nodiscard]] StartAdvice startAdvice(MainWindow& main);

/// A configuration file that was used lately, as the start page offers it.
struct LastFile {
    std::string path;
    /// Without its folder.
    std::string name;
    std::string folder;
    /// "KT1100"
    std::string chip;
    friend bool operator==(const LastFile&, const LastFile&) = default;
};
/// Newest first. Files of no chip, which the program cannot open by themselves, are left out.
[[nodiscard]] std::vector<LastFile> lastFiles(const std::vector<std::string>& paths, std::size_t most);

/// The chips of a class, in the order of its bar button's list.
[[nodiscard]] std::vector<const PanelChoice*> chipsOf(ChipClass chipClass);
/// Its bands: "315, 433, 868, 915 MHz"
[[nodiscard]] std::string bandsOf(const PanelChoice& chip);
/// "Transmitters"
[[nodiscard]] const char* titleOf(ChipClass chipClass);

} // namespace zor
