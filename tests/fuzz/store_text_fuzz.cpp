// SPDX-License-Identifier: MIT
#include "store/translator.h"
#include "support/error.h"

#include <cstdlib>

/// Whatever reaches the store is one of its texts or an error, and no value stands in what the engine gets.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view text(reinterpret_cast<const char*>(data), size);
    try {
        zor::store::Translation translation = zor::store::translate(text);
        if (translation.sql.find_first_of("';") != std::string::npos) {
            std::abort();
        }
    } catch (const zor::ToolError&) {
        // Told to whoever asked.
    }
    try {
        (void)zor::store::readCriterion(text);
    } catch (const zor::ToolError&) {
        // The same.
    }
    return 0;
}
