// SPDX-License-Identifier: MIT
#include "transcript/scene.h"

#include "elements/desk.h"
#include "elements/element.h"
#include "elements/form.h"
#include "shell/main_window.h"
#include "transcript/statements.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace zor::transcript {

Form* Scene::findWindow(const std::string& name) const {
    return program().desk().find(name);
}

Form& Scene::window(const std::string& name) const {
    Form* form = findWindow(name);
    if (form == nullptr) {
        throw Failure("there is no window " + name);
    }
    return *form;
}

Element& Scene::element(const std::string& name) const {
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

bool Scene::waitFor(const std::function<bool()>& condition, EventLoop::Duration time) {
    bool late = false;
    auto timer = loop().startTimer(time, EventLoop::Repeat::Once, [&late] { late = true; });
    bool held = false;
    struct Ended {
        EventLoop& loop;
        EventLoop::TimerId timer;
        ~Ended() { loop.stopTimer(timer); }
    } ended{loop(), timer};
    loop().runUntil([&] {
        held = condition();
        return held || late;
    });
    return held;
}

void Scene::later(EventLoop::Duration time, const Statement& statement) {
    waitingLines.push_back(statement.line);
    laterTimers.push_back(loop().startTimer(time, EventLoop::Repeat::Once, [this, statement] {
        waitingLines.erase(std::find(waitingLines.begin(), waitingLines.end(), statement.line));
        try {
            carryOut(*this, statement);
        } catch (const Failure& failure) {
            // The action in whose wait this came goes on; the transcript ends behind it.
            if (!lateFailure) {
                lateFailure.emplace(statement.line, failure.what());
            }
        }
    }));
}

void Scene::forgetLater() {
    for (EventLoop::TimerId timer : std::exchange(laterTimers, {})) {
        loop().stopTimer(timer);
    }
    waitingLines.clear();
}

void Scene::letLinger() {
    if (linger.count() == 0) {
        return;
    }
    auto answered = std::make_shared<bool>(false);
    auto timer = loop().startTimer(linger, EventLoop::Repeat::Once, [answered] { *answered = true; });
    EventLoop::Waiting inside(loop());
    // A program that is being left takes its boxes with it.
    while (!*answered && !loop().leaving() && !lingerEnds()) {
        loop().runOnce();
    }
    loop().stopTimer(timer);
}

} // namespace zor::transcript
