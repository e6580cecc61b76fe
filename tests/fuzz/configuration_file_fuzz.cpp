// SPDX-License-Identifier: MIT
#include "fuzz/register_tool_harness.h"

/// Whatever a configuration holds: every register has a value without blanks and its bits, and what is saved
/// then loads to the same values.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static zor::testing::RegisterToolHarness bench;
    zor::SPI& tool = bench.tool();
    bench.load(tool.files.LoadSettings, data, size);
    for (const zor::Setting& setting : tool.table.rows()) {
        if (setting.HexValue.find(' ') != std::string::npos ||
            setting.BinaryValue != zor::binaryValue(setting.HexValue)) {
            std::abort();
        }
    }
    std::string file = bench.saved(tool.files.SaveSettings);
    bench.load(tool.files.LoadSettings, reinterpret_cast<const std::uint8_t*>(file.data()), file.size());
    if (bench.saved(tool.files.SaveSettings) != file) {
        std::abort();
    }
    return 0;
}
