// SPDX-License-Identifier: MIT
#include "simulator/register_chip.h"

#include <utility>

namespace zor::sim {

namespace {

constexpr std::uint8_t writeBit = 0x80;

std::size_t addressOf(std::uint8_t command) {
    return command & ~writeBit & 0xFF;
}

} // namespace

void RegisterChip::select() {
    transferred = 0;
}

std::uint8_t RegisterChip::exchange(std::uint8_t fromBoard) {
    switch (transferred++) {
    case 0:
        command = fromBoard;
        answer = (command & writeBit) != 0 ? std::uint16_t{0} : readOut(addressOf(command));
        return static_cast<std::uint8_t>(answer >> 8);
    case 1:
        if ((command & writeBit) != 0) {
            take(addressOf(command), fromBoard);
        }
        return static_cast<std::uint8_t>(answer & 0xFF);
    default:
        return 0;
    }
}

void RegisterChip::deselect() {
    transferred = 0;
}

std::uint16_t RegisterChip::readOut(std::size_t address) {
    if (fifoAddresses && address == fifoAddresses->receive) {
        return readFifo();
    }
    return values[address];
}

void RegisterChip::take(std::size_t address, std::uint8_t value) {
    if (fifoAddresses && address == fifoAddresses->transmit) {
        writeFifo(value);
    } else if (!statusRegisters.test(address)) {
        values[address] = value;
    }
}

void RegisterChip::writeFifo(std::uint8_t byte) {
    if (loop) {
        receive(overTheAir(byte));
    } else if (transmitted.size() < fifoBytes) {
        transmitted.push_back(byte);
    }
}

std::uint8_t RegisterChip::readFifo() {
    if (received.empty()) {
        return 0;
    }
    auto byte = received.front();
    received.pop_front();
    return byte;
}

void RegisterChip::receive(std::uint8_t byte) {
    if (received.size() < fifoBytes) {
        received.push_back(byte);
    }
}

void RegisterChip::setRegister(std::size_t address, std::uint8_t value) {
    values.at(address) = value;
    statusRegisters.reset(address);
}

void RegisterChip::setStatus(std::size_t address, std::uint16_t value) {
    values.at(address) = value;
    statusRegisters.set(address);
}

void RegisterChip::setFifoAddresses(std::size_t transmit, std::size_t receive) {
    fifoAddresses = FifoAddresses{transmit, receive};
}

void RegisterChip::closeLoop(double bitErrorRate, std::uint32_t seed) {
    loop = Loop{bitErrorRate, std::mt19937(seed)};
    turned = 0;
}

std::uint8_t RegisterChip::overTheAir(std::uint8_t byte) {
    // The generator's own numbers, not a distribution's: those differ between libraries.
    auto threshold = static_cast<std::uint64_t>(loop->bitErrorRate * 4294967296.0);
    for (int bit = 0; bit < 8; ++bit) {
        if (loop->random() < threshold) {
            byte = static_cast<std::uint8_t>(byte ^ 1u << bit);
            ++turned;
        }
    }
    return byte;
}

} // namespace zor::sim
