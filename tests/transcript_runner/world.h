// SPDX-License-Identifier: MIT
#pragma once

#include "transcript_runner/transcript.h"
#include "virtual/virtual_machine.h"

#include <map>
#include <memory>
#include <optional>

namespace zor {
class ColouredLog;
class Desk;
class Element;
class Form;
class MainWindow;
} // namespace zor

namespace zor::testing {

class AirBench;

/// Everything that one transcript plays with: a machine, the program on it once it was started, and the marks
/// that statements leave for later ones.
class World {
  public:
    World();
    ~World();

    VirtualMachine machine;

    /// Starts the program; one that runs is ended first.
    void start();
    /// Throws Failure if the program was not started.
    [[nodiscard]] MainWindow& program() const;
    /// nullptr if there is no such window, or it was closed. Throws Failure before the start.
    [[nodiscard]] Form* findWindow(const std::string& name) const;
    /// Throws Failure for an unknown or closed window.
    [[nodiscard]] Form& window(const std::string& name) const;
    /// nullptr for the name of a window alone.
    /// @param name  "Window.Element"; throws Failure for an unknown one
    [[nodiscard]] Element& element(const std::string& name) const;

    /// Carries a statement out when that much time has passed.
    void later(std::chrono::milliseconds time, const Statement& statement);
    /// The first failure of a statement that came by its own time.
    std::optional<LineFailure> lateFailure;
    /// Lines of the statements whose time has not come.
    std::vector<int> waitingLines;

    /// How long each box and dialog stays on the screen, time running, before it is answered.
    std::chrono::milliseconds linger{0};

    /// The mark of `clock`.
    std::optional<EventLoop::Duration> clockMark;

    /// How many lines of each log were seen, those that were cleared included.
    std::map<const ColouredLog*, std::size_t> seenLines;
    /// The air over a board, once a statement has brought it.
    std::unique_ptr<AirBench> air;

    /// A file of the program's folder, or the path itself if it is absolute.
    [[nodiscard]] std::filesystem::path file(const std::string& name) const;

  private:
    void end();
    void letLinger();

    std::unique_ptr<Desk> desk;
    std::unique_ptr<MainWindow> mainWindow;
};

} // namespace zor::testing
