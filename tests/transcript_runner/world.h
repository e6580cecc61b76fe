// SPDX-License-Identifier: MIT
#pragma once

#include "transcript/scene.h"
#include "transcript/statements.h"
#include "virtual/virtual_machine.h"

#include <memory>

namespace zor {
class Desk;
} // namespace zor

namespace zor::transcript {
class Station;
} // namespace zor::transcript

namespace zor::testing {

using transcript::Arguments;
using transcript::asQuoted;
using transcript::Failure;
using transcript::LineFailure;
using transcript::readTranscript;
using transcript::Statement;
using transcript::StatementRow;

class AirBench;

/// The scene of the tests: a machine in virtual time with simulated boards, and the program on it once it was
/// started.
class World : public transcript::Scene {
  public:
    World();
    ~World() override;

    VirtualMachine machine;

    /// Starts the program; one that runs is ended first.
    void start();
    [[nodiscard]] MainWindow& program() const override;
    [[nodiscard]] EventLoop& loop() override { return machine.loop; }
    [[nodiscard]] ScriptedDialogs& dialogs() override { return machine.dialogs; }
    /// The program's folder.
    [[nodiscard]] std::filesystem::path folder() const override { return machine.platform.programFolder; }
    void letPass(EventLoop::Duration time) override { machine.loop.runFor(time); }
    [[nodiscard]] std::span<const StatementRow> ownStatements() const override;
    [[nodiscard]] std::vector<std::string> sentLines(std::optional<int> port) const override;
    void forgetSent(std::optional<int> port) override;
    [[nodiscard]] std::string lineFormat() const override;

    /// What records the program's user and plays transcripts on it. Throws Failure before the start.
    [[nodiscard]] transcript::Station& recordAndPlay() const;

    /// The air over a board, once a statement has brought it.
    std::unique_ptr<AirBench> air;

  private:
    void end();

    std::unique_ptr<Desk> desk;
    std::unique_ptr<MainWindow> mainWindow;
    std::unique_ptr<transcript::Station> station;
};

} // namespace zor::testing
