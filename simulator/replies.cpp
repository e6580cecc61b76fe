// SPDX-License-Identifier: MIT
#include "simulator/replies.h"

#include "support/numbers.h"

namespace zor::sim {

namespace {

constexpr std::size_t bannerLength = 87;

std::string padded(std::string text) {
    text.resize(bannerLength, ' ');
    return text;
}

std::string lowerHex(std::uint8_t value) {
    constexpr char digits[] = "0123456789abcdef";
    return {digits[value >> 4], digits[value & 0xF]};
}

} // namespace

std::string bannerText(BoardKind kind) {
    switch (kind) {
    case BoardKind::LoadBoard1:
        return padded("\n\rOrtolan Radio Bench System Rev 1.8  LoadBoard");
    case BoardKind::LoadBoard2:
        return padded("\n\rOrtolan Radio Bench System Rev 2.3  LoadBoard");
    case BoardKind::Loader:
        return padded("\n\r\n\rLoadBoard Loader Rev 1.1");
    case BoardKind::Monitor:
        return padded("\n\r\n\rVireo Demo Monitor Rev1.4");
    case BoardKind::Silent:
        break;
    }
    return {};
}

std::string byteText(std::uint8_t value) {
    return hexText(value, 2) + ' ';
}

std::string wordText(std::uint16_t value) {
    return hexText(value, 4) + ' ';
}

std::string bytesText(std::span<const std::uint8_t> values) {
    std::string text;
    for (std::uint8_t value : values) {
        text += lowerHex(value) + ' ';
    }
    return text;
}

std::string interruptText(bool high) {
    return high ? "1   1 " : "0   0 ";
}

std::string dataLineText(bool high) {
    return high ? "1   " : "0   ";
}

std::string converterText(int counts) {
    auto value = static_cast<std::uint32_t>(counts);
    return "ADC high byte " + hexText(value >> 8 & 0xFF, 2) + "h, low byte = " + hexText(value & 0xFF, 2) +
           "h, done ";
}

std::string packetReport(std::string_view packet) {
    std::string length = std::to_string(packet.size());
    if (length.size() < 2) {
        length.insert(0, "0");
    }
    return "\n\rReceived packet: " + length + " bytes: " + std::string(packet);
}

} // namespace zor::sim
