// SPDX-License-Identifier: MIT
#include "transcript/live_scene.h"

#include "link/connect.h"
#include "shell/main_window.h"

#include <algorithm>

namespace zor::transcript {

namespace {

/// Lines to the board that nobody looked at; the oldest go.
constexpr std::size_t mostLines = 100'000;

} // namespace

LiveScene::LiveScene(MainWindow& program, WatchedDialogs& dialogs, std::filesystem::path transcriptFolder)
    : main(program)
    , watched(dialogs)
    , before(dialogs.answerBy(&answering))
    , ownFolder(std::move(transcriptFolder)) {
    answering.whileOpen = [this] { letLinger(); };
    exchanges = main.bench().connect->tap.exchanges.subscribe([this](const WireExchange& exchange) {
        std::string line(exchange.line);
        while (line.ends_with('\r')) {
            line.pop_back();
        }
        lines.emplace_back(exchange.number, std::move(line));
        if (lines.size() > mostLines) {
            lines.pop_front();
        }
    });
}

LiveScene::~LiveScene() {
    forgetLater();
    watched.answerBy(before);
}

MainWindow& LiveScene::program() const {
    if (main.isClosed()) {
        throw Failure("the program is being left");
    }
    return main;
}

EventLoop& LiveScene::loop() {
    return main.loop();
}

void LiveScene::letPass(EventLoop::Duration time) {
    (void)waitFor([] { return false; }, time);
}

bool LiveScene::waitFor(const std::function<bool()>& condition, EventLoop::Duration time) {
    bool held = false;
    Scene::waitFor([&] { return isStopped || (held = condition()); }, time);
    return held;
}

std::vector<std::string> LiveScene::sentLines(std::optional<int> port) const {
    std::vector<std::string> found;
    for (const auto& [number, line] : lines) {
        if (!port || number == *port) {
            found.push_back(line);
        }
    }
    return found;
}

void LiveScene::forgetSent(std::optional<int> port) {
    std::erase_if(lines, [&](const auto& line) { return !port || line.first == *port; });
}

std::string LiveScene::lineFormat() const {
    return program().bench().connect->settings().format;
}

void LiveScene::stop() {
    isStopped = true;
    forgetLater();
}

void LiveScene::setAnswering(bool answers) {
    watched.answerBy(answers ? &answering : before);
}

} // namespace zor::transcript
