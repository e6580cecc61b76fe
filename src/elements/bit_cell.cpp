// SPDX-License-Identifier: MIT
#include "elements/bit_cell.h"

#include <utility>

namespace zor {

std::optional<Colour> colourOf(BitState state) {
    switch (state) {
    case BitState::NoData:
        return noDataColour;
    case BitState::Zero:
        return std::nullopt;
    case BitState::One:
        return oneColour;
    }
    return std::nullopt;
}

BitCell::BitCell(Form& owner, std::string name, int bitNumber)
    : Button(owner, std::move(name))
    , ownNumber(bitNumber) {
    takesFocusOnClick = false;
    setBackground(colourOf(ownState));
}

void BitCell::setState(BitState state) {
    ownState = state;
    setBackground(colourOf(state));
}

} // namespace zor
