// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zor::sim {

/// What ends a packet that the board reads out of its radio.
enum class PacketEnd { characterOrLength, character, length };

/// The receiving half of the board's packet firmware. Armed, it waits for one packet, reports it and is then
/// disarmed; what comes while it is not armed is lost.
class PacketReceiver {
  public:
    /// Two decimal digits tell a report's length, so more bytes than these are cut.
    static constexpr std::size_t longestReport = 99;

    /// @param character  the code that ends a packet, the last byte of it
    /// @param length     bytes after which a packet ends; 0 never ends one
    void arm(PacketEnd condition, std::uint8_t character, std::size_t length);
    void disarm();
    [[nodiscard]] bool armed() const { return waiting; }
    /// Bytes of a packet are here whose end is not.
    [[nodiscard]] bool gathering() const { return !gathered.empty(); }

    /// A packet as it came from the air. @return the report, its prompt included, or nothing if not armed
    [[nodiscard]] std::string take(std::string_view packet);
    /// Bytes as the radio's FIFO gives them; they gather until one ends the packet, and what comes behind
    /// that one is lost. @return the report, or nothing while the packet goes on or if not armed
    [[nodiscard]] std::string takeBytes(std::string_view bytes);

  private:
    [[nodiscard]] bool complete() const;

    bool waiting = false;
    PacketEnd end = PacketEnd::characterOrLength;
    char endCharacter = '\r';
    std::size_t endLength = 0;
    std::string gathered;
};

} // namespace zor::sim
