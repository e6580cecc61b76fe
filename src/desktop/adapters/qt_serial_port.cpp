// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_serial_port.h"

#include "desktop/adapters/qt_text.h"

#include <QPointer>
#include <QStringList>

#include <linux/serial.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

namespace zor {

namespace {

struct Format {
    qint32 baud = 19200;
    QSerialPort::Parity parity = QSerialPort::NoParity;
    QSerialPort::DataBits dataBits = QSerialPort::Data8;
    QSerialPort::StopBits stopBits = QSerialPort::OneStop;
};

Format parseFormat(const std::string& text) {
    Format format;
    QStringList parts = toQt(text).split(QLatin1Char(','));
    if (parts.size() != 4) {
        throw ToolError(deviceInputOutput);
    }
    format.baud = parts[0].toInt();
    format.parity = parts[1] == QLatin1String("E")   ? QSerialPort::EvenParity
                    : parts[1] == QLatin1String("O") ? QSerialPort::OddParity
                                                     : QSerialPort::NoParity;
    format.dataBits = static_cast<QSerialPort::DataBits>(parts[2].toInt());
    format.stopBits = parts[3] == QLatin1String("2") ? QSerialPort::TwoStop : QSerialPort::OneStop;
    return format;
}

bool deviceExists(const std::string& path) {
    return !path.empty() && ::access(path.c_str(), F_OK) == 0;
}

/// Where the device file's coming and going shows: the folder of its name and, if that is a link, the folder
/// of the file behind it. The file itself would tell of every line that is written to it as well.
QStringList foldersOf(const std::string& path) {
    std::error_code failed;
    std::filesystem::path file = std::filesystem::canonical(path, failed);
    QStringList folders{toQt(std::filesystem::path(path).parent_path().string())};
    if (!failed) {
        folders.append(toQt(file.parent_path().string()));
    }
    folders.removeDuplicates();
    return folders;
}

/// Why a device file cannot be opened, told before the opening as the toolkit says "permission" for both a
/// device of another user and one that is in use.
void checkAccess(const std::string& path) {
    if (!deviceExists(path)) {
        throw ToolError(invalidPort);
    }
    if (::access(path.c_str(), R_OK | W_OK) != 0) {
        throw PortAccessError(path);
    }
}

int openErrorNumber(QSerialPort::SerialPortError error) {
    switch (error) {
    case QSerialPort::DeviceNotFoundError:
        return invalidPort;
    case QSerialPort::PermissionError:
    case QSerialPort::OpenError:
        return portInUse;
    default:
        return deviceInputOutput;
    }
}

/// USB converters hand on what they received every 16 ms unless asked otherwise; a prompt then costs that
/// much more. A driver that knows no such thing refuses, which is no matter.
void askForLowLatency(int handle) {
    serial_struct line{};
    if (::ioctl(handle, TIOCGSERIAL, &line) == 0) {
        line.flags |= ASYNC_LOW_LATENCY;
        ::ioctl(handle, TIOCSSERIAL, &line);
    }
}

/// A pseudo-terminal has no modem lines.
bool hasModemLines(int handle) {
    int lines = 0;
    return ::ioctl(handle, TIOCMGET, &lines) == 0;
}

} // namespace

QtSerialPort::QtSerialPort(QtLoop& eventLoop, SerialDevices& serialDevices)
    : loop(eventLoop)
    , devices(serialDevices) {
    QObject::connect(&port, &QSerialPort::readyRead, &port, [this] { takeIncoming(); });
    QObject::connect(&port, &QSerialPort::errorOccurred, &port, [this](QSerialPort::SerialPortError error) {
        // A read or write may be the first to find that there is nothing at the other end any more.
        bool failed = error == QSerialPort::ReadError || error == QSerialPort::WriteError;
        if (isOpen() && (error == QSerialPort::ResourceError || (failed && !deviceExists(path)))) {
            noticeGone();
        }
    });
    QObject::connect(&watcher, &QFileSystemWatcher::directoryChanged, &watcher, [this] {
        if (isOpen() && !deviceExists(path)) {
            noticeGone();
        }
    });
}

QtSerialPort::~QtSerialPort() {
    try {
        close();
    } catch (const ToolError&) {
        // The device has gone; there is nothing left to close.
    }
}

void QtSerialPort::open(int number, const LineSettings& settings) {
    if (isOpen()) {
        throw ToolError(portInUse);
    }
    std::string device = devices.path(number);
    checkAccess(device);
    Format format = parseFormat(settings.format);
    port.setPortName(toQt(device));
    port.setBaudRate(format.baud);
    port.setParity(format.parity);
    port.setDataBits(format.dataBits);
    port.setStopBits(format.stopBits);
    port.setFlowControl(QSerialPort::NoFlowControl);
    if (!port.open(QIODevice::ReadWrite)) {
        throw ToolError(openErrorNumber(port.error()));
    }
    // The lock that terminal programs heed, in case the toolkit's own way is not theirs.
    if (::flock(port.handle(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        port.close();
        throw ToolError(portInUse);
    }
    path = device;
    gone = false;
    devices.hold(path);
    watcher.addPaths(foldersOf(path));
    configure(settings);
}

void QtSerialPort::configure(const LineSettings& settings) {
    // All of what came is taken at once and kept here, so the driver's buffer never limits it.
    port.setReadBufferSize(0);
    if (settings.clearInput) {
        port.clear(QSerialPort::Input);
    }
    if (hasModemLines(port.handle())) {
        if (settings.dtr) {
            port.setDataTerminalReady(*settings.dtr);
        }
        if (settings.rts) {
            port.setRequestToSend(*settings.rts);
        }
    }
    askForLowLatency(port.handle());
    countsErrors = readErrorCounts(errorCounts);
}

void QtSerialPort::close() {
    if (!isOpen()) {
        return;
    }
    bool wasGone = std::exchange(gone, false) || !deviceExists(path);
    incoming.clear();
    if (port.isOpen()) {
        waitUntilSent();
        port.close();
    }
    devices.release(path);
    watcher.removePaths(watcher.directories());
    path.clear();
    if (wasGone) {
        throw ToolError(invalidPort);
    }
}

void QtSerialPort::setFormat(const std::string& format) {
    if (!isOpen() || gone) {
        return;
    }
    Format changed = parseFormat(format);
    waitUntilSent();
    port.setBaudRate(changed.baud);
    port.setParity(changed.parity);
    port.setDataBits(changed.dataBits);
    port.setStopBits(changed.stopBits);
}

/// Closing puts the line back to its former speed, which would spoil what is still on its way out.
void QtSerialPort::waitUntilSent() {
    port.flush();
    int left = 0;
    for (int ms = 0; ms < 50 && ::ioctl(port.handle(), TIOCOUTQ, &left) == 0 && left > 0; ++ms) {
        ::usleep(1000);
    }
}

void QtSerialPort::write(std::string_view bytes) {
    if (!isOpen()) {
        throw ToolError(portNotOpen);
    }
    if (gone) {
        return;
    }
    // A command line fits into the driver's buffer. Handed to the driver here, it leaves at once; the toolkit
    // would write it in a later turn of the loop and take a further one to see that it is gone.
    if (port.bytesToWrite() == 0) {
        ssize_t written = ::write(port.handle(), bytes.data(), bytes.size());
        bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
    }
    if (bytes.empty() || !deviceExists(path)) {
        return;
    }
    // The toolkit keeps what the driver has no room for, and finds out what is wrong with the line.
    auto rest = static_cast<qint64>(bytes.size());
    if (port.write(bytes.data(), rest) != rest) {
        throw ToolError(deviceInputOutput);
    }
    port.flush();
}

void QtSerialPort::noticeGone() {
    if (std::exchange(gone, true)) {
        return;
    }
    // Left open, a device that is not there would report its error again and again.
    port.close();
    // Told from the loop: the error may have been found in the midst of a write.
    afterEvent([this] {
        if (isOpen() && gone && deviceGone) {
            deviceGone();
        }
    });
}

void QtSerialPort::afterEvent(std::function<void()> action) {
    loop.afterEvent([alive = QPointer<QSerialPort>(&port), action = std::move(action)] {
        if (alive) {
            action();
        }
    });
}

void QtSerialPort::takeIncoming() {
    std::array<char, 256> block{};
    for (qint64 count = 0; (count = port.read(block.data(), block.size())) > 0;) {
        incoming.insert(incoming.end(), block.begin(), block.begin() + count);
    }
    reportLineErrors();
    // The toolkit tells of nothing new while this call runs, so it must end before a character is handed on.
    askDelivery();
}

void QtSerialPort::askDelivery() {
    if (!incoming.empty() && !std::exchange(deliveryAsked, true)) {
        afterEvent([this] { deliver(); });
    }
}

void QtSerialPort::deliver() {
    deliveryAsked = false;
    // What a character leads to may close or even destroy this port.
    QPointer<QSerialPort> alive(&port);
    while (alive && !incoming.empty()) {
        char c = incoming.front();
        incoming.pop_front();
        // A wait inside the action hands on the rest.
        askDelivery();
        loop.perform([this, c] {
            if (received) {
                received(c);
            }
        });
    }
}

bool QtSerialPort::readErrorCounts(ErrorCounts& counts) const {
    serial_icounter_struct kept{};
    if (::ioctl(port.handle(), TIOCGICOUNT, &kept) != 0) {
        return false;
    }
    counts = {kept.frame, kept.overrun, kept.parity, kept.buf_overrun, kept.brk};
    return true;
}

void QtSerialPort::reportLineErrors() {
    static constexpr std::array<int, 5> events{frameError, overrun, parityError, bufferOverflow,
                                               breakDetected};
    ErrorCounts counts{};
    if (!countsErrors || !port.isOpen() || !readErrorCounts(counts)) {
        return;
    }
    ErrorCounts before = std::exchange(errorCounts, counts);
    for (std::size_t kind = 0; kind < events.size(); ++kind) {
        if (counts[kind] != before[kind]) {
            // One event is enough: it makes the owner open the port anew.
            afterEvent([this, event = events[kind]] {
                if (isOpen() && eventRaised) {
                    loop.perform([this, event] { eventRaised(event); });
                }
            });
            return;
        }
    }
}

bool QtSerialPorts::present(int number) const {
    return deviceExists(devices.path(number));
}

std::unique_ptr<SerialPort> QtSerialPorts::create() {
    return std::make_unique<QtSerialPort>(loop, devices);
}

} // namespace zor
