// SPDX-License-Identifier: MIT
#pragma once

#include "link/bench.h"
#include "link/port_owner.h"
#include "panels/common/chip_current.h"
#include "platform/event_loop.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zor {

class ControlWord;

/// Walks a chip through states, reads the current in each, and gives the chip back the words that it had.
///
///     idle --begin--> putting --settled--> reading --+--> idle   the last state, or anything went wrong
///                        ^                           |
///                        +------- next state --------+
///
/// It owns the port meanwhile. The words go out as plain lines, so the panel's own knowledge of what the chip
/// holds stays true: that is what the chip is given back, whichever way the walk ends while there is a port.
class CurrentWalk {
  public:
    struct Step {
        std::string state;
        std::vector<std::string> lines;
    };
    struct Reading {
        std::string state;
        double microamps = 0;
        double step = 0;
    };
    enum class End {
        Done,
        Stopped,   ///< by the user, or as the panel went
        NoAnswer,  ///< a line was refused or not answered, or no figure came
        Disturbed, ///< the chip was given other words meanwhile
        PortGone,
    };

    explicit CurrentWalk(Bench& ownBench);
    CurrentWalk(const CurrentWalk&) = delete;
    CurrentWalk& operator=(const CurrentWalk&) = delete;

    /// @param touched  the words that the steps change, in the order in which they are given back; all of
    /// them have been sent
    /// @return false if somebody has the port
    bool begin(std::vector<Step> steps, const std::vector<ControlWord*>& touched);
    /// Gives the chip its words back and ends.
    void stop();

    [[nodiscard]] bool running() const { return isRunning; }
    /// Of the step under way, from 0, and how many there are.
    [[nodiscard]] std::size_t place() const { return at; }
    [[nodiscard]] const std::vector<Step>& steps() const { return walk; }
    [[nodiscard]] const std::vector<Reading>& readings() const { return found; }

    std::function<void()> moved;
    std::function<void(End)> ended;

  private:
    struct Held {
        ControlWord* word;
        /// The command that transfers it.
        std::string command;
        /// What it held as the walk began.
        std::string text;
    };

    void tick();
    void put();
    void read();
    [[nodiscard]] bool disturbed() const;
    /// @param giveBack  the chip gets its words first
    void end(End how, bool giveBack);
    void giveWordsBack();
    /// The same without waiting for an answer, for a port that is about to be closed.
    void writeWordsBack() const;
    [[nodiscard]] static std::string lineOf(const Held& one);
    void tellEnd(End how) const;

    Bench& bench;
    Timer timer;
    Subscription portClosing;
    PortClaim claim;
    std::vector<Step> walk;
    std::vector<Held> held;
    std::vector<Reading> found;
    std::size_t at = 0;
    int tries = 0;
    bool isRunning = false;
    bool isPut = false;
};

} // namespace zor
