// SPDX-License-Identifier: MIT
#include "simulator/program/seat.h"

#include "simulator/trace_text.h"

#include <algorithm>
#include <utility>

namespace zor::sim {

namespace {

/// More characters than this wait in the terminal, not here, so a client that floods the line is held back.
constexpr std::size_t inputWaiting = 4096;

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

Seat::Seat(const Options& options, TimePoint& clock, Trace tracing)
    : board(options.kind)
    , line(board, options.faults)
    , fromPc(characterTime(options.paced))
    , toPc(characterTime(options.paced))
    , boardTime(clock)
    , trace(std::move(tracing))
    , paced(options.paced)
    , packetsPerSecond(options.packetsPerSecond) {
    board.circuits().time = [this, started = clock] {
        return std::chrono::duration_cast<std::chrono::microseconds>(boardTime - started);
    };
    line.transmit = [this](const Transmission& transmission) {
        trace(">", quotedBytes(transmission.bytes), {});
        toPc.push(transmission.bytes, boardTime + transmission.delay);
    };
    board.lineReceived = [this](const std::string& text) {
        trace("<", quotedBytes(text), lineMeaning(text, board.radio().chip()));
        if (packetsPerSecond > 0) {
            packetTime = boardTime + quietTime;
        }
    };
}

bool Seat::hasRoom() const {
    return terminal.hasClient() && fromPc.size() < inputWaiting;
}

std::optional<Seat::TimePoint> Seat::wake() const {
    std::optional<TimePoint> earliest = fromPc.next();
    if (auto next = toPc.next()) {
        TimePoint ready = toPc.size() == 1 ? *next - wakeUpTime : *next;
        earliest = earliest ? std::min(*earliest, ready) : ready;
    }
    if (packetTime != TimePoint::max()) {
        earliest = earliest ? std::min(*earliest, packetTime) : packetTime;
    }
    return earliest;
}

void Seat::handleClient() {
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

void Seat::readTerminal() {
    followSpeed();
    fromPc.push(terminal.read(), now());
}

/// A client sets the speed behind its opening, so it is looked at with the first characters that come at it.
void Seat::followSpeed() {
    std::optional<int> speed = terminal.speed();
    if (!speed || *speed == lineSpeed) {
        return;
    }
    lineSpeed = *speed;
    trace("-", std::to_string(lineSpeed) + " baud", {});
    fromPc.setCharacterTime(characterTime(paced, lineSpeed));
    toPc.setCharacterTime(characterTime(paced, lineSpeed));
    line.lineSpeedChanged(lineSpeed);
}

void Seat::reportPacket() {
    TimePoint moment = now();
    if (moment < packetTime) {
        return;
    }
    auto interval =
        std::chrono::duration_cast<TimePoint::duration>(std::chrono::duration<double>(1 / packetsPerSecond));
    // A program that was held up goes on from here instead of making up for it all at once.
    packetTime = std::max(packetTime + interval, moment - interval);
    if (terminal.hasClient() && toPc.size() < fullLine) {
        boardTime = moment;
        board.reportPacket();
    }
}

void Seat::moveCharacters() {
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

} // namespace zor::sim
