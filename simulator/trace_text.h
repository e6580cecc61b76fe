// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/chip_commands.h"

#include <optional>
#include <string>
#include <string_view>

namespace zor::sim {

/// Bytes of the wire in double quotes, with \r, \n, \", \\ and \xNN for what does not print.
[[nodiscard]] std::string quotedBytes(std::string_view bytes);

/// The bytes that a text with those escapes stands for; a backslash before anything else stays as it is.
[[nodiscard]] std::string unescaped(std::string_view text);

/// What a line transfers to the chip, for a reader of a trace: the name of the command that an "S1" or "S2"
/// line carries. Empty for any other line and for a word that no chip knows.
[[nodiscard]] std::string transferMeaning(std::string_view line, std::optional<Chip> chip);

} // namespace zor::sim
