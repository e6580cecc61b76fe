// SPDX-License-Identifier: MIT
#pragma once

#include "elements/form.h"

#include <QSize>

#include <cmath>

namespace zor {

/// Lengths of the forms on the screen, and back.
[[nodiscard]] inline int pixels(Twips length) {
    return static_cast<int>(std::lround(length / twipsPerPixel));
}

[[nodiscard]] inline QSize pixels(const Extent& extent) {
    return {pixels(extent.width), pixels(extent.height)};
}

[[nodiscard]] inline Twips twips(int length) {
    return static_cast<Twips>(length) * twipsPerPixel;
}

} // namespace zor
