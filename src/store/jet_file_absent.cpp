// SPDX-License-Identifier: MIT
// Takes the place of jet_file.cpp where the library for Jet databases is not installed.
#include "store/jet_file.h"

#include "platform/register_store.h"
#include "store/translator.h"

namespace zor::store {

bool jetIsBuilt() {
    return false;
}

RegisterList readJetFile(const std::filesystem::path&) {
    throw StoreError(notOfThisStore, "This program was built without the library that reads such databases");
}

} // namespace zor::store
