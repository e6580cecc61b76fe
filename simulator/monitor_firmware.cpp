// SPDX-License-Identifier: MIT
#include "simulator/monitor_firmware.h"

#include "support/numbers.h"

namespace zor::sim {

namespace {

constexpr std::size_t longestPayload = 12;
constexpr std::size_t numberDigits = 5;

} // namespace

Answer MonitorFirmware::execute(std::string_view line) {
    if (line == "i") {
        return Answer::success(bannerText(BoardKind::Monitor));
    }
    return line.empty() ? Answer::success() : Answer::refusal();
}

std::string MonitorFirmware::nextPacket() {
    auto byte = [this] { return static_cast<std::uint8_t>(air() >> 8 & 0xFF); };
    std::string number = std::to_string(++packets);
    if (number.size() < numberDigits) {
        number.insert(0, numberDigits - number.size(), '0');
    }
    std::string text =
        number + " CID " + hexText(byte(), 2) + " DST " + hexText(byte(), 2) + " SRC " + hexText(byte(), 2);
    std::size_t length = 1 + air() % longestPayload;
    text += " LEN " + hexText(static_cast<std::uint32_t>(length), 2) + ":";
    for (std::size_t i = 0; i < length; ++i) {
        text += ' ' + hexText(byte(), 2);
    }
    return text + "\n\r";
}

} // namespace zor::sim
