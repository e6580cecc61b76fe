// SPDX-License-Identifier: MIT
#pragma once

#include "elements/label.h"

namespace zor {

/// The colours of the lamps that show the level of the data line.
inline constexpr Colour lineLampLit{0, 255, 0};
inline constexpr Colour lineLampDark{0, 128, 0};

/// Shows one of them; whether it is greyed is another matter.
inline void light(Lamp& lamp, bool lit) {
    lamp.light(lit, lit ? lineLampLit : lineLampDark);
}

} // namespace zor
