// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/adapters/qt_loop.h"
#include "desktop/adapters/serial_devices.h"
#include "platform/serial_port.h"

#include <QFileSystemWatcher>
#include <QSerialPort>

#include <array>
#include <deque>

namespace zor {

/// A serial port of the machine, opened by its number in SerialDevices.
class QtSerialPort : public SerialPort {
  public:
    QtSerialPort(QtLoop& eventLoop, SerialDevices& serialDevices);
    ~QtSerialPort() override;

    void open(int number, const LineSettings& settings) override;
    void close() override;
    void setFormat(const std::string& format) override;
    [[nodiscard]] bool isOpen() const override { return !path.empty(); }
    void write(std::string_view bytes) override;

  private:
    /// Counts of line errors that the driver keeps: frame, overrun, parity, buffer overflow, break.
    using ErrorCounts = std::array<int, 5>;

    void configure(const LineSettings& settings);
    void takeIncoming();
    void askDelivery();
    /// Once the toolkit's call is over that now tells of the port. Dropped if the port is destroyed before.
    void afterEvent(std::function<void()> action);
    void deliver();
    void reportLineErrors();
    void noticeGone();
    void waitUntilSent();
    [[nodiscard]] bool readErrorCounts(ErrorCounts& counts) const;

    QtLoop& loop;
    SerialDevices& devices;
    /// Incoming characters wait here: handing one on may run a wait, and what comes in meanwhile is handed on
    /// inside that wait, in order.
    std::deque<char> incoming;
    bool deliveryAsked = false;
    ErrorCounts errorCounts{};
    bool countsErrors = false;
    /// Of the open device; empty while closed.
    std::string path;
    /// The device has gone though the port was not closed yet.
    bool gone = false;
    QSerialPort port;
    /// Tells of a device file that the system takes away while nothing is sent.
    QFileSystemWatcher watcher;
};

class QtSerialPorts : public SerialPorts {
  public:
    QtSerialPorts(QtLoop& eventLoop, SerialDevices& serialDevices)
        : loop(eventLoop)
        , devices(serialDevices) {}

    [[nodiscard]] std::unique_ptr<SerialPort> create() override;
    void renumber() override { devices.renumber(); }
    [[nodiscard]] std::string devicePath(int number) const override { return devices.path(number); }
    [[nodiscard]] bool present(int number) const override;
    [[nodiscard]] std::string identity(int number) const override { return devices.identity(number); }
    [[nodiscard]] int find(const std::string& adapter) override { return devices.find(adapter); }

  private:
    QtLoop& loop;
    SerialDevices& devices;
};

} // namespace zor
