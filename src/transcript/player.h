// SPDX-License-Identifier: MIT
#pragma once

#include "elements/desk.h"
#include "elements/watched_dialogs.h"
#include "platform/event_loop.h"
#include "transcript/live_scene.h"
#include "transcript/played_board.h"
#include "transcript/transcript.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace zor {
class MainWindow;
} // namespace zor

namespace zor::transcript {

/// One statement of a transcript that is played, with how it went.
struct PlayedLine {
    enum class Result { Waiting, Running, Passed, Failed };

    int line = 0;
    /// As it stands in the file.
    std::string text;
    Result result = Result::Waiting;
    /// What was expected and what was found.
    std::string message;
    EventLoop::Duration took{};
};

/// Plays a transcript on the program as it runs, on whatever board is connected: each statement is an event
/// of the loop, so nothing freezes, and pauses are real ones.
///
/// A check that does not hold is marked and the play goes on; a gesture that a user could not make ends it,
/// and so do the loss of the board and the program's end: what comes behind would be made in another place.
class Player {
  public:
    enum class State { Empty, Ready, Playing, Paused, Stopping, Ended };

    Player(MainWindow& program, WatchedDialogs& dialogs);
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;
    ~Player();

    /// Reads a transcript and looks at the form of every line; nothing is carried out. Throws LineFailure, or
    /// ToolError for a file that cannot be read; what was loaded before stays then.
    void load(const std::filesystem::path& file);
    [[nodiscard]] const std::filesystem::path& file() const { return ownFile; }

    /// Begins at the first line, or goes on from a pause.
    void play();
    /// Halts behind the statement that runs.
    void pause();
    /// Carries one statement out and halts.
    void step();
    /// Ends the play. A gesture that waits for the board ends its own way first.
    /// @param reason  what the line says that it ended at
    void stop(std::string reason = "stopped by the user");

    /// The program is being closed: what is left of the play is not carried out.
    void leave();

    /// While a session is recorded nothing is played.
    void hold(bool held);
    [[nodiscard]] bool held() const { return isHeld; }

    [[nodiscard]] State state() const { return ownState; }
    [[nodiscard]] const std::vector<PlayedLine>& lines() const { return played; }
    /// Statements carried out.
    [[nodiscard]] std::size_t done() const { return at; }
    [[nodiscard]] std::size_t failures() const { return failed; }
    /// It came to its end, and nothing failed.
    [[nodiscard]] bool passed() const;
    [[nodiscard]] EventLoop::Duration took() const { return end - begun; }

    /// The state, or how far it has come, changed.
    Signal<> changed;
    /// A line's result changed.
    Signal<std::size_t> lineChanged;

  private:
    void begin();
    void schedule(EventLoop::Duration time);
    void next();
    void carryOutNext();
    /// @return whether the play can go on
    bool tryOut(const Statement& statement);
    void settle(std::size_t position, PlayedLine::Result result, std::string message = {});
    void failLine(int line, const std::string& message);
    void finish(const std::string& reason = {});
    void setState(State state);
    [[nodiscard]] bool pausing() const;

    MainWindow& main;
    WatchedDialogs& watched;
    std::filesystem::path ownFile;
    std::vector<Statement> statements;
    std::vector<PlayedLine> played;
    std::unique_ptr<LiveScene> scene;
    State ownState = State::Empty;
    std::size_t at = 0;
    std::size_t failed = 0;
    EventLoop::TimerId timer = 0;
    EventLoop::Duration begun{};
    EventLoop::Duration end{};
    EventLoop::Duration lineBegun{};
    std::string stopReason;
    /// A statement runs, perhaps with waits of its own.
    bool busy = false;
    bool single = false;
    bool isHeld = false;
    PlayedBoard board;
    /// When the transcript's pause is over that is under way.
    EventLoop::Duration pauseEnd{};
};

/// The result of a play as the XML that build servers read: a test case a statement.
[[nodiscard]] std::string junitReport(const Player& player);

} // namespace zor::transcript
