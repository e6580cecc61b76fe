// SPDX-License-Identifier: MIT
#include "transcript/checks.h"

#include "link/connect.h"
#include "shell/main_window.h"
#include "support/letters.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>

namespace zor::transcript {

namespace {

std::string numberShown(double number) {
    char digits[32];
    auto end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
    return {digits, end};
}

std::string listShown(const std::vector<std::string>& lines) {
    std::string shown;
    for (const std::string& line : lines) {
        shown += (shown.empty() ? "" : " ") + asQuoted(line);
    }
    return shown.empty() ? "none" : shown;
}

std::string boxShown(const Box& box) {
    return asQuoted(box.title) + " " + asQuoted(box.text);
}

bool isNumber(const std::string& text) {
    return !text.empty() && std::ranges::all_of(text, isDigit);
}

} // namespace

void expectText(const std::string& what, const std::string& expected, const std::string& found) {
    if (expected != found) {
        throw Failure("expected " + what + " " + asQuoted(expected) + ", found " + asQuoted(found));
    }
}

void expectPart(const std::string& where, const std::string& part, const std::string& whole) {
    if (whole.find(part) == std::string::npos) {
        throw Failure("expected " + asQuoted(part) + " " + where + ", found " + asQuoted(whole));
    }
}

void expectNumber(const std::string& what, double expected, double found) {
    // Places and sizes are kept in single precision.
    if (static_cast<float>(expected) != static_cast<float>(found)) {
        throw Failure("expected " + what + " " + numberShown(expected) + ", found " + numberShown(found));
    }
}

void expectLines(const std::string& what, const std::vector<std::string>& expected,
                 const std::vector<std::string>& found) {
    if (expected != found) {
        throw Failure("expected " + what + " " + listShown(expected) + ", found " + listShown(found));
    }
}

void expectSent(Scene& scene, const Arguments& arguments) {
    // A bare number in front is a port; a line that is a number stands in quotes.
    bool onePort =
        arguments.count() > 0 && !arguments.whole().tokens[1].quoted && isNumber(arguments.text(0));
    std::optional<int> port;
    if (onePort) {
        port = arguments.integer(0, 0, 32767);
    }
    std::size_t first = onePort ? 1 : 0;
    if (arguments.isWord(first, "*")) {
        arguments.expectCount(first + 1, first + 1);
    } else {
        expectLines("sent", arguments.rest(first), scene.sentLines(port));
    }
    scene.forgetSent(port);
}

void expectBox(Scene& scene, const Arguments& arguments) {
    std::deque<Box>& boxes = scene.dialogs().boxes;
    if (arguments.count() == 1) {
        if (!arguments.isWord(0, "*")) {
            throw Failure("box needs more behind it");
        }
        boxes.clear();
        return;
    }
    if (boxes.empty()) {
        throw Failure("expected a box, found none");
    }
    const Box& box = boxes.front();
    bool anyTitle = arguments.isWord(0, "~");
    bool part = anyTitle || arguments.isWord(1, "~");
    arguments.expectCount(part && !anyTitle ? 3 : 2, part && !anyTitle ? 3 : 2);
    const std::string& expected = arguments.text(arguments.count() - 1);
    bool titleFits = anyTitle || box.title == arguments.text(0);
    bool textFits = part ? box.text.find(expected) != std::string::npos : box.text == expected;
    if (!titleFits || !textFits) {
        std::string title = anyTitle ? std::string() : asQuoted(arguments.text(0)) + " ";
        throw Failure("expected box " + title + (part ? "~ " : "") + asQuoted(expected) + ", found " +
                      boxShown(box));
    }
    boxes.pop_front();
}

void expectNoBox(Scene& scene) {
    if (!scene.dialogs().boxes.empty()) {
        throw Failure("expected no box, found " + boxShown(scene.dialogs().boxes.front()));
    }
}

void expectDialog(Scene& scene, const Arguments& arguments) {
    std::deque<FileRequest>& dialogs = scene.dialogs().fileDialogs;
    if (dialogs.empty()) {
        throw Failure("expected a file dialog, found none");
    }
    const FileRequest& request = dialogs.front();
    std::vector<std::string> found = {request.title, request.startName, request.filter};
    if (arguments.count() > found.size()) {
        found.push_back(request.proposal);
    }
    expectLines("dialog", arguments.rest(0), found);
    dialogs.pop_front();
}

void expectContent(Scene& scene, const Arguments& arguments) {
    bool raw = arguments.isWord(0, "raw");
    arguments.expectCount(raw ? 3 : 1, raw ? 3 : 1);
    const std::string& name = arguments.text(raw ? 1 : 0);
    std::ifstream file(scene.file(name), std::ios::binary);
    if (!file) {
        throw Failure("expected a file " + name + ", found none");
    }
    std::string found{std::istreambuf_iterator<char>(file), {}};
    std::string expected = raw ? arguments.text(2) : std::string();
    for (const std::string& line : arguments.block()) {
        expected += line + "\r\n";
    }
    expectText("content of " + name, expected, found);
}

void expectNoFile(Scene& scene, const Arguments& arguments) {
    if (std::filesystem::exists(scene.file(arguments.text(0)))) {
        throw Failure("expected no file " + arguments.text(0) + ", found it");
    }
}

void expectPort(Scene& scene, const Arguments& arguments) {
    if (!arguments.isWord(0, "open") && !arguments.isWord(0, "closed")) {
        throw Failure("expected port open or port closed, found " + arguments.text(0));
    }
    std::string found = scene.program().bench().connect->isOpen() ? "open" : "closed";
    if (found != arguments.text(0)) {
        throw Failure("expected the port " + arguments.text(0) + ", found it " + found);
    }
}

void expectSpeed(Scene& scene, const Arguments& arguments) {
    expectText("the port's settings", arguments.text(0), scene.lineFormat());
}

void expectElapsed(Scene& scene, const Arguments& arguments) {
    if (!scene.clockMark) {
        throw Failure("elapsed without a clock before it");
    }
    double found = static_cast<double>((scene.loop().now() - *scene.clockMark).count()) / 1000;
    if (found < arguments.number(0) || found > arguments.number(1)) {
        throw Failure("expected from " + arguments.text(0) + " to " + arguments.text(1) +
                      " ms to have passed, found " + numberShown(found));
    }
}

} // namespace zor::transcript
