// SPDX-License-Identifier: MIT
#include "desktop/transcript_run.h"

#include "desktop/adapters/qt_text.h"
#include "host/files.h"
#include "shell/main_window.h"

#include <cstdio>
#include <utility>

namespace zor {

using transcript::PlayedLine;
using transcript::Player;

TranscriptRun::TranscriptRun(MainWindow& mainForm, transcript::Station& station, WatchedDialogs& watched,
                             Switches runSwitches)
    : main(mainForm)
    , player(station.player())
    , dialogs(watched)
    , switches(std::move(runSwitches)) {
    dialogs.answerBy(&quiet);
    subscriptions.push_back(dialogs.boxComes.subscribe(
        [](const Box& box) { std::fprintf(stderr, "zor: %s: %s\n", box.title.c_str(), box.text.c_str()); }));
}

TranscriptRun::~TranscriptRun() {
    main.loop().stopTimer(limit);
    dialogs.answerBy(nullptr);
}

bool TranscriptRun::load() {
    std::string name = fromQt(switches.file);
    try {
        player.load(name);
        return true;
    } catch (const transcript::LineFailure& failure) {
        std::fprintf(stderr, "%s:%d: %s\n", name.c_str(), failure.line, failure.what());
    } catch (const ToolError& error) {
        std::fprintf(stderr, "zor: %s: %s\n", name.c_str(), error.what());
    }
    return false;
}

void TranscriptRun::begin() {
    subscriptions.push_back(player.changed.subscribe([this] {
        if (player.state() == Player::State::Ended && !main.isClosed()) {
            // The player is still at work on its last line.
            main.loop().startTimer(std::chrono::milliseconds(0), EventLoop::Repeat::Once,
                                   [this] { close(); });
        }
    }));
    subscriptions.push_back(player.lineChanged.subscribe([this](std::size_t position) {
        // The first line that changes has waited for the search.
        if (position == 0 && player.done() == 0 && main.linkState() == LinkState::None &&
            !std::exchange(toldNoBoard, true)) {
            std::fputs("zor: no board was found; the transcript is played without one\n", stderr);
        }
    }));
    limit = main.loop().startTimer(switches.limit, EventLoop::Repeat::Once, [this] {
        player.stop("not at its end within " + std::to_string(switches.limit.count()) + " s");
        close();
    });
    player.play();
}

void TranscriptRun::close() {
    main.loop().perform([this] { main.close(); });
}

int TranscriptRun::finish() {
    player.leave();
    std::string name = fromQt(switches.file);
    for (const PlayedLine& line : player.lines()) {
        if (line.result == PlayedLine::Result::Failed) {
            std::printf("%s:%d: %s\n", name.c_str(), line.line, line.message.c_str());
        }
    }
    if (player.passed()) {
        std::printf("ok %s\n", name.c_str());
    }
    std::printf("%zu of %zu lines, %zu failed\n", player.done(), player.lines().size(), player.failures());
    if (!switches.report.isEmpty()) {
        try {
            writeFileWhole(fromQt(switches.report), transcript::junitReport(player));
        } catch (const ToolError& error) {
            std::fprintf(stderr, "zor: the report cannot be written to %s: %s\n",
                         switches.report.toLocal8Bit().constData(), error.what());
            return 1;
        }
    }
    return player.passed() ? 0 : 1;
}

} // namespace zor
