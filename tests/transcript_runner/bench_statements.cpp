// SPDX-License-Identifier: MIT
#include "transcript_runner/bench_statements.h"

#include "shell/main_window.h"
#include "transcript_runner/air_bench.h"
#include "transcript_runner/board_checks.h"
#include "transcript_runner/register_statements.h"

#include <algorithm>
#include <fstream>
#include <optional>

namespace zor::testing {

namespace {

constexpr int highestPort = 32767;
constexpr int highestCount = 1023;

VirtualSeat& existingSeat(World& world, const Arguments& arguments) {
    VirtualPorts& ports = world.machine.ports;
    auto entry = ports.seats().find(arguments.integer(0, 0, highestPort));
    if (entry == ports.seats().end()) {
        throw Failure("nothing was placed on port " + arguments.text(0));
    }
    return *entry->second;
}

/// A board's command: arguments 0 and 1 are its port and its name.
struct BoardRow {
    std::string_view name;
    std::size_t least;
    std::size_t most;
    void (*carryOut)(VirtualSeat& seat, const Arguments& arguments);
};

void irq(VirtualSeat& seat, const Arguments& a) {
    if (!a.isWord(2, "low") && !a.isWord(2, "high")) {
        throw Failure("expected low or high, found " + a.text(2));
    }
    seat.board().setInterruptLine(a.isWord(2, "high"));
}

void status(VirtualSeat& seat, const Arguments& a) {
    std::optional<std::uint8_t> second;
    if (a.count() == 4) {
        second = a.hexByte(3);
    }
    seat.board().setStatus(a.hexByte(2), second);
}

void eeprom(VirtualSeat& seat, const Arguments& a) {
    sim::Hardware& circuits = seat.board().circuits();
    if (a.count() == 2) {
        circuits.mountEeprom();
        return;
    }
    if (a.isWord(2, "none")) {
        a.expectCount(3, 3);
        circuits.removeEeprom();
        return;
    }
    a.expectCount(4, 4);
    sim::SerialEeprom& chip = circuits.eeprom() != nullptr ? *circuits.eeprom() : circuits.mountEeprom();
    if (!a.isWord(2, "busy")) {
        std::vector<std::uint8_t> bytes = a.hexBytes(3);
        int last = static_cast<int>(sim::SerialEeprom::byteCount - bytes.size());
        chip.put(static_cast<std::size_t>(a.integer(2, 0, last)), bytes);
    } else if (a.isWord(3, "always")) {
        chip.setStuckBusy();
    } else {
        chip.setWriteTime(a.milliseconds(3));
    }
}

void expectLoader(VirtualSeat& seat) {
    if (seat.board().loader() == nullptr) {
        throw Failure("the board on port " + std::to_string(seat.number()) + " is no loader");
    }
}

void slow(VirtualSeat& seat, const Arguments& a) {
    expectLoader(seat);
    seat.board().setFlowTime(a.milliseconds(2));
}

void stall(VirtualSeat& seat, const Arguments& a) {
    expectLoader(seat);
    seat.board().stallAt(static_cast<std::size_t>(a.integer(2, 0, highestPort)));
}

void chip(VirtualSeat& seat, const Arguments& a) {
    auto named = sim::chipOfName(a.text(2));
    if (!named) {
        throw Failure("there is no chip " + a.text(2));
    }
    seat.board().setChip(named);
}

// clang-format off
constexpr BoardRow boardRows[] = {
    {"status",  1, 2, status},
    {"irq",     1, 1, irq},
    {"data",    1, 1, [](VirtualSeat& seat, const Arguments& a) { seat.board().setDataLine(a.integer(2, 0, 1) == 1); }},
    {"mute",    0, 0, [](VirtualSeat& seat, const Arguments&) { seat.board().setMute(true); }},
    {"unmute",  0, 0, [](VirtualSeat& seat, const Arguments&) { seat.board().setMute(false); }},
    {"delay",   1, 1, [](VirtualSeat& seat, const Arguments& a) { seat.board().setDelay(a.milliseconds(2)); }},
    {"refuse",  1, 1, [](VirtualSeat& seat, const Arguments& a) { seat.board().refuseNext(a.text(2)); }},
    {"reply",   2, 2, [](VirtualSeat& seat, const Arguments& a) { seat.board().setReply(a.text(2), a.text(3)); }},
    {"emit",    1, 1, [](VirtualSeat& seat, const Arguments& a) { seat.board().emit(a.text(2)); }},
    {"packet",  1, 1, [](VirtualSeat& seat, const Arguments& a) { seat.board().hearPacket(a.text(2)); }},
    {"chip",    1, 1, chip},
    {"fault",   1, 1, [](VirtualSeat& seat, const Arguments& a) { seat.fault(a.integer(2, 1, 9999)); }},
    {"slow",    1, 1, slow},
    {"stall",   1, 1, stall},
    {"unplug",  0, 0, [](VirtualSeat& seat, const Arguments&) { seat.unplug(); }},
    {"plug",    0, 0, [](VirtualSeat& seat, const Arguments&) { seat.plug(); }},
    {"eeprom",  0, 2, eeprom},
    {"current", 2, 2, [](VirtualSeat& seat, const Arguments& a) {
        seat.board().setCurrentCounts(a.integer(2, 0, highestCount), a.integer(3, 0, highestCount)); }},
    {"registers", 0, 0, fitRegisters},
    {"register",  2, 2, setRegister},
    {"fifo",      2, 3, setFifo},
};

constexpr std::pair<std::string_view, sim::BoardKind> boardKinds[] = {
    {"lb1",     sim::BoardKind::LoadBoard1},
    {"lb2",     sim::BoardKind::LoadBoard2},
    {"loader",  sim::BoardKind::Loader},
    {"monitor", sim::BoardKind::Monitor},
    {"silent",  sim::BoardKind::Silent},
};
// clang-format on

/// What brings a port into being.
bool placed(World& world, int port, const Arguments& arguments) {
    VirtualPorts& ports = world.machine.ports;
    for (auto [name, kind] : boardKinds) {
        if (arguments.isWord(1, name)) {
            arguments.expectCount(2, 2);
            ports.place(port, kind);
            return true;
        }
    }
    if (arguments.isWord(1, "busy")) {
        arguments.expectCount(2, 2);
        ports.seat(port).busy = true;
        return true;
    }
    if (arguments.isWord(1, "error")) {
        arguments.expectCount(3, 3);
        ports.seat(port).openError = arguments.integer(2, 0, 99999);
        return true;
    }
    return false;
}

void board(World& world, const Arguments& arguments) {
    int port = arguments.integer(0, 0, highestPort);
    if (placed(world, port, arguments)) {
        return;
    }
    for (const BoardRow& row : boardRows) {
        if (arguments.isWord(1, row.name)) {
            arguments.expectCount(2 + row.least, 2 + row.most);
            row.carryOut(existingSeat(world, arguments), arguments);
            return;
        }
    }
    throw Failure("a board cannot " + arguments.text(1));
}

/// What is said of the air over a board, word for word as the simulator takes it: "air 1 far numbered 500".
void air(World& world, const Arguments& arguments) {
    if (!world.air) {
        world.air = std::make_unique<AirBench>(world.machine.loop, existingSeat(world, arguments).board());
    }
    std::string statement;
    for (const std::string& word : arguments.rest(1)) {
        statement += (statement.empty() ? "" : " ") + word;
    }
    world.air->state(statement);
}

void usb(World& world, const Arguments& arguments) {
    int port = arguments.integer(0, 0, highestPort);
    if (!arguments.isWord(1, "fails")) {
        arguments.expectCount(3, 3);
        world.machine.usb.describe(
            port, arguments.text(1),
            static_cast<std::uint32_t>(arguments.integer(2, 0, std::numeric_limits<int>::max())));
        return;
    }
    arguments.expectCount(4, 4);
    auto callStatus = static_cast<FtStatus>(arguments.integer(3, 0, std::numeric_limits<int>::max()));
    if (!world.machine.usb.fail(port, arguments.text(2), callStatus)) {
        throw Failure("the USB driver has no call " + arguments.text(2));
    }
}

void write(const std::filesystem::path& path, const std::string& bytes) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    if (!file.flush()) {
        throw Failure("the file " + path.string() + " cannot be made");
    }
}

void file(World& world, const Arguments& arguments) {
    if (arguments.isWord(0, "raw")) {
        arguments.expectCount(3, 3);
        write(world.file(arguments.text(1)), arguments.text(2));
        return;
    }
    arguments.expectCount(1, 1);
    std::string bytes;
    for (const std::string& line : arguments.block()) {
        bytes += line + "\r\n";
    }
    write(world.file(arguments.text(0)), bytes);
}

void start(World& world, const Arguments&) {
    world.start();
}

/// A row of the common table hands over the scene, which is a world here.
template <void (*carryOut)(World&, const Arguments&)>
void inWorld(transcript::Scene& scene, const Arguments& arguments) {
    carryOut(static_cast<World&>(scene), arguments);
}

// clang-format off
constexpr StatementRow rows[] = {
    {"board",    2, 5, inWorld<board>},
    {"air",      2, 4, inWorld<air>},
    {"usb",      3, 4, inWorld<usb>},
    {"file",     1, 3, inWorld<file>},
    {"database", 0, 0, inWorld<makeDatabase>},
    {"start",    0, 0, inWorld<start>},
    {"eeprom",   3, 3, inWorld<expectEeprom>},
    {"asked",    1, 1, inWorld<expectAsked>},
    {"register", 3, 3, inWorld<expectRegister>},
    {"fifo",     3, 3, inWorld<expectFifo>},
    {"image",    3, 3, inWorld<expectImage>},
};
// clang-format on

} // namespace

std::span<const StatementRow> benchStatements() {
    return rows;
}

} // namespace zor::testing
