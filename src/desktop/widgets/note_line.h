// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/widgets/binders.h"

namespace zor {

/// A caption that changes while one works, on one line in the room that there is: what does not fit ends in
/// an ellipsis and stands in the tool tip, so that nothing moves with it.
/// @param columns  room for so many characters at least
[[nodiscard]] QWidget* noteLine(Button& element, int columns, Tone tone = Tone::Soft,
                                Qt::Alignment alignment = Qt::AlignLeft);

} // namespace zor
