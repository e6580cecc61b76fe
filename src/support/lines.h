// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace zor {

/// A text's lines, each ended by CR LF, the last one too, whatever ended them (CR LF, or either alone).
[[nodiscard]] std::string withLineEnds(std::string_view bytes);

/// A line without the CR and LF at its end, however many.
[[nodiscard]] std::string_view withoutLineEnd(std::string_view line);

/// A text without what stands around it: blanks and tabs, if nothing else is named.
[[nodiscard]] std::string_view trimmed(std::string_view text, std::string_view around = " \t");

} // namespace zor
