// SPDX-License-Identifier: MIT
#include "transcript_runner/world.h"

#include "elements/desk.h"
#include "link/connect.h"
#include "shell/main_window.h"
#include "transcript/station.h"
#include "transcript_runner/air_bench.h"
#include "transcript_runner/bench_statements.h"

namespace zor::testing {

World::World() {
    machine.dialogs.whileOpen = [this] { letLinger(); };
}

World::~World() {
    end();
}

void World::end() {
    if (!mainWindow) {
        return;
    }
    machine.loop.perform([this] { mainWindow->close(); });
    station.reset();
    mainWindow.reset();
    // Windows that wait for their discarding must not outlive the desk.
    machine.loop.perform([] {});
    desk.reset();
}

void World::start() {
    if (machine.loop.acting()) {
        throw Failure("a program cannot be started in the middle of an action");
    }
    end();
    machine.loop.restart();
    desk = std::make_unique<Desk>(machine.loop);
    mainWindow = std::make_unique<MainWindow>(machine.platform, *desk);
    station = std::make_unique<transcript::Station>(*mainWindow, machine.watchedDialogs);
    machine.loop.perform([this] { mainWindow->start(); });
}

MainWindow& World::program() const {
    if (!mainWindow) {
        throw Failure("the program was not started");
    }
    return *mainWindow;
}

transcript::Station& World::recordAndPlay() const {
    (void)program();
    return *station;
}

std::span<const StatementRow> World::ownStatements() const {
    return benchStatements();
}

std::vector<std::string> World::sentLines(std::optional<int> port) const {
    std::vector<std::string> lines;
    for (const VirtualPorts::SentLine& line : machine.ports.sent) {
        if (!port || line.port == *port) {
            lines.push_back(line.text);
        }
    }
    return lines;
}

void World::forgetSent(std::optional<int> port) {
    std::erase_if(machine.ports.sent,
                  [&](const VirtualPorts::SentLine& line) { return !port || line.port == *port; });
}

std::string World::lineFormat() const {
    const Connect& connect = *program().bench().connect;
    const VirtualSeat* seat = connect.isOpen() ? machine.ports.find(connect.portNumber()) : nullptr;
    return seat == nullptr ? connect.settings().format : seat->format();
}

} // namespace zor::testing
