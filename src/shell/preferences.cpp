// SPDX-License-Identifier: MIT
#include "shell/preferences.h"

#include "shell/settings.h"
#include "support/numbers.h"

#include <algorithm>

namespace zor {

namespace {

constexpr int lowestPort = 0;
constexpr int highestPort = 16;

int portOf(const TextField& field) {
    return std::clamp(roundToInt(numericPrefix(field.text())), lowestPort, highestPort);
}

void showPort(TextField& field, int port) {
    field.setText(std::to_string(port));
}

/// Typed numbers are held inside the ports that the search can try; the two may cross.
void clampEdited(TextField& field) {
    double typed = numericPrefix(field.text());
    if (typed < lowestPort || typed > highestPort) {
        showPort(field, portOf(field));
    }
}

} // namespace

Preferences::Preferences(Bench& ownBench, MenuEntry& firmwareLoader)
    : Form(ownBench.desk, "Preferences", "Preferences", Kind::Modal)
    , TabStrip1(*this, "TabStrip1", {"Communication", "Startup options", "Advanced"})
    , Frame_pref_tabs{{Frame(*this, "Frame_pref_tabs(0)"), Frame(*this, "Frame_pref_tabs(1)"),
                       Frame(*this, "Frame_pref_tabs(2)")}}
    , PortRange(*this, "PortRange", "Comm. port range")
    , LabelFrom(*this, "LabelFrom", "From:")
    , ComNr_min(*this, "ComNr_min", ownBench.preferences.Commport_min)
    , UpDown1(*this, "UpDown1")
    , LabelTo(*this, "LabelTo", "To:")
    , ComNr_max(*this, "ComNr_max", ownBench.preferences.Commport_max)
    , UpDown2(*this, "UpDown2")
    , LoadWS(*this, "LoadWS", "Load workspace on startup", ownBench.preferences.Pref_LoadWS == 1)
    , CCautoLoad(*this, "CCautoLoad", "Load chip configuration:", ownBench.preferences.Pref_CCautoLoad == 1)
    , CCautoLoadRemark(*this, "CCautoLoadRemark", "a file dialog opens with each panel")
    , EnLB_FWload(*this, "EnLB_FWload", "Enable LoadBoard Frimware loading", firmwareLoader.visible())
    , ReconnectByItself(*this, "ReconnectByItself", "Reconnect by itself",
                        ownBench.preferences.ReconnectByItself)
    , Save(*this, "Save", "Save && Exit")
    , Exit(*this, "Exit", "Cancel")
    , bench(ownBench)
    , mnuload(firmwareLoader) {
    setExtent({4200, 6000});
    for (Element* element : {static_cast<Element*>(&LabelFrom), static_cast<Element*>(&ComNr_min),
                             static_cast<Element*>(&UpDown1), static_cast<Element*>(&LabelTo),
                             static_cast<Element*>(&ComNr_max), static_cast<Element*>(&UpDown2)}) {
        element->setContainer(&PortRange);
    }
    ComNr_min.setTip("First port of the search, 0 to 16");
    ComNr_max.setTip("Last port of the search, 0 to 16");
    LoadWS.setTip("Opens the windows of the saved workspace at the start");
    CCautoLoad.setTip("A chip panel asks for its configuration file as it opens");
    CCautoLoadRemark.setContainer(&CCautoLoad);
    showDevices();
    ReconnectByItself.setTip("Takes a board that was pulled out up again as soon as it is back");
    EnLB_FWload.setTip("Shows the entry of the firmware loader; acts at once");

    TabStrip1.onTurn = [this] { TabStrip1_Click(); };
    ComNr_min.onEdit = [this] { clampEdited(ComNr_min); };
    ComNr_max.onEdit = [this] { clampEdited(ComNr_max); };
    UpDown1.reading = [this] { return portOf(ComNr_min); };
    UpDown2.reading = [this] { return portOf(ComNr_max); };
    UpDown1.onUp = [this] { stepFirst(+1); };
    UpDown1.onDown = [this] { stepFirst(-1); };
    UpDown2.onUp = [this] { stepLast(+1); };
    UpDown2.onDown = [this] { stepLast(-1); };
    EnLB_FWload.onChange = [this] { mnuload.setVisible(EnLB_FWload.ticked()); };
    Save.onClick = [this] { Save_Click(); };
    Exit.onClick = [this] { close(); };
    TabStrip1_Click();
}

/// Which device each port number stands for, as far as there is one.
void Preferences::showDevices() {
    std::string devices;
    for (int port = 1; port <= highestPort; ++port) {
        std::string device = bench.platform.ports.devicePath(port);
        if (!device.empty()) {
            devices += (devices.empty() ? "" : "\n") + std::to_string(port) + ": " + device;
        }
    }
    std::string hint = devices.empty() ? "No serial port was found at the last search" : devices;
    ComNr_min.setHint(hint);
    ComNr_max.setHint(hint);
}

void Preferences::TabStrip1_Click() {
    for (std::size_t page = 0; page < Frame_pref_tabs.size(); ++page) {
        Frame_pref_tabs[page].setVisible(static_cast<int>(page) + 1 == TabStrip1.page());
    }
}

void Preferences::stepFirst(int step) {
    int port = std::clamp(portOf(ComNr_min) + step, lowestPort, highestPort);
    showPort(ComNr_min, std::min(port, portOf(ComNr_max)));
}

void Preferences::stepLast(int step) {
    int port = std::clamp(portOf(ComNr_max) + step, lowestPort, highestPort);
    showPort(ComNr_max, std::max(port, portOf(ComNr_min)));
}

void Preferences::Save_Click() {
    StoredPreferences preferences{ComNr_min.text(), LoadWS.ticked(), CCautoLoad.ticked(), ComNr_max.text()};
    writePreferences(bench.platform, preferences);
    OwnPreferences own = readOwnPreferences(bench.platform);
    own.reconnectByItself = ReconnectByItself.ticked();
    writeOwnPreferences(bench.platform, own);
    takePreferences(bench, preferences);
    bench.preferences.ReconnectByItself = ReconnectByItself.ticked();
    for (const TextField* port : {&ComNr_min, &ComNr_max}) {
        if (numericPrefixLength(port->text()) != port->text().size()) {
            bench.tellReading(port->text());
        }
    }
    close();
}

} // namespace zor
