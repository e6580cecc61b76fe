// SPDX-License-Identifier: MIT
#pragma once

#include "transcript/scripted_dialogs.h"

namespace zor::testing {

using transcript::ScriptedDialogs;

} // namespace zor::testing
