// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/board.h"
#include "simulator/faulty_line.h"
#include "simulator/paced_queue.h"
#include "simulator/program/options.h"
#include "simulator/program/pseudo_terminal.h"

#include <string>
#include <string_view>

namespace zor::sim {

/// A board on a pseudo-terminal: carries characters both ways at the line's pace, sleeps while nothing is
/// under way.
class Server {
  public:
    /// Throws std::system_error if there is no terminal, or the link or the EEPROM's file cannot be made.
    explicit Server(const Options& options);
    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    [[nodiscard]] const std::string& path() const { return terminal.path(); }

    /// Serves until a signal, "quit", or the end of standard input where that was asked for.
    /// @param signals  a descriptor that becomes readable when the program shall end
    void run(int signals);

  private:
    using TimePoint = PacedQueue::TimePoint;

    void makeLink();
    /// Mounts the EEPROM whose bytes stand in the option's file.
    void takeEepromFile();
    void keepEepromFile();
    void sleep(int signals);
    void handleClient();
    void moveCharacters();
    void readTerminal();
    void followSpeed();
    void reportPacket();
    void readControl();
    void executeControl(std::string_view statement);
    void trace(std::string_view direction, std::string_view text, std::string_view meaning);

    Options options;
    PseudoTerminal terminal;
    Board board;
    FaultyLine line;
    PacedQueue fromPc;
    PacedQueue toPc;
    TimePoint started;
    /// The moment in which the board acts: that of the character it hears.
    TimePoint boardTime;
    /// When the monitor's next packet is due; the end of time if it prints none.
    TimePoint packetTime = TimePoint::max();
    int lineSpeed = 19200;
    std::string controlText;
    bool controlOpen;
    bool linked = false;
    bool running = true;
};

} // namespace zor::sim
