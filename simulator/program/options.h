// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/board.h"
#include "simulator/far_end.h"
#include "simulator/faulty_line.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace zor::sim {

/// What the command line asks for.
struct Options {
    BoardKind kind = BoardKind::LoadBoard2;
    /// Bench statements for the board before it starts, in the order of the command line.
    std::vector<std::string> setup;
    FaultPlan faults;
    bool paced = true;
    /// What a packet monitor prints; 0 for nothing.
    double packetsPerSecond = 0;
    bool trace = false;
    bool control = false;
    bool exitWithStdin = false;
    bool help = false;
    bool version = false;
    std::string link;
    /// Who is on the air: nobody, a second board on a terminal of its own, or a far end without one.
    enum class AirKind { none, twoBoards, farEnd };
    AirKind air = AirKind::none;
    FarEnd::Mode farEnd = FarEnd::Mode::silent;
    /// What the serial EEPROM holds, from start to start; empty if there is none.
    std::string eepromFile;
};

/// A command line that cannot be read; the message names the option.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// @param arguments  without the program's name
/// Throws UsageError.
[[nodiscard]] Options parseOptions(const std::vector<std::string>& arguments);

/// What --help prints.
[[nodiscard]] std::string helpText();

} // namespace zor::sim
