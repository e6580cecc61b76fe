// SPDX-License-Identifier: MIT
// A board's report of a packet from the air. On the wire it is
//
//     LF CR "Received packet: " NN " bytes: " the NN bytes as they are, then the success prompt
//
// with NN in decimal. There is no checksum and no escape, so the bytes may look like anything, a prompt or
// another report included.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zor {

/// What a field that mirrors the line says of a report, at the moment when a prompt has come.
struct MirroredReport {
    enum class State {
        /// Something else than a report.
        None,
        /// A report that is to go on: the prompt was part of its payload.
        Incomplete,
        Complete,
    };
    State state = State::None;
    /// The payload as the field shows it: a carriage return as two characters, no line feed of its own.
    std::string payload;
};

/// What a field that mirrors the line shows of these bytes.
[[nodiscard]] std::string mirrored(std::string_view bytes);

/// Reads what was mirrored since the field was emptied: a line feed does not show there and a carriage return
/// shows as CR LF. A report whose length cannot be read is none.
[[nodiscard]] MirroredReport readMirroredReport(std::string_view field);

/// Finds the reports in the characters of the line as they come, byte for byte. What is no report is passed
/// over; of a report that does not end as its length says, only what may begin another one is kept.
class PacketReportReader {
  public:
    /// A longer payload is none: the board's packet length is a byte.
    static constexpr std::size_t longestPayload = 255;

    /// A whole report came: its payload.
    std::function<void(const std::string& payload)> found;
    /// A report broke off, or did not end where it said.
    std::function<void()> damaged;

    void take(char c);
    /// The line has fallen silent: what is held of a report will not be continued.
    void silence();
    /// Forgets what is held.
    void reset() { held.clear(); }

  private:
    enum class Verdict { GoesOn, Whole, Broken };
    struct Reading {
        Verdict verdict = Verdict::GoesOn;
        /// Where the payload stands in `held`.
        std::size_t begin = 0;
        std::size_t length = 0;
        /// The head with its length was right, so this was a report.
        bool begun = false;
    };
    [[nodiscard]] Reading judge() const;
    void settle();
    void dropHead();

    /// From the first character that may begin a report.
    std::string held;
};

} // namespace zor
