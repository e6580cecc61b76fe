// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace zor {

/// Says what a word of the bus means to the chip that is on it; empty for a word that it does not know.
using WordNaming = std::function<std::string(std::uint32_t word, int bits)>;

/// What a line of the board's command language asks for, in a few words: "drive line 2 low: select the chip".
/// Empty for a line that the language does not know.
/// @param line      without its line end
/// @param nameWord  names what "S1" and "S2" lines carry; may be empty
[[nodiscard]] std::string commandMeaning(std::string_view line, const WordNaming& nameWord = {});

/// What an answer's value says, to stand behind the meaning of its line: "5F", "high". Empty where the line
/// asks for no value or the answer holds none.
/// @param answer  what the board said, its prompt included
[[nodiscard]] std::string answerMeaning(std::string_view line, std::string_view answer);

} // namespace zor
