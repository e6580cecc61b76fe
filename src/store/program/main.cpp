// SPDX-License-Identifier: MIT
// register-database LIST FILE: makes a register database from a list of chips and registers.
#include "host/files.h"
#include "store/register_list_store.h"
#include "store/sqlite_register_store.h"

#include <cstdio>

int main(int argc, char** argv) {
    using namespace zor;

    if (argc != 3) {
        std::fputs("Usage: register-database LIST FILE\n", stderr);
        return 2;
    }
    try {
        store::SqliteRegisterStores stores;
        store::makeDatabase(stores, argv[2], readRegisterList(readFile(argv[1])));
        return 0;
    } catch (const RegisterListError& error) {
        std::fprintf(stderr, "%s:%zu: %s\n", argv[1], error.line, error.what());
    } catch (const ToolError& error) {
        std::fprintf(stderr, "register-database: %d, %s\n", error.number(), error.what());
    }
    return 1;
}
