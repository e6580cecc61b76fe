// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <thread>

namespace zor::benchmarks {

/// A pseudo-terminal whose far end answers every carriage return with the success prompt, at once: the
/// fastest board that there can be.
class AnsweringTerminal {
  public:
    AnsweringTerminal();
    ~AnsweringTerminal();
    AnsweringTerminal(const AnsweringTerminal&) = delete;
    AnsweringTerminal& operator=(const AnsweringTerminal&) = delete;

    /// What a program opens.
    [[nodiscard]] const std::string& path() const { return slavePath; }

  private:
    void answer() const;

    int master;
    /// Keeps the terminal alive between two openings.
    int slave;
    std::string slavePath;
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
