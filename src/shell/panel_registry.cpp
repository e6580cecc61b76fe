// SPDX-License-Identifier: MIT
#include "shell/panel_registry.h"

#include "panels/common/chip_panel.h"
#include "shell/panel_slot.h"
#include "support/error.h"

#include <algorithm>
#include <exception>

namespace zor {

namespace {

/// Closes all of them, also where one that sends at its end is dropped in its wait.
void closeTools(const Bench& bench, const std::vector<Tool>& tools) {
    std::exception_ptr failure;
    for (Tool tool : tools) {
        try {
            bench.tools.close(tool);
        } catch (...) {
            failure = std::current_exception();
        }
    }
    if (failure) {
        std::rethrow_exception(failure);
    }
}

} // namespace

/// A bar button and what it remembers.
struct PanelRegistry::Class {
    ChipClass chipClass;
    BarButton& button;
    std::string Selections::*selected;
    const char* nothingSelected;
};

PanelRegistry::PanelRegistry(Bench& ownBench, MainMenu& ownMenu, ChipButtons ownButtons,
                             const std::vector<PanelRow>& rows)
    : bench(ownBench)
    , menu(ownMenu)
    , buttons(ownButtons)
    , chipClasses(classes(ownButtons)) {
    for (const PanelRow& row : rows) {
        slots.push_back(std::make_unique<Slot>(Slot{row, nullptr, nullptr, {}}));
    }
    bench.findOpenPanel = [this] { return openPanel(); };
    wireMenu();
    for (Class& chipClass : chipClasses) {
        wireButton(chipClass);
    }
}

PanelRegistry::~PanelRegistry() {
    bench.findOpenPanel = nullptr;
}

std::vector<PanelRegistry::Class> PanelRegistry::classes(const ChipButtons& buttons) {
    return {{ChipClass::Transmitter, buttons.TX, &Selections::SelectedTx,
             "Please select KT1100, KT1100B, KT1101 or KT1102 from the dropdown list!"},
            {ChipClass::Receiver, buttons.RX, &Selections::SelectedRx,
             "Please select KT2100 or KT2102 from the dropdown list!"},
            {ChipClass::Transceiver, buttons.TRX, &Selections::SelectedTrx,
             "Please select KT3100, KT3100B or KT3101 from the dropdown list!"}};
}

void PanelRegistry::wireMenu() {
    for (const PanelChoice& choice : panelChoices()) {
        MenuEntry& entry = menu.*choice.view;
        entry.onClick = [this, &choice] { choose(choice); };
        entry.setEnabled(slotOf(choice.panel).row.make != nullptr);
    }
}

void PanelRegistry::wireButton(Class& chipClass) {
    std::vector<DropDownEntry> entries;
    for (const PanelChoice& choice : panelChoices()) {
        const PanelRow& row = slotOf(choice.panel).row;
        if (row.chipClass == chipClass.chipClass) {
            entries.push_back({choice.key, (menu.*choice.view).caption(), row.make != nullptr});
        }
    }
    chipClass.button.setEntries(std::move(entries));
    chipClass.button.onClick = [this, kind = chipClass.chipClass] { barClicked(kind); };
    chipClass.button.onChoose = [this](const std::string& key) {
        auto choice = std::find_if(panelChoices().begin(), panelChoices().end(),
                                   [&key](const PanelChoice& candidate) { return candidate.key == key; });
        choose(*choice);
    };
}

Form& PanelRegistry::create(std::string_view panel) {
    Slot& slot = slotOf(panel);
    if (slot.row.make == nullptr) {
        throw ToolError(cannotCreate, "Window " + std::string(panel) + " cannot be created");
    }
    ChipPanel& window = ensure(slot);
    if (!window.isOpen()) {
        window.SetFrameMode();
    }
    return window;
}

ChipPanel* PanelRegistry::openPanel() const {
    auto open = std::find_if(slots.begin(), slots.end(),
                             [](const auto& slot) { return slot->panel && slot->panel->isOpen(); });
    return open == slots.end() ? nullptr : (*open)->panel.get();
}

PanelRegistry::Class& PanelRegistry::classOf(ChipClass chipClass) {
    return chipClasses[static_cast<std::size_t>(chipClass)];
}

PanelRegistry::Slot& PanelRegistry::slotOf(std::string_view panel) {
    return **std::find_if(slots.begin(), slots.end(),
                          [panel](const auto& slot) { return slot->row.name == panel; });
}

MenuEntry& PanelRegistry::entryOf(const PanelRow& row) const {
    bool variant = row.viewBijaku != nullptr && bench.IsBijakuModeSet();
    return menu.*(variant ? row.viewBijaku : row.view);
}

void PanelRegistry::remember(const PanelChoice& choice) {
    Class& chipClass = classOf(slotOf(choice.panel).row.chipClass);
    bench.selections.*chipClass.selected = choice.selection;
    chipClass.button.setCaption(choice.caption);
}

void PanelRegistry::choose(const PanelChoice& choice) {
    bench.tools.close(Tool::frm_Splash);
    remember(choice);
    Slot& slot = slotOf(choice.panel);
    bool bijaku = choice.variant == Variant::Bijaku;
    if (bijaku) {
        // Closed first, so that the toggle opens it in the variant, even where the plain one was showing.
        hide(slot);
    }
    bench.SetBijakuMode(bijaku);
    TogglePanel(choice.panel, bench.windows.*slot.row.on);
}

void PanelRegistry::barClicked(ChipClass kind) {
    const Class& chipClass = classOf(kind);
    for (const PanelChoice& choice : panelChoices()) {
        if (choice.selection == bench.selections.*chipClass.selected &&
            slotOf(choice.panel).row.chipClass == chipClass.chipClass) {
            choose(choice);
            return;
        }
    }
    bench.warn(chipClass.nothingSelected);
    chipClass.button.choiceNeeded.emit();
}

void PanelRegistry::TogglePanel(std::string_view panel, bool state) {
    Slot& slot = slotOf(panel);
    if (state) {
        hide(slot);
        return;
    }
    auto otherOpen = [&] {
        return std::find_if(slots.begin(), slots.end(), [&](const auto& other) {
            return other.get() != &slot && bench.windows.*other->row.on;
        });
    };
    // A tool that sends as it is closed lets the user act meanwhile, so each hiding looks again.
    for (auto other = otherOpen(); other != slots.end(); other = otherOpen()) {
        hide(**other);
    }
    show(slot);
}

void PanelRegistry::reopen(std::string_view panel) {
    Slot& slot = slotOf(panel);
    if (slot.row.chipClass == ChipClass::Transmitter) {
        remember(plainChoiceOf(panel));
    }
    show(slot);
}

ChipPanel& PanelRegistry::ensure(Slot& slot) {
    if (slot.panel) {
        return *slot.panel;
    }
    std::unique_ptr<Discarded> restoring;
    if (restoresNext && discarded != nullptr && &discarded->slot == &slot) {
        restoring = std::move(discarded);
    }
    forgetDiscarded(slot);
    slot.panel = slot.row.make(bench);
    slot.ending = slot.panel->closed.subscribe([this, &slot] { panelClosed(slot); });
    ChipPanel& panel = *slot.panel;
    try {
        bool asks = !restoring && !fileIsChosen;
        panel.load(asks ? ChipPanel::AutoLoad::AsPreferred : ChipPanel::AutoLoad::Never);
        slot.loaded = std::make_unique<PanelMemory>(panel);
        if (restoring) {
            // The file's lines bring shared values too; those are of now, not of then.
            PreferenceValues kept = bench.preferences;
            restoring->memory.putTo(panel);
            if (!restoring->ofAnotherRun) {
                bench.preferences = kept;
            }
            bench.showSupply();
            panel.history()->forget();
        }
    } catch (...) {
        // A load that was dropped leaves a panel half filled; the next opening makes a whole one.
        std::string chip = panel.chip();
        panel.close();
        if (restoring) {
            // What did not come back can be had again.
            discarded = std::move(restoring);
            settingsDiscarded.emit(chip);
        }
        throw;
    }
    return panel;
}

void PanelRegistry::show(Slot& slot) {
    if (slot.row.make == nullptr) {
        throw ToolError(cannotCreate, "Window " + std::string(slot.row.name) + " cannot be created");
    }
    classOf(slot.row.chipClass).button.setPressed(true);
    bench.windows.*slot.row.on = true;
    entryOf(slot.row).setChecked(true);
    bool fresh = slot.panel == nullptr && !restoresNext;
    ChipPanel& panel = ensure(slot);
    if (!(bench.windows.*slot.row.on) || slot.panel.get() != &panel) {
        // Hidden or closed again while its load waited.
        return;
    }
    panel.SetFrameMode();
    if (fresh) {
        // The regional variant has a band of its own to begin with.
        slot.loaded = std::make_unique<PanelMemory>(panel);
        panel.history()->forget();
    }
    panel.show();
    panel.setFocus(&panel.ConfLoad);
    enableTools(slot.row.tools);
}

void PanelRegistry::enableTools(const PanelTools& tools) {
    for (auto entry : tools.enabledOnShow) {
        (menu.*entry).setEnabled(true);
    }
    if (bench.link.LoadBoardRev == 2) {
        for (auto entry : tools.enabledWithGeneration2) {
            (menu.*entry).setEnabled(true);
        }
    }
}

void PanelRegistry::hide(Slot& slot) {
    const PanelRow& row = slot.row;
    classOf(row.chipClass).button.setPressed(false);
    bench.windows.*row.on = false;
    (menu.*row.view).setChecked(false);
    if (row.viewBijaku != nullptr) {
        (menu.*row.viewBijaku).setChecked(false);
    }
    if (slot.panel) {
        slot.panel->hide();
        slot.panel->hidden();
    }
    for (auto entry : row.tools.disabledOnHide) {
        (menu.*entry).setEnabled(false);
    }
    closeTools(bench, row.tools.closedOnHide);
}

void PanelRegistry::panelClosed(Slot& slot) {
    keepDiscarded(slot);
    std::shared_ptr<ChipPanel> gone = std::move(slot.panel);
    bench.platform.loop.discardLater([gone]() mutable { gone.reset(); });
    try {
        // What it sent at its end waited; another panel may have taken its place meanwhile, and its entries.
        if (bench.windows.*slot.row.on) {
            hide(slot);
        }
    } catch (...) {
        closeWindowsOfPanels();
        throw;
    }
    closeWindowsOfPanels();
}

void PanelRegistry::closeWindowsOfPanels() const {
    bench.tools.close(Tool::Help_R1);
    bench.tools.close(Tool::frm_PowerSupply);
}

void PanelRegistry::closeAtExit() {
    leaving = true;
    for (const char* name : {"OpalV2", "AmberV1", "BerylV3"}) {
        Slot& slot = slotOf(name);
        if (!slot.panel) {
            continue;
        }
        try {
            slot.panel->close();
        } catch (const ActionDropped&) {
            // Its farewell went nowhere; the next one's may still be heard.
        } catch (const ToolError&) {
            // There is nobody left to tell.
        }
    }
}

} // namespace zor
