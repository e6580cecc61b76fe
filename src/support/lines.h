// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace zor {

/// A text's lines, each ended by CR LF, the last one too, whatever ended them (CR LF, or either alone).
[[nodiscard]] std::string withLineEnds(std::string_view bytes);

} // namespace zor
