// SPDX-License-Identifier: MIT
#pragma once

#include "platform/serial_port.h"
#include "simulator/board.h"
#include "virtual/paced_line.h"

#include <deque>
#include <limits>
#include <map>
#include <vector>

namespace zor::testing {

class VirtualSerialPort;

/// How many characters the driver hands on in one read, at most.
using Delivery = std::size_t;
inline constexpr Delivery allWaiting = std::numeric_limits<Delivery>::max();

/// A numbered port of the virtual machine with what sits on it: a simulated board behind a line that has the
/// real one's pace.
class VirtualSeat {
  public:
    /// @param machineDelivery  outlives the seat
    VirtualSeat(EventLoop& eventLoop, int portNumber, const Delivery& machineDelivery,
                std::function<void(const std::string& line)> lineSeen, std::function<void()> lineFeedSeen);

    [[nodiscard]] int number() const { return portNumber; }
    /// Puts a board there; the one before goes.
    void place(sim::BoardKind kind);
    [[nodiscard]] sim::Board& board() { return *sittingBoard; }

    /// In use by another program.
    bool busy = false;
    /// Opening fails with this number; 0 for none.
    int openError = 0;
    /// Closing fails with this number, and closes all the same; 0 for none.
    int closeError = 0;
    /// The user may not open the device.
    bool denied = false;
    /// The USB driver holds the device.
    bool heldByDriver = false;
    /// What comes while the port is closed waits for the next opening, which may throw it away. Else it is
    /// lost, as at a plain serial port.
    bool keepsInputWhileClosed = false;

    /// The modem lines as the board sees them; both fall as a port is closed.
    [[nodiscard]] bool dtr() const { return dtrIsOn; }
    [[nodiscard]] bool rts() const { return rtsIsOn; }
    /// What each opening asked for, oldest first.
    [[nodiscard]] const std::vector<LineSettings>& openings() const { return allOpenings; }

    [[nodiscard]] bool plugged() const { return isPlugged; }
    /// The device goes: a port that is open on it writes into nowhere from now on.
    void unplug();
    void plug() { isPlugged = true; }
    /// Reports a line error on the port that is open here, if one is.
    void fault(int code);

    /// How the line was set up last, on this port: "19200,N,8,1"; empty before the first opening.
    [[nodiscard]] const std::string& format() const { return lineFormat; }
    /// A serial port of this program is open on it.
    [[nodiscard]] bool heldByPort() const { return holder != nullptr; }

  private:
    friend class VirtualSerialPort;
    void opened(VirtualSerialPort& port, const LineSettings& settings);
    void closed();
    void fromBoard(char byte);
    void setFormat(const std::string& format);
    void handOn();
    void handOnRest();

    EventLoop& loop;
    int portNumber;
    const Delivery& delivery;
    std::function<void(const std::string& line)> seen;
    std::function<void()> feedSeen;
    std::unique_ptr<sim::Board> sittingBoard;
    VirtualSerialPort* holder = nullptr;
    PacedLine toBoard;
    PacedLine toPort;
    std::string lineFormat;
    bool isPlugged = true;
    bool dtrIsOn = false;
    bool rtsIsOn = false;
    std::vector<LineSettings> allOpenings;
    /// What the driver has received and not handed on yet; so much of it fits.
    std::deque<char> waiting;
    bool restAsked = false;
    std::size_t inputBuffer = 0;
};

/// The ports of a machine that exists only in virtual time.
class VirtualPorts : public SerialPorts {
  public:
    explicit VirtualPorts(EventLoop& eventLoop)
        : loop(eventLoop) {}

    [[nodiscard]] std::unique_ptr<SerialPort> create() override;
    void renumber() override {}
    [[nodiscard]] std::string devicePath(int number) const override;
    [[nodiscard]] bool present(int number) const override { return find(number) != nullptr; }
    [[nodiscard]] std::string identity(int number) const override { return devicePath(number); }
    [[nodiscard]] int find(const std::string& adapter) override;

    /// The port of that number; made, with a silent board, if it was not there.
    VirtualSeat& seat(int number);
    /// nullptr if there is no such port.
    [[nodiscard]] VirtualSeat* find(int number) const;
    /// A board of this kind on this port, free to be opened.
    sim::Board& place(int number, sim::BoardKind kind);
    /// By number.
    [[nodiscard]] const std::map<int, std::unique_ptr<VirtualSeat>>& seats() const { return members; }

    /// On every port: 1 as a plain line does, more as an adapter does that collects what it receives. A pause
    /// on the line ends a read, and so does a full buffer.
    Delivery delivery = 1;

    struct SentLine {
        int port;
        /// Without its carriage return; with the line feed behind it, if one came.
        std::string text;
    };
    /// The command lines that reached the boards, oldest first. Whoever has looked at them clears them.
    std::vector<SentLine> sent;

  private:
    friend class VirtualSerialPort;

    EventLoop& loop;
    std::map<int, std::unique_ptr<VirtualSeat>> members;
};

/// A port object on one of the seats.
class VirtualSerialPort : public SerialPort {
  public:
    explicit VirtualSerialPort(VirtualPorts& machinePorts);
    ~VirtualSerialPort() override;

    void open(int number, const LineSettings& settings) override;
    void close() override;
    [[nodiscard]] bool isOpen() const override { return opened; }
    void setFormat(const std::string& format) override;
    void write(std::string_view bytes) override;

  private:
    friend class VirtualSeat;
    void letGo();
    /// The system tells of a device that has gone a moment later.
    void noticeLater();

    VirtualPorts& ports;
    /// nullptr while closed, and after the device went.
    VirtualSeat* seat = nullptr;
    bool opened = false;
    Timer gone;
};

} // namespace zor::testing
