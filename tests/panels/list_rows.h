// SPDX-License-Identifier: MIT
#pragma once

#include "panels/panel_bench.h"

#include <gtest/gtest.h>

#include <vector>

namespace zor::testing {

/// A setting by a list's entry, and the word that it gives.
struct ListRow {
    const char* list;
    const char* entry;
    const char* word;
    const char* text;
};

/// Each of them on a panel of its own.
template <class Panel>
void expectRows(const std::vector<ListRow>& rows) {
    for (const ListRow& row : rows) {
        PanelBench<Panel> bench;
        bench.open();
        bench.choose(row.list, row.entry);
        EXPECT_EQ(bench.text(row.word), row.text) << row.list << " " << row.entry;
    }
}

} // namespace zor::testing
