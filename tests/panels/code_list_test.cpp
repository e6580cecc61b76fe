// SPDX-License-Identifier: MIT
#include "panels/common/code_list.h"

#include "elements/desk.h"
#include "elements/form.h"
#include "virtual/virtual_loop.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace zor {

namespace {

struct Lists {
    testing::VirtualLoop loop;
    Desk desk{loop};
    Form form{desk, "Form", "Form"};
    CodeList list{form, "List"};

    Lists() {
        list.fill(std::vector<CodeList::Entry>{{"a", 7}, {"b", 3}});
        form.show();
    }
};

} // namespace

TEST(CodeList, HasItsCodeBeforeTheWindowsOwnActionRuns) {
    Lists lists;
    int seen = -1;
    lists.list.onChange = [&] { seen = lists.list.code(); };
    EXPECT_TRUE(lists.list.chooseText("b"));
    EXPECT_EQ(seen, 3);
    lists.list.select(0);
    EXPECT_EQ(seen, 7);
}

TEST(CodeList, KeepsItsCodeWhenTheEntriesChange) {
    Lists lists;
    lists.list.select(1);
    lists.list.fill(std::vector<CodeList::Entry>{{"b", 5}});
    EXPECT_EQ(lists.list.code(), 3);
    EXPECT_EQ(lists.list.textOfCode(5), "b");
    EXPECT_EQ(lists.list.textOfCode(3), std::nullopt);
}

} // namespace zor
