// SPDX-License-Identifier: MIT
#pragma once

#include "support/error.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace zor {

/// How a port is set up when it is opened.
struct LineSettings {
    /// Speed, parity, data bits, stop bits.
    std::string format = "19200,N,8,1";
    /// Bytes that the driver keeps; the driver's default if not given.
    std::optional<int> inputBuffer;
    /// Throw away what came in before the opening.
    bool clearInput = false;
    /// Modem lines; left as they are if not given. A terminal without them ignores these.
    std::optional<bool> dtr;
    std::optional<bool> rts;
};

/// Thrown by SerialPort::open for a port that exists but that the user may not open; counts as in use.
class PortAccessError : public ToolError {
  public:
    explicit PortAccessError(std::string path)
        : ToolError(portInUse)
        , device(std::move(path)) {}
    [[nodiscard]] const std::string& devicePath() const { return device; }

  private:
    std::string device;
};

/// One serial port: opened, written to, heard character by character. Ports are numbered from 1 ("Com3").
class SerialPort {
  public:
    /// Line error events: the port is to be closed and opened again. A break is none of them.
    enum Event : int {
        breakDetected = 1001,
        frameError = 1004,
        overrun = 1006,
        bufferOverflow = 1008,
        parityError = 1009,
        transmitBufferFull = 1010,
        controlBlockError = 1011,
    };

    SerialPort() = default;
    SerialPort(const SerialPort&) = delete;
    SerialPort& operator=(const SerialPort&) = delete;
    virtual ~SerialPort() = default;

    /// Throws ToolError: invalidPort (no such port), portInUse (or PortAccessError; also if this object is
    /// open already), deviceInputOutput or whatever number the system's failure maps to. The port is then
    /// closed.
    virtual void open(int number, const LineSettings& settings) = 0;

    /// Closing a closed port does nothing. Throws ToolError invalidPort if the device has gone; the port
    /// counts as closed all the same.
    virtual void close() = 0;

    [[nodiscard]] virtual bool isOpen() const = 0;

    /// Changes speed, parity, data bits and stop bits of an open port; what was written before still goes out
    /// as it was. A closed port, and one whose device has gone, takes no notice.
    /// @param format  as in LineSettings
    virtual void setFormat(const std::string& format) = 0;

    /// Hands all bytes to the line in one operation. Throws ToolError portNotOpen if closed,
    /// deviceInputOutput if the system refuses. What is written to a device that has gone is lost without an
    /// error.
    virtual void write(std::string_view bytes) = 0;

    /// One call a character received.
    std::function<void(char)> received;
    /// One call a line error, with an Event or another driver code.
    std::function<void(int)> eventRaised;
    /// The device of the open port has gone; told once, within a second, also when nothing is sent. The port
    /// counts as open until it is closed.
    std::function<void()> deviceGone;
};

/// Makes the ports of this machine.
class SerialPorts {
  public:
    virtual ~SerialPorts() = default;
    [[nodiscard]] virtual std::unique_ptr<SerialPort> create() = 0;
    /// Numbers the ports that are there now. Until the next call a number means the same device, whatever is
    /// plugged in or pulled out meanwhile.
    virtual void renumber() = 0;
    /// What the system calls the numbered port ("/dev/ttyUSB0"); empty if there is none.
    [[nodiscard]] virtual std::string devicePath(int number) const = 0;
    /// The numbered port's device is there now.
    [[nodiscard]] virtual bool present(int number) const = 0;
    /// What tells the numbered port's adapter from all others as long as it stays in its socket: a USB
    /// device's location and serial number, else the device's path. Empty if there is no such port.
    [[nodiscard]] virtual std::string identity(int number) const = 0;
    /// The port number under which the adapter of that identity can be opened now; 0 if it is not there. A
    /// USB adapter that came back under another device path keeps its number.
    [[nodiscard]] virtual int find(const std::string& adapter) = 0;
};

} // namespace zor
