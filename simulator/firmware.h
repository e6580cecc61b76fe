// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/hardware.h"

#include <memory>
#include <string>
#include <string_view>

namespace zor::sim {

/// What a firmware does with a line.
struct Answer {
    enum class Kind { success, refusal, bare, silence };
    Kind kind = Kind::success;
    /// Success: the value in front of the prompt. Bare: the bytes as they are, without a prompt.
    std::string text;

    static Answer success(std::string value = {}) { return {Kind::success, std::move(value)}; }
    static Answer refusal() { return {Kind::refusal, {}}; }
    static Answer bare(std::string bytes) { return {Kind::bare, std::move(bytes)}; }
    static Answer silence() { return {Kind::silence, {}}; }
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
    /// That report never reached the line; it waits until it is asked for.
    virtual void reportUnheard(std::string_view) {}
    /// A break of the serial line.
    virtual void interrupted() {}
};

/// @param hardware  must outlive the firmware
[[nodiscard]] std::unique_ptr<Firmware> makeFirmware(BoardKind kind, Hardware& hardware);

} // namespace zor::sim
