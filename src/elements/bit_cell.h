// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"

namespace zor {

enum class BitState { NoData, Zero, One };

/// What a state is to the eye: 1 is orange, 0 the field's own ground, no data grey.
[[nodiscard]] std::optional<Colour> colourOf(BitState state);
inline constexpr Colour oneColour{255, 128, 0};
inline constexpr Colour noDataColour{192, 192, 192};

/// One bit of a value: a cell that shows the bit's name, and its state by its ground.
class BitCell : public Button {
  public:
    BitCell(Form& owner, std::string name, int bitNumber);

    /// Its place in the byte or word, 0 the lowest.
    [[nodiscard]] int number() const { return ownNumber; }
    [[nodiscard]] BitState state() const { return ownState; }
    void setState(BitState state);

  private:
    int ownNumber;
    BitState ownState = BitState::NoData;
};

} // namespace zor
