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
    , terminal(ownBench.platform.loop)
    , powerSupply(ownBench.platform.loop) {
    bench.openTool["Terminal"] = [this] { openTerminal(); };
    bench.closeTool["Terminal"] = [this] { terminal.close(); };
    bench.openTool["frm_PowerSupply"] = [this] { openPowerSupply(); };
    bench.closeTool["frm_PowerSupply"] = [this] { powerSupply.close(); };
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

void ToolWindows::openTerminal() {
    terminal.ensure([this] { return std::make_unique<Terminal>(bench); }).show();
}

void ToolWindows::openPowerSupply() {
    powerSupply.ensure([this] { return std::make_unique<PowerSupply>(bench); }).show();
}

} // namespace zor
