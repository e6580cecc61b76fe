// SPDX-License-Identifier: MIT
#include "desktop/demo_port.h"

#include "desktop/adapters/qt_text.h"
#include "desktop/adapters/serial_devices.h"
#include "elements/desk.h"
#include "panels/common/chip_panel.h"

namespace zor {

DemoPort::DemoPort(SerialDevices& serialDevices)
    : devices(serialDevices) {}

DemoPort::~DemoPort() {
    if (!terminal.empty()) {
        devices.beforeNumbering = nullptr;
    }
}

bool DemoPort::offer(const QStringList& arguments) {
    terminal = fromQt(board.start(arguments));
    if (terminal.empty()) {
        return false;
    }
    devices.addDevice(terminal, "LoadBoard");
    devices.beforeNumbering = [this] { lookAfter(); };
    return true;
}

void DemoPort::lookAfter() {
    if (!board.died()) {
        return;
    }
    // One that cannot be started now is tried again with the next search.
    if (std::string fresh = fromQt(board.startAgain()); !fresh.empty()) {
        devices.moveDevice(terminal, fresh);
        terminal = fresh;
    }
}

Subscription DemoPort::mountOnOpening(Desk& desk, const std::filesystem::path& registers) {
    return desk.opened.subscribe([this, registers](Form& form) {
        if (const auto* panel = dynamic_cast<ChipPanel*>(&form)) {
            // "KT1100 transmitter control panel"
            board.mount(toQt(panel->traits().title).section(QLatin1Char(' '), 0, 0).toLower());
        } else if (form.name() == "eeprom") {
            board.mountEeprom();
        } else if (form.name() == "SPI") {
            board.mountRegisters(toQt(registers.string()));
        }
    });
}

} // namespace zor
