// SPDX-License-Identifier: MIT
#include "desktop/adapters/serial_devices.h"

#include "support/letters.h"

#include <algorithm>
#include <fstream>
#include <tuple>
#include <utility>

namespace zor {

namespace fs = std::filesystem;

namespace {

std::string firstLine(const fs::path& file) {
    std::ifstream in(file);
    std::string line;
    std::getline(in, line);
    return line;
}

/// "ttyUSB10" in two halves, so that it sorts behind "ttyUSB9".
std::pair<std::string, unsigned long> nameAndNumber(const std::string& name) {
    std::size_t digits = name.find_last_not_of("0123456789") + 1;
    std::string number = name.substr(digits, 9);
    return {name.substr(0, digits), number.empty() ? 0 : std::stoul(number)};
}

/// USB adapters are what a board is plugged in by, so they come first.
enum class Group { UsbConverter, UsbModem, BuiltIn };

Group groupOf(const std::string& name) {
    if (name.starts_with("ttyUSB")) {
        return Group::UsbConverter;
    }
    return name.starts_with("ttyACM") ? Group::UsbModem : Group::BuiltIn;
}

/// "tty7": there are dozens of them, and no serial line is among them.
bool isConsole(const std::string& name) {
    return name.starts_with("tty") && name.size() > 3 && isDigit(name[3]);
}

/// The kernel makes ttyS0 to ttyS3 whether there is a chip or not; type 0 is "no chip found".
bool hasHardware(const fs::path& classEntry) {
    std::error_code none;
    return fs::exists(classEntry / "device", none) && firstLine(classEntry / "type") != "0";
}

/// Port path "1.4.2" in four bits a hub, behind the bus number.
std::uint32_t locationOf(const fs::path& usbDevice) {
    std::uint32_t ports = 0;
    std::uint32_t port = 0;
    for (char c : firstLine(usbDevice / "devpath") + ".") {
        if (c == '.') {
            ports = ports << 4 | (port & 0xF);
            port = 0;
        } else {
            port = port * 10 + static_cast<std::uint32_t>(c - '0');
        }
    }
    std::string bus = firstLine(usbDevice / "busnum");
    return static_cast<std::uint32_t>(std::strtoul(bus.c_str(), nullptr, 10)) << 24 | (ports & 0xFFFFFF);
}

/// The USB device stands a few folders above the interface that the port belongs to.
void describe(SerialDevice& device, const fs::path& classEntry) {
    std::error_code failed;
    fs::path folder = fs::canonical(classEntry / "device", failed);
    for (int level = 0; !failed && level < 5 && folder.has_relative_path(); ++level) {
        if (fs::exists(folder / "devpath", failed)) {
            device.description = firstLine(folder / "product");
            device.location = locationOf(folder);
            device.serialNumber = firstLine(folder / "serial");
            return;
        }
        folder = folder.parent_path();
    }
}

/// Devices that were added by hand have a location of no bus; their path is what tells them apart.
constexpr std::uint32_t firstAddedLocation = 0xFF000001U;

std::string identityOf(const SerialDevice& device) {
    if (device.location == 0 || device.location >= firstAddedLocation) {
        return device.path;
    }
    return "usb " + std::to_string(device.location) + " " + device.serialNumber;
}

} // namespace

SerialDevices::SerialDevices(fs::path deviceFolder, fs::path classFolder)
    : devices(std::move(deviceFolder))
    , classes(std::move(classFolder)) {}

void SerialDevices::addDevice(std::string path, std::string description) {
    // Buses are numbered from 1, so no real device has a location that begins with 255.
    auto location = firstAddedLocation + static_cast<std::uint32_t>(added.size());
    added.push_back({std::move(path), std::move(description), location, {}});
    renumber();
}

void SerialDevices::moveDevice(const std::string& from, const std::string& to) {
    for (SerialDevice& device : added) {
        if (device.path == from) {
            device.path = to;
        }
    }
}

void SerialDevices::putFirst(const fs::path& path) {
    first = path;
    renumber();
}

std::vector<SerialDevice> SerialDevices::scan() const {
    std::vector<std::string> names;
    std::error_code unreadable;
    for (fs::directory_iterator at(classes, unreadable), end; !unreadable && at != end;
         at.increment(unreadable)) {
        const fs::directory_entry& entry = *at;
        std::string name = entry.path().filename().string();
        std::error_code missing;
        if (!isConsole(name) && hasHardware(entry.path()) && fs::exists(devices / name, missing)) {
            names.push_back(name);
        }
    }
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        return std::make_tuple(groupOf(a), nameAndNumber(a)) < std::make_tuple(groupOf(b), nameAndNumber(b));
    });

    std::vector<SerialDevice> found = added;
    for (const auto& name : names) {
        SerialDevice device{(devices / name).string(), {}, 0, {}};
        describe(device, classes / name);
        found.push_back(std::move(device));
    }
    if (!first.empty()) {
        std::error_code missing;
        auto there = std::find_if(found.begin(), found.end(), [&](const SerialDevice& device) {
            return device.path == first || fs::equivalent(device.path, first, missing);
        });
        if (there == found.end()) {
            found.insert(found.begin(), SerialDevice{first.string(), {}, 0, {}});
        } else {
            std::rotate(found.begin(), there, there + 1);
        }
    }
    return found;
}

std::string SerialDevices::path(int number) const {
    bool known = number >= 1 && static_cast<std::size_t>(number) <= numbered.size();
    return known ? numbered[static_cast<std::size_t>(number) - 1].path : std::string();
}

std::string SerialDevices::identity(int number) const {
    bool known = number >= 1 && static_cast<std::size_t>(number) <= numbered.size();
    return known ? identityOf(numbered[static_cast<std::size_t>(number) - 1]) : std::string();
}

int SerialDevices::find(const std::string& identity) {
    auto sought = [&identity](const SerialDevice& device) { return identityOf(device) == identity; };
    auto place = std::find_if(numbered.begin(), numbered.end(), sought);
    std::vector<SerialDevice> present = scan();
    auto there = std::find_if(present.begin(), present.end(), sought);
    std::error_code missing;
    if (place == numbered.end() || there == present.end() || !fs::exists(there->path, missing)) {
        return 0;
    }
    place->path = there->path;
    return static_cast<int>(place - numbered.begin()) + 1;
}

void SerialDevices::release(const std::string& path) {
    auto place = std::find(held.begin(), held.end(), path);
    if (place != held.end()) {
        held.erase(place);
    }
}

bool SerialDevices::holds(const std::string& path) const {
    return std::find(held.begin(), held.end(), path) != held.end();
}

} // namespace zor
