// SPDX-License-Identifier: MIT
#pragma once

#include "platform/register_store.h"
#include "support/register_list.h"

namespace zor::store {

/// Adds the list's chips and registers to the master tables, all or none. Throws StoreError.
void putRegisterList(RegisterStore& store, const RegisterList& list);

/// Makes a database that holds the list; a file that is there already is replaced only when the new one is
/// whole. Throws StoreError.
void makeDatabase(RegisterStores& stores, const std::filesystem::path& file, const RegisterList& list);

} // namespace zor::store
