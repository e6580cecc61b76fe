// SPDX-License-Identifier: MIT
#include "rftools/packet_log.h"

#include "support/letters.h"

#include <algorithm>

namespace zor {

namespace {

constexpr std::size_t longestNumber = 9;

} // namespace

std::optional<NumberedPayload> numberIn(std::string_view payload) {
    auto first = std::find_if(payload.begin(), payload.end(), isDigit);
    auto last = std::find_if_not(first, payload.end(), isDigit);
    if (first == last || static_cast<std::size_t>(last - first) > longestNumber) {
        return std::nullopt;
    }
    std::int64_t number = 0;
    for (auto digit = first; digit != last; ++digit) {
        number = number * 10 + (*digit - '0');
    }
    return NumberedPayload{payload.substr(0, static_cast<std::size_t>(first - payload.begin())), number};
}

std::vector<PacketEvent> PacketLog::add(const std::string& payload, EventLoop::Duration time,
                                        const std::string& offset) {
    std::vector<PacketEvent> fresh;
    std::optional<NumberedPayload> numbered = numberIn(payload);
    if (numbered && lastNumber && numbered->prefix == lastPrefix) {
        std::int64_t step = numbered->number - *lastNumber;
        if (counting && step > 1 && step <= longestLoss) {
            fresh.push_back({.kind = PacketEvent::Kind::Lost,
                             .time = time,
                             .number = *lastNumber + 1,
                             .count = step - 1,
                             .payload = {},
                             .offset = {}});
        }
        counting = step == 1 || (counting && step > 1 && step <= longestLoss);
    } else {
        counting = false;
    }
    lastNumber.reset();
    if (numbered) {
        lastNumber = numbered->number;
        lastPrefix = numbered->prefix;
    }
    fresh.push_back({.kind = PacketEvent::Kind::Received,
                     .time = time,
                     .number = lastNumber,
                     .count = 1,
                     .payload = payload,
                     .offset = offset});
    ++receivedCount;
    for (const PacketEvent& event : fresh) {
        keep(event);
    }
    return fresh;
}

PacketEvent PacketLog::addDamaged(EventLoop::Duration time) {
    PacketEvent event{
        .kind = PacketEvent::Kind::Damaged, .time = time, .number = {}, .payload = {}, .offset = {}};
    keep(event);
    return event;
}

void PacketLog::keep(const PacketEvent& event) {
    events.push_back(event);
    if (events.size() > window) {
        events.pop_front();
    }
}

void PacketLog::clear() {
    *this = PacketLog();
}

LinkFigures PacketLog::figures() const {
    LinkFigures figures;
    const PacketEvent* first = nullptr;
    const PacketEvent* last = nullptr;
    for (const PacketEvent& event : events) {
        switch (event.kind) {
        case PacketEvent::Kind::Received:
            ++figures.received;
            first = first == nullptr ? &event : first;
            last = &event;
            break;
        case PacketEvent::Kind::Lost:
            figures.lost += event.count;
            break;
        case PacketEvent::Kind::Damaged:
            ++figures.damaged;
            break;
        }
    }
    auto sent = static_cast<double>(figures.received) + static_cast<double>(figures.lost);
    if (sent > 0) {
        figures.lostPercent = 100 * static_cast<double>(figures.lost) / sent;
    }
    if (first != nullptr && last->time > first->time) {
        double minutes = std::chrono::duration<double, std::ratio<60>>(last->time - first->time).count();
        figures.perMinute = static_cast<double>(figures.received - 1) / minutes;
    }
    return figures;
}

} // namespace zor
