// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"

namespace zor {

/// Opens the register database of this user: the one in the program's folder, or in the user's where that
/// cannot be written. Where there is none yet, the former versions' ZOR.mdb is taken over if it lies there
/// and can be read; else the database that comes with the program is copied there, or
/// an empty one is made. Throws StoreError.
[[nodiscard]] std::unique_ptr<RegisterStore> openRegisterFile(const Platform& platform);

} // namespace zor
