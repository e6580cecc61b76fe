// SPDX-License-Identifier: MIT
#include "eeprom/image.h"
#include "support/error.h"
#include "support/lines.h"

#include <cstdlib>

/// Whatever the bytes are: what was taken apart, the five cut characters put back, is the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string bytes(reinterpret_cast<const char*>(data), size);
    try {
        zor::ImageFile file = zor::readImageFile(bytes);
        std::string whole = zor::withLineEnds(bytes);
        if (file.preamble.size() + file.text.size() + 5 != whole.size() ||
            !whole.starts_with(file.preamble + file.text)) {
            std::abort();
        }
        std::string digits = zor::hexDigits(file.text);
        if (digits.size() != zor::countHexDigits(file.text) ||
            zor::hexDigits(zor::shownImage(digits)) != digits) {
            std::abort();
        }
        (void)zor::pageWriteCommand(digits, 16, 31);
        (void)zor::differenceReport(digits, zor::foldedHexDigits(file.text));
    } catch (const zor::ToolError&) {
        // A box for the user.
    }
    return 0;
}
