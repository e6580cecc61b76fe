// SPDX-License-Identifier: MIT
// What panels leave behind them: the one that its window's button took away, what a run that ended badly had
// open, and the files that open a panel of their own.
#include "link/connect.h"
#include "shell/panel_slot.h"
#include "support/error.h"
#include "support/marked.h"

#include <algorithm>

namespace zor {

namespace {} // namespace

void PanelRegistry::keepDiscarded(Slot& slot) {
    // One that was given up in its load had nothing of the user's yet.
    std::unique_ptr<PanelMemory> loaded = std::move(slot.loaded);
    if (leaving || !loaded) {
        return;
    }
    PanelMemory memory(*slot.panel);
    if (memory.sameSettings(*loaded)) {
        return;
    }
    std::string chip = slot.panel->chip();
    discarded = std::make_unique<Discarded>(Discarded{slot, bench.IsBijakuModeSet(), std::move(memory), {}});
    // Its own memory: while the panel comes back and waits for its board, the registry holds it no more.
    PanelMemory& remembered = discarded->memory;
    discarded->portClosing = bench.connect->portClosed.subscribe([&remembered] { remembered.forgetSent(); });
    settingsDiscarded.emit(chip);
}

void PanelRegistry::forgetDiscarded(const Slot& slot) {
    if (discarded != nullptr && &discarded->slot == &slot) {
        discarded.reset();
        undoLost.emit();
    }
}

namespace {

const PanelRow* rowOfFile(const std::string& path) {
    const std::vector<PanelRow>& rows = panelRows();
    auto row = std::find_if(rows.begin(), rows.end(), [kind = kindOfFile(path)](const PanelRow& candidate) {
        return candidate.fileKind == kind;
    });
    return row == rows.end() ? nullptr : &*row;
}

} // namespace

void PanelRegistry::openConfiguration(const std::string& path) {
    const PanelRow* row = rowOfFile(path);
    if (row == nullptr) {
        throw ToolError(unsupported, "Incorrect extension");
    }
    Slot& slot = slotOf(row->name);
    if (slot.panel != nullptr && slot.panel->isOpen()) {
        slot.panel->show();
    } else {
        Marked chosen(fileIsChosen);
        choose(plainChoiceOf(row->name));
    }
    if (slot.panel != nullptr && slot.panel->isOpen()) {
        slot.panel->loadFile(path);
    }
}

void PanelRegistry::restoreDiscarded() {
    if (discarded == nullptr) {
        return;
    }
    Slot& slot = discarded->slot;
    bench.SetBijakuMode(discarded->bijaku);
    for (const PanelChoice& choice : panelChoices()) {
        if (choice.panel == slot.row.name &&
            (choice.variant == Variant::Bijaku) == (slot.row.viewBijaku != nullptr && discarded->bijaku)) {
            remember(choice);
        }
    }
    Marked restoring(restoresNext);
    TogglePanel(slot.row.name, false);
    undoLost.emit();
}

std::optional<PanelRegistry::Kept> PanelRegistry::keepOpen() {
    for (const auto& slot : slots) {
        if (slot->panel && slot->panel->isOpen() && slot->loaded) {
            PanelMemory memory(*slot->panel);
            if (!memory.sameSettings(*slot->loaded)) {
                bool variant = slot->row.viewBijaku != nullptr && bench.IsBijakuModeSet();
                return Kept{std::string(slot->row.name), variant, memory.written()};
            }
        }
    }
    return std::nullopt;
}

bool PanelRegistry::knows(std::string_view panel) const {
    return std::any_of(slots.begin(), slots.end(), [panel](const auto& slot) {
        return slot->row.name == panel && slot->row.make != nullptr;
    });
}

std::string PanelRegistry::chipOf(std::string_view panel, bool bijaku) const {
    for (const PanelChoice& choice : panelChoices()) {
        if (choice.panel == panel && (choice.variant == Variant::Bijaku) == bijaku) {
            return choice.caption;
        }
    }
    return std::string(panel);
}

void PanelRegistry::restoreKept(const Kept& kept) {
    PanelMemory memory{std::string_view(kept.memory)};
    Slot& slot = slotOf(kept.panel);
    if (slot.panel) {
        // What is in it now stays a step back.
        if (!slot.panel->isOpen()) {
            TogglePanel(kept.panel, false);
        }
        if (slot.panel) {
            memory.putTo(*slot.panel);
        }
        return;
    }
    discarded = std::make_unique<Discarded>(Discarded{slot, kept.bijaku, std::move(memory), {}, true});
    restoreDiscarded();
}

} // namespace zor
