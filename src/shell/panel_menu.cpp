// SPDX-License-Identifier: MIT
#include "shell/panel_menu.h"

#include "panels/common/chip_panel.h"

namespace zor {

namespace {

void press(const Bench& bench, const std::function<Element&(ChipPanel&)>& button) {
    ChipPanel* panel = bench.openPanel();
    if (panel == nullptr || !panel->userActivate()) {
        return;
    }
    auto* field = dynamic_cast<TextField*>(panel->focusedElement());
    if (field != nullptr && field->typedIn() && !field->multiLine()) {
        field->enter();
    }
    // What the commit sent may have waited.
    if (bench.openPanel() == panel) {
        button(*panel).click();
    }
}

} // namespace

PanelMenu::PanelMenu(Form& main)
    : mnuPanel(main, nullptr, "mnuPanel", "Panel")
    , mnuPanelUpdate(main, &mnuPanel, "mnuPanelUpdate", "Update")
    , mnuPanelReadStatus(main, &mnuPanel, "mnuPanelReadStatus", "Read Status")
    , mnuPanelLoad(main, &mnuPanel, "mnuPanelLoad", "Load...")
    , mnuPanelSave(main, &mnuPanel, "mnuPanelSave", "Save...")
    , mnuPanelCopyWords(main, &mnuPanel, "mnuPanelCopyWords", "Copy words")
    , mnuPanelCopyArray(main, &mnuPanel, "mnuPanelCopyArray", "Copy as C array")
    , mnuPanelSetFrom(main, &mnuPanel, "mnuPanelSetFrom", "Set from a header...") {
    mnuPanelUpdate.setShortcut(ChipPanel::updateKey);
    mnuPanelReadStatus.setShortcut(ChipPanel::readStatusKey);
    mnuPanelLoad.setShortcut(ChipPanel::loadKey);
    mnuPanelSave.setShortcut(ChipPanel::saveKey);
    mnuPanelLoad.setBeginsSection(true);
    mnuPanelCopyWords.setBeginsSection(true);
}

void PanelMenu::wire(Bench& bench) {
    auto wireTo = [&bench](MenuEntry& entry, auto member) {
        entry.onClick = [&bench, member] {
            press(bench, [member](ChipPanel& panel) -> Element& { return panel.*member; });
        };
    };
    wireTo(mnuPanelUpdate, &ChipPanel::Update);
    wireTo(mnuPanelReadStatus, &ChipPanel::ReadStatus);
    wireTo(mnuPanelLoad, &ChipPanel::ConfLoad);
    wireTo(mnuPanelSave, &ChipPanel::ConfSave);
    wireTo(mnuPanelCopyWords, &ChipPanel::CopyWords);
    wireTo(mnuPanelCopyArray, &ChipPanel::CopyArray);
    wireTo(mnuPanelSetFrom, &ChipPanel::SetFromHeader);
    refresh(bench);
}

void PanelMenu::refresh(const Bench& bench) {
    mnuPanel.setEnabled(bench.openPanel() != nullptr);
}

} // namespace zor
