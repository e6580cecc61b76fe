// SPDX-License-Identifier: MIT
#include "transcript_runner/world.h"

#include "elements/desk.h"
#include "elements/element.h"
#include "shell/main_window.h"
#include "transcript_runner/air_bench.h"
#include "transcript_runner/statements.h"

#include <algorithm>

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
    mainWindow.reset();
    // Windows that wait for their discarding must not outlive the desk.
    machine.loop.perform([] {});
    desk.reset();
}

void World::letLinger() {
    if (linger.count() == 0) {
        return;
    }
    auto answered = std::make_shared<bool>(false);
    auto timer = machine.loop.startTimer(linger, EventLoop::Repeat::Once, [answered] { *answered = true; });
    EventLoop::Waiting inside(machine.loop);
    // A program that is being left takes its boxes with it.
    while (!*answered && !machine.loop.leaving()) {
        machine.loop.runOnce();
    }
    machine.loop.stopTimer(timer);
}

void World::start() {
    if (machine.loop.acting()) {
        throw Failure("a program cannot be started in the middle of an action");
    }
    end();
    machine.loop.restart();
    desk = std::make_unique<Desk>(machine.loop);
    mainWindow = std::make_unique<MainWindow>(machine.platform, *desk);
    machine.loop.perform([this] { mainWindow->start(); });
}

MainWindow& World::program() const {
    if (!mainWindow) {
        throw Failure("the program was not started");
    }
    return *mainWindow;
}

Form* World::findWindow(const std::string& name) const {
    return program().desk().find(name);
}

Form& World::window(const std::string& name) const {
    Form* form = findWindow(name);
    if (form == nullptr) {
        throw Failure("there is no window " + name);
    }
    return *form;
}

Element& World::element(const std::string& name) const {
    std::size_t point = name.find('.');
    if (point == std::string::npos) {
        throw Failure("expected an element as Window.Element, found " + name);
    }
    Element* found = window(name.substr(0, point)).find(std::string_view(name).substr(point + 1));
    if (found == nullptr) {
        throw Failure("there is no element " + name);
    }
    return *found;
}

void World::later(std::chrono::milliseconds time, const Statement& statement) {
    waitingLines.push_back(statement.line);
    machine.loop.startTimer(time, EventLoop::Repeat::Once, [this, statement] {
        waitingLines.erase(std::find(waitingLines.begin(), waitingLines.end(), statement.line));
        try {
            carryOut(*this, statement);
        } catch (const Failure& failure) {
            // The action in whose wait this came goes on; the transcript ends behind it.
            if (!lateFailure) {
                lateFailure.emplace(statement.line, failure.what());
            }
        }
    });
}

std::filesystem::path World::file(const std::string& name) const {
    return machine.platform.programFolder / name;
}

} // namespace zor::testing
