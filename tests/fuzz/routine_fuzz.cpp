// SPDX-License-Identifier: MIT
#include "eeprom/event_routine.h"
#include "eeprom/routine_reader.h"
#include "panels/panel_bench.h"
#include "panels/transmitters/jade_v1.h"
#include "panels/transmitters/opal_v2.h"

#include <cstdlib>

namespace {

/// The commands follow each other and cover the routine, whatever stands in it.
void readAll(std::string_view routine, const zor::ReadingBasis& basis) {
    std::size_t at = 0;
    for (const zor::RoutineCommand& command : zor::readRoutine(routine, basis)) {
        if (command.begin != at || command.count == 0 || command.name.empty()) {
            std::abort();
        }
        at += command.count;
    }
    if (at != routine.size()) {
        std::abort();
    }
}

} // namespace

/// Any text as a routine, read with each panel and without one, and cut as the editing cuts it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static zor::testing::PanelBench<zor::OpalV2> opal;
    static zor::testing::PanelBench<zor::JadeV1> jade;
    static const zor::ReadingBasis bases[] = {{}, {&opal.open(), 10'000'000}, {&jade.open(), 12'000'000}};
    std::string routine(reinterpret_cast<const char*>(data), size);
    for (const zor::ReadingBasis& basis : bases) {
        readAll(routine, basis);
    }
    if (!routine.starts_with(zor::withoutTail(routine)) ||
        !routine.starts_with(zor::withoutTransmits(routine))) {
        std::abort();
    }
    std::string bytes = routine;
    zor::Hex2Ascii2Hex(bytes, true);
    zor::Hex2Ascii2Hex(bytes, false);
    if (bytes != routine) {
        std::abort();
    }
    (void)zor::filteredDigits(routine.substr(0, size / 2), {routine, size / 3});
    return 0;
}
