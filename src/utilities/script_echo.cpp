// SPDX-License-Identifier: MIT
#include "utilities/script_echo.h"

#include <algorithm>
#include <utility>

namespace zor {

namespace {

// The prompts as the window shows them.
constexpr std::string_view served = "OK\r\n>";
constexpr std::string_view refused = "ERROR\r\n>";

} // namespace

ScriptEcho::ScriptEcho(KeptText& receiver)
    : shown(receiver)
    , hearing(receiver.appended.subscribe([this](std::string_view text) { hear(text); })) {}

void ScriptEcho::sent(std::string_view script) {
    bool idle = awaited.empty();
    while (!script.empty()) {
        std::size_t end = script.find('\r');
        std::string line(script.substr(0, end));
        std::erase(line, '\n');
        if (end == std::string_view::npos) {
            // The board goes on waiting for its end.
            if (!line.empty()) {
                awaited.push_back(std::move(line));
            }
            break;
        }
        // An empty line is a command like any other to the board.
        awaited.push_back(line + "\r\n");
        script.remove_prefix(end + 1);
    }
    if (idle) {
        showFront();
    }
}

void ScriptEcho::sentTyped() {
    if (!awaited.empty()) {
        awaited.emplace_back();
    }
}

void ScriptEcho::forget() {
    awaited.clear();
    tail.clear();
}

void ScriptEcho::hear(std::string_view text) {
    if (awaited.empty()) {
        return;
    }
    for (char c : text) {
        tail += c;
        if (tail.size() > refused.size()) {
            tail.erase(0, 1);
        }
        if (!awaited.empty() && (tail.ends_with(served) || tail == refused)) {
            awaited.pop_front();
            showFront();
        }
    }
}

void ScriptEcho::showFront() {
    if (!awaited.empty() && !awaited.front().empty()) {
        shown.remark(awaited.front());
    }
}

} // namespace zor
