// SPDX-License-Identifier: MIT
#pragma once

#include "elements/colour.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace zor {

class Element;

/// Parts of an element that can be kept and put back, each a bit.
enum Aspects : unsigned {
    keepsNothing = 0,
    keepsVisible = 1,
    keepsEnabled = 2,
    keepsCaption = 4,
    /// Tool tip and ground.
    keepsLook = 8,
    /// What a field or list shows, what is ticked, chosen or slid, and what a user could choose from.
    keepsContent = 16,
    keepsAll = 31,
};

[[nodiscard]] constexpr Aspects operator|(Aspects one, Aspects other) {
    return static_cast<Aspects>(static_cast<unsigned>(one) | static_cast<unsigned>(other));
}

/// What an element is at one moment, as far as its aspects go.
struct ElementState {
    bool visible = true;
    bool enabled = true;
    bool readOnly = false;
    std::string caption;
    std::string tip;
    std::optional<Colour> background;
    /// Of a field or list.
    std::string text;
    /// 1 for ticked or chosen, a slider's value, a list's position.
    int number = 0;
    /// Of a field.
    std::optional<std::size_t> limit;
    /// Of a list, and what it keeps behind them.
    std::vector<std::string> entries;
    std::vector<int> codes;

    friend bool operator==(const ElementState&, const ElementState&) = default;
};

[[nodiscard]] ElementState stateOf(const Element& element, Aspects aspects);
/// Puts it back. No action runs; whoever draws the element hears of it.
void putState(Element& element, const ElementState& state, Aspects aspects);

} // namespace zor
