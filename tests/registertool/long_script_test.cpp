// SPDX-License-Identifier: MIT
// A script of very many lines: each costs what it has, not what the script has.
#include "registertool/register_bench.h"

#include <gtest/gtest.h>

namespace zor::testing {

namespace {

TEST(LongScript, RunsWhatStandsBehindManyRemarks) {
    constexpr int remarks = 200'000;
    RegisterBench bench;
    bench.startAndSearch();
    SPI& tool = bench.openTool();
    std::string script;
    for (int line = 0; line < remarks; ++line) {
        script += "/c\r\n";
    }
    tool.batch.batches[0].BatchCommands.setText(script + "H1\r\n");
    (void)bench.takeSent();
    tool.batch.batches[0].BatchRun.click();
    EXPECT_EQ(bench.takeSent(), std::vector<std::string>{"H1"});
    EXPECT_EQ(tool.batch.LoopCount.text(), "1");
}

} // namespace

} // namespace zor::testing
