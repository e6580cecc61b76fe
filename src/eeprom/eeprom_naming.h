// SPDX-License-Identifier: MIT
#pragma once

#include "link/bench.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zor {

/// Says what the EEPROM programmer's lines ask of the device: its instructions by name, and the addresses
/// that they work on. It knows the lines of a run alone; elsewhere the same bytes may be a radio chip's.
class EepromNaming {
  public:
    explicit EepromNaming(const Bench& ownBench)
        : bench(&ownBench) {}

    /// @param line  without its line end
    /// @return empty for a line that is not the programmer's
    [[nodiscard]] std::string operator()(std::string_view line, std::string_view answer);

    /// The same for a line that is known to be the programmer's.
    [[nodiscard]] std::string meaningOf(std::string_view line);

  private:
    [[nodiscard]] std::string meaningOfRead(std::string_view count);

    const Bench* bench;
    /// Where the next byte of a read comes from, while the device is selected for one.
    std::optional<std::uint32_t> readAddress;
};

} // namespace zor
