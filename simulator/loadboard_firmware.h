// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/firmware.h"
#include "simulator/packet_receiver.h"

namespace zor::sim {

/// The LoadBoard's own firmware, generation 1 or 2.
class LoadBoardFirmware : public Firmware {
  public:
    LoadBoardFirmware(BoardKind kind, Hardware& hardware)
        : boardKind(kind)
        , board(hardware) {}

    Answer execute(std::string_view line) override;
    std::string packetHeard(std::string_view packet) override;
    std::string bytesHeard(std::string_view bytes) override;
    [[nodiscard]] bool receivesPacket() const override { return receiver.armed(); }
    [[nodiscard]] bool gathersPacket() const override { return receiver.gathering(); }
    void reportUnheard(std::string_view report) override;
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
    Answer receiveEither(std::string_view argument);
    Answer receiveToCharacter(std::string_view argument);
    Answer receiveLength(std::string_view argument);
    Answer stopReceiving(std::string_view argument);
    Answer reportPending(std::string_view argument);
    Answer sendPacket(std::string_view argument);
    Answer stopSending(std::string_view argument);

    Answer arm(PacketEnd condition, std::string_view argument);

    struct Command;
    static const Command commands[];

    BoardKind boardKind;
    Hardware& board;
    PacketReceiver receiver;
    /// A report that nobody could hear, kept for "F15".
    std::string unheard;
};

} // namespace zor::sim
