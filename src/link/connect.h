// SPDX-License-Identifier: MIT
#pragma once

#include "link/bench.h"
#include "link/link_bar.h"
#include "link/usb_boards.h"
#include "platform/event_loop.h"
#include "platform/serial_port.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zor {

/// The command channel to a LoadBoard: the search port and the working port, the watchdog of the reply, and
/// the one operation by which everybody talks to the board.
///
/// An exchange is one line out and, in the end, one of two seven-character prompts in; there is nothing else
/// to a protocol, so whoever wants a value reads it out of the rolling tails afterwards. Owned by the main
/// window.
class Connect {
  public:
    Connect(Bench& ownBench, LinkBar& ownBar);
    ~Connect();

    /// Writes the command (its terminator included) and waits until a prompt came, the watchdog closed the
    /// port, or the board was lost. After a time-out the port is opened again and the caller goes on as if
    /// answered.
    ///
    /// A failure of the port is told in a box. Throws ActionDropped if the port is closed on purpose
    /// meanwhile.
    void Send_To_LoadBoard(const std::string& command);

    /// Writes without waiting for a prompt. Throws ToolError.
    void writeDirectly(std::string_view bytes);

    /// The port is there to be sent to.
    [[nodiscard]] bool isOpen() const { return MSComm2->isOpen(); }
    /// Throws ToolError.
    void open(int portNumber, const LineSettings& settings);
    /// Closes the working port because the user wants it so: sends that wait end, and their actions with
    /// them. Throws ToolError; the port counts as closed all the same.
    void closeOnPurpose();
    [[nodiscard]] int portNumber() const { return workingNumber; }

    /// The search port lives for the trial of one port, and so do its tails.
    void beginTrial();
    void endTrial();
    /// Only between the two.
    [[nodiscard]] SerialPort& MSComm1() { return *trial->port; }
    /// The tails of the search port, not the working port's.
    std::string Last7;
    std::string Last100;

    /// The board is gone; told before the user is.
    std::function<void()> boardLost = [] {};

    UsbBoards usb;

    /// 1 if the exchange just made ended in the error prompt.
    std::int16_t ComFlag = 0;
    /// Ticks of 0.1 s since the send; once they exceed WaitLimit the port is closed.
    std::int16_t WaitTicks = 0;
    std::int16_t WaitLimit = 0;
    /// 1 from the first send on, 0 while a search tries a port.
    std::int16_t WaitArmed = 0;

  private:
    enum class Ending { None, TimedOut, Lost, OnPurpose };
    /// One send that waits; they nest.
    struct Wait {
        Ending ending = Ending::None;
    };
    struct Trial {
        std::unique_ptr<SerialPort> port;
    };

    void exchange(const std::string& command);
    void endWaits(Ending ending);
    void Timer1_Timer();
    void timeOut();
    void loseBoard();
    void receive(char c);
    void receiveOnTrial(char c);
    void lineEvent(int code);
    [[nodiscard]] bool promptSeen() const;

    Bench& bench;
    LinkBar& bar;
    std::unique_ptr<SerialPort> MSComm2;
    std::unique_ptr<Trial> trial;
    Timer Timer1;
    LineSettings workingSettings;
    int workingNumber = 0;
    std::vector<Wait*> waits;
};

} // namespace zor
