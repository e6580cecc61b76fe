// SPDX-License-Identifier: MIT
#pragma once

#include "elements/watched_dialogs.h"
#include "transcript/scripted_dialogs.h"
#include "transcript/station.h"

#include <QString>

#include <chrono>

namespace zor {

class MainWindow;

/// A transcript played by the program without a person and without a window: what `zor --play` does. Says on
/// the standard output how it went, and ends the program.
class TranscriptRun {
  public:
    struct Switches {
        QString file;
        /// A JUnit report goes there; none if empty.
        QString report;
        /// The play is broken off then.
        std::chrono::seconds limit{3600};
    };

    /// From now on boxes are answered without a person and told on the standard error.
    TranscriptRun(MainWindow& main, transcript::Station& station, WatchedDialogs& dialogs, Switches switches);
    TranscriptRun(const TranscriptRun&) = delete;
    TranscriptRun& operator=(const TranscriptRun&) = delete;
    ~TranscriptRun();

    /// @return false if the transcript cannot be played at all; it is said then
    [[nodiscard]] bool load();
    /// Plays, once the search for boards is over, and closes the program at the end.
    void begin();
    /// Behind the program's end: tells the result and writes the report.
    /// @return the exit status: 0 if everything passed, 1 if not
    [[nodiscard]] int finish();

  private:
    void close();

    MainWindow& main;
    transcript::Player& player;
    WatchedDialogs& dialogs;
    Switches switches;
    transcript::ScriptedDialogs quiet;
    EventLoop::TimerId limit = 0;
    bool toldNoBoard = false;
    std::vector<Subscription> subscriptions;
};

} // namespace zor
