// SPDX-License-Identifier: MIT
#pragma once

#include "platform/register_store.h"

#include <SQLiteCpp/Exception.h>

namespace zor::store {

/// What the engine's failure is to the user.
[[nodiscard]] StoreError storeError(const SQLite::Exception& failure);

/// Runs what speaks to the engine; its failures leave as StoreError.
template <class Action>
void throughStore(Action action) {
    try {
        action();
    } catch (const SQLite::Exception& failure) {
        throw storeError(failure);
    }
}

} // namespace zor::store
