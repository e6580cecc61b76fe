// SPDX-License-Identifier: MIT
#pragma once

#include "link/bench.h"

#include <memory>

namespace zor {

class ChipPanel;
class Connect;
class Form;

/// A second panel of a chip that nobody sees and that has no board: settings are tried on it, and a file is
/// read on it, before the user's own panel is touched.
class QuietPanel {
  public:
    /// A panel of the chip, in the same variant, as it loads.
    QuietPanel(const Bench& like, const ChipPanel& chip);
    ~QuietPanel();
    QuietPanel(const QuietPanel&) = delete;
    QuietPanel& operator=(const QuietPanel&) = delete;

    [[nodiscard]] ChipPanel& panel() { return *own; }
    [[nodiscard]] const Bench& bench() const { return quiet; }

    /// Brings it to what the user's panel has.
    void take(ChipPanel& chip);

  private:
    /// There are none.
    class NoTools;

    Desk desk;
    std::unique_ptr<Tools> tools;
    Bench quiet;
    std::unique_ptr<Form> bars;
    std::unique_ptr<TextField> status;
    std::unique_ptr<Connect> connect;
    std::unique_ptr<ChipPanel> own;
};

/// A band without a base of its own takes that of the band before it. What is set from elsewhere shall not
/// depend on what the user had chosen before: it is put as on a panel that was just opened.
void forgetBandBefore(ChipPanel& panel);

/// Puts a configuration file's settings in force as the file says them; nothing is sent. The revision stands
/// behind what it bears on, and a change of it begins these anew: so the file is read until it stands.
/// Throws ToolError.
void takeWholeFile(ChipPanel& panel, const std::string& bytes);

} // namespace zor
