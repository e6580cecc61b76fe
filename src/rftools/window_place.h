// SPDX-License-Identifier: MIT
#pragma once

#include "elements/form.h"

namespace zor {

/// Right of a panel and level with it, as far as the main window's room allows.
/// @param panel  nullptr leaves the tool where it is
void placeBeside(Form& tool, const Form* panel);

} // namespace zor
