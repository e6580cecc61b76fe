// SPDX-License-Identifier: MIT
#include "support/csv.h"
#include "support/register_table.h"

#include <cstdint>
#include <cstdlib>

/// A table is read whole or refused; what was read is written and read back as the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        zor::RegisterList list = zor::readRegisterTable({reinterpret_cast<const char*>(data), size});
        std::string table = zor::registerTable(list);
        if (zor::registerTable(zor::readRegisterTable(table)) != table) {
            std::abort();
        }
    } catch (const zor::CsvError& error) {
        if (error.line == 0 || error.column == 0) {
            std::abort();
        }
    }
    return 0;
}
