// SPDX-License-Identifier: MIT
#pragma once

#include <sched.h>

#include <string>
#include <string_view>
#include <thread>

namespace zor::benchmarks {

/// Keeps the calling thread on one of the machine's processors, and gives it back the others at the end.
/// Where a woken thread lands decides how long its waking takes, and would decide the ratio too if it were
/// left to chance. Does nothing if there is no such processor.
class OnProcessor {
  public:
    explicit OnProcessor(int processor);
    ~OnProcessor();
    OnProcessor(const OnProcessor&) = delete;
    OnProcessor& operator=(const OnProcessor&) = delete;

  private:
    cpu_set_t before{};
};

/// A raw pseudo-terminal, its far end in our hands.
class TerminalPair {
  public:
    TerminalPair();
    ~TerminalPair();
    TerminalPair(const TerminalPair&) = delete;
    TerminalPair& operator=(const TerminalPair&) = delete;

    /// What a program opens.
    [[nodiscard]] const std::string& path() const { return slavePath; }
    /// Waits while the program's side is full.
    void write(std::string_view bytes) const;
    [[nodiscard]] int farEnd() const { return master; }
    [[nodiscard]] int nearEnd() const { return slave; }

  private:
    int master;
    /// Keeps the terminal alive between two openings.
    int slave;
    std::string slavePath;
};

/// A pseudo-terminal whose far end answers every carriage return with the success prompt, at once: the
/// fastest board that there can be. It answers from the second processor, the PC's side belongs on the first.
class AnsweringTerminal {
  public:
    AnsweringTerminal();
    ~AnsweringTerminal();
    AnsweringTerminal(const AnsweringTerminal&) = delete;
    AnsweringTerminal& operator=(const AnsweringTerminal&) = delete;

    /// What a program opens.
    [[nodiscard]] const std::string& path() const { return pair.path(); }

  private:
    void answer() const;

    TerminalPair pair;
    std::thread board;
};

/// The exchange as a bare C loop makes it: blocking write, blocking reads, the tail compared.
class BareLine {
  public:
    explicit BareLine(const std::string& path);
    ~BareLine();
    BareLine(const BareLine&) = delete;
    BareLine& operator=(const BareLine&) = delete;

    void exchange(const std::string& command) const;

  private:
    int descriptor;
};

} // namespace zor::benchmarks
