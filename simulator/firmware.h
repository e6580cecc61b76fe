// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/hardware.h"

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

namespace zor::sim {

/// What a firmware does with a line.
struct Answer {
    enum class Kind { success, refusal, bare, silence };
    Kind kind = Kind::success;
    /// Success: the value in front of the prompt. Bare: the bytes as they are, without a prompt.
    std::string text = {};
    /// Bare: how long each byte takes before it is said.
    std::chrono::milliseconds pace{0};

    static Answer success(std::string value = {}) { return {.text = std::move(value)}; }
    static Answer refusal() { return {.kind = Kind::refusal}; }
    static Answer paced(std::string bytes, std::chrono::milliseconds pace) {
        return {.kind = Kind::bare, .text = std::move(bytes), .pace = pace};
    }
    static Answer silence() { return {.kind = Kind::silence}; }
};

/// The program in a board's controller: takes complete lines, drives the hardware.
class Firmware {
  public:
    Firmware() = default;
    Firmware(const Firmware&) = delete;
    Firmware& operator=(const Firmware&) = delete;
    virtual ~Firmware() = default;

    /// A line without its end. Every firmware knows the empty line, which only asks for the prompt.
    virtual Answer execute(std::string_view line) = 0;
    /// A packet from the air. @return what the board says of its own accord, prompt included
    virtual std::string packetHeard(std::string_view) { return {}; }
    /// The same for bytes out of the radio's FIFO, which may make only a part of one.
    virtual std::string bytesHeard(std::string_view) { return {}; }
    /// It waits for a packet; it has a part of one.
    [[nodiscard]] virtual bool receivesPacket() const { return false; }
    [[nodiscard]] virtual bool gathersPacket() const { return false; }
    /// That report never reached the line; it waits until it is asked for.
    virtual void reportUnheard(std::string_view) {}
    /// A break of the serial line.
    virtual void interrupted() {}
    /// The PC's side of the line goes at this speed from now on.
    virtual void lineSpeedChanged(int /*baud*/) {}
};

/// @param hardware  must outlive the firmware
[[nodiscard]] std::unique_ptr<Firmware> makeFirmware(BoardKind kind, Hardware& hardware);

} // namespace zor::sim
