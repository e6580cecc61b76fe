// SPDX-License-Identifier: MIT
#include "simulator/serial_eeprom.h"

#include <algorithm>
#include <utility>

namespace zor::sim {

namespace {

enum Instruction : std::uint8_t {
    write = 0x02,
    read = 0x03,
    clearLatch = 0x04,
    readStatus = 0x05,
    setLatch = 0x06,
};

constexpr std::uint8_t writeUnderWay = 0x01;
constexpr std::uint8_t writeLatch = 0x02;
/// The instruction and the address.
constexpr std::size_t headBytes = 3;

} // namespace

SerialEeprom::SerialEeprom(ChipClock ownClock)
    : clock(std::move(ownClock)) {
    memory.fill(0xFF);
}

void SerialEeprom::put(std::size_t address, std::span<const std::uint8_t> content) {
    for (std::uint8_t byte : content) {
        if (address < byteCount) {
            memory[address++] = byte;
        }
    }
}

void SerialEeprom::setWriteTime(std::chrono::microseconds time) {
    writeTime = time;
    stuckBusy = false;
}

bool SerialEeprom::busy() const {
    return stuckBusy || writeEnd.has_value();
}

void SerialEeprom::settle() {
    if (writeEnd && clock() >= *writeEnd) {
        writeEnd.reset();
        writeEnabled = false;
    }
}

void SerialEeprom::select() {
    settle();
    transfer.clear();
    deaf = busy();
}

std::uint8_t SerialEeprom::exchange(std::uint8_t fromBoard) {
    transfer.push_back(fromBoard);
    if (transfer.size() == 1) {
        return 0x00;
    }
    std::uint8_t instruction = transfer.front();
    if (instruction == readStatus) {
        transfer.resize(1);
        settle();
        return static_cast<std::uint8_t>((busy() ? writeUnderWay : 0) | (writeEnabled ? writeLatch : 0));
    }
    return instruction == read && !deaf ? readOn() : 0x00;
}

std::uint8_t SerialEeprom::readOn() {
    if (transfer.size() < headBytes) {
        return 0x00;
    }
    if (transfer.size() == headBytes) {
        readAddress = static_cast<std::size_t>(transfer[1] << 8 | transfer[2]);
        return 0x00;
    }
    // What was read need not be kept.
    transfer.resize(headBytes);
    transfer.push_back(0);
    return memory[readAddress++ % byteCount];
}

void SerialEeprom::deselect() {
    std::vector<std::uint8_t> complete = std::exchange(transfer, {});
    if (complete.empty() || deaf) {
        return;
    }
    if (complete.size() == 1 && (complete[0] == setLatch || complete[0] == clearLatch)) {
        writeEnabled = complete[0] == setLatch;
    } else if (complete[0] == write && complete.size() > headBytes && writeEnabled) {
        transfer = std::move(complete);
        beginWrite();
        transfer.clear();
    }
}

void SerialEeprom::beginWrite() {
    auto address = static_cast<std::size_t>(transfer[1] << 8 | transfer[2]);
    if (address >= byteCount) {
        return;
    }
    std::size_t page = address - address % pageBytes;
    for (std::size_t i = headBytes; i < transfer.size(); ++i) {
        memory[page + address++ % pageBytes] = transfer[i];
    }
    writeEnd = clock() + writeTime;
    if (written) {
        written();
    }
}

} // namespace zor::sim
