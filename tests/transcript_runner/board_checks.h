// SPDX-License-Identifier: MIT
#pragma once

#include "transcript_runner/world.h"

namespace zor::testing {

// What lies on the simulated boards.

void expectEeprom(World& world, const Arguments& arguments);
/// Bytes that the loader on a port was given, from an address on.
void expectImage(World& world, const Arguments& arguments);

} // namespace zor::testing
