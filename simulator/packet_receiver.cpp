// SPDX-License-Identifier: MIT
#include "simulator/packet_receiver.h"

#include "simulator/replies.h"

#include <utility>

namespace zor::sim {

void PacketReceiver::arm(PacketEnd condition, std::uint8_t character, std::size_t length) {
    waiting = true;
    end = condition;
    endCharacter = static_cast<char>(character);
    endLength = length;
    gathered.clear();
}

void PacketReceiver::disarm() {
    waiting = false;
    gathered.clear();
}

std::string PacketReceiver::take(std::string_view packet) {
    if (!std::exchange(waiting, false)) {
        return {};
    }
    gathered.clear();
    return packetReport(packet.substr(0, longestReport)) + std::string(successPrompt);
}

std::string PacketReceiver::takeBytes(std::string_view bytes) {
    for (char byte : bytes) {
        if (!waiting) {
            return {};
        }
        gathered.push_back(byte);
        if (complete()) {
            return take(std::exchange(gathered, {}));
        }
    }
    return {};
}

bool PacketReceiver::complete() const {
    bool characterCame = end != PacketEnd::length && gathered.back() == endCharacter;
    bool lengthReached = end != PacketEnd::character && gathered.size() == endLength;
    return characterCame || lengthReached || gathered.size() == longestReport;
}

} // namespace zor::sim
