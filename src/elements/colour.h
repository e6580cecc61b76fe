// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zor {

/// A colour that the product itself sets on an element; an element without one takes the palette's.
struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend bool operator==(const Colour&, const Colour&) = default;
};

/// What the product calls the system's button face; an element without a colour counts as having it.
inline constexpr Colour buttonFace{240, 240, 240};

} // namespace zor
