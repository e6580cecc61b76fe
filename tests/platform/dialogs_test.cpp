// SPDX-License-Identifier: MIT
#include "platform/dialogs.h"

#include <gtest/gtest.h>

namespace zor {

TEST(FileChoice, KnowsAnExtensionThatIsNotTheDefaultOne) {
    struct Row {
        const char* name;
        const char* defaultExtension;
        bool differs;
    };
    // clang-format off
    constexpr Row rows[] = {
        {"/bench/a.tc",    "tc",  false},
        {"/bench/a.TC",    "tc",  false},
        {"/bench/a.tc1",   "tc",  true},
        {"/bench/a.t",     "tc",  true},
        {"/bench/a.txt",   "tc",  true},
        {"/bench/a",       "tc",  false},
        {"/bench/a.",      "tc",  false},
        {"/bench.old/a",   "tc",  false},
        {"*.tc",           "txt", false},
    };
    // clang-format on
    for (const Row& row : rows) {
        EXPECT_EQ(extensionDiffers(row.name, row.defaultExtension), row.differs) << row.name;
    }
}

} // namespace zor
