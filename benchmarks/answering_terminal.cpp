// SPDX-License-Identifier: MIT
#include "answering_terminal.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace zor::benchmarks {

namespace {

constexpr std::string_view prompt = "\n\rOK\n\r>";

int checked(int result, const char* what) {
    if (result < 0) {
        throw std::system_error(errno, std::generic_category(), what);
    }
    return result;
}

void writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written <= 0) {
            return;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

int openRaw(const std::string& path) {
    int descriptor = checked(::open(path.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC), "open");
    termios settings = {};
    checked(::tcgetattr(descriptor, &settings), "tcgetattr");
    ::cfmakeraw(&settings);
    checked(::tcsetattr(descriptor, TCSANOW, &settings), "tcsetattr");
    return descriptor;
}

} // namespace

OnProcessor::OnProcessor(int processor) {
    ::sched_getaffinity(0, sizeof before, &before);
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(processor, &one);
    ::sched_setaffinity(0, sizeof one, &one);
}

OnProcessor::~OnProcessor() {
    ::sched_setaffinity(0, sizeof before, &before);
}

TerminalPair::TerminalPair()
    : master(checked(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC), "posix_openpt")) {
    checked(::grantpt(master), "grantpt");
    checked(::unlockpt(master), "unlockpt");
    slavePath = ::ptsname(master);
    slave = openRaw(slavePath);
}

TerminalPair::~TerminalPair() {
    ::close(slave);
    ::close(master);
}

void TerminalPair::write(std::string_view bytes) const {
    writeAll(master, bytes);
}

AnsweringTerminal::AnsweringTerminal()
    : board([this] { answer(); }) {}

AnsweringTerminal::~AnsweringTerminal() {
    // An end mark of our own wakes the board from its read.
    writeAll(pair.nearEnd(), std::string_view("\x04", 1));
    board.join();
}

void AnsweringTerminal::answer() const {
    OnProcessor second(1);
    std::array<char, 256> block{};
    for (;;) {
        ssize_t count = ::read(pair.farEnd(), block.data(), block.size());
        if (count <= 0) {
            return;
        }
        for (char c : std::string_view(block.data(), static_cast<std::size_t>(count))) {
            if (c == '\x04') {
                return;
            }
            if (c == '\r') {
                pair.write(prompt);
            }
        }
    }
}

BareLine::BareLine(const std::string& path)
    : descriptor(openRaw(path)) {}

BareLine::~BareLine() {
    ::close(descriptor);
}

void BareLine::exchange(const std::string& command) const {
    writeAll(descriptor, command);
    std::string tail;
    std::array<char, 256> block{};
    while (tail.size() < prompt.size() ||
           std::string_view(tail).substr(tail.size() - prompt.size()) != prompt) {
        ssize_t count = ::read(descriptor, block.data(), block.size());
        if (count <= 0) {
            return;
        }
        tail.append(block.data(), static_cast<std::size_t>(count));
    }
}

} // namespace zor::benchmarks
