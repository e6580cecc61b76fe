// SPDX-License-Identifier: MIT
#pragma once

#include "platform/event_loop.h"
#include "transcript/scripted_dialogs.h"
#include "transcript/transcript.h"

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zor {
class ColouredLog;
class Element;
class Form;
class MainWindow;
} // namespace zor

namespace zor::transcript {

struct StatementRow;

/// What a transcript is played on: a program, what answers its boxes, and the marks that statements leave for
/// later ones. The tests' scene has simulated boards on virtual time, the product's is the bench as it
/// stands.
class Scene {
  public:
    Scene() = default;
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;
    virtual ~Scene() = default;

    /// Throws Failure if the program was not started, or is going.
    [[nodiscard]] virtual MainWindow& program() const = 0;
    [[nodiscard]] virtual EventLoop& loop() = 0;
    /// What answers boxes and file dialogs while a transcript plays, and keeps what was asked.
    [[nodiscard]] virtual ScriptedDialogs& dialogs() = 0;
    /// Names of files that are not absolute are meant in here.
    [[nodiscard]] virtual std::filesystem::path folder() const = 0;
    /// Lets that much time pass.
    virtual void letPass(EventLoop::Duration time) = 0;
    /// Waits until the condition holds, at most that long. @return whether it came to hold
    virtual bool waitFor(const std::function<bool()>& condition, EventLoop::Duration time);
    /// Statements beside those that every scene knows.
    [[nodiscard]] virtual std::span<const StatementRow> ownStatements() const { return {}; }

    /// The lines that went to the boards and were not seen yet, oldest first, without their carriage returns;
    /// of one port or of all.
    [[nodiscard]] virtual std::vector<std::string> sentLines(std::optional<int> port) const = 0;
    virtual void forgetSent(std::optional<int> port) = 0;
    /// The working port's line settings.
    [[nodiscard]] virtual std::string lineFormat() const = 0;

    /// nullptr if there is no such window, or it was closed. Throws Failure before the start.
    [[nodiscard]] Form* findWindow(const std::string& name) const;
    /// Throws Failure for an unknown or closed window.
    [[nodiscard]] Form& window(const std::string& name) const;
    /// @param name  "Window.Element"; throws Failure for an unknown one
    [[nodiscard]] Element& element(const std::string& name) const;
    /// A file of the folder, or the path itself if it is absolute.
    [[nodiscard]] std::filesystem::path file(const std::string& name) const { return folder() / name; }

    /// Carries a statement out when that much time has passed.
    void later(EventLoop::Duration time, const Statement& statement);
    /// The first failure of a statement that came by its own time.
    std::optional<LineFailure> lateFailure;
    /// Lines of the statements whose time has not come.
    std::vector<int> waitingLines;

    /// How long each box and dialog stays on the screen, time running, before it is answered.
    EventLoop::Duration linger{0};

    /// The mark of `clock`.
    std::optional<EventLoop::Duration> clockMark;

    /// How many lines of each log were seen, those that were cleared included.
    std::map<const ColouredLog*, std::size_t> seenLines;

  protected:
    /// Boxes that are on the screen are answered at once.
    [[nodiscard]] virtual bool lingerEnds() const { return false; }
    /// A box or dialog stands on the screen: lets as much time pass as it is to stay.
    void letLinger();
    /// What waits for its time is not carried out any more.
    void forgetLater();

  private:
    std::vector<EventLoop::TimerId> laterTimers;
};

} // namespace zor::transcript
