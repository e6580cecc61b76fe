// SPDX-License-Identifier: MIT
#include "panels/common/measured_currents.h"
#include "support/csv.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

/// Any bytes as the file of measured currents: it is refused with the line, or what it holds can be written,
/// read again to the same file, and looked up by chip, voltage and state.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zor;
    std::string_view text(reinterpret_cast<const char*>(data), size);
    auto ends = static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r'; }));
    std::vector<MeasuredCurrent> read;
    try {
        read = parseCurrents(text);
    } catch (const CsvError& error) {
        if (error.line < 1 || error.line > ends + 1 || error.column < 1) {
            std::abort();
        }
        return 0;
    }
    std::string written = formatCurrents(read);
    if (formatCurrents(parseCurrents(written)) != written) {
        std::abort();
    }
    MeasuredCurrents currents;
    currents.keep(read);
    for (const MeasuredCurrent& one : read) {
        if (one.microamps < 0 || one.step < 0 || currents.find(one.chip, one.volts, one.state) == nullptr) {
            std::abort();
        }
        std::string nearest = currents.nearestVolts(one.chip, 3.3);
        if (std::ranges::none_of(read, [&](const MeasuredCurrent& other) {
                return other.chip == one.chip && other.volts == nearest;
            })) {
            std::abort();
        }
    }
    return 0;
}
