// SPDX-License-Identifier: MIT
#pragma once

#include "link/bench.h"
#include "link/exchange.h"
#include "link/usb_boards.h"
#include "link/wire_tap.h"
#include "platform/event_loop.h"
#include "platform/serial_port.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zor {

/// What the port could not do.
struct PortTrouble {
    enum class Kind { SendFailed, ClosingFailed, BoardLost };
    Kind kind;
    ToolError error;
};

/// The command channel to a LoadBoard: the search port and the working port, the watchdog of the reply, and
/// the one operation by which everybody talks to the board.
///
/// An exchange is one line out and, in the end, one of two seven-character prompts in; there is nothing else
/// to a protocol, so a value is read out of the characters in front of the prompt. Owned by the main window.
class Connect {
  public:
    explicit Connect(Bench& ownBench);
    ~Connect();

    /// Writes the command (its terminator included) and waits until a prompt came, the watchdog closed the
    /// port, or the board was lost. After a time-out the port is opened again. Many callers go on whatever
    /// the result; they leave it unread.
    ///
    /// A failure of the port is told in a box, one for an action: once a send of an action has met a closed
    /// or lost port, the action's further sends write nothing and show nothing. Throws ActionDropped if the
    /// port is closed on purpose meanwhile.
    Exchange Send_To_LoadBoard(const std::string& command);

    /// Writes without waiting for a prompt. Throws ToolError.
    void writeDirectly(std::string_view bytes);

    /// The port is there to be sent to.
    [[nodiscard]] bool isOpen() const { return MSComm2->isOpen(); }
    /// Throws ToolError.
    void open(int portNumber, const LineSettings& settings);
    /// Closes the working port because the user wants it so: sends that wait end, and their actions with
    /// them. Throws ToolError; the port counts as closed all the same.
    void closeOnPurpose();
    /// Closes the working port and opens it with other settings, which stay in force. A board that is not
    /// there any more is lost; any other failure is told in a box. @return whether the port is open
    bool reopen(const LineSettings& settings);
    /// Changes speed and format of the port while it is open; they stay in force. Throws ToolError.
    /// @param format  as in LineSettings
    void setFormat(const std::string& format);
    [[nodiscard]] int portNumber() const { return workingNumber; }
    [[nodiscard]] const LineSettings& settings() const { return workingSettings; }

    /// The search port lives for the trial of one port, and so do its tails.
    void beginTrial();
    void endTrial();
    /// Throws ToolError.
    void openTrial(int portNumber);
    /// Writes the line and forgets what came before it.
    void askOnTrial(std::string_view line);
    void closeTrial();
    /// The tails of the search port, not the working port's.
    std::string Last7;
    std::string Last100;

    /// The working port is about to be closed because the user wants it so.
    Signal<> closing;
    /// The board is gone; told before the user is.
    Signal<> lost;
    /// The working port has been closed and stays so, whoever did it: what the chip holds is not known any
    /// more.
    Signal<> portClosed;

    /// A failure that the user has to know of.
    Signal<const PortTrouble&> troubled;

    WireTap tap;
    UsbBoards usb;

    /// 1 if the exchange just made ended in the error prompt.
    std::int16_t ComFlag = 0;
    /// Ticks of 0.1 s since the send; once they exceed WaitLimit the port is closed.
    std::int16_t WaitTicks = 0;
    std::int16_t WaitLimit = 0;
    /// 1 from the first send on.
    std::int16_t WaitArmed = 0;

  private:
    enum class Ending { None, Served, TimedOut, Lost, OnPurpose };
    /// One send that waits; they nest.
    struct Wait {
        EventLoop::ActionId action = 0;
        Ending ending = Ending::None;
        Exchange result;
        /// The answer's last characters, as many as a prompt has.
        std::string last7;
    };
    struct Trial {
        std::unique_ptr<SerialPort> port;
        int number = 0;
        std::string line;
        EventLoop::Duration asked{};
    };

    Exchange exchange(const std::string& command);
    void waitForPrompt(Wait& wait);
    void endWaits(Ending ending);
    /// The action's further sends write and show nothing.
    void silence(EventLoop::ActionId action);
    [[nodiscard]] bool anyWaiting() const;
    void Timer1_Timer();
    void timeOut();
    void loseBoard();
    void deviceGone();
    void receive(char c);
    void hear(Wait& wait, char c) const;
    void receiveOnTrial(char c);
    void tellTrial();
    void lineEvent(int code);
    void tellTap(WireBytes::Port role, WireBytes::Direction direction, std::string_view bytes);

    Bench& bench;
    std::unique_ptr<SerialPort> MSComm2;
    std::unique_ptr<Trial> trial;
    Timer Timer1;
    LineSettings workingSettings;
    int workingNumber = 0;
    std::vector<Wait*> waits;
    /// The actions whose sends have met a closed or lost port.
    std::vector<EventLoop::ActionId> withoutPort;
};

} // namespace zor
