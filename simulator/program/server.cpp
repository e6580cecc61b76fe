// SPDX-License-Identifier: MIT
#include "simulator/program/server.h"

#include "simulator/bench_control.h"
#include "simulator/trace_text.h"

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

/// More characters than this wait in the terminal, not here, so a client that floods the line is held back.
constexpr std::size_t inputWaiting = 4096;

/// A statement of the bench is never longer; what is cut cannot be read and says so.
constexpr std::size_t longestStatement = 65536;

/// What waking up may take. The last character of an answer is what the PC waits for, so the program is awake
/// in time for that one and watches the clock.
constexpr std::chrono::microseconds wakeUpTime{150};

/// A monitor prints no packet so soon after a command: a search must see its prompt.
constexpr std::chrono::seconds quietTime{2};

/// What waits on its way to the PC when a packet is due is heard before it; a line that is full loses
/// packets.
constexpr std::size_t fullLine = 128;

/// A character of 8N1 has ten bits.
std::chrono::nanoseconds characterTime(bool paced, int baud = 19200) {
    return std::chrono::nanoseconds{paced ? 10'000'000'000LL / baud : 0};
}

PacedQueue::TimePoint now() {
    return std::chrono::steady_clock::now();
}

} // namespace

Server::Server(const Options& chosen)
    : options(chosen)
    , board(chosen.kind)
    , line(board, chosen.faults)
    , fromPc(characterTime(chosen.paced))
    , toPc(characterTime(chosen.paced))
    , started(now())
    , boardTime(started)
    , controlOpen(chosen.control || chosen.exitWithStdin) {
    board.circuits().time = [this] {
        return std::chrono::duration_cast<std::chrono::microseconds>(boardTime - started);
    };
    takeEepromFile();
    for (const std::string& statement : options.setup) {
        executeControl(statement);
    }
    line.transmit = [this](const Transmission& transmission) {
        trace(">", quotedBytes(transmission.bytes), {});
        toPc.push(transmission.bytes, boardTime + transmission.delay);
    };
    board.lineReceived = [this](const std::string& text) {
        trace("<", quotedBytes(text), lineMeaning(text, board.radio().chip()));
        if (options.packetsPerSecond > 0) {
            packetTime = boardTime + quietTime;
        }
    };
    makeLink();
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
    std::filesystem::create_symlink(terminal.path(), options.link);
    linked = true;
}

void Server::takeEepromFile() {
    if (options.eepromFile.empty()) {
        return;
    }
    SerialEeprom& chip = board.circuits().mountEeprom();
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
    SerialEeprom* chip = board.circuits().eeprom();
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
        reportPacket();
        moveCharacters();
    }
}

void Server::sleep(int signals) {
    std::array<pollfd, 4> descriptors{{
        {.fd = signals, .events = POLLIN, .revents = 0},
        {.fd = terminal.eventDescriptor(), .events = POLLIN, .revents = 0},
        {.fd = terminal.hasClient() && fromPc.size() < inputWaiting ? terminal.dataDescriptor() : -1,
         .events = POLLIN,
         .revents = 0},
        {.fd = controlOpen ? STDIN_FILENO : -1, .events = POLLIN, .revents = 0},
    }};
    std::optional<TimePoint> wake = fromPc.next();
    if (auto next = toPc.next()) {
        TimePoint ready = toPc.size() == 1 ? *next - wakeUpTime : *next;
        wake = wake ? std::min(*wake, ready) : ready;
    }
    if (packetTime != TimePoint::max()) {
        wake = wake ? std::min(*wake, packetTime) : packetTime;
    }
    timespec timeout{};
    if (wake) {
        auto left = std::max(std::chrono::nanoseconds{0}, std::chrono::nanoseconds(*wake - now()));
        auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
        timeout = {.tv_sec = seconds.count(), .tv_nsec = (left - seconds).count()};
    }
    if (::ppoll(descriptors.data(), descriptors.size(), wake ? &timeout : nullptr, nullptr) < 0) {
        if (errno != EINTR) {
            throw std::system_error(errno, std::generic_category(), "cannot wait for the terminal");
        }
        return;
    }
    boardTime = now();
    if (descriptors[0].revents != 0) {
        running = false;
    }
    // The opening comes before what was written behind it.
    if (descriptors[1].revents != 0) {
        handleClient();
    }
    if (descriptors[2].revents != 0) {
        readTerminal();
    }
    if (descriptors[3].revents != 0) {
        readControl();
    }
}

void Server::handleClient() {
    ClientEvent event = terminal.takeEvent();
    if (event == ClientEvent::none) {
        return;
    }
    if (event != ClientEvent::opened) {
        // What the client wrote before it left still reaches the board; what the board had left to say is
        // lost.
        if (event == ClientEvent::closed) {
            readTerminal();
        }
        for (char byte : fromPc.takeAll()) {
            line.receive(byte);
        }
        [[maybe_unused]] std::string lost = toPc.takeAll();
    }
    if (event != ClientEvent::closed) {
        line.lineOpened();
    }
    trace("-", event == ClientEvent::closed ? "closed" : "opened", {});
}

void Server::readTerminal() {
    followSpeed();
    fromPc.push(terminal.read(), now());
}

/// A client sets the speed behind its opening, so it is looked at with the first characters that come at it.
void Server::followSpeed() {
    std::optional<int> speed = terminal.speed();
    if (!speed || *speed == lineSpeed) {
        return;
    }
    lineSpeed = *speed;
    trace("-", std::to_string(lineSpeed) + " baud", {});
    fromPc.setCharacterTime(characterTime(options.paced, lineSpeed));
    toPc.setCharacterTime(characterTime(options.paced, lineSpeed));
    line.lineSpeedChanged(lineSpeed);
}

void Server::reportPacket() {
    TimePoint moment = now();
    if (moment < packetTime) {
        return;
    }
    auto interval = std::chrono::duration_cast<TimePoint::duration>(
        std::chrono::duration<double>(1 / options.packetsPerSecond));
    // A program that was held up goes on from here instead of making up for it all at once.
    packetTime = std::max(packetTime + interval, moment - interval);
    if (terminal.hasClient() && toPc.size() < fullLine) {
        boardTime = moment;
        board.reportPacket();
    }
}

void Server::moveCharacters() {
    // The board hears a character when its stop bit has passed, however late this program wakes up for it.
    TimePoint woken = now();
    for (auto heard = fromPc.next(); heard && *heard <= woken; heard = fromPc.next()) {
        boardTime = *heard;
        for (char byte : fromPc.take(boardTime)) {
            line.receive(byte);
        }
    }
    if (toPc.size() == 1) {
        TimePoint end = *toPc.next();
        if (end - now() < wakeUpTime) {
            while (now() < end) {
            }
        }
    }
    std::string through = toPc.take(now());
    if (terminal.hasClient() && !through.empty()) {
        terminal.write(through);
    }
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
    ControlResult result = control(board, statement);
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
    std::fprintf(stderr, "%.6f %s\n", seconds, shown.c_str());
}

} // namespace zor::sim
