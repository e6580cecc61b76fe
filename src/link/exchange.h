// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zor {

/// How a command line on the working port ended.
struct Exchange {
    enum class Outcome {
        /// The success prompt came.
        Answered,
        /// The error prompt came.
        Refused,
        /// No prompt within 1.2 s; the port was closed and opened again.
        TimedOut,
        /// The device went while the line waited for its prompt.
        Lost,
        /// Nothing was sent: the port was closed.
        NotOpen,
    };

    Outcome outcome = Outcome::NotOpen;
    /// What the board said from the line's end to the prompt, the prompt included; of more than 8192
    /// characters the newest 4096 at least.
    std::string answer;
    /// The last 100 characters received on the port as the prompt came. Without a prompt they hold whatever
    /// came before, also of earlier answers: the wire does not tell them apart.
    std::string tail;

    /// The board heard the line and answered one way or the other.
    [[nodiscard]] bool served() const { return outcome == Outcome::Answered || outcome == Outcome::Refused; }
    /// There is no port to go on with.
    [[nodiscard]] bool portGone() const { return outcome == Outcome::Lost || outcome == Outcome::NotOpen; }

    /// The byte whose two hexadecimal digits begin at a position of the tail's last 15 characters, from 1;
    /// the prompt fills 9 to 15 and position 8 separates.
    [[nodiscard]] std::optional<std::uint32_t> byteAt(std::size_t position) const;
    /// The character at a position of the tail's last 15, from 1; 0 if so much did not come.
    [[nodiscard]] char characterAt(std::size_t position) const;
};

} // namespace zor
