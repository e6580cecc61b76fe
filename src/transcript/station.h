// SPDX-License-Identifier: MIT
#pragma once

#include "elements/desk.h"
#include "elements/watched_dialogs.h"
#include "transcript/frm_play.h"
#include "transcript/player.h"
#include "transcript/recorder.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace zor {
class MainWindow;
} // namespace zor

namespace zor::transcript {

/// What stands behind the File menu's `Record...` and `Play...`: one recording or one play at a time. Owned
/// by main, younger than the main window.
class Station {
  public:
    Station(MainWindow& program, WatchedDialogs& dialogs);
    Station(const Station&) = delete;
    Station& operator=(const Station&) = delete;
    ~Station();

    [[nodiscard]] bool recording() const { return recorder != nullptr; }
    [[nodiscard]] Player& player() { return ownPlayer; }

    /// Opens the window in which transcripts are played.
    void openWindow();

  private:
    void record();
    void endRecording();
    void write(const std::string& line);
    void follow();

    MainWindow& main;
    WatchedDialogs& dialogs;
    Player ownPlayer;
    std::unique_ptr<FrmPlay> window;
    std::unique_ptr<Recorder> recorder;
    /// The recording's file, as long as it grows; it gets its name at its end.
    std::filesystem::path recorded;
    std::string content;
    std::ofstream part;
    /// What was done is in the file a moment later, whatever becomes of the program.
    Timer flushing;
    std::vector<Subscription> subscriptions;
    Subscription windowClosed;
};

} // namespace zor::transcript
