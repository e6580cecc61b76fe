// SPDX-License-Identifier: MIT
#include "virtual/virtual_ports.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <string_view>
#include <utility>

namespace zor::testing {

namespace {

constexpr std::chrono::milliseconds noticeDelay(500);
/// What a driver keeps if nobody asks for another size.
constexpr std::size_t driversBuffer = 1024;

struct Format {
    int baud;
    /// Of a character: the start bit, data, perhaps parity, stop.
    int bits;
};

/// Throws ToolError deviceInputOutput for settings that no line has.
Format readFormat(const std::string& text) {
    int baud = 0;
    char parity = 0;
    int dataBits = 0;
    int stopBits = 0;
    std::array<char, 3> commas{};
    std::istringstream parts(text);
    parts >> baud >> commas[0] >> parity >> commas[1] >> dataBits >> commas[2] >> stopBits;
    bool whole = parts && parts.eof() && commas == std::array{',', ',', ','};
    bool possible = baud > 0 && std::string_view("NEOMS").find(parity) != std::string_view::npos &&
                    dataBits >= 5 && dataBits <= 8 && (stopBits == 1 || stopBits == 2);
    if (!whole || !possible) {
        throw ToolError(deviceInputOutput);
    }
    return {baud, 1 + dataBits + (parity == 'N' ? 0 : 1) + stopBits};
}

} // namespace

VirtualSeat::VirtualSeat(EventLoop& eventLoop, int seatNumber, const Delivery& machineDelivery,
                         std::function<void(const std::string& line)> lineSeen,
                         std::function<void()> lineFeedSeen)
    : loop(eventLoop)
    , portNumber(seatNumber)
    , delivery(machineDelivery)
    , seen(std::move(lineSeen))
    , feedSeen(std::move(lineFeedSeen))
    , toBoard(eventLoop, [this](char byte) { sittingBoard->receive(byte); })
    , toPort(eventLoop, [this](char byte) { fromBoard(byte); }) {
    place(sim::BoardKind::Silent);
}

void VirtualSeat::place(sim::BoardKind kind) {
    toBoard.clear();
    toPort.clear();
    waiting.clear();
    sittingBoard = std::make_unique<sim::Board>(kind);
    sittingBoard->circuits().time = [this] { return loop.now(); };
    sittingBoard->lineReceived = seen;
    sittingBoard->lineFeedFollowed = feedSeen;
    sittingBoard->transmit = [this](const sim::Transmission& transmission) {
        toPort.send(transmission.bytes, transmission.delay);
    };
}

void VirtualSeat::unplug() {
    isPlugged = false;
    toBoard.clear();
    toPort.clear();
    closed();
    if (VirtualSerialPort* port = std::exchange(holder, nullptr)) {
        port->seat = nullptr;
        port->noticeLater();
    }
}

void VirtualSeat::setFormat(const std::string& format) {
    lineFormat = format;
    auto [baud, bits] = readFormat(format);
    toBoard.setSpeed(baud, bits);
    toPort.setSpeed(baud, bits);
    sittingBoard->lineSpeedChanged(baud);
}

void VirtualSeat::fault(int code) {
    if (holder != nullptr && holder->eventRaised) {
        loop.perform([this, code] { holder->eventRaised(code); });
    }
}

void VirtualSeat::opened(VirtualSerialPort& port, const LineSettings& settings) {
    setFormat(settings.format);
    holder = &port;
    inputBuffer = static_cast<std::size_t>(std::max(settings.inputBuffer.value_or(driversBuffer), 1));
    if (settings.clearInput) {
        waiting.clear();
    }
    dtrIsOn = settings.dtr.value_or(dtrIsOn);
    rtsIsOn = settings.rts.value_or(rtsIsOn);
    allOpenings.push_back(settings);
    board().lineOpened();
    handOnRest();
}

void VirtualSeat::closed() {
    dtrIsOn = false;
    rtsIsOn = false;
    // What of a read has not been handed on goes with the port.
    waiting.clear();
}

void VirtualSeat::fromBoard(char byte) {
    if (holder == nullptr && !keepsInputWhileClosed) {
        return;
    }
    waiting.push_back(byte);
    if (holder != nullptr && (waiting.size() >= std::min(delivery, inputBuffer) || !toPort.continues())) {
        handOn();
    }
}

/// One read. What a character leads to may wait, and lets the rest of it and the next read come inside this
/// one; it may also close the port.
void VirtualSeat::handOn() {
    while (holder != nullptr && !waiting.empty()) {
        char byte = waiting.front();
        waiting.pop_front();
        handOnRest();
        if (holder->received) {
            loop.perform([this, byte] { holder->received(byte); });
        }
    }
}

void VirtualSeat::handOnRest() {
    if (!waiting.empty() && !std::exchange(restAsked, true)) {
        loop.startTimer(EventLoop::Duration(0), EventLoop::Repeat::Once, [this] {
            restAsked = false;
            handOn();
        });
    }
}

std::unique_ptr<SerialPort> VirtualPorts::create() {
    return std::make_unique<VirtualSerialPort>(*this);
}

std::string VirtualPorts::devicePath(int number) const {
    return find(number) == nullptr ? std::string() : "/dev/ttyS" + std::to_string(number);
}

int VirtualPorts::find(const std::string& adapter) {
    auto place = std::find_if(members.begin(), members.end(), [&](const auto& member) {
        return member.second->plugged() && devicePath(member.first) == adapter;
    });
    return place == members.end() ? 0 : place->first;
}

VirtualSeat& VirtualPorts::seat(int number) {
    std::unique_ptr<VirtualSeat>& place = members[number];
    if (!place) {
        place = std::make_unique<VirtualSeat>(
            loop, number, delivery,
            [this, number](const std::string& line) {
                sent.push_back({number, line});
            },
            [this, number] {
                auto line = std::find_if(sent.rbegin(), sent.rend(), [number](const auto& candidate) {
                    return candidate.port == number;
                });
                if (line != sent.rend()) {
                    line->text += '\n';
                }
            });
    }
    return *place;
}

VirtualSeat* VirtualPorts::find(int number) const {
    auto entry = members.find(number);
    return entry == members.end() || !entry->second->plugged() ? nullptr : entry->second.get();
}

sim::Board& VirtualPorts::place(int number, sim::BoardKind kind) {
    VirtualSeat& there = seat(number);
    there.busy = false;
    there.denied = false;
    there.plug();
    there.place(kind);
    return there.board();
}

VirtualSerialPort::VirtualSerialPort(VirtualPorts& machinePorts)
    : ports(machinePorts)
    , gone(machinePorts.loop, [this] {
        gone.stop();
        if (opened && seat == nullptr && deviceGone) {
            deviceGone();
        }
    }) {}

void VirtualSerialPort::noticeLater() {
    gone.start(noticeDelay);
}

VirtualSerialPort::~VirtualSerialPort() {
    letGo();
}

void VirtualSerialPort::open(int number, const LineSettings& settings) {
    if (opened) {
        throw ToolError(portInUse);
    }
    VirtualSeat* there = ports.find(number);
    if (there == nullptr) {
        throw ToolError(invalidPort);
    }
    if (there->denied) {
        throw PortAccessError(ports.devicePath(number));
    }
    if (there->busy || there->heldByDriver || there->heldByPort()) {
        throw ToolError(portInUse);
    }
    if (there->openError != 0) {
        throw ToolError(there->openError);
    }
    there->opened(*this, settings);
    seat = there;
    opened = true;
    gone.stop();
}

void VirtualSerialPort::setFormat(const std::string& format) {
    if (seat != nullptr) {
        // The driver waits until what was written has gone out at the old speed.
        seat->toBoard.drain();
        seat->setFormat(format);
    }
}

void VirtualSerialPort::close() {
    if (!opened) {
        return;
    }
    int error = seat == nullptr ? static_cast<int>(invalidPort) : seat->closeError;
    letGo();
    if (error != 0) {
        throw ToolError(error);
    }
}

void VirtualSerialPort::write(std::string_view bytes) {
    if (!opened) {
        throw ToolError(portNotOpen);
    }
    if (seat != nullptr) {
        seat->toBoard.send(bytes);
    }
}

void VirtualSerialPort::letGo() {
    opened = false;
    if (VirtualSeat* left = std::exchange(seat, nullptr)) {
        left->holder = nullptr;
        // Closing waits in the driver until what was written has gone out.
        left->toBoard.drain();
        left->closed();
    }
}

} // namespace zor::testing
