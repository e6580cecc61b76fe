// SPDX-License-Identifier: MIT
#include "simulator/radio_chip.h"

#include <algorithm>

namespace zor::sim {

namespace {

constexpr std::size_t wordsRemembered = 256;

// Bits of the transceivers' words and first status byte.
constexpr std::uint16_t receiveFifoEnabled = 0x0040;
constexpr std::uint16_t receiverEnabled = 0x0080;
constexpr std::uint8_t levelReached = 0x80;
constexpr std::uint8_t fifoOverflow = 0x20;
constexpr std::uint8_t fifoEmpty = 0x02;

/// What the two status bytes tell of the air, the first byte in the high half.
struct AirBits {
    std::uint16_t signal; // DRSSI
    std::uint16_t data;   // DQD
    std::uint16_t clock;  // CRL
};
constexpr AirBits transceiverBits = {0x0100, 0x0080, 0x0040};
constexpr AirBits receiverBits = {0x0400, 0x0200, 0x0100};

constexpr std::uint8_t transmitterStatusCommand = 0xCC;

bool isTransmitter(Chip chip) {
    return chip == Chip::KT1100 || chip == Chip::KT1101 || chip == Chip::KT1102;
}

bool isTransceiver(Chip chip) {
    return chip == Chip::KT3100 || chip == Chip::KT3101;
}

} // namespace

void RadioChip::setChip(std::optional<Chip> chip) {
    mounted = chip;
    latches.clear();
    receiveFifo.clear();
    overflown = false;
}

void RadioChip::select() {
    transfer.clear();
    statusRead = 0;
    selected = true;
}

std::uint8_t RadioChip::exchange(std::uint8_t fromBoard) {
    // The status comes out while zeros go in: from the first bit on, or behind the transmitters' read
    // command.
    bool asked = transfer.empty() || transfer.front() == 0 ||
                 (transfer.front() == transmitterStatusCommand && !(mounted && !isTransmitter(*mounted)));
    // No command is longer than two bytes; what follows it moves nothing.
    if (transfer.size() < 2) {
        transfer.push_back(fromBoard);
    }
    if (!asked || fromBoard != 0 || statusRead >= 2) {
        return 0;
    }
    std::uint8_t answer = status()[statusRead];
    if (statusRead == 0) {
        overflown = false;
    }
    ++statusRead;
    return answer;
}

void RadioChip::deselect() {
    if (selected && !transfer.empty()) {
        latch();
    }
    selected = false;
    transfer.clear();
    statusRead = 0;
}

void RadioChip::latch() {
    auto first = transfer[0];
    auto word =
        transfer.size() == 1 ? std::uint16_t{first} : static_cast<std::uint16_t>(first << 8 | transfer[1]);
    history.push_back(word);
    if (history.size() > wordsRemembered) {
        history.pop_front();
    }
    if (!mounted) {
        return;
    }
    // A byte command is complete after its eight clocks, whatever is clocked behind it.
    if (const ChipCommand* command = decode(*mounted, first, 8)) {
        latches[command->role] = first;
    } else if (transfer.size() == 2) {
        if (const ChipCommand* wordCommand = decode(*mounted, word, 16)) {
            latches[wordCommand->role] = word;
        }
    }
    if (!fifoRuns()) {
        receiveFifo.clear();
        overflown = false;
    }
}

void RadioChip::setStatus(std::uint8_t first, std::optional<std::uint8_t> second) {
    benchStatus = {first, second.value_or(0)};
}

void RadioChip::setFrequencyOffset(int steps) {
    benchStatus[1] = withOffset(benchStatus[1], steps);
}

std::uint8_t RadioChip::withOffset(std::uint8_t second, int steps) const {
    int bits = mounted && isTransceiver(*mounted) ? 5 : 6;
    int limit = 1 << (bits - 1);
    unsigned field = (1u << bits) - 1;
    auto offset = static_cast<unsigned>(std::clamp(steps, -limit, limit - 1)) & field;
    return static_cast<std::uint8_t>((second & ~field) | offset);
}

std::array<std::uint8_t, 2> RadioChip::status() const {
    auto bytes = benchStatus;
    if (listen && mounted && !isTransmitter(*mounted)) {
        AirSense sense = listen();
        const AirBits& own = isTransceiver(*mounted) ? transceiverBits : receiverBits;
        unsigned found = (sense.signal ? own.signal : 0U) | (sense.data ? own.data : 0U) |
                         (sense.clockLocked ? own.clock : 0U);
        bytes[0] = static_cast<std::uint8_t>(bytes[0] | found >> 8);
        bytes[1] = static_cast<std::uint8_t>(bytes[1] | (found & 0xFF));
        if (sense.offsetSteps) {
            bytes[1] = withOffset(bytes[1], *sense.offsetSteps);
        }
    }
    if (fifoRuns()) {
        auto level = static_cast<std::size_t>(latched(WordRole::fifo).value_or(0) >> 4 & 0xF);
        bool reached = !receiveFifo.empty() && receiveFifo.size() >= level;
        bytes[0] =
            static_cast<std::uint8_t>(bytes[0] | (reached ? levelReached : 0) |
                                      (overflown ? fifoOverflow : 0) | (receiveFifo.empty() ? fifoEmpty : 0));
    }
    return bytes;
}

void RadioChip::receiveFromAir(std::uint8_t byte) {
    if (!fifoRuns()) {
        return;
    }
    if (receiveFifo.size() == fifoBytes) {
        overflown = true;
        return;
    }
    receiveFifo.push_back(byte);
}

std::uint8_t RadioChip::takeFromFifo() {
    if (receiveFifo.empty()) {
        return 0;
    }
    auto byte = receiveFifo.front();
    receiveFifo.pop_front();
    return byte;
}

bool RadioChip::interruptPending() const {
    return fifoRuns() && (status()[0] & ~benchStatus[0] & (levelReached | fifoOverflow)) != 0;
}

std::optional<std::uint16_t> RadioChip::latched(WordRole role) const {
    auto found = latches.find(role);
    return found == latches.end() ? std::nullopt : std::optional(found->second);
}

bool RadioChip::hasFifo() const {
    return mounted && isTransceiver(*mounted);
}

bool RadioChip::fifoRuns() const {
    return hasFifo() && (latched(WordRole::powerManagement).value_or(0) & receiverEnabled) != 0 &&
           (latched(WordRole::configuration).value_or(0) & receiveFifoEnabled) != 0;
}

} // namespace zor::sim
