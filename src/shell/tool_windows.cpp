// SPDX-License-Identifier: MIT
#include "shell/tool_windows.h"

namespace zor {

namespace {

/// How much of the main window's height does not count when the splash is placed, in twips.
constexpr Twips splashRise = 2000;

} // namespace

ToolWindows::ToolWindows(Bench& ownBench)
    : bench(ownBench)
    , splash(ownBench.platform.loop)
    , about(ownBench.platform.loop)
    , products(ownBench.platform.loop)
    , preferences(ownBench.platform.loop)
    , terminal(ownBench.platform.loop)
    , powerSupply(ownBench.platform.loop) {
    bench.closeTool["frm_Splash"] = [this] { closeSplash(); };
    offer("Terminal", terminal);
    offer("frm_PowerSupply", powerSupply);
}

void ToolWindows::openSplash(Extent mainExtent) {
    Splash& window = splash.ensure([this] { return std::make_unique<Splash>(bench); });
    window.setPlace({(mainExtent.height - splashRise) / 2 - window.extent().height / 2,
                     mainExtent.width / 2 - window.extent().width / 2});
    window.show();
}

void ToolWindows::openAbout(Extent mainExtent) {
    About& window = about.ensure([this] { return std::make_unique<About>(bench); });
    window.setPlace(
        {(mainExtent.height - window.extent().height) / 2, (mainExtent.width - window.extent().width) / 2});
    window.show();
}

void ToolWindows::openProducts() {
    products.ensure([this] { return std::make_unique<Products>(bench); }).show();
}

void ToolWindows::openPreferences(MenuEntry& firmwareLoader) {
    preferences
        .ensure([this, &firmwareLoader] { return std::make_unique<Preferences>(bench, firmwareLoader); })
        .show();
}

} // namespace zor
