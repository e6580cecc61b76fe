// SPDX-License-Identifier: MIT
#include "fuzz/register_tool_harness.h"

/// A script that was loaded is saved and loads again as it was, neither a line more nor one less; run without
/// a board, it ends.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static zor::testing::RegisterToolHarness bench;
    zor::BatchPage& page = bench.tool().batch;
    zor::Batch& batch = page.selected();
    bench.load(page.LoadBach, data, size);
    std::string title = batch.BatchName.text();
    std::string script = batch.BatchCommands.text();
    std::string file = bench.saved(page.SaveBatch);
    bench.load(page.LoadBach, reinterpret_cast<const std::uint8_t*>(file.data()), file.size());
    if (batch.BatchName.text() != title || batch.BatchCommands.text() != script) {
        std::abort();
    }
    batch.BatchRun.click();
    if (!batch.BatchRun.enabled() || bench.tool().Stop.enabled()) {
        std::abort();
    }
    return 0;
}
