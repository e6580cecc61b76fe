// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/firmware.h"
#include "simulator/hex_image.h"

#include <cstddef>

namespace zor::sim {

/// The loader: takes a firmware image line by line, each answered by the flow-control characters XOFF (it is
/// being written) and XON (ready for the next). A record that is not well formed is not answered, so the PC
/// gives up.
///
///     commands --"C"--> download --end record, break, a line at 19200 baud again--> commands
class LoaderFirmware : public Firmware {
  public:
    Answer execute(std::string_view line) override;
    void interrupted() override { downloading = false; }
    void lineSpeedChanged(int baud) override;

    // What a bench sets.

    /// How long the loader takes for each of the two characters.
    void setFlowTime(std::chrono::milliseconds value) { flowTime = value; }
    /// It falls silent at this line of a download, 1 the first; 0 for none.
    void stallAt(std::size_t lineNumber) { stallLine = lineNumber; }

    // What a bench sees of the last download.

    [[nodiscard]] const HexImage& image() const { return downloaded; }
    /// Lines taken since "C", blank ones too.
    [[nodiscard]] std::size_t lineCount() const { return lines; }
    /// The end record came.
    [[nodiscard]] bool complete() const { return ended; }

  private:
    Answer takeLine(std::string_view line);
    [[nodiscard]] Answer flow() const;

    bool downloading = false;
    bool stalled = false;
    bool ended = false;
    std::size_t lines = 0;
    std::size_t stallLine = 0;
    std::chrono::milliseconds flowTime{0};
    HexImage downloaded;
};

/// A port with nothing behind it that speaks.
class SilentFirmware : public Firmware {
  public:
    Answer execute(std::string_view) override { return Answer::silence(); }
};

} // namespace zor::sim
