// SPDX-License-Identifier: MIT
#include "simulator/hex_image.h"

#include "support/numbers.h"

#include <optional>

namespace zor::sim {

namespace {

/// Length, address of two bytes, type and sum.
constexpr std::size_t frameBytes = 5;
constexpr std::size_t headBytes = 4;

/// The number of data bytes that each type has; none for the data record, which may have any.
constexpr std::optional<std::size_t> typeLengths[] = {std::nullopt, 0, 2, 4, 2, 4};

HexRecord faulty(RecordFault fault) {
    HexRecord record;
    record.fault = fault;
    return record;
}

/// The bytes behind the colon; none if they are not pairs of digits.
std::vector<std::uint8_t> bytesOf(std::string_view digits) {
    std::vector<std::uint8_t> bytes;
    if (digits.size() % 2 != 0) {
        return bytes;
    }
    bytes.reserve(digits.size() / 2);
    for (std::size_t at = 0; at < digits.size(); at += 2) {
        auto byte = readHex(digits.substr(at, 2));
        if (!byte) {
            return {};
        }
        bytes.push_back(static_cast<std::uint8_t>(*byte));
    }
    return bytes;
}

} // namespace

HexRecord readRecord(std::string_view text) {
    if (!text.starts_with(':')) {
        return faulty(RecordFault::digits);
    }
    std::vector<std::uint8_t> bytes = bytesOf(text.substr(1));
    if (bytes.empty()) {
        return faulty(RecordFault::digits);
    }
    if (bytes.size() < frameBytes || bytes.size() != bytes[0] + frameBytes) {
        return faulty(RecordFault::length);
    }
    std::uint8_t sum = 0;
    for (std::uint8_t byte : bytes) {
        sum = static_cast<std::uint8_t>(sum + byte);
    }
    if (sum != 0) {
        return faulty(RecordFault::sum);
    }
    if (bytes[3] >= std::size(typeLengths) || typeLengths[bytes[3]].value_or(bytes[0]) != bytes[0]) {
        return faulty(RecordFault::type);
    }
    HexRecord record;
    record.address = static_cast<std::uint16_t>(bytes[1] << 8 | bytes[2]);
    record.type = static_cast<RecordType>(bytes[3]);
    record.data.assign(bytes.begin() + headBytes, bytes.end() - 1);
    return record;
}

void HexImage::clear() {
    content.clear();
    base = 0;
    segmented = false;
}

void HexImage::take(const HexRecord& record) {
    switch (record.type) {
    case RecordType::data:
        for (std::size_t i = 0; i < record.data.size(); ++i) {
            auto offset = static_cast<std::uint32_t>(record.address + i);
            content[base + (segmented ? offset & 0xFFFF : offset)] = record.data[i];
        }
        break;
    case RecordType::segmentAddress:
    case RecordType::linearAddress: {
        segmented = record.type == RecordType::segmentAddress;
        auto upper = static_cast<std::uint32_t>(record.data[0] << 8 | record.data[1]);
        base = segmented ? upper << 4 : upper << 16;
        break;
    }
    case RecordType::end:
    case RecordType::segmentStart:
    case RecordType::linearStart:
        break;
    }
}

std::string imageText(const HexImage& image) {
    std::string text;
    std::optional<std::uint32_t> next;
    for (auto [address, byte] : image.bytes()) {
        if (next != address || address % 16 == 0) {
            text += (text.empty() ? "" : "\n") + hexText(address, 6) + ":";
        }
        text += ' ' + hexText(byte, 2);
        next = address + 1;
    }
    return text.empty() ? text : text + '\n';
}

} // namespace zor::sim
