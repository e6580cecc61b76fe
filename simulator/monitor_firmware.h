// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/firmware.h"

#include <cstdint>
#include <random>

namespace zor::sim {

/// The packet monitor: prints each packet that it hears. Of its commands the bench knows the identification
/// only.
class MonitorFirmware : public Firmware {
  public:
    Answer execute(std::string_view line) override;
    /// What it prints of the next packet: number, addresses, length and bytes. The same packets in the same
    /// order each time.
    [[nodiscard]] std::string nextPacket();

  private:
    std::uint32_t packets = 0;
    std::minstd_rand air;
};

} // namespace zor::sim
