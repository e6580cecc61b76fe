// SPDX-License-Identifier: MIT
#include "simulator/hardware.h"

#include <algorithm>
#include <utility>

namespace zor::sim {

namespace {

constexpr std::size_t dataInLine = 0;
constexpr std::size_t chipSelectLine = 2;
constexpr std::size_t fifoSelectLine = 3;

} // namespace

void Hardware::drive(std::size_t lineNumber, OutputState state) {
    outputs.at(lineNumber) = state;
    if (lineNumber != chipSelectLine) {
        return;
    }
    // The radio boards pull a released select low, so only a high ends a transfer.
    if (state == OutputState::high) {
        bus->deselect();
    } else {
        bus->select();
    }
}

std::vector<std::uint8_t> Hardware::transfer(const std::vector<std::uint8_t>& bytes) {
    std::vector<std::uint8_t> answer;
    answer.reserve(bytes.size());
    bus->deselect();
    bus->select();
    for (std::uint8_t byte : bytes) {
        answer.push_back(bus->exchange(byte));
    }
    bus->deselect();
    if (outputs[chipSelectLine] != OutputState::high) {
        bus->select();
    }
    return answer;
}

void Hardware::write(const std::vector<std::uint8_t>& bytes) {
    for (std::uint8_t byte : bytes) {
        if (selected(fifoSelectLine)) {
            bus->writeFifo(byte);
        } else {
            clock(byte);
        }
    }
}

std::uint8_t Hardware::read() {
    if (selected(fifoSelectLine)) {
        return bus->readFifo();
    }
    return clock(outputs[dataInLine] == OutputState::high ? 0xFF : 0x00);
}

std::uint8_t Hardware::clock(std::uint8_t byte) {
    if (outputs[chipSelectLine] == OutputState::high) {
        return 0xFF;
    }
    return bus->exchange(byte);
}

RegisterChip& Hardware::fitRegisters() {
    auto fresh = std::make_unique<RegisterChip>();
    mount(*fresh);
    registerChip = std::move(fresh);
    return *registerChip;
}

SerialEeprom& Hardware::mountEeprom() {
    auto chip = std::make_unique<SerialEeprom>([this] { return time(); });
    mount(*chip);
    eepromChip = std::move(chip);
    return *eepromChip;
}

bool Hardware::remountEeprom() {
    if (eepromChip) {
        mount(*eepromChip);
    }
    return eepromChip != nullptr;
}

void Hardware::removeEeprom() {
    mount(emptySocket);
    eepromChip.reset();
}

void Hardware::setSupplyCode(int code) {
    double numerator = boardKind == BoardKind::LoadBoard1 ? 311.0 : 309.0;
    supply = numerator / (255 - std::clamp(code, 0, 254));
}

int Hardware::converter() const {
    if (fixedCounts) {
        return currentRange == CurrentRange::high ? fixedCounts->high : fixedCounts->low;
    }
    return converterCounts(supplyCurrent(activityOf(radioChip)), currentRange);
}

void Hardware::setCurrentCounts(int high, int low) {
    fixedCounts = Counts{std::clamp(high, 0, 1023), std::clamp(low, 0, 1023)};
}

} // namespace zor::sim
