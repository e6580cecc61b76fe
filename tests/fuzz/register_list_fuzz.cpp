// SPDX-License-Identifier: MIT
#include "support/register_list.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        (void)zor::readRegisterList({reinterpret_cast<const char*>(data), size});
    } catch (const zor::RegisterListError&) {
        // The line is named to whoever wrote it.
    }
    return 0;
}
