// SPDX-License-Identifier: MIT
#include "shell/programmer_button.h"

#include "elements/form.h"

namespace zor {

ProgrammerButton::ProgrammerButton(Bench& ownBench, BarButton& ownButton, MenuEntry& ownEntry)
    : bench(ownBench)
    , button(ownButton) {
    bool exists = bench.tools.exists(Tool::eeprom);
    button.setEnabled(exists);
    button.setTip("EEPROM programmer");
    ownEntry.setEnabled(exists);
    making = bench.tools.made.subscribe([this](Tool tool) {
        if (tool == Tool::eeprom) {
            button.setPressed(true);
            ending = bench.tools.find(tool)->closed.subscribe([this] { button.setPressed(false); });
        }
    });
    button.onClick = [this] {
        const Form* programmer = bench.tools.find(Tool::eeprom);
        programmer != nullptr && programmer->isOpen() ? EEPROM_hide() : EEPROM_show();
    };
    ownEntry.onClick = [this] {
        bench.tools.close(Tool::frm_Splash);
        EEPROM_show();
    };
}

void ProgrammerButton::EEPROM_show() {
    button.setPressed(true);
    bench.tools.open(Tool::eeprom);
}

void ProgrammerButton::EEPROM_hide() {
    button.setPressed(false);
    bench.tools.close(Tool::eeprom);
}

} // namespace zor
