// SPDX-License-Identifier: MIT
#include "panels/common/chip_current.h"

#include "link/bench.h"
#include "link/commands.h"
#include "link/connect.h"
#include "panels/common/levels.h"
#include "support/numbers.h"

namespace zor {

namespace {

/// In mA; below it the high range has too few counts, so the low one is read.
constexpr double lowRangeBelow = 1.2;
/// In uA a count.
constexpr double highStep = 24.4;
constexpr double lowStep = 48.8;
constexpr std::int32_t noCurrent = 1023;

/// The byte of two digits at a position that counts from 1.
std::optional<std::uint32_t> byteAt(std::string_view text, std::size_t position) {
    return position + 1 <= text.size() ? readHex(text.substr(position - 1, 2)) : std::nullopt;
}

struct Conversion {
    std::optional<std::int32_t> counts;
    bool answered = false;
};

Conversion convert(const Bench& bench, std::string_view range) {
    Connect& connect = *bench.connect;
    Exchange chosen = connect.Send_To_LoadBoard(std::string(range));
    Exchange read = connect.Send_To_LoadBoard(std::string(command::readConverter));
    return {converterReading(bench.link.Last100),
            chosen.outcome == Exchange::Outcome::Answered && read.outcome == Exchange::Outcome::Answered};
}

} // namespace

std::optional<std::int32_t> converterReading(std::string_view last100) {
    auto high = byteAt(last100, 68);
    auto low = byteAt(last100, 84);
    if (!high || !low) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>((*high << 8 | *low) & 0x3FF);
}

double CurrentReading::step() const {
    return range == Range::High ? highStep : lowStep;
}

double CurrentReading::microamps() const {
    return (noCurrent - counts) * step();
}

std::optional<CurrentReading> readChipCurrent(const Bench& bench,
                                              const std::function<void(const char*)>& unitFound) {
    using Range = CurrentReading::Range;
    Conversion high = convert(bench, command::highCurrentRange);
    if (!high.counts) {
        return std::nullopt;
    }
    CurrentReading reading{Range::High, *high.counts, milliamperes(*high.counts), "mA", high.answered};
    if (unitFound) {
        unitFound(reading.unit);
    }
    if (reading.shown.value >= lowRangeBelow) {
        return reading;
    }
    Conversion low = convert(bench, command::lowCurrentRange);
    if (!low.counts) {
        return std::nullopt;
    }
    reading = {Range::Low, *low.counts, microamperes(*low.counts), "uA", high.answered && low.answered};
    if (unitFound) {
        unitFound(reading.unit);
    }
    return reading;
}

} // namespace zor
