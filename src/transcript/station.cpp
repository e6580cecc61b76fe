// SPDX-License-Identifier: MIT
#include "transcript/station.h"

#include "host/file_backup.h"
#include "host/files.h"
#include "link/file_dialog.h"
#include "shell/main_window.h"

#include <chrono>
#include <utility>

namespace zor::transcript {

namespace {

constexpr const char* pattern = "*.bench";
constexpr const char* firstRecording = "recording.bench";
constexpr std::chrono::milliseconds flushTime(1000);
constexpr const char* recordCaption = "Record...";
constexpr const char* endCaption = "Stop recording";

/// Where a recording stands until it has come to its end: what was done until a crash is there.
std::filesystem::path growing(std::filesystem::path name) {
    name += ".part";
    return name;
}

} // namespace

Station::Station(MainWindow& program, WatchedDialogs& watched)
    : main(program)
    , dialogs(watched)
    , ownPlayer(program, watched)
    , flushing(program.loop(), [this] { part.flush(); }) {
    for (MenuEntry* entry : {&main.menu.mnuFileRecord, &main.menu.mnuFilePlay}) {
        entry->setEnabled(true);
    }
    main.menu.mnuFileRecord.onClick = [this] {
        main.bench().tools.close(Tool::frm_Splash);
        if (recording()) {
            endRecording();
        } else {
            record();
        }
    };
    main.menu.mnuFilePlay.onClick = [this] {
        main.bench().tools.close(Tool::frm_Splash);
        openWindow();
    };
    subscriptions.push_back(ownPlayer.changed.subscribe([this] { follow(); }));
    subscriptions.push_back(main.closed.subscribe([this] {
        endRecording();
        ownPlayer.leave();
    }));
}

Station::~Station() {
    main.menu.mnuFileRecord.onClick = nullptr;
    main.menu.mnuFilePlay.onClick = nullptr;
}

void Station::follow() {
    bool plays = ownPlayer.state() == Player::State::Playing || ownPlayer.state() == Player::State::Paused ||
                 ownPlayer.state() == Player::State::Stopping;
    main.menu.mnuFileRecord.setEnabled(!plays);
    main.menu.mnuFilePlay.setEnabled(!recording());
}

void Station::openWindow() {
    if (!window) {
        window = std::make_unique<FrmPlay>(main.bench(), ownPlayer);
        windowClosed = window->closed.subscribe(
            [this] { main.loop().discardLater([kept = std::shared_ptr<FrmPlay>(std::move(window))] {}); });
    }
    window->show();
}

void Station::record() {
    FileChoice choice = askForFile(main.bench(),
                                   {.mode = FileRequest::Mode::Save,
                                    .title = "Record",
                                    .folder = main.bench().link.CurrentPath,
                                    .startName = pattern,
                                    .filter = "Transcripts (*.bench)|*.bench|All files (*.*)|*.*",
                                    .defaultExtension = "bench"},
                                   firstRecording);
    if (choice.name == pattern || recording()) {
        return;
    }
    try {
        content.clear();
        recorded = std::filesystem::absolute(choice.name);
        writeFileWhole(growing(recorded), "");
    } catch (const ToolError& error) {
        main.bench().tellError(error, "File save error");
        return;
    }
    part.open(growing(recorded), std::ios::binary);
    flushing.start(flushTime);
    write("# What a user did at the bench; played by File, Play... or by \"zor --play\".");
    write("# A comment that begins with a check's name (text, box) becomes that check without its mark.");
    recorder = std::make_unique<Recorder>(
        main, dialogs, recorded.parent_path(), [this](const std::string& line) { write(line); },
        [this](const Gesture& gesture) {
            return gesture.element == &main.menu.mnuFileRecord || gesture.element == &main.menu.mnuFilePlay ||
                   gesture.form->name() == "frm_Play";
        });
    main.menu.mnuFileRecord.setCaption(endCaption);
    main.menu.mnuFileRecord.setChecked(true);
    ownPlayer.hold(true);
    main.bench().notice("Recording to " + recorded.filename().string() + "; File, Stop recording ends it.");
}

void Station::write(const std::string& line) {
    content += line;
    content += "\r\n";
    part << line << "\r\n";
}

void Station::endRecording() {
    if (!recorder) {
        return;
    }
    recorder->finish();
    std::size_t count = recorder->gestures();
    recorder.reset();
    flushing.stop();
    part.close();
    main.menu.mnuFileRecord.setCaption(recordCaption);
    main.menu.mnuFileRecord.setChecked(false);
    ownPlayer.hold(false);
    try {
        saveUserFile(recorded, content);
        std::error_code ignored;
        std::filesystem::remove(growing(recorded), ignored);
        rememberFile(main.bench(), firstRecording, recorded.string());
        main.bench().notice(std::to_string(count) + " gestures were recorded in " +
                            recorded.filename().string() + ".");
    } catch (const ToolError& error) {
        if (!main.isClosed()) {
            main.bench().tellError(error, "File save error",
                                   "The recording is in " + growing(recorded).string() + ".");
        }
    }
}

} // namespace zor::transcript
