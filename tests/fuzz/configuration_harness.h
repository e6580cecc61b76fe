// SPDX-License-Identifier: MIT
#pragma once

#include "panels/panel_bench.h"
#include "support/numbers.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace zor::testing {

/// Lets a panel read any bytes as its configuration file; whatever they are, each word stays one that the
/// chip has, and what the panel then saves can be written.
template <class Panel>
int readAnyConfiguration(const std::uint8_t* data, std::size_t size) {
    static PanelBench<Panel> bench;
    Panel& panel = bench.open();
    try {
        panel.takeConfiguration(std::string(reinterpret_cast<const char*>(data), size));
    } catch (const ToolError&) {
        // A box for the user.
    }
    for (const ControlWord* word : panel.words()) {
        std::uint32_t fields = 0;
        for (const BitField& field : word->fields()) {
            fields |= ((1U << (field.highBit - field.lowBit + 1)) - 1U) << field.lowBit;
        }
        std::uint32_t value = readHex(word->text()).value_or(~0U);
        if ((value & ~fields) != (word->base() & ~fields)) {
            std::abort();
        }
    }
    if (panel.savedConfiguration().empty()) {
        std::abort();
    }
    bench.dialogs.boxes.clear();
    return 0;
}

} // namespace zor::testing
