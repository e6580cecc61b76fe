// SPDX-License-Identifier: MIT
#pragma once

#include "platform/register_store.h"
#include "support/register_list.h"

#include <functional>

namespace zor::store {

/// Adds the list's chips and registers to the master tables, all or none. Throws StoreError.
void putRegisterList(RegisterStore& store, const RegisterList& list);

/// Makes a database that holds the list; a file that is there already is replaced only when the new one is
/// whole. Throws StoreError.
void makeDatabase(RegisterStores& stores, const std::filesystem::path& file, const RegisterList& list);

/// Puts the list's chips with their registers in place of those of the same names; within the caller's
/// transaction.
/// @param dropRegisters  takes out the registers of a chip's number
void replaceChips(RegisterStore& store, const RegisterList& list,
                  const std::function<void(int chip)>& dropRegisters);

} // namespace zor::store
