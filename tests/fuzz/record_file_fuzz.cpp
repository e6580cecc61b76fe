// SPDX-License-Identifier: MIT
#include "support/error.h"
#include "support/record_file.h"

/// The first byte decides in which order the three forms are asked for.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    unsigned turn = size > 0 ? data[0] : 0;
    zor::RecordReader reader(std::string(reinterpret_cast<const char*>(data), size));
    while (!reader.atEnd()) {
        try {
            switch (turn++ % 3) {
            case 0:
                (void)reader.text();
                break;
            case 1:
                (void)reader.boolean();
                break;
            default:
                (void)reader.integer();
                break;
            }
        } catch (const zor::ToolError&) {
            // The record is passed all the same.
        }
    }
    return 0;
}
