// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/firmware.h"

namespace zor::sim {

/// The LoadBoard's own firmware, generation 1 or 2.
class LoadBoardFirmware : public Firmware {
  public:
    LoadBoardFirmware(BoardKind kind, Hardware& hardware)
        : boardKind(kind)
        , board(hardware) {}

    Answer execute(std::string_view line) override;
    /// The one way out of Data mode.
    void interrupted() override;

  private:
    // One member a command; the argument has been checked against the command's form.
    Answer identify(std::string_view argument);
    Answer setSupply(std::string_view argument);
    Answer selectHighRange(std::string_view argument);
    Answer selectLowRange(std::string_view argument);
    Answer readConverter(std::string_view argument);
    Answer driveHigh(std::string_view argument);
    Answer driveLow(std::string_view argument);
    Answer release(std::string_view argument);
    Answer selectExternal(std::string_view argument);
    Answer selectInternal(std::string_view argument);
    Answer enterDataMode(std::string_view argument);
    Answer modulateLow(std::string_view argument);
    Answer modulateHigh(std::string_view argument);
    Answer startSequence(std::string_view argument);
    Answer stopSequence(std::string_view argument);
    Answer startMonitor(std::string_view argument);
    Answer stopMonitor(std::string_view argument);
    Answer readDataLine(std::string_view argument);
    Answer readInterruptLine(std::string_view argument);
    Answer transferByte(std::string_view argument);
    Answer transferWord(std::string_view argument);
    Answer transferBytes(std::string_view argument);
    Answer writeBytes(std::string_view argument);
    Answer readBytes(std::string_view argument);
    Answer accept(std::string_view argument);

    struct Command;
    static const Command commands[];

    BoardKind boardKind;
    Hardware& board;
};

} // namespace zor::sim
