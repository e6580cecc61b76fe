// SPDX-License-Identifier: MIT
#include "transcript_runner/register_statements.h"

#include "store/register_list_store.h"
#include "store/sqlite_register_store.h"
#include "support/numbers.h"
#include "support/register_list.h"
#include "transcript/checks.h"

#include <algorithm>

namespace zor::testing {

using transcript::expectLines;
using transcript::expectText;

namespace {

constexpr std::size_t statusDigits = 4;

/// The chip that sits there; a board that has none yet gets one.
sim::RegisterChip& chipOn(VirtualSeat& seat) {
    sim::Hardware& circuits = seat.board().circuits();
    return circuits.registers() == nullptr ? circuits.fitRegisters() : *circuits.registers();
}

const sim::RegisterChip& chipOn(World& world, const Arguments& arguments) {
    VirtualSeat* seat = world.machine.ports.find(arguments.integer(0, 0, 32767));
    const sim::RegisterChip* chip = seat == nullptr ? nullptr : seat->board().circuits().registers();
    if (chip == nullptr) {
        throw Failure("there is no register chip on port " + arguments.text(0));
    }
    return *chip;
}

std::size_t addressOf(const Arguments& arguments, std::size_t position) {
    std::uint32_t address = arguments.hexNumber(position, 2);
    if (address >= sim::RegisterChip::registerCount) {
        throw Failure("expected an address from 00 to 7F, found " + arguments.text(position));
    }
    return address;
}

template <class Bytes>
std::string hexOf(const Bytes& bytes) {
    std::string text;
    for (std::uint8_t byte : bytes) {
        text += (text.empty() ? "" : " ") + hexText(byte, 2);
    }
    return text;
}

} // namespace

void fitRegisters(VirtualSeat& seat, const Arguments&) {
    seat.board().circuits().fitRegisters();
}

void setRegister(VirtualSeat& seat, const Arguments& arguments) {
    std::size_t address = addressOf(arguments, 2);
    if (arguments.text(3).size() == statusDigits) {
        chipOn(seat).setStatus(address, static_cast<std::uint16_t>(arguments.hexNumber(3, statusDigits)));
    } else {
        chipOn(seat).setRegister(address, arguments.hexByte(3));
    }
}

void setFifo(VirtualSeat& seat, const Arguments& arguments) {
    if (arguments.isWord(2, "at")) {
        arguments.expectCount(5, 5);
        chipOn(seat).setFifoAddresses(addressOf(arguments, 3), addressOf(arguments, 4));
        return;
    }
    if (!arguments.isWord(2, "rx")) {
        throw Failure("expected rx or at, found " + arguments.text(2));
    }
    arguments.expectCount(4, 4);
    for (std::uint8_t byte : arguments.hexBytes(3)) {
        chipOn(seat).receive(byte);
    }
}

void makeDatabase(World& world, const Arguments& arguments) {
    std::string rows;
    for (const std::string& line : arguments.block()) {
        rows += line + "\n";
    }
    // A maker of its own, so that what it asks is none of the program's.
    store::SqliteRegisterStores stores;
    try {
        store::makeDatabase(stores, world.file("ZOR.db"), readRegisterList(rows));
    } catch (const RegisterListError& error) {
        throw Failure("row " + std::to_string(error.line) + ": " + error.what());
    } catch (const StoreError& error) {
        throw Failure(std::string("the database cannot be made: ") + error.what());
    }
}

void expectAsked(World& world, const Arguments& arguments) {
    std::vector<std::string>& asked = world.machine.asked;
    auto text = std::ranges::find(asked, arguments.text(0));
    if (text == asked.end()) {
        expectLines("asked", {arguments.text(0)}, asked);
    }
    // What came behind it may be asked for next.
    asked.erase(asked.begin(), text + 1);
}

void expectRegister(World& world, const Arguments& arguments) {
    const sim::RegisterChip& chip = chipOn(world, arguments);
    std::size_t address = addressOf(arguments, 1);
    bool status = chip.isStatus(address);
    expectText("register " + arguments.text(1), hexText(arguments.hexNumber(2, statusDigits), status ? 4 : 2),
               hexText(chip.registerAt(address), status ? 4 : 2));
}

void expectFifo(World& world, const Arguments& arguments) {
    const sim::RegisterChip& chip = chipOn(world, arguments);
    if (!arguments.isWord(1, "tx")) {
        throw Failure("expected tx, found " + arguments.text(1));
    }
    expectText("transmit FIFO", hexOf(arguments.hexBytes(2)), hexOf(chip.transmitFifo()));
}

} // namespace zor::testing
