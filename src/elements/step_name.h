// SPDX-License-Identifier: MIT
#pragma once

#include "elements/gesture.h"
#include "elements/undoable.h"

#include <string>
#include <vector>

namespace zor {

/// A setting that a step has changed, for the time of a call.
struct SettingChange {
    const Element& element;
    const ElementState& before;
    const ElementState& after;
};

/// What a step is called: "Centre 315 -> 868.3", or the caption of the button that changed much.
/// @param changes  at least one
/// @param gesture  the one that made the step; nullptr for a change that came from elsewhere
[[nodiscard]] std::string stepName(const Undoable& rules, const std::vector<SettingChange>& changes,
                                   const Gesture* gesture);

} // namespace zor
