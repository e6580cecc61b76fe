// SPDX-License-Identifier: MIT
#include "rftools/transmit_preview.h"

#include "support/numbers.h"

#include <algorithm>

namespace zor {

namespace {

/// Characters of the line that are shown: the command and twelve bytes.
constexpr std::size_t shownCharacters = 40;
constexpr int bitsInByte = 8;
constexpr double millisecondsInSecond = 1000;

std::string_view argumentsOf(std::string_view line) {
    std::size_t comma = line.find(',');
    return comma == std::string_view::npos ? std::string_view() : line.substr(comma + 1);
}

} // namespace

std::size_t bytesOfPacketLine(std::string_view line) {
    std::string_view rest = argumentsOf(line);
    std::size_t bytes = 0;
    while (!rest.empty()) {
        std::size_t end = std::min(rest.find(','), rest.size());
        bytes += end > 0 ? 1 : 0;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return bytes;
}

std::string transmitPreview(std::string_view line, std::optional<double> dataRate) {
    std::size_t bytes = bytesOfPacketLine(line);
    std::string text(line.substr(0, shownCharacters));
    text += (line.size() > shownCharacters ? "... " : "  ") + std::to_string(bytes);
    text += bytes == 1 ? " byte" : " bytes";
    if (dataRate && *dataRate > 0) {
        double time = static_cast<double>(bytes) * bitsInByte * millisecondsInSecond / *dataRate;
        std::string rate = numberText(roundToDecimals(*dataRate, 0));
        text += ", " + numberText(roundToDecimals(time, 1)) + " ms on the air at " + rate + " bps";
    }
    return text;
}

} // namespace zor
