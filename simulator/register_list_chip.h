// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/register_chip.h"
#include "support/register_list.h"

namespace zor::sim {

/// Gives the chip the list's first chip's registers with their values after reset, and its way to the FIFOs.
/// Addresses that the chip does not have are left out.
void takeFirstChip(RegisterChip& chip, const RegisterList& list);

} // namespace zor::sim
