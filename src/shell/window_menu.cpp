// SPDX-License-Identifier: MIT
#include "shell/window_menu.h"

#include "elements/form.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace zor {

WindowMenu::WindowMenu(Form& main)
    : mnuWindow(main, nullptr, "mnuWindow", "Window")
    , desk(main.desk())
    , opening(desk.opened.subscribe([this](Form& form) { watch(form); }))
    , removing(desk.removed.subscribe([this](Form& form) {
        forms.erase(&form);
        if (std::erase(shown, &form) > 0) {
            refresh();
        }
    })) {
    for (std::size_t row = 0; row < most; ++row) {
        std::string number = std::to_string(row + 1);
        MenuEntry& entry = entries.emplace_back(main, &mnuWindow, "mnuWindow(" + number + ")", "");
        entry.setShortcut("Ctrl+" + number);
        entry.onClick = [this, row] {
            if (row < shown.size()) {
                shown[row]->show();
            }
        };
    }
    refresh();
}

void WindowMenu::watch(Form& form) {
    // The splash is a picture that goes at a click, no window to come back to.
    if (form.kind() != Form::Kind::Window || form.name() == "frm_Splash" || forms.contains(&form)) {
        return;
    }
    std::vector<Subscription>& heard = forms[&form];
    for (Signal<>* signal : {&form.changed, &form.activated, &form.deactivated, &form.closed}) {
        heard.push_back(signal->subscribe([this] { refresh(); }));
    }
    refresh();
}

void WindowMenu::refresh() {
    shown.clear();
    std::copy_if(desk.forms().begin(), desk.forms().end(), std::back_inserter(shown),
                 [this](const Form* form) { return forms.contains(form) && form->isOpen(); });
    for (std::size_t row = 0; row < entries.size(); ++row) {
        bool used = row < shown.size();
        entries[row].setVisible(used);
        entries[row].setEnabled(used);
        if (used) {
            entries[row].setCaption(shown[row]->title());
            entries[row].setChecked(shown[row]->inFront());
        }
    }
    mnuWindow.setEnabled(!shown.empty());
    changed.emit();
}

} // namespace zor
