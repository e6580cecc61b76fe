// SPDX-License-Identifier: MIT
#include "store/sqlite_error.h"

#include "store/translator.h"

#include <sqlite3.h>

#include <algorithm>
#include <iterator>

namespace zor::store {

namespace {

struct Row {
    int engine;
    int number;
};

// clang-format off
constexpr Row rows[] = {
    {SQLITE_PERM,     permissionDenied},
    {SQLITE_READONLY, permissionDenied},
    {SQLITE_AUTH,     permissionDenied},
    // Another program holds it.
    {SQLITE_BUSY,     permissionDenied},
    {SQLITE_LOCKED,   permissionDenied},
    {SQLITE_FULL,     diskFull},
    {SQLITE_TOOBIG,   diskFull},
    {SQLITE_CANTOPEN, pathFileAccess},
    {SQLITE_IOERR,    deviceInputOutput},
    {SQLITE_CORRUPT,  deviceInputOutput},
    {SQLITE_NOTADB,   deviceInputOutput},
    {SQLITE_NOMEM,    deviceInputOutput},
};
// clang-format on

} // namespace

StoreError storeError(const SQLite::Exception& failure) {
    const Row* row = std::ranges::find(rows, failure.getErrorCode() & 0xFF, &Row::engine);
    // Anything else is a table or column that the file does not have.
    return row == std::end(rows) ? StoreError(notOfThisStore, failure.what()) : StoreError(row->number);
}

} // namespace zor::store
