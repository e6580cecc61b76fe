// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace zor {

/// One serial device of this machine.
struct SerialDevice {
    /// "/dev/ttyUSB0"
    std::string path;
    /// What a USB device calls itself; empty for any other.
    std::string description;
    /// Bus and port path of a USB device, the same as long as it stays in its socket; 0 for any other.
    std::uint32_t location = 0;
    /// What a USB device gives as its serial number; often empty.
    std::string serialNumber;
};

/// The serial devices in the order in which ports are numbered: those that were added by hand, then the USB
/// adapters, then the built-in ones that have hardware behind them.
class SerialDevices {
  public:
    /// @param deviceFolder  where the device files are
    /// @param classFolder   where the kernel describes them
    explicit SerialDevices(std::filesystem::path deviceFolder = "/dev",
                           std::filesystem::path classFolder = "/sys/class/tty");

    /// Offers a device that the kernel does not list, in front of all others.
    void addDevice(std::string path, std::string description);

    /// A device that was added by hand is under another path from now on.
    void moveDevice(const std::string& from, const std::string& to);
    /// Offers the device of that path in front of all others, by whatever name the path leads to it; one that
    /// the kernel does not list is added.
    void putFirst(const std::filesystem::path& path);
    /// Runs before the devices get their numbers: what was added may have to be looked after.
    std::function<void()> beforeNumbering;

    /// Those that are there now.
    [[nodiscard]] std::vector<SerialDevice> scan() const;
    /// Gives the devices that are there now their numbers, from 1.
    void renumber() {
        if (beforeNumbering) {
            beforeNumbering();
        }
        numbered = scan();
    }
    /// The device that was given the number, also when it has gone since; an empty path if there is none.
    [[nodiscard]] std::string path(int number) const;

    /// What tells the numbered device from all others as long as it stays in its socket; empty if there is
    /// none.
    [[nodiscard]] std::string identity(int number) const;
    /// The number of the device with that identity if it is there now, else 0. A USB device that came back
    /// under another path keeps its number.
    [[nodiscard]] int find(const std::string& identity);

    /// Which devices this program's ports have open.
    void hold(const std::string& path) { held.push_back(path); }
    void release(const std::string& path);
    [[nodiscard]] bool holds(const std::string& path) const;

  private:
    std::filesystem::path devices;
    std::filesystem::path classes;
    std::vector<SerialDevice> added;
    std::filesystem::path first;
    std::vector<SerialDevice> numbered;
    std::vector<std::string> held;
};

} // namespace zor
