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

} // namespace zor
