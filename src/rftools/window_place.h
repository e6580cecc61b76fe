// SPDX-License-Identifier: MIT
#pragma once

#include "elements/form.h"

namespace zor {

/// Right of a panel and level with it, as far as the main window's room allows.
/// @param panel  nullptr leaves the tool where it is
void placeBeside(Form& tool, const Form* panel);

/// Just below a panel or another tool and level with its left side, as far as the main window's room allows.
/// @param above  nullptr leaves the tool where it is
void placeBelow(Form& tool, const Form* above);

} // namespace zor
