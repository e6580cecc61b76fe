// SPDX-License-Identifier: MIT
#include "shell/edit_menu.h"

#include "elements/desk.h"
#include "elements/form.h"
#include "elements/history.h"

namespace zor {

namespace {

constexpr const char* beginning = "As opened";
constexpr const char* cutBeginning = "Before that";

/// A name's own sign is no mark for the keyboard.
std::string literal(const std::string& name) {
    std::string text;
    for (char c : name) {
        text += c == '&' ? "&&" : std::string(1, c);
    }
    return text;
}

} // namespace

EditMenu::EditMenu(Form& main)
    : mnuEdit(main, nullptr, "mnuEdit", "Edit")
    , mnuEditUndo(main, &mnuEdit, "mnuEditUndo", "Undo")
    , mnuEditRedo(main, &mnuEdit, "mnuEditRedo", "Redo")
    , Steps(main, "Steps", {}, "")
    , desk(&main.desk()) {
    mnuEditUndo.setShortcut("Ctrl+Z");
    mnuEditRedo.setShortcut("Ctrl+Y");
    Steps.setVisible(false);
    Steps.setTip("What was set in the window in front, step by step; a choice goes back or forth to it, and "
                 "sends nothing");
}

void EditMenu::wire(Bench& ownBench) {
    bench = &ownBench;
    mnuEditUndo.onClick = [this] { goBack(); };
    mnuEditRedo.onClick = [this] { goForth(); };
    Steps.onChange = [this] {
        History* history = inFront();
        if (history != nullptr && Steps.position() >= 0) {
            history->goTo(unlisted + static_cast<std::size_t>(Steps.position()));
        }
    };
    acting = ownBench.desk.gestureEnded.subscribe([this](const Gesture&) {
        // Begun typing can be taken back too, and tells nobody.
        const History* history = inFront();
        if (history != nullptr &&
            (history->canUndo() != mnuEditUndo.enabled() || history->canRedo() != mnuEditRedo.enabled())) {
            refresh();
        }
    });
    refresh();
}

History* EditMenu::inFront() const {
    return History::of(desk->front());
}

void EditMenu::hear() {
    History* history = inFront();
    if (history != heard) {
        heard = history;
        stepping = history == nullptr ? Subscription() : history->changed.subscribe([this] { refresh(); });
    }
}

void EditMenu::refresh() {
    hear();
    const History* history = inFront();
    bool back = history != nullptr && history->canUndo();
    bool forth = history != nullptr && history->canRedo();
    std::string further = !back && furtherUndo ? furtherUndo() : std::string();
    std::size_t done = history == nullptr ? 0 : history->position();
    mnuEditUndo.setEnabled(back || !further.empty());
    mnuEditUndo.setCaption(back && done > 0   ? "Undo " + literal(history->name(done - 1))
                           : !further.empty() ? further
                                              : "Undo");
    mnuEditRedo.setEnabled(forth);
    mnuEditRedo.setCaption(forth ? "Redo " + literal(history->name(done)) : "Redo");
    showSteps(history);
}

void EditMenu::showSteps(const History* history) {
    bool any = history != nullptr && history->count() > 0;
    if (any) {
        listSteps(*history);
        int shown = history->position() < unlisted ? -1 : static_cast<int>(history->position() - unlisted);
        if (Steps.position() != shown) {
            Steps.putPosition(shown);
        }
    }
    Steps.setVisible(any);
}

/// A step more costs that step, however many stand there.
void EditMenu::listSteps(const History& history) {
    std::size_t count = history.count();
    unlisted = count > listed ? count - listed : 0;
    const char* before = unlisted == 0 ? beginning : cutBeginning;
    bool sameStart = !Steps.entries().empty() && Steps.entries().front() == before;
    if (!sameStart || heard != listedOf) {
        shownNumbers.clear();
        Steps.setEntries({before});
        listedOf = heard;
    }
    while (!shownNumbers.empty() && shownNumbers.front() != history.number(unlisted) &&
           shownNumbers.front() < history.number(unlisted)) {
        shownNumbers.erase(shownNumbers.begin());
        Steps.removeEntry(1);
    }
    std::size_t same = 0;
    while (same < shownNumbers.size() && unlisted + same < count &&
           shownNumbers[same] == history.number(unlisted + same)) {
        ++same;
    }
    while (shownNumbers.size() > same) {
        Steps.removeEntry(static_cast<int>(shownNumbers.size()));
        shownNumbers.pop_back();
    }
    for (std::size_t step = unlisted + same; step < count; ++step) {
        Steps.addEntry(history.name(step));
        shownNumbers.push_back(history.number(step));
    }
}

void EditMenu::goBack() {
    History* history = inFront();
    std::string step = history == nullptr ? std::string() : history->undo();
    if (!step.empty()) {
        bench->notice("Undone: " + step);
    } else if (furtherUndo && !furtherUndo().empty()) {
        onFurtherUndo();
    }
}

void EditMenu::goForth() {
    History* history = inFront();
    std::string step = history == nullptr ? std::string() : history->redo();
    if (!step.empty()) {
        bench->notice("Done again: " + step);
    }
}

} // namespace zor
