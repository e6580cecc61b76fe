// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/firmware.h"

#include <cstddef>

namespace zor::sim {

/// The loader: takes a firmware image record by record, each acknowledged by the flow-control characters XOFF
/// (it is being written) and XON (ready for the next). A record that is not well formed is not acknowledged.
class LoaderFirmware : public Firmware {
  public:
    Answer execute(std::string_view line) override;
    void interrupted() override { downloading = false; }

  private:
    Answer takeRecord(std::string_view line);

    bool downloading = false;
    std::size_t recordCount = 0;
};

/// The packet monitor's firmware, of which the bench knows the banner only.
class MonitorFirmware : public Firmware {
  public:
    Answer execute(std::string_view line) override;
};

/// A port with nothing behind it that speaks.
class SilentFirmware : public Firmware {
  public:
    Answer execute(std::string_view) override { return Answer::silence(); }
};

} // namespace zor::sim
