// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/widgets/binders.h"

#include <cstddef>
#include <functional>

namespace zor {

/// A script's text with the line that runs on a warm ground.
/// @param told  the element that changes when another line runs
/// @param runningLine  that line's number, from 1; 0 for none
[[nodiscard]] QWidget* scriptArea(TextField& element, int columns, int lines, Element& told,
                                  const std::function<std::size_t()>& runningLine);

} // namespace zor
