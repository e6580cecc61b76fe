// SPDX-License-Identifier: MIT
#include "simulator/program/pseudo_terminal.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/inotify.h>
#include <system_error>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace zor::sim {

namespace {

[[noreturn]] void fail(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

/// No echo, no translation: every byte passes as it is.
void makeRaw(const std::string& path) {
    int slave = ::open(path.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (slave < 0) {
        fail("cannot open the terminal");
    }
    termios settings{};
    ::tcgetattr(slave, &settings);
    ::cfmakeraw(&settings);
    ::cfsetspeed(&settings, B19200);
    bool good = ::tcsetattr(slave, TCSANOW, &settings) == 0;
    ::close(slave);
    if (!good) {
        fail("cannot set up the terminal");
    }
}

} // namespace

PseudoTerminal::PseudoTerminal() {
    master = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    std::array<char, 128> name{};
    if (master < 0 || ::grantpt(master) != 0 || ::unlockpt(master) != 0 ||
        ::ptsname_r(master, name.data(), name.size()) != 0) {
        fail("cannot make a pseudo-terminal");
    }
    slavePath = name.data();
    makeRaw(slavePath);
    watch = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (watch < 0) {
        fail("cannot watch the terminal");
    }
    startWatch();
}

PseudoTerminal::~PseudoTerminal() {
    ::close(watch);
    ::close(master);
}

void PseudoTerminal::startWatch() {
    watchedPath = ::inotify_add_watch(watch, slavePath.c_str(), IN_OPEN | IN_CLOSE);
    if (watchedPath < 0) {
        fail("cannot watch the terminal");
    }
}

ClientEvent PseudoTerminal::takeEvent() {
    bool hadClient = hasClient();
    bool closed = readEvents();
    if (closed) {
        discardOutput();
    }
    // Equal events in a row are told once, so the count may be short; whether anybody is there the line
    // itself knows.
    bool present = !hungUp();
    clients = present ? std::max(clients, 1) : 0;
    if (present) {
        return !hadClient ? ClientEvent::opened : closed ? ClientEvent::reopened : ClientEvent::none;
    }
    return hadClient || closed ? ClientEvent::closed : ClientEvent::none;
}

bool PseudoTerminal::readEvents() {
    bool closed = false;
    alignas(inotify_event) std::array<char, 4096> buffer{};
    for (ssize_t got = ::read(watch, buffer.data(), buffer.size()); got > 0;
         got = ::read(watch, buffer.data(), buffer.size())) {
        for (std::size_t at = 0; at < static_cast<std::size_t>(got);) {
            inotify_event event{};
            std::memcpy(&event, buffer.data() + at, sizeof event);
            at += sizeof event + event.len;
            // The end of an earlier watch is told here too and means nothing.
            if ((event.mask & IN_OPEN) != 0) {
                ++clients;
            } else if ((event.mask & IN_CLOSE) != 0) {
                --clients;
                closed = closed || clients <= 0;
            }
        }
    }
    return closed;
}

std::string PseudoTerminal::read() {
    std::array<char, 4096> buffer{};
    ssize_t got = ::read(master, buffer.data(), buffer.size());
    return got > 0 ? std::string(buffer.data(), static_cast<std::size_t>(got)) : std::string();
}

std::optional<int> PseudoTerminal::speed() const {
    constexpr std::pair<speed_t, int> speeds[] = {
        {B9600, 9600}, {B19200, 19200}, {B38400, 38400}, {B57600, 57600}, {B115200, 115200}};
    termios settings{};
    if (::tcgetattr(master, &settings) != 0) {
        return std::nullopt;
    }
    for (auto [code, baud] : speeds) {
        if (::cfgetospeed(&settings) == code) {
            return baud;
        }
    }
    return std::nullopt;
}

void PseudoTerminal::write(std::string_view bytes) {
    [[maybe_unused]] ssize_t written = ::write(master, bytes.data(), bytes.size());
}

// What a client left unread waits at the slave's side and can be flushed only from there. The watch rests
// meanwhile, so that our own opening is not taken for a client's.
void PseudoTerminal::discardOutput() {
    ::inotify_rm_watch(watch, watchedPath);
    int slave = ::open(slavePath.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (slave >= 0) {
        ::tcflush(slave, TCIFLUSH);
        ::close(slave);
    }
    startWatch();
}

bool PseudoTerminal::hungUp() const {
    pollfd descriptor{.fd = master, .events = 0, .revents = 0};
    return ::poll(&descriptor, 1, 0) > 0 && (descriptor.revents & POLLHUP) != 0;
}

} // namespace zor::sim
