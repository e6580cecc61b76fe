// SPDX-License-Identifier: MIT
#include "transcript_runner/checks.h"

#include "link/connect.h"
#include "shell/main_window.h"
#include "simulator/loader_firmware.h"
#include "support/numbers.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <limits>

namespace zor::testing {

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
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// Takes the lines of one port out of the record, or of all.
std::vector<std::string> takeSent(World& world, std::optional<int> port) {
    std::vector<std::string> taken;
    std::erase_if(world.machine.ports.sent, [&](const VirtualPorts::SentLine& line) {
        bool fits = !port || line.port == *port;
        if (fits) {
            taken.push_back(line.text);
        }
        return fits;
    });
    return taken;
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

void expectSent(World& world, const Arguments& arguments) {
    // A bare number in front is a port; a line that is a number stands in quotes.
    bool onePort =
        arguments.count() > 0 && !arguments.whole().tokens[1].quoted && isNumber(arguments.text(0));
    std::optional<int> port;
    if (onePort) {
        port = arguments.integer(0, 0, 32767);
    }
    std::size_t first = onePort ? 1 : 0;
    std::vector<std::string> found = takeSent(world, port);
    if (arguments.isWord(first, "*")) {
        arguments.expectCount(first + 1, first + 1);
        return;
    }
    expectLines("sent", arguments.rest(first), found);
}

void expectBox(World& world, const Arguments& arguments) {
    std::deque<Box>& boxes = world.machine.dialogs.boxes;
    if (boxes.empty()) {
        throw Failure("expected a box, found none");
    }
    Box box = boxes.front();
    boxes.pop_front();
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
}

void expectNoBox(World& world) {
    if (!world.machine.dialogs.boxes.empty()) {
        throw Failure("expected no box, found " + boxShown(world.machine.dialogs.boxes.front()));
    }
}

void expectDialog(World& world, const Arguments& arguments) {
    std::deque<FileRequest>& dialogs = world.machine.dialogs.fileDialogs;
    if (dialogs.empty()) {
        throw Failure("expected a file dialog, found none");
    }
    FileRequest request = dialogs.front();
    dialogs.pop_front();
    expectLines("dialog", arguments.rest(0), {request.title, request.startName, request.filter});
}

void expectContent(World& world, const Arguments& arguments) {
    bool raw = arguments.isWord(0, "raw");
    arguments.expectCount(raw ? 3 : 1, raw ? 3 : 1);
    const std::string& name = arguments.text(raw ? 1 : 0);
    std::ifstream file(world.file(name), std::ios::binary);
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

void expectNoFile(World& world, const Arguments& arguments) {
    if (std::filesystem::exists(world.file(arguments.text(0)))) {
        throw Failure("expected no file " + arguments.text(0) + ", found it");
    }
}

void expectPort(World& world, const Arguments& arguments) {
    if (!arguments.isWord(0, "open") && !arguments.isWord(0, "closed")) {
        throw Failure("expected port open or port closed, found " + arguments.text(0));
    }
    std::string found = world.program().bench().connect->isOpen() ? "open" : "closed";
    if (found != arguments.text(0)) {
        throw Failure("expected the port " + arguments.text(0) + ", found it " + found);
    }
}

void expectEeprom(World& world, const Arguments& arguments) {
    auto seat = world.machine.ports.seats().find(arguments.integer(0, 0, 32767));
    sim::SerialEeprom* chip =
        seat == world.machine.ports.seats().end() ? nullptr : seat->second->board().circuits().eeprom();
    if (chip == nullptr) {
        throw Failure("there is no EEPROM on port " + arguments.text(0));
    }
    std::vector<std::uint8_t> expected = arguments.hexBytes(2);
    int last = static_cast<int>(sim::SerialEeprom::byteCount - expected.size());
    auto address = static_cast<std::size_t>(arguments.integer(1, 0, last));
    std::string found;
    std::string wanted;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        found += (i == 0 ? "" : " ") + hexText(chip->bytes()[address + i], 2);
        wanted += (i == 0 ? "" : " ") + hexText(expected[i], 2);
    }
    expectText("EEPROM from " + arguments.text(1) + " on", wanted, found);
}

void expectSpeed(World& world, const Arguments& arguments) {
    const Connect& connect = *world.program().bench().connect;
    VirtualSeat* seat = connect.isOpen() ? world.machine.ports.find(connect.portNumber()) : nullptr;
    expectText("the port's settings", arguments.text(0),
               seat == nullptr ? connect.settings().format : seat->format());
}

void expectImage(World& world, const Arguments& arguments) {
    VirtualSeat* seat = world.machine.ports.find(arguments.integer(0, 0, 32767));
    const sim::LoaderFirmware* loader = seat == nullptr ? nullptr : seat->board().loader();
    if (loader == nullptr) {
        throw Failure("there is no loader on port " + arguments.text(0));
    }
    auto address = static_cast<std::uint32_t>(arguments.integer(1, 0, std::numeric_limits<int>::max()));
    std::string found;
    std::size_t count = (arguments.text(2).size() + 1) / 3;
    for (std::size_t i = 0; i < count; ++i, ++address) {
        auto byte = loader->image().bytes().find(address);
        found += found.empty() ? "" : " ";
        found += byte == loader->image().bytes().end() ? "--" : hexText(byte->second, 2);
    }
    expectText("the loader's image from " + arguments.text(1) + " on", arguments.text(2), found);
}

void expectElapsed(World& world, const Arguments& arguments) {
    if (!world.clockMark) {
        throw Failure("elapsed without a clock before it");
    }
    double found = static_cast<double>((world.machine.loop.now() - *world.clockMark).count()) / 1000;
    if (found < arguments.number(0) || found > arguments.number(1)) {
        throw Failure("expected from " + arguments.text(0) + " to " + arguments.text(1) +
                      " ms to have passed, found " + numberShown(found));
    }
}

} // namespace zor::testing
