// SPDX-License-Identifier: MIT
// A search's lines on the wire: the chip set for a reading, and its status read.
#include "link/connect.h"
#include "panels/common/chip_panel.h"
#include "rftools/tx_search_run.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace zor {

namespace {

/// Where a byte's two digits stand in the last 15 characters, from 1.
constexpr std::size_t byteAt = 6;
/// The receiver starts anew, and its synthesizer calibrates, when it has been tuned so far away: a tenth of
/// the band.
constexpr int startEvery = 400;
/// A clock recovery needs so many bits to lock.
constexpr double bitsToLock = 64;
/// Readings in a row without a status in them.
constexpr int mostUnreadable = 3;

bool isSet(StatusBit place, const std::uint32_t (&bytes)[2]) {
    return (bytes[place.byte] >> place.bit & 1U) != 0;
}

int signedOffset(std::uint32_t byte, int width) {
    auto span = 1U << width;
    auto value = static_cast<int>(byte & (span - 1));
    return value >= static_cast<int>(span / 2) ? value - static_cast<int>(span) : value;
}

} // namespace

bool SearchRun::prepare() {
    const SearchSetting& first = ownPlan.next();
    words.set("Freqw", "frequency parameter", first.frequency);
    words.set("Recw", "DRSSI threshold", first.threshold);
    return putUnsetWords() && startReceiver();
}

bool SearchRun::apply(const SearchSetting& setting) {
    words.set("Freqw", "frequency parameter", setting.frequency);
    words.set("Recw", "DRSSI threshold", setting.threshold);
    if (setting.rate) {
        const RateSetting& rate = ownPlan.rates()[*setting.rate];
        words.set("Dataratew", "prescaler", rate.prescaler ? 1 : 0);
        words.set("Dataratew", "R", rate.divider);
    }
    if (!putUnsetWords()) {
        return false;
    }
    if (std::abs(setting.frequency - startedAt) > startEvery && !startReceiver()) {
        return false;
    }
    return setting.offset == controlsFrequency || controlFrequency(setting.offset, 1);
}

/// What has changed; and what the panel has sent in the meantime, which is not what the search needs.
bool SearchRun::putUnsetWords() {
    for (ControlWord* word : words.unset()) {
        std::string line = words.put(*word);
        Exchange result = exchange(line);
        if (isOver) {
            return false;
        }
        if (result.outcome != Exchange::Outcome::Answered) {
            words.notPut(*word);
        }
        if (ending) {
            return false;
        }
    }
    return true;
}

bool SearchRun::startReceiver() {
    startedAt = ownPlan.next().frequency;
    for (const FieldSetting& field : chip.start) {
        words.set(field.word, field.field, 0);
    }
    if (!putUnsetWords()) {
        return false;
    }
    for (const FieldSetting& field : chip.start) {
        words.set(field.word, field.field, 1);
    }
    return putUnsetWords();
}

bool SearchRun::controlFrequency(bool on, int times) {
    controlsFrequency = on;
    words.set("AFCw", "enable", on ? 1 : 0);
    ControlWord* word = words.find("AFCw");
    for (int time = 0; time < times; ++time) {
        if (!send(words.put(*word))) {
            return false;
        }
    }
    return true;
}

std::optional<SearchReading> SearchRun::read(const SearchSetting& setting) {
    // The offset must stand still while it is read.
    if (setting.offset && !controlFrequency(false, chip.controlStops)) {
        return std::nullopt;
    }
    std::uint32_t bytes[2] = {0, 0};
    bool readable = true;
    if (!send("H2\r")) {
        return std::nullopt;
    }
    selected = true;
    if (!send("L2\r") || !send("L0\r")) {
        return std::nullopt;
    }
    for (std::uint32_t& byte : bytes) {
        Exchange result = exchange("RS\r");
        if (isOver || ending) {
            return std::nullopt;
        }
        auto value = result.byteAt(byteAt);
        readable = readable && value.has_value();
        byte = value.value_or(0);
    }
    selected = false;
    if (!send("H2\r")) {
        return std::nullopt;
    }
    unreadable = readable ? 0 : unreadable + 1;
    if (unreadable >= mostUnreadable) {
        ending = End::Unreadable;
        return std::nullopt;
    }
    SearchReading reading;
    reading.signal = readable && isSet(chip.signal, bytes);
    reading.clockLocked = readable && isSet(chip.clock, bytes);
    if (chip.offsetBits > 0 && readable) {
        reading.offset = signedOffset(bytes[1], chip.offsetBits);
    }
    return reading;
}

std::chrono::milliseconds SearchRun::waitFor(const SearchSetting& setting) const {
    if (!setting.rate) {
        return settings.dwell;
    }
    // kbit/s are bits a millisecond.
    double bits = std::ceil(bitsToLock / ownPlan.rates()[*setting.rate].kilobits);
    return std::max(settings.dwell, std::chrono::milliseconds(static_cast<long>(bits)));
}

bool SearchRun::send(const std::string& line) {
    exchange(line);
    return !isOver && !ending;
}

/// A line and its answer. What ends the search by it is noted; the tick then puts the chip back.
Exchange SearchRun::exchange(const std::string& line) {
    Exchange result = bench.connect->Send_To_LoadBoard(line);
    if (isOver || restoring) {
        return result;
    }
    // The search for boards may have taken the port.
    if (result.portGone() || !claim.held()) {
        ending = End::PortGone;
        finish();
    } else if (!ending && result.outcome == Exchange::Outcome::TimedOut) {
        ending = End::Unanswered;
    } else if (!ending && result.outcome == Exchange::Outcome::Refused) {
        ending = End::Refused;
    }
    return result;
}

} // namespace zor
