// SPDX-License-Identifier: MIT
#include "fuzz/register_tool_harness.h"

/// Whatever a FIFO file holds: no row has more than two characters, the rows stay as many as they were, and
/// both FIFOs load the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using Column = zor::FifoPage::Column;
    static zor::testing::RegisterToolHarness bench;
    zor::SPI& tool = bench.tool();
    bench.load(tool.files.OpenTXff, data, size);
    bench.load(tool.files.OpenRXff, data, size);
    if (tool.fifo.TXFIFO.rowCount() != bench.fifoBytes || tool.fifo.RXFIFO.rowCount() != bench.fifoBytes) {
        std::abort();
    }
    for (std::size_t row = 0; row < bench.fifoBytes; ++row) {
        zor::StoredValue sent = tool.fifo.value(Column::Hex, row);
        if (sent.value_or("").size() > 2 || sent != tool.fifo.value(Column::Expected, row)) {
            std::abort();
        }
    }
    std::string file = bench.saved(tool.files.SaveTXff);
    if (bench.saved(tool.files.SaveRXff) != file) {
        std::abort();
    }
    return 0;
}
