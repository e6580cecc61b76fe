// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/air.h"
#include "simulator/board.h"
#include "simulator/paced_queue.h"
#include "simulator/program/options.h"
#include "simulator/program/seat.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zor::sim {

/// One board on a pseudo-terminal, or two that hear each other on two; sleeps while nothing is under way.
class Server {
  public:
    /// Throws std::system_error if there is no terminal, or the link or the EEPROM's file cannot be made.
    explicit Server(const Options& options);
    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    /// What clients open, one path a board.
    [[nodiscard]] std::vector<std::string> paths() const;

    /// Serves until a signal, "quit", or the end of standard input where that was asked for.
    /// @param signals  a descriptor that becomes readable when the program shall end
    void run(int signals);

  private:
    using TimePoint = PacedQueue::TimePoint;

    [[nodiscard]] Board& board() { return seats.front()->board; }
    void addSeat();
    void setUpAir();
    void makeLink();
    /// Mounts the EEPROM whose bytes stand in the option's file.
    void takeEepromFile();
    void keepEepromFile();
    void sleep(int signals);
    /// When something is to happen by itself.
    [[nodiscard]] std::optional<TimePoint> wake() const;
    void actFarEnd();
    void planFarEnd();
    void readControl();
    void executeControl(std::string_view statement);
    void trace(std::string_view direction, std::string_view text, std::string_view meaning);

    Options options;
    TimePoint started;
    /// The moment in which the boards act: that of the character that one hears.
    TimePoint boardTime;
    std::vector<std::unique_ptr<Seat>> seats;
    std::unique_ptr<Air> air;
    std::optional<TimePoint> farEndActs;
    std::string controlText;
    bool controlOpen;
    bool linked = false;
    bool running = true;
};

} // namespace zor::sim
