// SPDX-License-Identifier: MIT
#include "simulator/register_list_chip.h"

#include "support/numbers.h"

#include <optional>

namespace zor::sim {

namespace {

std::optional<std::size_t> addressOf(std::string_view digits) {
    auto address = readHex(digits);
    return address && *address < RegisterChip::registerCount ? std::optional<std::size_t>(*address)
                                                             : std::nullopt;
}

} // namespace

void takeFirstChip(RegisterChip& chip, const RegisterList& list) {
    if (list.chips.empty()) {
        return;
    }
    const ListedChip& first = list.chips.front();
    auto transmit = addressOf(first.txFifoAddress.value_or(std::string()));
    auto receive = addressOf(first.rxFifoAddress.value_or(std::string()));
    if (!first.fifoSelectLine && transmit && receive) {
        chip.setFifoAddresses(*transmit, *receive);
    }
    for (const ListedRegister& entry : list.registers) {
        auto address = addressOf(entry.address);
        if (entry.chip != first.id || !address) {
            continue;
        }
        std::uint32_t value = readHex(entry.defaultValue).value_or(0);
        if (entry.bits > 8) {
            chip.setStatus(*address, static_cast<std::uint16_t>(value));
        } else {
            chip.setRegister(*address, static_cast<std::uint8_t>(value));
        }
    }
}

} // namespace zor::sim
