// SPDX-License-Identifier: MIT
#pragma once

#include "elements/desk.h"
#include "elements/watched_dialogs.h"
#include "link/wire_tap.h"
#include "platform/event_loop.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zor {
class MainWindow;
} // namespace zor

namespace zor::transcript {

/// A gesture as the statement that makes it again ("type OpalV2.FreqCenter \"315\"").
[[nodiscard]] std::string statementOf(const Gesture& gesture);

/// Writes down what the user does, as a transcript: gestures with the pauses between them, what he answered
/// in front of the gesture that asked it, and as comments what came back. A gesture that comes while another
/// one waits is written in front of that one, with the time that it came behind its beginning.
///
/// What belongs together is written as one statement: the characters of a text and the Enter behind it, the
/// two clicks of a double click, the steps of a window that is dragged.
class Recorder {
  public:
    /// Takes whole lines, without their ends.
    using Sink = std::function<void(const std::string& line)>;
    /// Gestures that are none of the session: those on the recorder's own switches.
    using Ignored = std::function<bool(const Gesture& gesture)>;

    enum class Times { Milliseconds, Exact };

    /// @param folder  files in it are written by the rest of their names
    Recorder(MainWindow& program, WatchedDialogs& dialogs, std::filesystem::path folder, Sink sink,
             Ignored ignored = nullptr, Times precision = Times::Milliseconds);
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;
    ~Recorder();

    /// Hands on what it still holds back to join with what comes next, and the pause up to now.
    void finish();
    /// How many gestures were written.
    [[nodiscard]] std::size_t gestures() const { return count; }

  private:
    using Duration = EventLoop::Duration;

    /// What one gesture comes to in the file.
    struct Block {
        Gesture gesture;
        /// The gesture's text, which is gone with the call.
        std::string text;
        Duration begun{};
        Duration ended{};
        /// From the end of what stands before to its own beginning.
        Duration pause{};
        /// Answers and late statements, in front of it.
        std::vector<std::string> before;
        std::string statement;
        std::vector<std::string> comments;
        /// More exchanges than are told.
        std::size_t untold = 0;
        /// A box came in it.
        bool asked = false;
    };

    /// What a gesture that runs is to the file.
    enum class Role {
        Outside, ///< one of the recorder's own switches
        Part,    ///< comes of itself when the gesture around it is made again
        Block,
        Nested, ///< in the middle of a block
        Ahead,  ///< in the middle of a wait of the program's own
    };

    void begin(const Gesture& gesture);
    void end();
    [[nodiscard]] Role roleOf(const Gesture& gesture) const;
    [[nodiscard]] bool running(Role role) const;
    void beginBlock(const Gesture& gesture);
    [[nodiscard]] bool join(const Block& next);
    void writeBlock();
    void writePause(Duration pause);
    void comment(const std::string& text);
    void boxAnswered(const Box& box, Answer given);
    void answer(const std::string& statement);
    void crossed(const WireExchange& exchange);
    void noticed();
    [[nodiscard]] std::string shortName(const std::string& name) const;
    [[nodiscard]] std::string timeText(Duration time) const;
    [[nodiscard]] Duration now() const;

    MainWindow& main;
    std::filesystem::path folder;
    Sink sink;
    Ignored ignored;
    Times times;
    /// Where the clock of the file stands.
    Duration mark;
    /// The gesture that runs, or the last one that ran.
    std::optional<Block> block;
    /// The gestures that run, the outermost first.
    std::vector<Role> roles;
    /// Answers and statements that came while the program waited on its own.
    std::vector<std::string> ahead;
    /// A box came outside of every gesture.
    bool boxAhead = false;
    /// When the box or dialog that stands on the screen came.
    Duration boxCame{};
    std::string linger = "0";
    std::string lastNotice;
    std::size_t count = 0;
    std::vector<Subscription> subscriptions;
};

} // namespace zor::transcript
