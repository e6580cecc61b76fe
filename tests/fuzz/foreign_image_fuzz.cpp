// SPDX-License-Identifier: MIT
#include "eeprom/foreign_image.h"

#include "support/error.h"

#include <cstdint>
#include <cstdlib>

/// What can be imported can be exported, and comes back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const char* extension : {".hex", ".bin", ""}) {
        try {
            std::string digits = zor::foreignImageDigits(bytes, extension);
            if (digits.empty()) {
                continue;
            }
            std::string exported = zor::foreignImageBytes(digits, ".hex");
            if (zor::foreignImageDigits(exported, ".hex") != digits) {
                std::abort();
            }
        } catch (const zor::ToolError&) {
            // A box for the user.
        }
    }
    return 0;
}
