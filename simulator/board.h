// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/firmware.h"
#include "simulator/line_end.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace zor::sim {

class LoaderFirmware;

/// A LoadBoard in software, as the PC finds it at the end of a serial line. It has no clock, no device and no
/// thread: an answer is transmitted from inside `receive`, at the moment a line's carriage return comes.
class Board : public LineEnd {
  public:
    /// A longer line is cut here and refused.
    static constexpr std::size_t longestLine = 4096;

    explicit Board(BoardKind kind);

    [[nodiscard]] BoardKind kind() const { return boardKind; }

    void receive(char byte) override;
    /// Leaves Data mode and forgets a half line, as a break does.
    void lineOpened() override;
    void lineSpeedChanged(int baud) override { firmware->lineSpeedChanged(baud); }
    void breakReceived() override;

    /// Every complete command line as it came, without its carriage return, before it is answered. Not called
    /// for what comes in Data mode.
    std::function<void(const std::string& line)> lineReceived;
    /// A line feed came right behind the carriage return of the line reported last; it belongs to that line.
    std::function<void()> lineFeedFollowed;

    // What a bench sets.

    void setChip(std::optional<Chip> chip) { hardware.radio().setChip(chip); }
    void setStatus(std::uint8_t first, std::optional<std::uint8_t> second = std::nullopt);
    void setInterruptLine(bool high) { hardware.interruptReleased = high; }
    void setDataLine(bool high) { hardware.dataLine = high; }
    /// A mute board takes its lines and acts on them, and says nothing; only `emit` still speaks.
    void setMute(bool value) { mute = value; }
    /// Every answer from now on comes so much later.
    void setDelay(std::chrono::milliseconds value) { delay = value; }
    /// The next such line is answered with the error prompt and has no effect. Calls add up.
    void refuseNext(std::string line);
    /// The text, its separator included, stands in front of the success prompt whenever this line comes, in
    /// place of what the board would say. A line that it would refuse is then one that it knows.
    void setReply(std::string line, std::string text);
    /// Text of the board's own accord.
    void emit(std::string text);
    /// A packet of these bytes comes from the air: an armed board reports it whole and is then disarmed, any
    /// other loses it. The report of a mute board waits for "F15".
    void hearPacket(std::string_view packet);
    /// The loader takes so long for each of its two flow-control characters. Nothing on another board.
    void setFlowTime(std::chrono::milliseconds value);
    /// The loader falls silent at this line of a download, 1 the first; 0 for none. Nothing on another board.
    void stallAt(std::size_t lineNumber);
    /// The packet monitor prints its next packet. Nothing on another board.
    void reportPacket();
    /// Bytes come out of the air so much later than now. A board that waits for a packet gathers them, with
    /// another they stay in the radio's FIFO.
    void hearBytes(std::string_view bytes, std::chrono::milliseconds airTime);
    /// It has a part of a packet.
    [[nodiscard]] bool gathersPacket() const { return firmware->gathersPacket(); }
    /// Fixes what the converter reads in each range, 0 to 1023, over what the load model says.
    void setCurrentCounts(int high, int low) { hardware.setCurrentCounts(high, low); }

    // What a bench sees.

    /// Volts; 0 before the first "V".
    [[nodiscard]] double supplyVoltage() const { return hardware.supplyVoltage(); }
    /// @param number  0 to 7
    [[nodiscard]] OutputState output(std::size_t number) const { return hardware.output(number); }
    [[nodiscard]] DataSelector dataSelector() const { return hardware.dataSelector; }
    [[nodiscard]] Modulation modulation() const { return hardware.modulation; }
    /// What the loader was given; nullptr on another board.
    [[nodiscard]] const LoaderFirmware* loader() const;
    [[nodiscard]] RadioChip& radio() { return hardware.radio(); }
    [[nodiscard]] const RadioChip& radio() const { return hardware.radio(); }
    /// The circuits themselves, for putting another chip on the bus.
    [[nodiscard]] Hardware& circuits() { return hardware; }

  private:
    void completeLine();
    [[nodiscard]] Answer answerTo(const std::string& complete, bool whole);
    void report(const std::string& text, std::chrono::milliseconds later);
    void say(std::string bytes, std::chrono::milliseconds later);

    BoardKind boardKind;
    Hardware hardware;
    std::unique_ptr<Firmware> firmware;
    std::string line;
    bool cut = false;
    bool behindCarriageReturn = false;
    bool mute = false;
    std::chrono::milliseconds delay{0};
    std::multiset<std::string> refusals;
    std::map<std::string, std::string> replies;
};

} // namespace zor::sim
