// SPDX-License-Identifier: MIT
#include "simulator/program/server.h"

#include "simulator/board_control.h"
#include "simulator/trace_text.h"
#include "support/numbers.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <poll.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <system_error>
#include <unistd.h>

namespace zor::sim {

namespace {

/// A statement of the bench is never longer; what is cut cannot be read and says so.
constexpr std::size_t longestStatement = 65536;

PacedQueue::TimePoint now() {
    return std::chrono::steady_clock::now();
}

} // namespace

Server::Server(const Options& chosen)
    : options(chosen)
    , started(now())
    , boardTime(started)
    , controlOpen(chosen.control || chosen.exitWithStdin) {
    addSeat();
    takeEepromFile();
    setUpAir();
    for (const std::string& statement : options.setup) {
        executeControl(statement);
        if (seats.size() > 1) {
            executeControl("2 " + statement);
        }
    }
    makeLink();
}

void Server::addSeat() {
    std::string label = seats.empty() ? "" : std::to_string(seats.size() + 1);
    auto tracing = [this, label](std::string_view direction, std::string_view text,
                                 std::string_view meaning) {
        trace(label + std::string(direction), text, meaning);
    };
    seats.push_back(std::make_unique<Seat>(options, boardTime, tracing));
}

void Server::setUpAir() {
    if (options.air == Options::AirKind::none) {
        return;
    }
    air = std::make_unique<Air>(options.faults.seed);
    if (options.air == Options::AirKind::twoBoards) {
        addSeat();
    }
    for (const auto& seat : seats) {
        air->add(seat->board);
    }
    if (options.air == Options::AirKind::farEnd) {
        air->addFarEnd();
        air->farEnd()->setMode(options.farEnd);
        planFarEnd();
    }
}

std::vector<std::string> Server::paths() const {
    std::vector<std::string> all;
    for (const auto& seat : seats) {
        all.push_back(seat->terminal.path());
    }
    return all;
}

Server::~Server() {
    if (linked) {
        std::error_code ignored;
        std::filesystem::remove(options.link, ignored);
    }
}

void Server::makeLink() {
    if (options.link.empty()) {
        return;
    }
    // A link of an earlier run is replaced; anything else of that name is somebody's file and stays.
    if (std::filesystem::is_symlink(std::filesystem::symlink_status(options.link))) {
        std::filesystem::remove(options.link);
    }
    std::filesystem::create_symlink(seats.front()->terminal.path(), options.link);
    linked = true;
}

void Server::takeEepromFile() {
    if (options.eepromFile.empty()) {
        return;
    }
    SerialEeprom& chip = board().circuits().mountEeprom();
    if (std::ifstream file(options.eepromFile, std::ios::binary); file) {
        std::string bytes{std::istreambuf_iterator<char>(file), {}};
        if (bytes.size() != SerialEeprom::byteCount) {
            throw std::runtime_error(options.eepromFile + " is no image of 1024 bytes");
        }
        chip.put(0, {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    }
    keepEepromFile();
}

void Server::keepEepromFile() {
    SerialEeprom* chip = board().circuits().eeprom();
    if (chip == nullptr || options.eepromFile.empty()) {
        return;
    }
    auto keep = [this, chip] {
        std::ofstream file(options.eepromFile, std::ios::binary);
        file.write(reinterpret_cast<const char*>(chip->bytes().data()), SerialEeprom::byteCount);
        if (!file.flush()) {
            throw std::system_error(errno, std::generic_category(), options.eepromFile);
        }
    };
    keep();
    chip->written = keep;
}

void Server::run(int signals) {
    // A character lasts 520 us; the system's usual leeway of 50 us at each would be a tenth of it.
    ::prctl(PR_SET_TIMERSLACK, 1000UL, 0UL, 0UL, 0UL);
    while (running) {
        sleep(signals);
        actFarEnd();
        for (const auto& seat : seats) {
            seat->reportPacket();
            seat->moveCharacters();
        }
    }
}

std::optional<Server::TimePoint> Server::wake() const {
    std::optional<TimePoint> earliest = farEndActs;
    for (const auto& seat : seats) {
        if (auto next = seat->wake()) {
            earliest = earliest ? std::min(*earliest, *next) : next;
        }
    }
    return earliest;
}

void Server::sleep(int signals) {
    std::vector<pollfd> descriptors{{.fd = signals, .events = POLLIN, .revents = 0},
                                    {.fd = controlOpen ? STDIN_FILENO : -1, .events = POLLIN, .revents = 0}};
    for (const auto& seat : seats) {
        const PseudoTerminal& terminal = seat->terminal;
        descriptors.push_back({.fd = terminal.eventDescriptor(), .events = POLLIN, .revents = 0});
        descriptors.push_back(
            {.fd = seat->hasRoom() ? terminal.dataDescriptor() : -1, .events = POLLIN, .revents = 0});
    }
    std::optional<TimePoint> next = wake();
    timespec timeout{};
    if (next) {
        auto left = std::max(std::chrono::nanoseconds{0}, std::chrono::nanoseconds(*next - now()));
        auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
        timeout = {.tv_sec = seconds.count(), .tv_nsec = (left - seconds).count()};
    }
    if (::ppoll(descriptors.data(), descriptors.size(), next ? &timeout : nullptr, nullptr) < 0) {
        if (errno != EINTR) {
            throw std::system_error(errno, std::generic_category(), "cannot wait for the terminal");
        }
        return;
    }
    boardTime = now();
    if (descriptors[0].revents != 0) {
        running = false;
    }
    for (std::size_t at = 0; at < seats.size(); ++at) {
        // The opening comes before what was written behind it.
        if (descriptors[2 + 2 * at].revents != 0) {
            seats[at]->handleClient();
        }
        if (descriptors[3 + 2 * at].revents != 0) {
            seats[at]->readTerminal();
        }
    }
    if (descriptors[1].revents != 0) {
        readControl();
    }
}

void Server::planFarEnd() {
    auto interval = air->farEnd()->interval();
    farEndActs = interval ? std::optional(now() + *interval) : std::nullopt;
}

void Server::actFarEnd() {
    if (!farEndActs || now() < *farEndActs) {
        return;
    }
    boardTime = *farEndActs;
    air->farEnd()->act();
    // From the planned moment on, so that the pace does not drift; a program that slept leaves out what it
    // missed.
    farEndActs = std::max(*farEndActs + *air->farEnd()->interval(), now());
}

void Server::readControl() {
    std::array<char, 1024> buffer{};
    ssize_t got = ::read(STDIN_FILENO, buffer.data(), buffer.size());
    if (got <= 0) {
        controlOpen = false;
        running = running && !options.exitWithStdin;
        return;
    }
    if (!options.control) {
        return;
    }
    controlText.append(buffer.data(), static_cast<std::size_t>(got));
    for (auto end = controlText.find('\n'); end != std::string::npos; end = controlText.find('\n')) {
        executeControl(controlText.substr(0, end));
        controlText.erase(0, end + 1);
    }
    if (controlText.size() > longestStatement) {
        controlText.clear();
        std::fputs("loadboard-sim: a statement is too long\n", stderr);
    }
}

void Server::executeControl(std::string_view statement) {
    // A leading "2 " means the second board.
    std::size_t index = statement.starts_with("2 ") && seats.size() > 1 ? 1 : 0;
    statement.remove_prefix(2 * index);
    std::optional<ControlResult> aboutAir = air ? airControl(*air, index, statement) : std::nullopt;
    ControlResult result = aboutAir ? *aboutAir : control(seats[index]->board, statement);
    if (aboutAir && air->farEnd() != nullptr) {
        planFarEnd();
    }
    if (result.outcome == ControlOutcome::failed) {
        std::fprintf(stderr, "loadboard-sim: %s\n", result.message.c_str());
    }
    // The statement may have put another EEPROM there, or bytes into it.
    keepEepromFile();
    running = running && result.outcome != ControlOutcome::quit;
}

void Server::trace(std::string_view direction, std::string_view text, std::string_view meaning) {
    if (!options.trace) {
        return;
    }
    double seconds = std::chrono::duration<double>(now() - started).count();
    std::string shown = std::string(direction) + " " + std::string(text);
    if (!meaning.empty()) {
        shown += "  " + std::string(meaning);
    }
    std::fprintf(stderr, "%s %s\n", decimalsText(seconds, 6).c_str(), shown.c_str());
}

} // namespace zor::sim
