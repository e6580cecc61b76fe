// SPDX-License-Identifier: MIT
#include "rftools/packet_report.h"

#include "support/letters.h"

#include <algorithm>
#include <utility>

namespace zor {

namespace {

constexpr std::string_view head = "\n\rReceived packet: ";
constexpr std::string_view unit = " bytes: ";
constexpr std::string_view prompt = "\n\rOK\n\r>";
constexpr std::size_t mostDigits = 3;

// Places in the mirroring field, from 0.
constexpr std::string_view mirroredWord = "Received packet";
constexpr std::size_t mirroredWordAt = 2;
constexpr std::size_t mirroredLengthAt = 19;
constexpr std::size_t mirroredLengthDigits = 2;
constexpr std::size_t mirroredPayloadAt = 29;
/// A report is complete once so much more than its payload is there.
constexpr std::size_t mirroredRest = 31;

std::optional<std::size_t> readCount(std::string_view digits) {
    while (!digits.empty() && digits.front() == ' ') {
        digits.remove_prefix(1);
    }
    while (!digits.empty() && digits.back() == ' ') {
        digits.remove_suffix(1);
    }
    if (digits.empty() || !std::all_of(digits.begin(), digits.end(), isDigit)) {
        return std::nullopt;
    }
    std::size_t count = 0;
    for (char c : digits) {
        count = count * 10 + static_cast<std::size_t>(c - '0');
    }
    return count;
}

/// The text begins with the expected one, as far as it goes.
bool agrees(std::string_view text, std::string_view expected) {
    return text.substr(0, expected.size()) == expected.substr(0, text.size());
}

} // namespace

std::string mirrored(std::string_view bytes) {
    std::string shown;
    for (char c : bytes) {
        if (c == '\r') {
            shown += "\r\n";
        } else if (c != '\n') {
            shown += c;
        }
    }
    return shown;
}

MirroredReport readMirroredReport(std::string_view field) {
    if (field.size() < mirroredLengthAt + mirroredLengthDigits ||
        field.substr(mirroredWordAt, mirroredWord.size()) != mirroredWord) {
        return {};
    }
    std::optional<std::size_t> length = readCount(field.substr(mirroredLengthAt, mirroredLengthDigits));
    if (!length) {
        return {};
    }
    if (field.size() < *length + mirroredRest) {
        return {MirroredReport::State::Incomplete, {}};
    }
    return {MirroredReport::State::Complete, std::string(field.substr(mirroredPayloadAt, *length))};
}

void PacketReportReader::take(char c) {
    held += c;
    settle();
}

void PacketReportReader::silence() {
    // The last prompt may have ended a report that lies inside what was held.
    while (!held.empty()) {
        if (judge().begun && damaged) {
            damaged();
        }
        dropHead();
        settle();
    }
}

void PacketReportReader::settle() {
    while (!held.empty()) {
        Reading reading = judge();
        switch (reading.verdict) {
        case Verdict::GoesOn:
            return;
        case Verdict::Whole: {
            // Taken out first: whoever hears of it may reset the reader.
            std::string payload = held.substr(reading.begin, reading.length);
            held.erase(0, reading.begin + reading.length + prompt.size());
            if (found) {
                found(payload);
            }
            break;
        }
        case Verdict::Broken:
            if (reading.begun && damaged) {
                damaged();
            }
            dropHead();
            break;
        }
    }
}

/// Goes on to the next place where a report may begin.
void PacketReportReader::dropHead() {
    std::size_t next = held.find(head.front(), 1);
    held.erase(0, std::min(next, held.size()));
}

PacketReportReader::Reading PacketReportReader::judge() const {
    std::string_view rest = held;
    if (!agrees(rest, head)) {
        return {Verdict::Broken, 0, 0, false};
    }
    if (rest.size() <= head.size()) {
        return {};
    }
    rest.remove_prefix(head.size());
    auto digitsEnd = std::find_if_not(rest.begin(), rest.end(), isDigit);
    auto digits = static_cast<std::size_t>(digitsEnd - rest.begin());
    if (digits == rest.size() && digits <= mostDigits) {
        return {};
    }
    std::optional<std::size_t> length = readCount(rest.substr(0, digits));
    if (digits > mostDigits || !length || *length > longestPayload || !agrees(rest.substr(digits), unit)) {
        return {Verdict::Broken, 0, 0, false};
    }
    rest.remove_prefix(digits);
    if (rest.size() < unit.size() + *length) {
        return {Verdict::GoesOn, 0, 0, rest.size() >= unit.size()};
    }
    std::string_view tail = rest.substr(unit.size() + *length);
    if (!agrees(tail, prompt)) {
        return {Verdict::Broken, 0, 0, true};
    }
    if (tail.size() < prompt.size()) {
        return {Verdict::GoesOn, 0, 0, true};
    }
    return {Verdict::Whole, head.size() + digits + unit.size(), *length, true};
}

} // namespace zor
