// SPDX-License-Identifier: MIT
#include "fuzz/register_tool_harness.h"

/// Whatever a file of macro rows holds: the rows load again as they were saved, and no register changes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static zor::testing::RegisterToolHarness bench;
    zor::SPI& tool = bench.tool();
    bench.load(tool.files.LoadGUI, data, size);
    std::string file = bench.saved(tool.files.SaveGUI);
    bench.load(tool.files.LoadGUI, reinterpret_cast<const std::uint8_t*>(file.data()), file.size());
    if (bench.saved(tool.files.SaveGUI) != file) {
        std::abort();
    }
    for (const zor::Setting& setting : tool.table.rows()) {
        if (setting.HexValue != setting.DefaultValue) {
            std::abort();
        }
    }
    return 0;
}
