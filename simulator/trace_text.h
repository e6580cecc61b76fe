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

/// What a line asks the board for, for a reader of a trace; a word of the chip by its command's name. Empty
/// for a line that the board does not know.
[[nodiscard]] std::string lineMeaning(std::string_view line, std::optional<Chip> chip);

} // namespace zor::sim
