// SPDX-License-Identifier: MIT
#include "shell/tool_windows.h"

namespace zor {

namespace {

/// How much of the main window's height does not count when the splash is placed, in twips.
constexpr Twips splashRise = 2000;

} // namespace

ToolWindows::ToolWindows(Bench& ownBench, const std::vector<ToolRow>& rows)
    : bench(ownBench)
    , about(ownBench.platform.loop)
    , products(ownBench.platform.loop)
    , preferences(ownBench.platform.loop) {
    for (const ToolRow& row : rows) {
        slots.push_back(std::make_unique<Slot>(Slot{row, WindowSlot<Form>(ownBench.platform.loop)}));
    }
}

bool ToolWindows::exists(Tool tool) const {
    return slotOf(tool).row.make != nullptr;
}

void ToolWindows::open(Tool tool) {
    if (exists(tool)) {
        create(tool).show();
    }
}

void ToolWindows::close(Tool tool) {
    slotOf(tool).window.close();
}

Form& ToolWindows::create(Tool tool) {
    Slot& slot = slotOf(tool);
    if (!exists(tool)) {
        throw ToolError(cannotCreate, "Window " + std::string(slot.row.form) + " cannot be created");
    }
    bool isNew = slot.window.get() == nullptr;
    Form& window = slot.window.ensure([&] { return slot.row.make(bench); });
    if (isNew) {
        made.emit(tool);
    }
    return window;
}

Form* ToolWindows::find(Tool tool) const {
    return slotOf(tool).window.get();
}

void ToolWindows::openSplash(Extent mainExtent) {
    Form& window = create(Tool::frm_Splash);
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
