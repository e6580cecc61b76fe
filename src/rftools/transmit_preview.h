// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zor {

/// What a packet line will be, for a reader: "T14,AA,2D,D4,... 12 bytes, 10.0 ms on the air at 9579 bps".
/// @param line  without its carriage return
/// @param dataRate  in bit/s; without one the time is left out
[[nodiscard]] std::string transmitPreview(std::string_view line, std::optional<double> dataRate);

/// Bytes that the board makes of a packet line; a lone digit is a byte too.
[[nodiscard]] std::size_t bytesOfPacketLine(std::string_view line);

} // namespace zor
